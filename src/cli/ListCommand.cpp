#include "cli/Verbs.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "cli/answers/WaitingNote.h"
#include "cli/session/AdapterReport.h"
#include "cli/session/Session.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

// In a dump no driver tells the firmware.
ordered_json rowFields(Session& session, const DeviceListEntry& adapter) {
  ordered_json row = entryFields(adapter);
  if (session.isDump() && adapter.family() == AdapterFamily::FibreChannel) row["Version"] = nullptr;
  row["ports"] = linkFields(session.reader().readLinks(adapter));
  return row;
}

ordered_json withWords(ordered_json row) {
  row.erase("ports");
  for (auto& field : row)
    if (field.is_null()) field = "not in the dump";
  return row;
}

void listAdapters(CommandContext& context, const LaunchOptions& options) {
  Session session(context, options, SessionPurpose::Looking);
  session.discover();
  auto rows = ordered_json::array();
  {
    const WaitingNote note(context, "list: waiting for the interfaces' links");
    for (const auto& adapter : session.adapters()) {
      const ordered_json row = rowFields(session, adapter);
      rows.push_back(context.json ? row : withWords(row));
    }
  }
  printAnswer(context, rows);
  if (rows.empty() && !context.json) printNote(context, "list: there is no adapter");
}

}  // namespace

void addListCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options) {
  auto* command = app.add_subcommand("list", "List the adapters in display order");
  addJsonFlag(*command, context);
  command->callback([&context, &options] { listAdapters(context, options); });
}

}  // namespace corvane
