#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "cli/Verbs.h"
#include "cli/answers/Interruption.h"
#include "cli/session/ControllerSession.h"

namespace corvane {

namespace {

constexpr const char* logsSubject = "logs";

/// Runs the collection to its end, with its progress on the terminal.
LogCollectionResult collect(ControllerSession& session, CommandContext& context) {
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

/// The folder that the user chose, absolute; empty for the usual one.
std::filesystem::path chosenFolder(const std::string& to) {
  return to.empty() ? std::filesystem::path() : std::filesystem::absolute(to).lexically_normal();
}

/// Where the logs are, as a person finds them. The shell was given the usual folder with "~", and a
/// chosen one in quotation marks where it needs them.
std::string foundAt(const std::string& told, const std::filesystem::path& chosen,
                    const std::string& home) {
  if (!chosen.empty()) return (chosen / std::filesystem::path(told).filename()).string();
  return told.starts_with("~/") ? home + told.substr(1) : told;
}

/// Showing the folder is no part of the collection.
bool isCollecting(const std::string& line) {
  return !line.starts_with("open ");
}

void requireNotCancelled(const LogCollectionResult& result) {
  if (!result.cancelled) return;
  throw CommandFailure(ExitStatus::Failed, logsSubject,
                       "the unified log was not collected, so the folder was removed",
                       "Run the command again and give an administrator's password.");
}

void requireWhole(CommandContext& context, const LogCollectionResult& result,
                  const std::string& folder) {
  for (const std::string& line : result.failedLines) printNote(context, line + ": failed");
  if (std::none_of(result.failedLines.begin(), result.failedLines.end(), isCollecting)) return;
  throw CommandFailure(ExitStatus::Failed, folder, "not everything could be collected",
                       "The lines above name the commands that failed.", {{"folder", folder}});
}

/// Half a collection would pass for a whole one. Only what the collection made is removed.
void requireUninterrupted(const KeptInterruption& interruption, const LogCollectionResult& result,
                          const std::string& folder) {
  if (!interruption.hasArrived() || result.folder.empty()) return;
  std::error_code error;
  std::filesystem::remove_all(folder, error);
  throw CommandFailure(ExitStatus::Failed, logsSubject,
                       "the collection was interrupted, so the folder was removed",
                       "Run the command again.");
}

void collectLogs(CommandContext& context, const LaunchOptions& options, const std::string& to) {
  ControllerSession session(context, options);
  session.requireChangeable(logsSubject);
  const std::filesystem::path chosen = chosenFolder(to);
  if (!chosen.empty()) session.app().logCollection().setFolder(chosen.string());
  const KeptInterruption interruption([&context] {
    printNote(context,
              "interrupted: the command that runs now is waited for, then the folder goes");
  });
  const LogCollectionResult result = collect(session, context);
  const std::string folder = foundAt(result.folder, chosen, session.platform().paths.home);
  requireUninterrupted(interruption, result, folder);
  requireNotCancelled(result);
  requireWhole(context, result, folder);
  printAnswer(context, {{"folder", folder}});
}

}  // namespace

void addLogsCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options) {
  const auto folder = std::make_shared<std::string>();
  auto* command = app.add_subcommand("logs", "Collect the logs that support asks for");
  addJsonFlag(*command, context);
  command->add_option("--to", *folder, "Collect below this folder, not ~/Desktop/AllLogs")
      ->check([](const std::string& to) { return to.empty() ? "names no folder" : ""; })
      ->type_name("DIR");
  command->callback([&context, &options, folder] { collectLogs(context, options, *folder); });
}

}  // namespace corvane
