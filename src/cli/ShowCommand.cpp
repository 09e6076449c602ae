#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/Verbs.h"
#include "cli/answers/WaitingNote.h"
#include "cli/session/AdapterReport.h"
#include "cli/session/DumpReport.h"
#include "cli/session/Session.h"

namespace corvane {

namespace {

/// The same fields for the eye: each port under a heading of its own.
nlohmann::ordered_json portByPort(const nlohmann::ordered_json& answer) {
  auto shown = answer;
  shown.erase("ports");
  for (const auto& port : answer.at("ports")) {
    auto& section = shown["port " + port.at("port").dump()];
    section = port;
    section.erase("port");
  }
  return shown;
}

nlohmann::ordered_json fieldsOf(CommandContext& context, Session& session,
                                const std::string& label) {
  const WaitingNote note(context, label + ": waiting for the adapter's tool to answer");
  return adapterFields(session.app());
}

void showAdapter(CommandContext& context, const LaunchOptions& options, const std::string& label) {
  Session session(context, options, SessionPurpose::Looking);
  session.discover();
  session.select(label);
  auto answer = fieldsOf(context, session, label);
  if (session.isDump()) {
    keepWhatDumpTellsOfAdapter(answer);
    if (!context.json) nameWhatIsMissing(answer);
  }
  printAnswer(context, context.json ? answer : portByPort(answer));
}

}  // namespace

void addShowCommand(CLI::App& app, CommandContext& context, const LaunchOptions& options) {
  const auto label = std::make_shared<std::string>();
  auto* command = app.add_subcommand("show", "Show an adapter and its two ports");
  addJsonFlag(*command, context);
  command
      ->add_option("LABEL", *label,
                   "The adapter: its label, such as \"B - 2\" or B2, or a WWN or MAC address")
      ->required();
  command->callback([&context, &options, label] { showAdapter(context, options, *label); });
}

}  // namespace corvane
