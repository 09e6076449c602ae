#include "cli/Verbs.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/answers/WaitingNote.h"
#include "cli/session/AdapterReport.h"
#include "cli/session/Session.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

/// The same fields for the eye: each port under a heading of its own.
ordered_json portByPort(const ordered_json& answer) {
  auto shown = answer;
  shown.erase("ports");
  for (const auto& port : answer.at("ports")) {
    auto& section = shown["port " + port.at("port").dump()];
    section = port;
    section.erase("port");
  }
  return shown;
}

AdapterReading readAdapter(CommandContext& context, Session& session,
                           const DeviceListEntry& adapter) {
  const WaitingNote note(context, adapter.Sequence + ": waiting for the adapter's tool to answer");
  return session.reader().read(adapter);
}

std::vector<DeviceListEntry> chosenAdapters(Session& session,
                                            const std::vector<std::string>& labels) {
  if (labels.empty()) return session.adapters();
  std::vector<DeviceListEntry> chosen;
  chosen.reserve(labels.size());
  for (const std::string& label : labels) chosen.push_back(session.find(label));
  return chosen;
}

void showOne(CommandContext& context, Session& session, const DeviceListEntry& adapter) {
  const AdapterReading reading = readAdapter(context, session, adapter);
  printAnswer(context, context.json ? adapterFields(reading, Reader::Program)
                                    : portByPort(adapterFields(reading, Reader::Person)));
}

void showSeveral(CommandContext& context, Session& session,
                 const std::vector<DeviceListEntry>& adapters) {
  auto answers = ordered_json::array();
  auto sections = ordered_json::object();
  for (const DeviceListEntry& adapter : adapters) {
    const AdapterReading reading = readAdapter(context, session, adapter);
    if (context.json) {
      answers.push_back(adapterFields(reading, Reader::Program));
    } else {
      sections[adapter.Sequence + " (" + adapter.WWN + ")"] =
          portByPort(adapterFields(reading, Reader::Person));
    }
  }
  printAnswer(context, context.json ? answers : sections);
}

void showAdapters(CommandContext& context, const LaunchOptions& options,
                  const std::vector<std::string>& labels) {
  Session session(context, options, SessionPurpose::Looking);
  session.discover();
  const auto adapters = chosenAdapters(session, labels);
  if (labels.size() == 1) {
    showOne(context, session, adapters.front());
  } else {
    showSeveral(context, session, adapters);
  }
}

}  // namespace

void addShowCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options) {
  const auto labels = std::make_shared<std::vector<std::string>>();
  auto* command = app.add_subcommand("show", "Show adapters and their two ports");
  addJsonFlag(*command, context);
  command->add_option("LABEL", *labels,
                      "The adapters: labels, such as \"B - 2\" or B2, or WWN or MAC addresses; all "
                      "of them without one");
  command->callback([&context, &options, labels] { showAdapters(context, options, *labels); });
}

}  // namespace corvane
