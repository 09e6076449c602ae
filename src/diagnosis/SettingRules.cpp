#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>

#include "diagnosis/Rules.h"
#include "diagnosis/SentenceWords.h"

namespace corvane {

namespace {

const FibreChannelPortInformation& toldBy(const PortFacts& port) {
  return *port.information();
}

std::string_view presetName(int64_t mode) {
  constexpr std::array<std::string_view, 6> names{
      "", "Low Latency", "Balanced", "High Throughput", "Server", "none of the four"};
  return mode > 0 && mode < static_cast<int64_t>(names.size()) ? names.at(static_cast<size_t>(mode))
                                                               : "";
}

// Values that mean nothing.

struct StrangeValue {
  std::string field;
  std::string text;
};

bool isKnownSpeed(uint64_t speed) {
  return speed == speedAutomatic || speed == speedAutomaticOf16G || speed == speed2G ||
         speed == speed4G || speed == speed8G || speed == speed16G;
}

bool isKnownTopology(uint64_t topology) {
  return topology == topologyPointToPoint || topology == topologyArbitratedLoop;
}

// A set speed that the product does not have is told as what keeps the link away.
std::optional<StrangeValue> strangeSetting(const Look& look, const PortFacts& port) {
  const auto& information = toldBy(port);
  if (!isKnownSpeed(information.settingSpeed) && !speedUnsupported.holds(look, port))
    return StrangeValue{"The speed set", std::to_string(information.settingSpeed)};
  if (!isKnownTopology(information.settingTopology))
    return StrangeValue{"The topology set", std::to_string(information.settingTopology)};
  return std::nullopt;
}

std::optional<StrangeValue> strangeState(const PortFacts& port) {
  const auto& information = toldBy(port);
  if (!port.hasLink()) return std::nullopt;
  if (!isKnownSpeed(information.portSpeed))
    return StrangeValue{"The current speed", std::to_string(information.portSpeed)};
  if (!isKnownTopology(information.portTopology))
    return StrangeValue{"The current topology", std::to_string(information.portTopology)};
  return std::nullopt;
}

std::optional<StrangeValue> strangeSwitch(const TenGigabitPortReading& port) {
  if (port.checksumOffload.lacksFor(Reason::Senseless))
    return StrangeValue{"TCPipv4ChecksumEnable", port.checksumOffload.none().text};
  if (port.receiveCoalescing.lacksFor(Reason::Senseless))
    return StrangeValue{"RSCEnable", port.receiveCoalescing.none().text};
  return std::nullopt;
}

std::optional<StrangeValue> strangeValue(const Look& look, const PortFacts& port) {
  if (!port.isFibreChannel()) return strangeSwitch(*port.tenGigabit());
  if (port.information() == nullptr) return std::nullopt;
  const auto setting = strangeSetting(look, port);
  return setting ? setting : strangeState(port);
}

// Changes that did not last.

/// What the setting that a change was about reads now.
std::optional<uint64_t> valueNow(const PortFacts& port, ChangedSetting setting) {
  if (port.information() == nullptr) return std::nullopt;
  switch (setting) {
    case ChangedSetting::Speed:
      return port.setSpeed();
    case ChangedSetting::Topology:
      return toldBy(port).settingTopology;
    case ChangedSetting::QueueDepth:
      return port.queueDepth();
    case ChangedSetting::Other:
      break;
  }
  return std::nullopt;
}

std::string settingWords(ChangedSetting setting, uint64_t value) {
  if (setting == ChangedSetting::Speed) return speedWords(value);
  if (setting == ChangedSetting::Topology) return topologyWords(value);
  return std::to_string(value);
}

std::string settingName(ChangedSetting setting) {
  if (setting == ChangedSetting::Speed) return "Speed";
  return setting == ChangedSetting::Topology ? "Topology" : "Queue depth";
}

uint64_t settled(ChangedSetting setting, uint64_t value) {
  if (setting == ChangedSetting::Speed && value == speedAutomaticOf16G) return speedAutomatic;
  if (setting == ChangedSetting::QueueDepth && value == 0) return defaultQueueDepth;
  return value;
}

/// The last change to each setting of the port.
std::map<ChangedSetting, const PortChange*> lastChanges(const Look& look, const PortFacts& port) {
  std::map<ChangedSetting, const PortChange*> last;
  for (const PortChange& change : look.memory().changes) {
    if (change.address != port.address() || !change.isMade) continue;
    const PortChange*& latest = last[change.setting];
    if (latest == nullptr || latest->time <= change.time) latest = &change;
  }
  return last;
}

/// The latest of the changes that were taken and read otherwise now; null when there is none.
const PortChange* lostChange(const Look& look, const PortFacts& port) {
  const PortChange* lost = nullptr;
  for (const auto& [setting, change] : lastChanges(look, port)) {
    const auto now = valueNow(port, setting);
    if (!now || !change->isTaken || settled(setting, change->to) == *now) continue;
    if (lost == nullptr || lost->time < change->time) lost = change;
  }
  return lost;
}

/// A setting in which the two ports of an adapter may differ, and the codes that name it already.
struct Aspect {
  std::string name;
  std::string first;
  std::string second;
  std::vector<std::string_view> namedBy;
};

std::vector<Aspect> fibreChannelAspects(const PortFacts& first, const PortFacts& second) {
  return {{"speed",
           speedWords(first.setSpeed()),
           speedWords(second.setSpeed()),
           {"speed-forced", "speed-not-as-set"}},
          {"topology",
           topologyWords(toldBy(first).settingTopology),
           topologyWords(toldBy(second).settingTopology),
           {"topology-not-as-set"}},
          {"queue depth",
           std::to_string(first.queueDepth()),
           std::to_string(second.queueDepth()),
           {"queue-depth-own"}}};
}

std::vector<Aspect> tenGigabitAspects(const PortFacts& first, const PortFacts& second) {
  const auto firstMode = presetMode(first.tenGigabit()->preset);
  const auto secondMode = presetMode(second.tenGigabit()->preset);
  if (!firstMode || !secondMode) return {};
  return {{"preset",
           std::string(presetName(*firstMode)),
           std::string(presetName(*secondMode)),
           {"preset-custom"}}};
}

bool isNamed(const Aspect& aspect, const std::vector<std::string_view>& codes) {
  return std::any_of(aspect.namedBy.begin(), aspect.namedBy.end(), [&codes](std::string_view code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
  });
}

}  // namespace

std::optional<Words> portsDifferWords(const Look& look, size_t adapter,
                                      const std::vector<std::string_view>& codesThere) {
  const PortFacts& first = look.port(adapter, 1);
  const PortFacts& second = look.port(adapter, 2);
  if (!first.hasLink() || !second.hasLink()) return std::nullopt;
  std::vector<std::string> differences;
  for (const Aspect& aspect : first.isFibreChannel() ? fibreChannelAspects(first, second)
                                                     : tenGigabitAspects(first, second))
    if (aspect.first != aspect.second && !isNamed(aspect, codesThere))
      differences.push_back(fmt::format("{} {} and {}", aspect.name, aspect.first, aspect.second));
  if (differences.empty()) return std::nullopt;
  return Words{fmt::format("The two ports are set differently: {}.", listed(differences)),
               "Nothing if it is meant; else set them alike."};
}

constinit const PortRule settingLost{
    [](const Look& look, const PortFacts& port) { return lostChange(look, port) != nullptr; },
    [](const Look& look, SomePorts ports) {
      const PortFacts& port = *ports.front();
      const PortChange& change = *lostChange(look, port);
      return Words{fmt::format("{} was set to {} on {} and is {}.", settingName(change.setting),
                               settingWords(change.setting, change.to), dateOf(change.time),
                               settingWords(change.setting, *valueNow(port, change.setting))),
                   "Set it again; look who else changes it."};
    }};

constinit const PortRule valueSenseless{
    [](const Look& look, const PortFacts& port) { return strangeValue(look, port).has_value(); },
    [](const Look& look, SomePorts ports) {
      const auto value = strangeValue(look, *ports.front());
      return Words{
          fmt::format("{} reads {}, which has no meaning here.", value->field, value->text),
          "Update utility and driver to one release."};
    }};

}  // namespace corvane
