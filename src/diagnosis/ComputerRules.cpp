#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>

#include "CLIParser/CommandChannel.h"
#include "diagnosis/Rules.h"
#include "diagnosis/SentenceWords.h"
#include "discovery/DriverFitness.h"
#include "discovery/ServiceNotifications.h"
#include "text/WholeNumber.h"

namespace corvane {

namespace {

constexpr std::array bothFamilies{AdapterFamily::FibreChannel, AdapterFamily::TenGigabit};

/// One finding a family at most, where `say` gives one.
template <typename Say>
std::vector<Said> perFamily(Say say) {
  std::vector<Said> findings;
  for (const AdapterFamily family : bothFamilies) {
    std::optional<Said> said = say(family);
    if (!said) continue;
    said->family = family;
    findings.push_back(std::move(*said));
  }
  return findings;
}

std::vector<Place> unlistedPlaces(const std::vector<size_t>& indices) {
  std::vector<Place> places;
  places.reserve(indices.size());
  for (const size_t index : indices) places.push_back({false, index, 0});
  return places;
}

const UnlistedAdapter& unlistedAt(const Look& look, size_t index) {
  return look.reading().unlisted.at(index);
}

/// The family's adapters off the list that have functions.
std::vector<size_t> unlistedWithFunctions(const Look& look, AdapterFamily family) {
  std::vector<size_t> indices = look.settledUnlisted(family);
  std::erase_if(indices, [&look](size_t index) { return unlistedAt(look, index).functions == 0; });
  return indices;
}

std::string labelsOf(const Look& look, const std::vector<size_t>& indices) {
  return placesWords(look, unlistedPlaces(indices));
}

std::string labelsAndProducts(const Look& look, const std::vector<size_t>& indices) {
  std::vector<std::string> words;
  for (const size_t index : indices) {
    const UnlistedAdapter& each = unlistedAt(look, index);
    words.push_back(fmt::format("{} ({})", each.label, each.product.value_or(each.model)));
  }
  return listed(words);
}

std::optional<Said> missingDriver(const Look& look, AdapterFamily family) {
  const auto adapters = unlistedWithFunctions(look, family);
  if (!look.lacksBundle(family) || look.isServed(family) || adapters.empty()) return std::nullopt;
  const std::string name = familyWords(family);
  const std::string needy = labelsAndProducts(look, adapters);
  const std::string text =
      adapters.size() == 1
          ? fmt::format("No {} driver is installed; 1 adapter needs it: {}.", name, needy)
          : fmt::format("No {} driver is installed; {} adapters need it: {}.", name,
                        adapters.size(), needy);
  return Said{
      {text, fmt::format("Install the {} driver package, allow it when the system asks, restart.",
                         familyWords(family))},
      unlistedPlaces(adapters),
      {}};
}

/// Whether the adapter's services are another driver's than the one selected.
bool isServedByAnother(const Look& look, const UnlistedAdapter& adapter) {
  if (adapter.services == 0) return false;
  if (look.lacksBundle(adapter.family)) return true;
  const auto selected = look.selectedBundle(adapter.family);
  return selected && !adapter.identifier.empty() &&
         adapter.identifier != bundleIdentifier(*selected);
}

/// Adapters that are served by a driver other than the selected one: off the list by their
/// services' identifier, on the list where no bundle is left.
std::vector<Place> servedByAnother(const Look& look, AdapterFamily family) {
  std::vector<Place> places;
  if (look.lacksBundle(family) && look.isListed(family)) {
    for (size_t index = 0; index < look.reading().adapters.size(); ++index)
      if (look.reading().adapters[index].family() == family) places.push_back({true, index, 0});
  }
  for (const size_t index : look.settledUnlisted(family))
    if (isServedByAnother(look, unlistedAt(look, index))) places.push_back({false, index, 0});
  return places;
}

std::string runningDriver(const Look& look, AdapterFamily family,
                          const std::vector<Place>& places) {
  std::set<std::string> names;
  for (const Place& place : places)
    if (!place.isListed) names.insert(unlistedAt(look, place.adapter).identifier);
  names.erase("");
  if (names.empty()) return familyWords(family);
  return listed({names.begin(), names.end()});
}

std::optional<Said> otherDriver(const Look& look, AdapterFamily family) {
  const auto places = servedByAnother(look, family);
  if (places.empty()) return std::nullopt;
  const std::string labels = placesWords(look, places);
  const std::string running = runningDriver(look, family, places);
  const auto selected = look.selectedBundle(family);
  const std::string text =
      selected ? fmt::format("{} are served by the driver {}, but {} is installed in front of it.",
                             labels, running, *selected)
               : fmt::format("{} are served by the driver {}, which is not installed any more.",
                             labels, running);
  return Said{{text,
               "Remove the package that is not meant for these adapters and restart; install the "
               "right one again if nothing is listed then."},
              places,
              {}};
}

/// Major and minor number of a release.
std::array<int32_t, 2> releaseOf(const std::string& version) {
  const size_t dot = version.find('.');
  const std::string minor = dot == std::string::npos ? "" : version.substr(dot + 1);
  return {leadingWholeNumber(version), leadingWholeNumber(minor)};
}

// Where the system asks, and since when it asks at all, differs by release.
std::string allowingRemedy(const ComputerReading& reading) {
  constexpr std::array<int32_t, 2> firstWithSettings{13, 0};
  constexpr std::array<int32_t, 2> firstThatAsks{10, 13};
  const auto release = releaseOf(reading.productVersion.valueOr("13"));
  if (release < firstThatAsks) return "Restart, then install the driver package again.";
  if (release < firstWithSettings)
    return "System Preferences > Security & Privacy: allow the maker's software, restart; the "
           "button stays half an hour, attach the adapter again to get it back.";
  if (reading.hasAppleSilicon)
    return "First permit kernel extensions of identified developers in Startup Security Utility; "
           "then System Settings > Privacy & Security: allow the maker's software, restart.";
  return "System Settings > Privacy & Security: allow the maker's software, restart.";
}

std::optional<Said> stoppedDriver(const Look& look, AdapterFamily family) {
  const auto adapters = unlistedWithFunctions(look, family);
  if (look.lacksBundle(family) || look.isServed(family) || adapters.empty()) return std::nullopt;
  const auto selected = look.selectedBundle(family);
  const std::string driver =
      selected ? fmt::format("{} {}", *selected, look.bundleVersion(family).value_or(""))
               : "for " + familyWords(family);
  return Said{{fmt::format("The driver {} is installed but does not run; {} cannot be used.",
                           driver.back() == ' ' ? *selected : driver, labelsOf(look, adapters)),
               allowingRemedy(look.reading())},
              unlistedPlaces(adapters),
              {}};
}

/// The version text of the family's bundle, where adapters of it are listed.
std::optional<std::string> versionInUse(const Look& look, AdapterFamily family) {
  return look.isListed(family) ? look.bundleVersion(family) : std::nullopt;
}

std::optional<Said> unknownVersion(const Look& look, AdapterFamily family) {
  const auto version = versionInUse(look, family);
  if (!version || !version->empty()) return std::nullopt;
  return Said{{fmt::format("The {} driver runs, but its bundle tells no version; what depends on "
                           "it is not asked.",
                           familyWords(family)),
               "Install the driver package again."},
              look.portsOf(family),
              {},
              true};
}

std::optional<Said> oldDriver(const Look& look, AdapterFamily family) {
  const auto version = versionInUse(look, family);
  if (!version || version->empty() || compareDriverVersion(family, *version) == 0)
    return std::nullopt;
  const std::string name = familyWords(family);
  const std::string text =
      family == AdapterFamily::FibreChannel
          ? fmt::format("The {} driver {} is too old: modules are not read.", name, *version)
          : fmt::format("The {} driver {} is too old: module, preset and offload are not read.",
                        name, *version);
  return Said{
      {text, fmt::format("Install the current {} driver and restart.", familyWords(family))},
      look.portsOf(family),
      {},
      true};
}

std::optional<Said> stoppedMonitor(const Look& look, AdapterFamily family) {
  const auto& status = family == AdapterFamily::FibreChannel ? look.reading().fibreChannelMonitor
                                                             : look.reading().tenGigabitMonitor;
  if (look.reading().isDump || !status.is(registrationFailed)) return std::nullopt;
  return Said{{fmt::format("The watch for {} adapters could not be started; which are attached is "
                           "not known.",
                           familyWords(family)),
               "Quit the utility and start it again; then restart the computer; then collect the "
               "logs."},
              {},
              {},
              true};
}

// The tool and the file that it answers through.

/// Why the tool gave nothing for one setting, or that it did.
struct ToolAnswer {
  bool isKnown;
  NoValue none;
};

template <typename Value>
ToolAnswer toolAnswer(const Answer<Value>& answer) {
  return {answer.isKnown(), answer.isKnown() ? NoValue{} : answer.none()};
}

std::vector<ToolAnswer> toolAnswers(const TenGigabitPortReading& port) {
  const PresetReading& preset = port.preset;
  return {toolAnswer(port.moduleClass),     toolAnswer(preset.rxIntrThrottle),
          toolAnswer(preset.rxRingSize),    toolAnswer(preset.txIntrThrottle),
          toolAnswer(preset.txRingSize),    toolAnswer(preset.rxRingCount),
          toolAnswer(port.checksumOffload), toolAnswer(port.receiveCoalescing)};
}

std::vector<const PortFacts*> enabledPorts(const Look& look) {
  std::vector<const PortFacts*> ports;
  for (const PortFacts& port : look.ports())
    if (!port.isFibreChannel() && port.tenGigabit()->isEnabled.is(true)) ports.push_back(&port);
  return ports;
}

std::vector<Place> enabledPlaces(const Look& look) {
  std::vector<Place> places;
  for (const PortFacts* port : enabledPorts(look)) places.push_back(placeOf(*port));
  return places;
}

std::vector<ToolAnswer> allToolAnswers(const Look& look) {
  std::vector<ToolAnswer> answers;
  for (const PortFacts* port : enabledPorts(look))
    for (const ToolAnswer& answer : toolAnswers(*port->tenGigabit())) answers.push_back(answer);
  return answers;
}

/// The first answer that lacks for the reason.
std::optional<NoValue> firstLacking(const std::vector<ToolAnswer>& answers, Reason reason) {
  for (const ToolAnswer& answer : answers)
    if (!answer.isKnown && answer.none.reason == reason) return answer.none;
  return std::nullopt;
}

Said aboutTheTool(const Look& look, std::string text, std::string remedy) {
  return {
      {std::move(text), std::move(remedy)}, enabledPlaces(look), AdapterFamily::TenGigabit, true};
}

/// The first answer that could not come because the file is blocked; link and MTU come that way
/// too.
std::optional<NoValue> blockedAnswer(const Look& look) {
  for (const PortFacts* port : enabledPorts(look)) {
    auto answers = toolAnswers(*port->tenGigabit());
    answers.push_back(toolAnswer(port->tenGigabit()->hasLink));
    answers.push_back(toolAnswer(port->tenGigabit()->MTU));
    if (auto blocked = firstLacking(answers, Reason::Blocked)) return blocked;
  }
  return std::nullopt;
}

bool wasToolAsked(const ToolAnswer& answer) {
  return answer.isKnown || answer.none.reason == Reason::Senseless ||
         answer.none.reason == Reason::NoAnswer || answer.none.reason == Reason::Refused;
}

// One answer that has its form shows that tool and driver understand each other.
bool isToolUnreadable(std::vector<ToolAnswer> answers) {
  constexpr size_t fewest = 2;
  std::erase_if(answers, [](const ToolAnswer& answer) { return !wasToolAsked(answer); });
  return answers.size() >= fewest && std::none_of(answers.begin(), answers.end(),
                                                  [](const auto& each) { return each.isKnown; });
}

std::string strangeAnswer(const std::vector<ToolAnswer>& answers) {
  for (const ToolAnswer& answer : answers)
    if (!answer.isKnown && !answer.none.text.empty()) return answer.none.text;
  return firstLacking(answers, Reason::Refused) ? "a refusal" : "nothing";
}

std::string portCount(const Look& look) {
  return counted(enabledPorts(look).size(), "port");
}

}  // namespace

constinit const WideRule monitorNotStarted{[](const Look& look) {
  return perFamily([&look](AdapterFamily family) { return stoppedMonitor(look, family); });
}};

constinit const WideRule driverMissing{[](const Look& look) {
  return perFamily([&look](AdapterFamily family) { return missingDriver(look, family); });
}};

constinit const WideRule driverOtherRuns{[](const Look& look) {
  return perFamily([&look](AdapterFamily family) { return otherDriver(look, family); });
}};

constinit const WideRule driverNotRunning{[](const Look& look) {
  return perFamily([&look](AdapterFamily family) { return stoppedDriver(look, family); });
}};

constinit const WideRule driverVersionUnknown{[](const Look& look) {
  return perFamily([&look](AdapterFamily family) { return unknownVersion(look, family); });
}};

constinit const WideRule driverTooOld{[](const Look& look) {
  return perFamily([&look](AdapterFamily family) { return oldDriver(look, family); });
}};

constinit const WideRule scratchBlocked{[](const Look& look) -> std::vector<Said> {
  const auto blocked = blockedAnswer(look);
  if (!blocked) return {};
  const std::string how = blocked->text.empty() ? "not writable" : blocked->text;
  return {aboutTheTool(
      look, fmt::format("Nothing of the 10GbE ports could be read: the answer file is {}.", how),
      "Wait for the other corvane program; then see who owns /private/tmp/corvaneOutput.txt and "
      "whether the disk is full.")};
}};

constinit const WideRule toolMissing{[](const Look& look) -> std::vector<Said> {
  if (!firstLacking(allToolAnswers(look), Reason::Missing)) return {};
  return {aboutTheTool(
      look,
      fmt::format("corvaneutil is not installed; module, preset and offload of {} are not known.",
                  portCount(look)),
      "Install the 10GbE software package; link and MTU are read without it.")};
}};

constinit const WideRule toolHangs{[](const Look& look) -> std::vector<Said> {
  if (!firstLacking(allToolAnswers(look), Reason::Hangs)) return {};
  return {aboutTheTool(look,
                       fmt::format("corvaneutil did not answer within {} s; module, preset and "
                                   "offload of {} are not known.",
                                   commandTimeLimit.count(), portCount(look)),
                       "Look again in a minute; then unplug the 10GbE adapters and attach them "
                       "again; then restart.")};
}};

constinit const WideRule toolUnreadable{[](const Look& look) -> std::vector<Said> {
  const auto answers = allToolAnswers(look);
  if (!isToolUnreadable(answers)) return {};
  return {aboutTheTool(look,
                       fmt::format("corvaneutil does not answer with settings but with: {}.",
                                   strangeAnswer(answers)),
                       "Install tool and driver of one release; then send a journal.")};
}};

constinit const WideRule driverTwoInstalled{[](const Look& look) -> std::vector<Said> {
  constexpr auto family = AdapterFamily::FibreChannel;
  const auto& bundles = look.reading().bundles;
  if (!bundles) return {};
  const auto isThere = [&bundles](const char* name) {
    const auto found = bundles->find(name);
    return found != bundles->end() && found->second;
  };
  const bool isAttached = look.isListed(family) || !look.settledUnlisted(family).empty();
  if (!isThere(fibreChannelBundle1) || !isThere(fibreChannelBundle2) || !isAttached ||
      !servedByAnother(look, family).empty())
    return {};
  return {{{fmt::format("Two Fibre Channel drivers are installed; {} is the one that counts.",
                        *look.selectedBundle(family)),
            "Nothing while all adapters are listed; else remove the other package."},
           {},
           family,
           true}};
}};

constinit const WideRule updateRunning{[](const Look& look) -> std::vector<Said> {
  const auto& update = look.reading().runningUpdate;
  if (!update) return {};
  const std::string adapter = update->label.empty() ? "an adapter" : update->label;
  const std::string text = update->since.empty()
                               ? fmt::format("{} has been updating {}.", update->program, adapter)
                               : fmt::format("{} has been updating {} since {}.", update->program,
                                             adapter, update->since);
  return {{{text, "Wait until it ends; do not unplug anything on that chain."}, {}, {}, true}};
}};

constinit const WideRule noAdapter{[](const Look& look) -> std::vector<Said> {
  constexpr int64_t registered = 0;
  const ComputerReading& reading = look.reading();
  const bool doMonitorsRun =
      reading.fibreChannelMonitor.is(registered) && reading.tenGigabitMonitor.is(registered);
  if (reading.isDump || !doMonitorsRun || !reading.adapters.empty() || !reading.unlisted.empty())
    return {};
  return {{{"No adapter is attached.",
            "Attach one; if one is attached: its power, its Thunderbolt cable, another "
            "Thunderbolt port."},
           {},
           {},
           true}};
}};

}  // namespace corvane
