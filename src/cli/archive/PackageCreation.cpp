#include "cli/archive/PackageCreation.h"

#include <fmt/format.h>

#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <system_error>

#include "cli/answers/CommandOutput.h"
#include "cli/answers/StagedFile.h"
#include "cli/archive/ArchiveManifest.h"
#include "cli/archive/ArchiveReport.h"
#include "fibre_channel/FirmwareImageFile.h"

namespace corvane {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestFile = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void failOnFile(const fs::path& path, ExitStatus status, const std::string& reason) {
  throw CommandFailure(status, path.string(), reason,
                       "The manifest names this file; its paths are relative to the manifest.");
}

std::uintmax_t requireFile(const fs::path& path) {
  std::error_code error;
  if (!fs::exists(path, error)) failOnFile(path, ExitStatus::NotFound, "there is no such file");
  if (!fs::is_regular_file(path, error)) {
    failOnFile(path, ExitStatus::Failed, "is not a regular file");
  }
  const auto size = fs::file_size(path, error);
  if (error) failOnFile(path, ExitStatus::Failed, error.message());
  if (size > largestFile) failOnFile(path, ExitStatus::Failed, "is too large for a package");
  return size;
}

/// The bytes of a file, not cleared before they are read.
struct FileBytes {
  std::unique_ptr<std::uint8_t[]> bytes;
  std::size_t size = 0;
};

FileBytes loadFile(const fs::path& path) {
  const auto size = requireFile(path);
  FileBytes loaded{std::make_unique_for_overwrite<std::uint8_t[]>(size), size};
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                             std::fclose);
  if (!file || std::fread(loaded.bytes.get(), 1, size, file.get()) != size) {
    failOnFile(path, ExitStatus::Failed, "cannot be read");
  }
  return loaded;
}

std::uint64_t totalSize(const ArchiveManifest& manifest) {
  std::uint64_t total = 0;
  for (const auto& file : manifest.files) total += requireFile(file.path);
  return total;
}

/// Puts the files of a manifest into one package, showing how far it is. The files
/// are loaded one at a time.
class PackageBuilder {
 public:
  PackageBuilder(CommandContext& context, ArchiveManifest manifest, std::string shownPath)
      : manifest_(std::move(manifest)),
        shownPath_(std::move(shownPath)),
        total_(totalSize(manifest_)),
        progress_(context, "writing", total_) {}

  /// Throws CommandFailure, also when the program is interrupted.
  void build(const StagedFile& staged) {
    ArchiveInfo info;
    info.id = manifest_.id.data();
    info.version = manifest_.version.data();
    info.fileCount = static_cast<std::int32_t>(manifest_.files.size());
    const auto load = [&](std::int32_t index) -> const ArchiveFile& {
      requireUninterrupted(staged, shownPath_);
      return loadRecord(manifest_.files.at(static_cast<std::size_t>(index)));
    };
    const auto status = CORVANE2Archive_Compress(staged.path().c_str(), info, {load, total_},
                                                 [&](std::uint64_t done, std::uint64_t total) {
                                                   progress_.show(done, total);
                                                   requireUninterrupted(staged, shownPath_);
                                                 });
    if (status != ArchiveSuccess) failArchive(shownPath_, status);
  }

 private:
  const ArchiveFile& loadRecord(ArchiveManifest::File& file) {
    loaded_ = {};  // two files need not fit into the memory
    loaded_ = loadFile(file.path);
    record_.id = file.id.data();
    record_.version = file.version.data();
    record_.description = file.description.data();
    record_.name = file.name.data();
    record_.size = static_cast<std::int32_t>(loaded_.size);
    record_.data = loaded_.bytes.get();
    return record_;
  }

  ArchiveManifest manifest_;
  std::string shownPath_;
  std::uint64_t total_;
  PackageProgress progress_;
  FileBytes loaded_;
  ArchiveFile record_;
};

/// Paths that lead to the same file would be read first and then replaced.
void refuseToReplace(const std::string& output, const fs::path& source) {
  std::error_code ignored;
  if (fs::equivalent(output, source, ignored)) {
    throw CommandFailure(ExitStatus::WrongCommandLine, output,
                         "is what the package is made of and would be replaced by it",
                         "Name another file for the package.");
  }
}

[[noreturn]] void failOnPlace(const std::string& output, const std::system_error& error) {
  throw CommandFailure(
      ExitStatus::Failed, output,
      fmt::format("status 0x{:x}, {}: {}", static_cast<std::uint32_t>(ArchiveNotOpened),
                  VelmarArchive_status_text(ArchiveNotOpened), error.code().message()),
      "Check that the folder exists and that you may write to it.",
      nlohmann::ordered_json{{"status", ArchiveNotOpened}});
}

void noteIfUseless(CommandContext& context, const std::string& output) {
  std::error_code error;
  const auto size = fs::file_size(output, error);
  if (!error && size >= firmwarePackageSizeLimit) {
    printNote(context, fmt::format("{}: has {} bytes, and the utility accepts packages of at most "
                                   "{} bytes",
                                   output, size, firmwarePackageSizeLimit - 1));
  }
}

}  // namespace

void createPackage(CommandContext& context, const std::string& output,
                   const std::string& manifest) {
  auto content = readArchiveManifest(manifest);
  refuseToReplace(output, manifest);
  for (const auto& file : content.files) refuseToReplace(output, file.path);
  PackageBuilder builder(context, std::move(content), output);
  try {
    StagedFile staged(output);
    builder.build(staged);
    staged.commit();
  } catch (const std::system_error& error) {
    failOnPlace(output, error);
  }
  noteIfUseless(context, output);
}

}  // namespace corvane
