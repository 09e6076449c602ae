#include "cli/Verbs.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "changes/ChangeHistory.h"
#include "changes/ChangeSender.h"
#include "changes/LinkFollowing.h"
#include "cli/answers/Interruption.h"
#include "cli/answers/WaitingNote.h"
#include "cli/session/AdapterReport.h"
#include "cli/session/AdministratorRights.h"
#include "cli/session/ModeNames.h"
#include "cli/session/Session.h"
#include "inventory/InstalledDriver.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

/// What `set` was told to change. Texts are as typed.
struct SetOptions {
  std::string label;
  std::optional<int64_t> port;
  std::optional<std::string> speed;
  std::optional<std::string> topology;
  std::optional<std::string> alpa;
  std::optional<uint32_t> queueDepth;
  std::optional<std::string> mode;
  std::optional<std::string> checksum;
  std::optional<std::string> rsc;

  bool concernsFibreChannel() const { return speed || topology || alpa || queueDepth; }
  bool concernsTenGigabit() const { return mode || checksum || rsc; }
};

/// One wish with the option that it was typed as, such as "--speed 8".
struct TypedWish {
  std::string option;
  SettingWish wish;
};

[[noreturn]] void refuse(const SetOptions& options, const std::string& what,
                         const std::string& reason, const ordered_json& answer = ordered_json()) {
  throw CommandFailure(ExitStatus::Failed, options.label, what + ": " + reason,
                       "\"corvane show\" prints what the adapter has. Nothing was changed.",
                       answer);
}

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

// The wishes, in the order in which they are carried out.

int64_t speedValue(const std::string& speed) {
  constexpr int64_t megabitsPerGigabit = 1000;
  return speed == "auto" ? 0 : std::stoll(speed) * megabitsPerGigabit;
}

int64_t modeValue(const std::string& mode) {
  return std::find(modeNames.begin(), modeNames.end(), mode) - modeNames.begin() + 1;
}

std::vector<TypedWish> wishesOf(const SetOptions& options) {
  constexpr int hexadecimal = 16;
  std::vector<TypedWish> wishes;
  const auto add = [&wishes](const std::string& option, const std::string& text, Setting setting,
                             int64_t value) {
    wishes.push_back({option + " " + text, {setting, value}});
  };
  if (options.speed) add("--speed", *options.speed, Setting::Speed, speedValue(*options.speed));
  if (options.topology)
    add("--topology", *options.topology, Setting::Topology, *options.topology == "loop" ? 1 : 0);
  if (options.alpa)
    add("--alpa", *options.alpa, Setting::HardAlpa, std::stol(*options.alpa, nullptr, hexadecimal));
  if (options.queueDepth)
    add("--queue-depth", std::to_string(*options.queueDepth), Setting::QueueDepth,
        *options.queueDepth);
  if (options.mode) add("--mode", *options.mode, Setting::Mode, modeValue(*options.mode));
  if (options.checksum)
    add("--checksum", *options.checksum, Setting::ChecksumOffload, *options.checksum == "on");
  if (options.rsc) add("--rsc", *options.rsc, Setting::ReceiveCoalescing, *options.rsc == "on");
  return wishes;
}

// What the adapter offers is checked for all wishes before the first is sent.

std::string choices(Setting setting, const std::vector<int64_t>& values) {
  std::string list;
  for (const int64_t value : values)
    list += (list.empty() ? "" : ", ") + settingText(setting, value);
  return list;
}

void requireFamily(const PortTarget& port, const SetOptions& options) {
  const bool isFibreChannel = port.family() == AdapterFamily::FibreChannel;
  if (isFibreChannel == options.concernsFibreChannel()) return;
  refuse(options, isFibreChannel ? "a Fibre Channel adapter" : "a 10GbE adapter",
         "it has no such setting");
}

void requireEnteredDepth(const TypedWish& typed, const SetOptions& options) {
  if (typed.wish.value >= 1 && typed.wish.value <= largestEnteredQueueDepth) return;
  refuse(options, typed.option, "with --port it is a number from 1 to 254");
}

