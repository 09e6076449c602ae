#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace corvane {

/// How long a program waits for another one that has the scratch file: a little longer than one
/// command may take.
inline constexpr std::chrono::milliseconds scratchFileWaitLimit{15000};

/// The file that takes the output of one command, from before the command runs until its output
/// has been read back. The folder may be writable by everybody, so the file is never reached
/// through a link and is readable by its owner alone; a file of another kind or owner that stands
/// in its place is removed. While the object lives, no other process of the utility has the file.
/// The file itself stays when the object goes.
class ScratchFile {
 public:
  /// Makes the file, or empties the one from the last command. Waits for another process that has
  /// it, for `waitLimit` at most.
  explicit ScratchFile(const std::string& path,
                       std::chrono::milliseconds waitLimit = scratchFileWaitLimit);
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile();

  /// Whether there is such a file. If not, no command must write to the path.
  bool isOpen() const { return descriptor_ >= 0; }

  /// Whether there is none because another process had it all the time.
  bool isBusy() const { return busy_; }

  /// What the file holds, at most scratchFileLimit bytes; nothing when it cannot be read.
  std::optional<std::string> contents() const;

 private:
  bool busy_ = false;
  int descriptor_;
};

/// The most bytes of a command's output that are looked at. The real tools print a few kilobytes.
inline constexpr size_t scratchFileLimit = size_t{16} << 20;

}  // namespace corvane
