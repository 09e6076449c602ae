#include <CLI/CLI.hpp>
#include <array>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <system_error>

#include "CORVANE2Archive/CORVANE2Archive.h"
#include "cli/Verbs.h"
#include "cli/answers/CommandOutput.h"
#include "cli/answers/StagedFile.h"
#include "cli/archive/ArchiveReport.h"
#include "cli/archive/ArchiveVerification.h"
#include "cli/archive/PackageCreation.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

/// Enough for any version that a person would print; packages may hold longer ones.
constexpr std::size_t printedVersionCapacity = 4096;

struct ArchiveArguments {
  std::string package;
  std::string fileId;
  std::string path;
};

void createPackageFile(CommandContext& context, const ArchiveArguments& arguments) {
  createPackage(context, arguments.package, arguments.path);
  printStatusAnswer(context, ordered_json::object());
}

ordered_json fileFields(const ArchiveMember& member) {
  return {{"id", member.id},
          {"version", member.version},
          {"description", member.description},
          {"name", member.name},
          {"size", member.size}};
}

void listPackage(CommandContext& context, const ArchiveArguments& arguments) {
  auto files = ordered_json::array();
  PackageProgress progress(context, "reading", packageSize(arguments.package));
  const PackageRecord package(
      arguments.package,
      [&files](const ArchiveMember& member) { files.push_back(fileFields(member)); },
      progress.function());
  printStatusAnswer(context, {{"id", package.info().id},
                              {"version", package.info().version},
                              {"fileCount", package.info().fileCount},
                              {"files", files}});
}

void verifyPackageFile(CommandContext& context, const ArchiveArguments& arguments) {
  const auto found = verifyPackage(context, arguments.package);
  if (found.problems > 0) {
    throw CommandFailure(ExitStatus::Failed, arguments.package, found.text(),
                         "Do not use this package; get or build it again.",
                         ordered_json{{"status", ArchiveSuccess}, {"problem", found.text()}});
  }
  printStatusAnswer(context, {{"files", found.files}, {"bytes", found.bytes}});
}

void refuseToOverwriteThePackage(const ArchiveArguments& arguments) {
  std::error_code ignored;
  if (std::filesystem::equivalent(arguments.package, arguments.path, ignored)) {
    throw CommandFailure(ExitStatus::WrongCommandLine, arguments.path,
                         "is the package itself, which extracting would overwrite",
                         "Name another file to extract into.");
  }
}

/// Reads the package and writes the file that is asked for.
ArchiveExtraction decompress(CommandContext& context, const ArchiveArguments& arguments,
                             const StagedFile& output) {
  ArchiveExtraction extraction;
  PackageProgress progress(context, "reading", packageSize(arguments.package));
  const auto status = CORVANE2Archive_Decompress(
      arguments.package.c_str(), arguments.fileId.c_str(), output.path().c_str(), &extraction,
      [&](std::uint64_t done, std::uint64_t total) {
        progress.show(done, total);
        requireUninterrupted(output, arguments.path);
      });
  if (status == ArchiveOutputNotCreated) failArchive(arguments.path, status);
  requireSuccess(arguments.package, status);
  return extraction;
}

/// What is there already under the output's name stays until the whole file can take its place.
ArchiveExtraction decompressAside(CommandContext& context, const ArchiveArguments& arguments) {
  try {
    StagedFile output(arguments.path);
    const ArchiveExtraction extraction = decompress(context, arguments, output);
    if (extraction.written < extraction.due) failArchive(arguments.path, ArchiveShortWrite);
    output.commit();
    return extraction;
  } catch (const std::system_error&) {
    failArchive(arguments.path, ArchiveOutputNotCreated);
  }
}

void extractFile(CommandContext& context, const ArchiveArguments& arguments) {
  refuseToOverwriteThePackage(arguments);
  const ArchiveExtraction extraction = decompressAside(context, arguments);
  if (static_cast<std::int64_t>(extraction.decoded) != extraction.claimed) {
    printNote(context, sizeProblem(arguments.fileId, extraction.decoded, extraction.claimed));
  }
  printStatusAnswer(context, ordered_json::object());
}

void printVersion(CommandContext& context, const ArchiveArguments& arguments) {
  std::array<char, printedVersionCapacity> version{};
  ArchiveStatus status = ArchiveSuccess;
  {
    PackageProgress progress(context, "reading", packageSize(arguments.package));
    status = CORVANE2Archive_Get_File_Version(arguments.package.c_str(), arguments.fileId.c_str(),
                                              version, progress.function());
  }
  requireSuccess(arguments.package, status);
  if (context.json) {
    printStatusAnswer(context, {{"version", version.data()}});
  } else {
    printAnswer(context, version.data());
  }
}

using ArchiveAction = void (*)(CommandContext&, const ArchiveArguments&);

CLI::App& addAction(CLI::App& archive, CommandContext& context,
                    const std::shared_ptr<ArchiveArguments>& arguments, const char* name,
                    const char* description, ArchiveAction action) {
  auto* command = archive.add_subcommand(name, description);
  addJsonFlag(*command, context);
  command->callback([&context, arguments, action] { action(context, *arguments); });
  return *command;
}

}  // namespace

void addArchiveCommand(CLI::App& app, CommandContext& context) {
  const auto arguments = std::make_shared<ArchiveArguments>();
  auto* archive = app.add_subcommand("archive", "Build, look into and unpack firmware packages");
  archive->require_subcommand(1);

  auto& create = addAction(*archive, context, arguments, "create",
                           "Build a package of the files that a manifest names", createPackageFile);
  create.add_option("OUT", arguments->package, "The package to write")->required();
  create.add_option("MANIFEST", arguments->path, "What goes into it, a JSON file")->required();

  auto& list = addAction(*archive, context, arguments, "list",
                         "Show what a package says about itself and its files", listPackage);
  list.add_option("FILE", arguments->package, "The package")->required();

  auto& verify = addAction(*archive, context, arguments, "verify",
                           "Read a whole package and each of its files", verifyPackageFile);
  verify.add_option("FILE", arguments->package, "The package")->required();

  auto& extract = addAction(*archive, context, arguments, "extract",
                            "Write a file of a package to the disk", extractFile);
  extract.add_option("FILE", arguments->package, "The package")->required();
  extract.add_option("ID", arguments->fileId, "The id of the file in the package")->required();
  extract.add_option("OUT", arguments->path, "The file to write")->required();

  auto& version = addAction(*archive, context, arguments, "version",
                            "Print the version of a file of a package", printVersion);
  version.add_option("FILE", arguments->package, "The package")->required();
  version.add_option("ID", arguments->fileId, "The id of the file in the package")->required();
}

}  // namespace corvane
