#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "changes/History.h"
#include "cli/Verbs.h"
#include "cli/session/AdapterLabels.h"
#include "cli/session/Session.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

ordered_json historyFields(const HistoryEntry& entry) {
  return {{"time", entry.time},
          {"what", entry.what},
          {"label", entry.label},
          {"WWN", entry.WWN},
          {"port", entry.port ? ordered_json(*entry.port) : ordered_json(nullptr)},
          {"from", textOrNothing(entry.from)},
          {"to", textOrNothing(entry.to)},
          {"outcome", entry.outcome}};
}

// The adapter need not be attached any more, so it is looked for in the history alone.
void printHistory(CommandContext& context, const LaunchOptions& options, const std::string& label) {
  Session session(context, options, SessionPurpose::Looking);
  session.requireChangeable("history");
  auto changes = ordered_json::array();
  for (const HistoryEntry& entry : History(session.platform().paths).entries()) {
    const bool isAskedFor = label.empty() || isNamedBy(entry.label, entry.WWN, label);
    if (isAskedFor) changes.push_back(historyFields(entry));
  }
  printAnswer(context, changes);
  if (changes.empty() && !context.json) printNote(context, "history: there is no change");
}

}  // namespace

void addHistoryCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options) {
  const auto label = std::make_shared<std::string>();
  auto* command = app.add_subcommand("history", "List the changes made on this computer");
  addJsonFlag(*command, context);
  command->add_option("LABEL", *label, "Only those of this adapter: a label or a WWN");
  command->callback([&context, &options, label] { printHistory(context, options, *label); });
}

}  // namespace corvane
