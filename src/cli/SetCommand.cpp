#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/SettingChange.h"
#include "cli/Verbs.h"
#include "cli/answers/Interruption.h"
#include "cli/answers/WaitingNote.h"
#include "cli/session/AdapterReport.h"
#include "cli/session/AdministratorRights.h"
#include "cli/session/ModeNames.h"
#include "cli/session/Session.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

void requireSensible(const SetOptions& options) {
  const auto fail = [&options](const std::string& reason) {
    throw CommandFailure(ExitStatus::WrongCommandLine, options.label, reason,
                         "See \"corvane set --help\".");
  };
  const bool depthAlone =
      options.queueDepth && !options.speed && !options.topology && !options.alpa;
  if (!options.concernsFibreChannel() && !options.concernsTenGigabit()) fail("nothing to set");
  if (options.concernsFibreChannel() && options.concernsTenGigabit()) {
    fail("no adapter has settings of both families");
  }
  if (!options.port && !depthAlone) fail("--port is missing");
  if (options.port && *options.port != 1 && *options.port != 2) {
    throw CommandFailure(ExitStatus::NotFound, options.label,
                         "there is no port " + std::to_string(*options.port),
                         "An adapter has the ports 1 and 2.");
  }
}

AdapterFamily familyOnShow(AppDelegate& app) {
  return static_cast<AdapterFamily>(app.state().intProduct);
}

void requireFamily(AppDelegate& app, const SetOptions& options) {
  const bool isFibreChannel = familyOnShow(app) == AdapterFamily::FibreChannel;
  if (isFibreChannel == options.concernsFibreChannel()) return;
  refuseSetting(options, isFibreChannel ? "a Fibre Channel adapter" : "a 10GbE adapter",
                "it has no such setting");
}

// The record that the list holds; another one is on show once the adapter has gone.
const void* adapterOnShow(AppDelegate& app) {
  if (familyOnShow(app) == AdapterFamily::FibreChannel) return app.state().corvaneDevice.get();
  return app.state().corvaneDevice_10GE.get();
}

ordered_json showPort(AppDelegate& app, const SetOptions& options) {
  auto port = portFields(app, options.port.value_or(1));
  if (port.contains("accessible")) {
    refuseSetting(options, "port " + std::to_string(*options.port),
                  "its driver has not enabled it");
  }
  return port;
}

std::vector<SettingChange> changesOf(AppDelegate& app, const SetOptions& options) {
  return familyOnShow(app) == AdapterFamily::FibreChannel ? fibreChannelChanges(app, options)
                                                          : tenGigabitChanges(app, options);
}

// A change is on its way until its page has settled. An interrupt waits for the last one, since
// half of a preset would be left otherwise.
void applyOneByOne(CommandContext& context, Session& session,
                   const std::vector<SettingChange>& changes) {
  const WaitingNote note(context, "waiting for the adapter to take the change");
  const KeptInterruption interruption(
      [&context] { printNote(context, "interrupted, but the change is finished first"); });
  auto& controls = session.app().controls();
  for (const SettingChange& change : changes) {
    change.apply();
    session.runUntil([&controls] {
      return !controls.portProgress.isRunning() && !controls.modeProgress.isRunning();
    });
  }
}

void requireTaken(const std::vector<SettingChange>& changes, const SetOptions& options,
                  const ordered_json& port) {
  for (const SettingChange& change : changes) {
    if (change.isTaken(port)) continue;
    throw CommandFailure(ExitStatus::Failed, options.label,
                         change.what + ": the adapter has not taken it",
                         "The port keeps its former setting; \"corvane show\" prints it.", port);
  }
}

void changeSettings(CommandContext& context, const LaunchOptions& launch,
                    const SetOptions& options) {
  requireSensible(options);
  Session session(context, launch);
  session.discover();
  session.select(options.label);
  session.requireChangeable(options.label);
  AppDelegate& app = session.app();
  requireFamily(app, options);
  takeAdministratorRights(session, options.label);

  {
    const WaitingNote note(context, options.label + ": waiting for the adapter's tool to answer");
    showPort(app, options);
  }
  const void* const adapter = adapterOnShow(app);
  const auto changes = changesOf(app, options);
  applyOneByOne(context, session, changes);
  if (adapterOnShow(app) != adapter) {
    throw CommandFailure(ExitStatus::Failed, options.label, "the adapter has gone meanwhile",
                         "Attach it again and look with \"corvane show\" what it has taken.");
  }
  const ordered_json port = showPort(app, options);
  requireTaken(changes, options, port);
  printAnswer(context, port);
}

CLI::Validator choice(const std::vector<std::string>& values) {
  return CLI::IsMember(values);
}

CLI::Validator twoHexadecimalDigits() {
  return {[](std::string& text) -> std::string {
            const std::string digits = text.starts_with("0x") ? text.substr(2) : text;
            const bool fits =
                !digits.empty() && digits.size() <= 2 &&
                digits.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
            return fits ? "" : "\"" + text + "\" is no address of two hexadecimal digits";
          },
          "HEX"};
}

void addFibreChannelOptions(CLI::App& command, SetOptions& options) {
  command.add_option("--speed", options.speed, "Speed of the port in Gb/s")
      ->check(choice({"auto", "2", "4", "8", "16"}));
  command.add_option("--topology", options.topology, "Topology of the port")
      ->check(choice({"ptp", "loop"}));
  command.add_option("--alpa", options.alpa, "Hard arbitrated-loop address of the port")
      ->check(twoHexadecimalDigits());
  command.add_option("--queue-depth", options.queueDepth,
                     "Queue depth: without --port one of the device page's menu, with it a number "
                     "from 1 to 254");
}

void addTenGigabitOptions(CLI::App& command, SetOptions& options) {
  command.add_option("--mode", options.mode, "Performance preset of the port")
      ->check(choice({modeNames.begin(), modeNames.end()}));
  command.add_option("--checksum", options.checksum, "Checksum offload of the port")
      ->check(choice({"on", "off"}));
  command.add_option("--rsc", options.rsc, "Receive-side coalescing of the port")
      ->check(choice({"on", "off"}));
}

}  // namespace

void addSetCommand(CLI::App& app, CommandContext& context, const LaunchOptions& launch) {
  const auto options = std::make_shared<SetOptions>();
  auto* command = app.add_subcommand("set", "Change the settings of a port");
  addJsonFlag(*command, context);
  command->add_option("LABEL", options->label, "The adapter: a label, a WWN or a MAC address")
      ->required();
  command->add_option("--port", options->port, "Which port, 1 or 2");
  addFibreChannelOptions(*command, *options);
  addTenGigabitOptions(*command, *options);
  command->callback([&context, &launch, options] { changeSettings(context, launch, *options); });
}

}  // namespace corvane
