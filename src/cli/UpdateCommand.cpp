#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "cli/Verbs.h"
#include "cli/answers/Interruption.h"
#include "cli/session/AdapterLabels.h"
#include "cli/session/AdministratorRights.h"
#include "cli/session/ControllerSession.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

constexpr const char* commandSubject = "update";

struct UpdateOptions {
  std::string server;
  std::vector<std::string> only;
  bool yes = false;
};

// Checking.

ordered_json candidateFields(const UpdateDevice& candidate) {
  ordered_json wwn = nullptr;
  if (!candidate.deviceWWN.empty()) wwn = candidate.deviceWWN;
  return {{"updateName", candidate.updateName},
          {"deviceWWN", wwn},
          {"currentVer", candidate.currentVer},
          {"updateDescription", candidate.updateDescription}};
}

ordered_json candidateList(const std::vector<UpdateDevice>& candidates) {
  ordered_json list = ordered_json::array();
  for (const UpdateDevice& candidate : candidates) list.push_back(candidateFields(candidate));
  return list;
}

void requireReadCatalogue(const UpdateCheckOutcome& outcome) {
  if (!outcome.networkAnswered) {
    throw CommandFailure(ExitStatus::Failed, commandSubject, "the network does not answer",
                         "Connect to the network and try again.");
  }
  if (outcome.catalogueProblem.empty()) return;
  throw CommandFailure(ExitStatus::Failed, outcome.catalogueUrl, outcome.catalogueProblem,
                       "Check the server's address, or name another with --server URL.");
}

/// What the alerts of the check tell is told by the command itself.
const std::vector<UpdateDevice>& check(ControllerSession& session, const UpdateOptions& options) {
  OnlineUpdate& update = session.app().onlineUpdate();
  session.prompts().answerAlert = [](const AlertContent&) -> std::optional<int> { return 0; };
  update.setServer(options.server);
  update.checkUpdate();
  requireReadCatalogue(update.lastCheck());
  return update.updateItem();
}

void printCandidates(CommandContext& context, const std::vector<UpdateDevice>& candidates) {
  if (candidates.empty()) printNote(context, "Your system is up to date!");
  if (context.json || !candidates.empty()) printAnswer(context, candidateList(candidates));
}

void runCheck(CommandContext& context, const LaunchOptions& launch, const UpdateOptions& options) {
  ControllerSession session(context, launch, SessionPurpose::Looking);
  session.discover();
  printCandidates(context, check(session, options));
}

// Choosing.

/// The row of the candidate for the adapter that `label` names.
int64_t candidateRow(ControllerSession& session, const std::string& label) {
  const auto entries = session.app().state().CorvaneList.entries();
  const auto rows = rowsNamedBy(entries, label);
  if (rows.size() > 1) {
    throw CommandFailure(ExitStatus::Failed, label, "fits several adapters",
                         "Name the adapter by its world wide name.");
  }
  const std::string wwn = rows.empty() ? "" : entries[static_cast<size_t>(rows.front())].WWN;
  const auto& candidates = session.app().onlineUpdate().updateItem();
  const auto found = std::find_if(candidates.begin(), candidates.end(), [&](const auto& candidate) {
    return !wwn.empty() && candidate.deviceWWN == wwn;
  });
  if (found == candidates.end()) {
    throw CommandFailure(
        ExitStatus::NotFound, label,
        rows.empty() ? "there is no such adapter" : "there is no update for it now",
        "\"corvane update check\" lists the updates; software goes before "
        "firmware, and 8G firmware before 16G firmware.");
  }
  return found - candidates.begin();
}

void tick(ControllerSession& session, const UpdateOptions& options) {
  OnlineUpdate& update = session.app().onlineUpdate();
  std::vector<int64_t> rows;
  for (const std::string& label : options.only) rows.push_back(candidateRow(session, label));
  for (int64_t row = 0; options.only.empty() && row < update.numberOfRowsInTableView(); ++row) {
    rows.push_back(row);
  }
  for (const int64_t row : rows) {
    update.tableViewSetObjectValueForTableColumn(PropertyValue(1), "selected", row);
  }
}

std::vector<UpdateDevice> ticked(const std::vector<UpdateDevice>& candidates) {
  std::vector<UpdateDevice> chosen;
  for (const UpdateDevice& candidate : candidates) {
    if (candidate.isSelect) chosen.push_back(candidate);
  }
  return chosen;
}

void requireAnswerable(const CommandContext& context, const UpdateOptions& options) {
  if (options.yes || context.inputIsTerminal) return;
  throw CommandFailure(ExitStatus::Failed, commandSubject,
                       "the updates have to be confirmed, and there is no terminal to ask on",
                       "Give --yes to go on without being asked.");
}