void requireOffered(const TypedWish& typed, const AdapterReading& adapter,
                    const SetOptions& options) {
  const Setting setting = typed.wish.setting;
  if (setting == Setting::QueueDepth && options.port) return requireEnteredDepth(typed, options);
  const auto offered =
      offeredValues(setting, adapter.product, adapter.driverVersion.valueOr(missingDriverVersion));
  if (std::find(offered.begin(), offered.end(), typed.wish.value) != offered.end()) return;
  if (offered.empty()) refuse(options, typed.option, "this adapter does not offer it");
  const std::string any =
      setting == Setting::QueueDepth ? ", or with --port any from 1 to 254" : "";
  const std::string reason = setting == Setting::HardAlpa
                                 ? "this is no address of an arbitrated loop"
                                 : "this adapter does not offer it";
  refuse(options, typed.option, reason + "; choose " + choices(setting, offered) + any);
}

/// Why a setting of a 10GbE port cannot be changed: where it is not read, a change of it could not
/// be judged.
void requireReadable(const TypedWish& typed, const TenGigabitPortReading& port,
                     const SetOptions& options) {
  const auto now = settingIn(port, typed.wish.setting);
  if (now) return;
  refuse(
      options, typed.option,
      now.lacksFor(Reason::NotOffered) ? "this adapter does not offer it" : reasonText(now.none()));
}

void requirePossible(const std::vector<TypedWish>& wishes, const AdapterReading& adapter,
                     int64_t port, const SetOptions& options) {
  const bool isTenGigabit = adapter.family() == AdapterFamily::TenGigabit;
  for (const TypedWish& typed : wishes) {
    requireOffered(typed, adapter, options);
    if (isTenGigabit)
      requireReadable(typed, adapter.tenGigabitPorts().at(static_cast<size_t>(port - 1)), options);
  }
}

// One port of the adapter, read before and after.

AdapterReading readPort(Session& session, const PortTarget& port) {
  const WaitingNote note(session.context(),
                         port.label() + ": waiting for the adapter's tool to answer");
  return session.reader().readPort(port);
}

void requireEnabled(const AdapterReading& adapter, int64_t port, const SetOptions& options) {
  if (adapter.family() != AdapterFamily::TenGigabit) return;
  if (adapter.tenGigabitPorts().at(static_cast<size_t>(port - 1)).isEnabled.is(true)) return;
  refuse(options, "port " + std::to_string(port), "its driver has not enabled it");
}

Answer<int64_t> settingOf(const AdapterReading& adapter, int64_t port, Setting setting) {
  const auto index = static_cast<size_t>(port - 1);
  return std::visit([&](const auto& ports) { return settingIn(ports.at(index), setting); },
                    adapter.ports);
}

// Sending. The port was named when the command began: where it has gone, nothing is sent.

ChangeOutcome sendOne(Session& session, const PortTarget& port, const SettingWish& wish) {
  ChangeOutcome outcome = outcomeFor(port, wish);
  if (port.isGone()) {
    outcome.outcome = Outcome::GoneBefore;
  } else if (port.family() == AdapterFamily::FibreChannel) {
    const Status answered = sendToDriver(port, wish);
    if (answered == statusSuccess) return outcome;
    outcome.outcome = Outcome::Refused;
    outcome.reason = fmt::format("0x{:08X}", static_cast<uint32_t>(answered));
  } else {
    const auto taken = session.change(port, wish);
    if (!taken) outcome.reason = reasonText(taken.none());
  }
  return outcome;
}

bool dropsLink(const TypedWish& typed) {
  const Setting setting = typed.wish.setting;
  return setting == Setting::Speed || setting == Setting::Topology || setting == Setting::HardAlpa;
}

