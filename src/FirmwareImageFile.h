#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace corvane {

/// Closes the stream it is given; for std::unique_ptr.
struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a firmware image for binary reading; null when it cannot be opened. Only a plain file of
/// the running user is opened, and never through a link: the image lies in a folder where anybody
/// may put files, and what it holds is programmed into an adapter.
OpenFile openFirmwareImage(const std::string& path);

}  // namespace corvane
