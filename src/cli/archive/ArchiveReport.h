#pragma once

/// What the archive commands share: statuses as answers and failures, progress, and
/// a package that has been read.

#include <cstdint>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "CORVANE2Archive/ArchiveIndex.h"
#include "CORVANE2Archive/VelmarArchive.h"
#include "cli/answers/CommandOutput.h"
#include "cli/answers/StagedFile.h"

namespace corvane {

/// Fails with the archive status in hexadecimal and in words, `subject` being the
/// path that it is about. A package that is not there is ExitStatus::NotFound.
[[noreturn]] void failArchive(const std::string& subject, ArchiveStatus status);

/// Fails unless `status` is 0.
void requireSuccess(const std::string& package, ArchiveStatus status);

/// Fails when the program was interrupted while it wrote `staged`, which `output` names.
void requireUninterrupted(const StagedFile& staged, const std::string& output);

/// Prints `fields` behind a status of 0; as text the status goes without saying.
void printStatusAnswer(CommandContext& context, const nlohmann::ordered_json& fields);

/// A file's id in quotation marks for a message, cut if it is long.
std::string quotedId(std::string_view fileId);

/// Says that a file's bytes are not as many as the package claims.
std::string sizeProblem(std::string_view fileId, std::uint64_t decoded, std::int32_t claimed);

/// The size of a package in bytes, 0 when it cannot be told.
std::uint64_t packageSize(const std::string& path);

/// A progress bar for packages large enough to be waited for.
class PackageProgress {
 public:
  PackageProgress(CommandContext& context, const std::string& label, std::uint64_t packageBytes);

  /// Draws that `done` of `total` are done, if the package is large.
  void show(std::uint64_t done, std::uint64_t total);

  /// To be given to an archive function; empty for a small package. Valid as long
  /// as this object.
  ArchiveProgress function();

 private:
  ProgressBar bar_;
  bool large_;
};

/// A package in memory whose own record has been understood.
class ReadPackage {
 public:
  /// Throws CommandFailure with the status when the package cannot be read.
  ReadPackage(CommandContext& context, const std::string& path);
  ~ReadPackage();
  ReadPackage(const ReadPackage&) = delete;
  ReadPackage& operator=(const ReadPackage&) = delete;

  const ArchiveInfo& info() const noexcept { return info_; }
  std::uint64_t size() const noexcept { return index_.size(); }

  /// Calls `action` for each file in order. Throws CommandFailure with the status
  /// at the first one that is not complete.
  void eachFile(const std::function<void(const ArchiveMember&)>& action) const;

 private:
  std::string path_;
  char* text_ = nullptr;
  std::string_view index_;
  ArchiveInfo info_;
};

}  // namespace corvane
