#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "cli/Verbs.h"
#include "cli/session/AdapterReport.h"
#include "cli/session/DumpReport.h"
#include "cli/session/Session.h"

namespace corvane {

namespace {

void listAdapters(CommandContext& context, const LaunchOptions& options) {
  Session session(context, options, SessionPurpose::Looking);
  session.discover();
  auto entries = nlohmann::ordered_json::array();
  for (const auto& entry : session.app().state().CorvaneList.entries())
    entries.push_back(entryFields(entry));
  if (session.isDump()) {
    for (auto& entry : entries) keepWhatDumpTells(entry);
    if (!context.json) nameWhatIsMissing(entries);
  }
  printAnswer(context, entries);
  if (entries.empty() && !context.json) printNote(context, "list: there is no adapter");
}

}  // namespace

void addListCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options) {
  auto* command = app.add_subcommand("list", "List the adapters in display order");
  addJsonFlag(*command, context);
  command->callback([&context, &options] { listAdapters(context, options); });
}

}  // namespace corvane
