#pragma once

#include <chrono>
#include <cstdio>
#include <string>

#include "OnlineUpdate/UpdateCatalogue.h"
#include "platform/Platform.h"

namespace corvane {

/// The transfer library's write callback: writes to the stream and returns what the standard file
/// write returns; 0 without a stream.
size_t write_data(const void* buffer, size_t size, size_t count, std::FILE* stream);

/// Why a file name of a catalogue is not used: it would leave its folder, read as an option or as
/// something else by the shell, or hit a file that the system itself keeps there. Empty when it is
/// only a name.
std::string updateFileNameProblem(const std::string& name, const Paths& paths);

/// What a download came to.
struct UpdateDownload {
  int64_t result = 0;   ///< 0 done, 1 the transfer failed, 2 the library could not be initialised
  std::string problem;  ///< in words; empty when it is done
  bool cancelled = false;  ///< it failed because the user did not want to wait for it
};

/// Brings the file at `url` to `path`. The bytes are written to a fresh file beside it, which takes
/// its place once it is whole: what stood there before is replaced, never written through, and a
/// transfer that breaks off leaves it as it was. Blocks the caller.
UpdateDownload downloadUpdateFile(const Platform& platform, const std::string& url,
                                  const std::string& path, TransferProgress progress);

/// A server that hands the catalogue out byte by byte is not waited for any longer.
inline constexpr std::chrono::seconds catalogueTimeLimit{30};

/// Fetches the catalogue at `url` and reads it. Blocks the caller, for catalogueTimeLimit at most.
CatalogueReading fetchCatalogue(const Platform& platform, const std::string& url,
                                TransferProgress progress);

}  // namespace corvane
