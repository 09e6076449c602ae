#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "TemporaryFolder.h"

namespace corvane::fuzz {

/// The path of a file that the code under test reads or writes.
inline std::string scratchPath(const char* name) {
  static const TemporaryFolder folder;
  return folder.file(name);
}

inline void writeScratch(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline std::string readScratch(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace corvane::fuzz
