#include "cli/archive/ArchiveReport.h"

#include <fmt/format.h>

#include <filesystem>
#include <nlohmann/json.hpp>

namespace corvane {

namespace {

using nlohmann::ordered_json;

/// Smaller packages are done before anybody could look.
constexpr std::uint64_t largePackage = std::uint64_t{8} * 1024 * 1024;

/// Ids come from packages, which may be made to flood a terminal.
constexpr std::size_t longestQuotedId = 80;

const char* hintFor(ArchiveStatus status) {
  switch (status) {
    case ArchiveFileIdNotFound:
      return "\"corvane archive list FILE\" shows the ids of a package.";
    case ArchiveNotRecognized:
      return "Is this a firmware package?";
    case ArchiveChecksumMismatch:
      return "The package is damaged or was never completed; get or build it again.";
    case ArchiveOutputNotCreated:
    case ArchiveNotOpened:
      return "Check the path and its permissions.";
    case ArchiveShortWrite:
      return "Is the disk full?";
    case ArchiveShortRead:
      return "The package was cut short; get it again.";
    default:
      return "";
  }
}

bool isMissing(const std::string& path) {
  std::error_code error;
  return !std::filesystem::exists(path, error) && !error;
}

}  // namespace

void failArchive(const std::string& subject, ArchiveStatus status) {
  const bool missing = status == ArchiveNotOpened && isMissing(subject);
  throw CommandFailure(
      missing ? ExitStatus::NotFound : ExitStatus::Failed, subject,
      fmt::format("status 0x{:x}, {}{}", static_cast<std::uint32_t>(status),
                  VelmarArchive_status_text(status), missing ? ": there is no such file" : ""),
      hintFor(status), ordered_json{{"status", status}});
}

void requireSuccess(const std::string& package, ArchiveStatus status) {
  if (status != ArchiveSuccess) failArchive(package, status);
}

void requireUninterrupted(const StagedFile& staged, const std::string& output) {
  if (!staged.isInterrupted()) return;
  throw CommandFailure(ExitStatus::Failed, output, "writing it was interrupted",
                       "What was there before has been kept.");
}

void printStatusAnswer(CommandContext& context, const ordered_json& fields) {
  if (!context.json) {
    printAnswer(context, fields);
    return;
  }
  ordered_json answer{{"status", ArchiveSuccess}};
  answer.update(fields);
  printAnswer(context, answer);
}

std::string quotedId(std::string_view fileId) {
  if (fileId.size() <= longestQuotedId) return fmt::format("\"{}\"", fileId);
  return fmt::format("\"{}...\"", fileId.substr(0, longestQuotedId));
}

std::string sizeProblem(std::string_view fileId, std::uint64_t decoded, std::int32_t claimed) {
  return fmt::format("the file {} holds {} bytes but claims {}", quotedId(fileId), decoded,
                     claimed);
}

std::uint64_t packageSize(const std::string& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  return error ? 0 : size;
}

PackageProgress::PackageProgress(CommandContext& context, const std::string& label,
                                 std::uint64_t packageBytes)
    : bar_(context, label), large_(packageBytes >= largePackage) {}

void PackageProgress::show(std::uint64_t done, std::uint64_t total) {
  if (large_) bar_.show(done, total);
}

ArchiveProgress PackageProgress::function() {
  if (!large_) return {};
  return [this](std::uint64_t done, std::uint64_t total) { bar_.show(done, total); };
}

PackageRecord::PackageRecord(const std::string& path, const ArchiveVisitor& eachFile,
                             const ArchiveProgress& progress) {
  const auto status = CORVANE2Archive_Parse_Archive(path.c_str(), info_, eachFile, progress);
  if (status == ArchiveSuccess) return;
  VelmarArchive_free_archive(info_);
  failArchive(path, status);
}

PackageRecord::~PackageRecord() {
  VelmarArchive_free_archive(info_);
}

}  // namespace corvane
