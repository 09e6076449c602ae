#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "cli/answers/Interruption.h"

namespace corvane {

/// A file that is written beside its destination and takes its place only when it
/// is complete, so that a failure costs nothing that was there before. A destination
/// that is there but is no regular file, such as a device, is written directly.
///
/// While a file beside its destination is being written, an interrupt does not end the program,
/// which would leave the file there, but is kept for whoever writes to ask for.
class StagedFile {
 public:
  /// Creates the file beside `destination`, or beside what it links to. Throws
  /// std::system_error when that is not possible.
  explicit StagedFile(const std::filesystem::path& destination);

  /// Removes the file unless it was committed.
  ~StagedFile();
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;

  /// The path to write to.
  const std::string& path() const noexcept { return staging_; }

  /// Whether the program was interrupted meanwhile. Any thread may call.
  bool isInterrupted() const { return interruption_ && interruption_->hasArrived(); }

  /// Puts the file in the place of the destination, with its permissions if there
  /// was one. Throws std::filesystem::filesystem_error.
  void commit();

 private:
  std::filesystem::path destination_;
  std::string staging_;
  bool pending_ = false;
  std::optional<KeptInterruption> interruption_;
};

}  // namespace corvane
