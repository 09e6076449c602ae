#include "cli/LogsCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "cli/Session.h"

namespace corvane {

namespace {

constexpr const char* subject = "logs";

/// Runs the collection to its end, with its progress on the terminal.
LogCollectionResult collect(Session& session, CommandContext& context) {
  constexpr std::uint64_t percent = 100;
  std::optional<LogCollectionResult> result;
  auto& progress = session.app().controls().logProgress;
  ProgressBar bar(context, "Collecting logs");
  progress.observe([&] {
    if (progress.isRunning())
      bar.show(static_cast<std::uint64_t>(progress.fraction().value_or(0) * percent), percent);
  });
  LogCollection& collection = session.app().logCollection();
  collection.whenFinished([&result](const LogCollectionResult& ended) { result = ended; });
  collection.downloadLogs();
  session.runUntil([&result] { return result.has_value(); });
  progress.observe({});
  collection.whenFinished({});
  return result.value_or(LogCollectionResult{{}, true, {}});
}

/// The folder as a person finds it, whose name the shell was given with "~".
std::string foundAt(std::string folder, const std::string& home) {
  if (folder.starts_with("~/")) folder.replace(0, 1, home);
  return folder;
}

/// Showing the folder is no part of the collection.
bool isCollecting(const std::string& line) {
  return !line.starts_with("open ");
}

void collectLogs(CommandContext& context, const LaunchOptions& options, const std::string& to) {
  Session session(context, options);
  session.requireChangeable(subject);
  if (!to.empty()) {
    session.app().logCollection().setFolder(std::filesystem::absolute(to).lexically_normal());
  }
  const LogCollectionResult result = collect(session, context);
  if (result.cancelled) {
    throw CommandFailure(ExitStatus::Failed, subject,
                         "the unified log was not collected, so the folder was removed",
                         "Run the command again and give an administrator's password.");
  }
  for (const std::string& line : result.failedLines) printNote(context, line + ": failed");
  const std::string folder = to.empty() ? foundAt(result.folder, session.platform().paths.home)
                                        : (std::filesystem::absolute(to).lexically_normal() /
                                           std::filesystem::path(result.folder).filename())
                                              .string();
  if (std::any_of(result.failedLines.begin(), result.failedLines.end(), isCollecting)) {
    throw CommandFailure(ExitStatus::Failed, folder, "not everything could be collected",
                         "The lines above name the commands that failed.", {{"folder", folder}});
  }
  printAnswer(context, {{"folder", folder}});
}

}  // namespace

void addLogsCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options) {
  const auto folder = std::make_shared<std::string>();
  auto* command = app.add_subcommand("logs", "Collect the logs that support asks for");
  addJsonFlag(*command, context);
  command->add_option("--to", *folder, "Collect below this folder, not ~/Desktop/AllLogs")
      ->type_name("DIR");
  command->callback([&context, &options, folder] { collectLogs(context, options, *folder); });
}

}  // namespace corvane
