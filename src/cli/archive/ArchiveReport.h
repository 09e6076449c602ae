#pragma once

/// What the archive commands share: statuses as answers and failures, progress, and
/// reading a package.

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "CORVANE2Archive/CORVANE2Archive.h"
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

/// What a package says of itself.
class PackageRecord {
 public:
  /// Reads the package and shows each of its files to `eachFile`. Throws CommandFailure with the
  /// status when the package cannot be read, and at the first file that is not complete.
  PackageRecord(const std::string& path, const ArchiveVisitor& eachFile,
                const ArchiveProgress& progress);
  ~PackageRecord();
  PackageRecord(const PackageRecord&) = delete;
  PackageRecord& operator=(const PackageRecord&) = delete;

  const ArchiveInfo& info() const noexcept { return info_; }

 private:
  ArchiveInfo info_;
};

}  // namespace corvane