// Away from the main queue, as changes are made in the window. An interrupt waits for the last of
// them, since half of a preset would be left otherwise.
std::vector<ChangeOutcome> sendAll(Session& session, const PortTarget& port,
                                   const std::vector<TypedWish>& wishes) {
  CommandContext& context = session.context();
  const WaitingNote note(context, "waiting for the adapter to take the change");
  const KeptInterruption interruption(
      [&context] { printNote(context, "interrupted, but the change is finished first"); });
  std::vector<ChangeOutcome> outcomes;
  Dispatch& dispatch = session.platform().dispatch;
  bool isDone = false;
  std::exception_ptr stopped;
  dispatch.asyncGlobal(QueuePriority::Background, [&] {
    try {
      for (const TypedWish& typed : wishes) outcomes.push_back(sendOne(session, port, typed.wish));
      if (std::any_of(wishes.begin(), wishes.end(), dropsLink)) followLink(dispatch, port);
    } catch (const CommandFailure&) {
      stopped = std::current_exception();
    }
    dispatch.asyncMain([&isDone] { isDone = true; });
  });
  session.runUntil([&isDone] { return isDone; });
  if (stopped) std::rethrow_exception(stopped);
  return outcomes;
}

void judge(std::vector<ChangeOutcome>& outcomes, const AdapterReading& before,
           const std::optional<AdapterReading>& after) {
  for (ChangeOutcome& outcome : outcomes) {
    outcome.before = settingOf(before, outcome.port, outcome.wish.setting);
    if (outcome.outcome != Outcome::Taken) continue;
    if (!after) {
      outcome.outcome = Outcome::GoneAfter;
      continue;
    }
    outcome.after = settingOf(*after, outcome.port, outcome.wish.setting);
    outcome.outcome = judged(outcome.wish, outcome.after);
    if (!outcome.after) outcome.reason = reasonText(outcome.after.none());
  }
}

std::string failureOf(const ChangeOutcome& outcome) {
  switch (outcome.outcome) {
    case Outcome::Refused:
      return "the adapter has not taken it: the driver refused it (" + outcome.reason + ")";
    case Outcome::NotVerifiable:
      return "whether the adapter has taken it is not known: " + outcome.reason;
    case Outcome::GoneBefore:
      return "the adapter has gone meanwhile; nothing was sent";
    case Outcome::GoneAfter:
      return "the adapter has gone meanwhile";
    default:
      return "the adapter has not taken it";
  }
}

std::string hintFor(const ChangeOutcome& outcome) {
  const bool hasGone =
      outcome.outcome == Outcome::GoneBefore || outcome.outcome == Outcome::GoneAfter;
  return hasGone ? "Attach it again and look with \"corvane show\" what it has taken."
                 : "The port keeps its former setting; \"corvane show\" prints it.";
}

void requireTaken(const std::vector<ChangeOutcome>& outcomes, const std::vector<TypedWish>& wishes,
                  const SetOptions& options, const ordered_json& answer) {
  for (size_t index = 0; index < outcomes.size(); ++index) {
    const ChangeOutcome& outcome = outcomes[index];
    if (outcome.isTaken()) continue;
    throw CommandFailure(ExitStatus::Failed, options.label,
                         wishes[index].option + ": " + failureOf(outcome), hintFor(outcome),
                         answer);
  }
}

void changeSettings(CommandContext& context, const LaunchOptions& launch,
                    const SetOptions& options) {
  requireSensible(options);
  Session session(context, launch);
  session.discover();
  const int64_t number = options.port.value_or(1);
  const PortTarget port = session.port(session.find(options.label), number);
  session.requireChangeable(options.label);
  requireFamily(port, options);
  takeAdministratorRights(session, options.label);

  const auto wishes = wishesOf(options);
  const AdapterReading before = readPort(session, port);
  requireEnabled(before, number, options);
  requirePossible(wishes, before, number, options);
  auto outcomes = sendAll(session, port, wishes);
  const auto after = port.isGone() ? std::nullopt : std::optional(readPort(session, port));
  judge(outcomes, before, after);
  recordChanges(session.platform().paths, outcomes);

  const auto printed = [&](Reader reader) {
    return after ? portFields(*after, number, reader) : ordered_json::object();
  };
  requireTaken(outcomes, wishes, options, printed(Reader::Program));
  printAnswer(context, printed(context.json ? Reader::Program : Reader::Person));
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