bool isConfirmed(CommandContext& context, const UpdateOptions& options,
                 const std::vector<UpdateDevice>& chosen) {
  if (options.yes) return true;
  std::vector<std::string> lines;
  lines.reserve(chosen.size() + 1);
  for (const UpdateDevice& update : chosen) {
    lines.push_back(update.updateName + ": " + update.currentVer);
  }
  lines.emplace_back("All I/O access to the adapters stops meanwhile.");
  return askToGoOn(context, lines);
}

// Installing.

std::string extractionProblem(const ImageExtraction& extraction) {
  if (extraction.complete) return {};
  if (extraction.status == ArchiveSuccess) return "the package does not hold the whole image";
  return fmt::format("the package cannot be used: status {:#x}, {}",
                     static_cast<uint32_t>(extraction.status),
                     VelmarArchive_status_text(extraction.status));
}

std::string adapterProblem(const AdapterUpdateOutcome& adapter) {
  if (adapter.succeeded()) return {};
  if (!adapter.attached) return "the adapter has gone";
  if (adapter.transferResult != 0) return "the extracted image could not be read";
  return fmt::format("the adapter refused the image: status {:#x}",
                     static_cast<uint32_t>(adapter.driverStatus));
}

void requireInstalled(const UpdateInstallationOutcome& outcome) {
  const auto require = [](const std::string& subject, const std::string& problem,
                          const char* hint) {
    if (!problem.empty()) throw CommandFailure(ExitStatus::Failed, subject, problem, hint);
  };
  constexpr const char* nothingChanged = "Nothing was installed; try again later.";
  const UpdateDownload& download = outcome.download;
  require(commandSubject, download.result == 0 ? "" : "the download failed: " + download.problem,
          nothingChanged);
  if (outcome.adapters.empty()) return;
  require(commandSubject, extractionProblem(outcome.extraction), nothingChanged);
  for (const AdapterUpdateOutcome& adapter : outcome.adapters) {
    require(adapter.deviceWWN, adapterProblem(adapter),
            "The adapter keeps its firmware; attach it again and repeat the update.");
  }
}

void install(ControllerSession& session, CommandContext& context) {
  OnlineUpdate& update = session.app().onlineUpdate();
  ProgressIndicator& progress = update.controls().updateProgress;
  ProgressBar bar(context, "downloading");
  progress.observe([&bar, &progress] {
    constexpr uint64_t steps = 1000;
    const auto fraction = progress.fraction();
    if (fraction) bar.show(static_cast<uint64_t>(*fraction * static_cast<double>(steps)), steps);
  });
  std::string lastTold;
  session.prompts().answerAlert = [&lastTold](const AlertContent& alert) -> std::optional<int> {
    lastTold = alert.informativeText;
    return std::nullopt;
  };
  // An interrupt ends the download; what comes after it would be left half done and goes on.
  const KeptInterruption interruption;
  update.whileDownloading([&update, &interruption] {
    if (interruption.hasArrived()) update.cancelUpdate();
  });
  update.selectUpdate();
  session.runUntil([&update] { return !update.isInstalling(); });
  update.whileDownloading(nullptr);
  progress.observe(nullptr);
  session.prompts().answerAlert = nullptr;
  requireInstalled(update.lastInstallation());
  if (!lastTold.empty()) printNote(context, lastTold);
}

void runInstall(CommandContext& context, const LaunchOptions& launch,
                const UpdateOptions& options) {
  requireAnswerable(context, options);
  ControllerSession session(context, launch);
  session.requireChangeable(commandSubject);
  session.discover();
  const auto& candidates = check(session, options);
  if (candidates.empty() && options.only.empty()) return printCandidates(context, candidates);
  tick(session, options);
  const std::vector<UpdateDevice> chosen = ticked(candidates);
  if (!isConfirmed(context, options, chosen)) {
    throw CommandFailure(ExitStatus::Failed, commandSubject, "the updates were not confirmed",
                         "Nothing was changed.");
  }
  takeAdministratorRights(session, commandSubject);
  install(session, context);
  printCandidates(context, chosen);
}

}  // namespace

void addUpdateCommand(CLI::App& app, CommandContext& context, const LaunchOptions& launch) {
  const auto options = std::make_shared<UpdateOptions>();
  auto* update = app.add_subcommand("update", "Look for updates online and install them");
  update->require_subcommand(1);
  auto* check = update->add_subcommand("check", "List what is newer on the update server");
  auto* install = update->add_subcommand("install", "Install what is newer");
  for (auto* command : {check, install}) {
    addJsonFlag(*command, context);
    command->add_option("--server", options->server, "Ask this update server")->type_name("URL");
  }
  install->add_option("--only", options->only, "Only for this adapter; may be given several times")
      ->type_name("WWN");
  install->add_flag("--yes", options->yes, "Go on without being asked");
  check->callback([&context, &launch, options] { runCheck(context, launch, *options); });
  install->callback([&context, &launch, options] { runInstall(context, launch, *options); });
}

}  // namespace corvane
