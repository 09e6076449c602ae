#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>

namespace corvane {

/// A stdio file that closes itself. Writes are not buffered, so that a write which
/// the disk refuses is seen by the call that made it.
class ArchiveStream {
 public:
  /// Opens for writing or updating; `mode` is that of fopen.
  ArchiveStream(const char* path, const char* mode);

  /// Opens for binary reading. A directory, which some systems open although
  /// nothing can be read from it, counts as not opened.
  static ArchiveStream forReading(const char* path);

  explicit operator bool() const noexcept { return file_ != nullptr; }

  /// Writes until the disk takes no more. Returns how many bytes it took.
  std::size_t writeSome(const void* bytes, std::size_t length);

  /// True when every byte was written, or read.
  bool write(const void* bytes, std::size_t length);
  bool read(void* bytes, std::size_t length);

  bool seek(std::size_t offset);

  /// The length in bytes, found by seeking; the position is then the beginning.
  /// Nothing for what cannot be measured, such as a pipe.
  std::optional<std::uint64_t> measure();

  /// Closes early, to learn whether the system kept what was written.
  bool close();

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
  };

  std::unique_ptr<std::FILE, CloseFile> file_;
};

}  // namespace corvane
