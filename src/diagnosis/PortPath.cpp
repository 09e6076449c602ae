#include "diagnosis/PortPath.h"

#include <fmt/format.h>

#include <algorithm>

#include "diagnosis/SentenceWords.h"
#include "fibre_channel/TransceiverWords.h"

namespace corvane {

namespace {

PathStation station(Segment segment, SegmentState state, std::string text) {
  return {segment, state, std::nullopt, std::move(text), {}};
}

/// A station of which nothing is known: nobody asked, or nobody answered.
PathStation withoutAnswer(Segment segment, const NoValue& none) {
  return station(segment, isNotAsked(none.reason) ? SegmentState::NotAsked : SegmentState::Unknown,
                 reasonText(none));
}

void addFact(PathStation& at, const char* caption, std::string value) {
  if (!value.empty()) at.facts.emplace_back(caption, std::move(value));
}

template <typename Value>
std::string factText(const Answer<Value>& answer) {
  return answer ? fmt::format("{}", *answer) : "not read: " + reasonText(answer.none());
}

PathStation computerStation(const Look& look, const PortFacts& port) {
  const ComputerReading& reading = look.reading();
  if (!reading.bundles) return withoutAnswer(Segment::Computer, reading.bundles.none());
  const AdapterFamily family = port.adapter().family();
  const auto version = look.bundleVersion(family);
  PathStation at =
      station(Segment::Computer, SegmentState::Good,
              version && !version->empty() ? "driver " + *version : "driver of unknown version");
  addFact(at, "Driver", look.selectedBundle(family).value_or("not installed"));
  addFact(at, "Driver version", version.value_or(""));
  addFact(at, "System", reading.productVersion.valueOr(""));
  addFact(at, "Computer", reading.model);
  return at;
}

// A label is the letter of the computer's port and the place along the chain.
PathStation chainStation(const PortFacts& port) {
  constexpr std::string_view separator = " - ";
  const std::string& label = port.adapter().label;
  const size_t place = label.find(separator);
  const std::string letter = label.substr(0, place);
  const std::string hop = place == std::string::npos ? "" : label.substr(place + separator.size());
  if (letter == "(null)")
    return station(Segment::Chain, SegmentState::Unknown, "Thunderbolt port not known");
  PathStation at = station(Segment::Chain, SegmentState::Good,
                           fmt::format("Thunderbolt port {}, hop {}", letter, hop));
  addFact(at, "Thunderbolt port", letter);
  addFact(at, "Place on the chain", hop);
  return at;
}

PathStation adapterStation(const PortFacts& port) {
  const AdapterReading& adapter = port.adapter();
  PathStation at = station(Segment::Adapter, SegmentState::Good, adapter.product);
  addFact(at, "Product", adapter.product);
  addFact(at, port.isFibreChannel() ? "WWN" : "MAC address", adapter.WWN);
  if (port.information() != nullptr) addFact(at, "Firmware", port.information()->fwVer);
  return at;
}

PathStation fibreChannelPortStation(const PortFacts& port) {
  const auto& answer = port.fibreChannel()->information;
  if (port.information() == nullptr)
    return answer ? station(Segment::Port, SegmentState::Unknown, "an answer of zeros")
                  : withoutAnswer(Segment::Port, answer.none());
  const auto& information = *port.information();
  PathStation at = station(Segment::Port, SegmentState::Good,
                           fmt::format("speed {}, {}", speedWords(port.setSpeed()),
                                       topologyWords(information.settingTopology)));
  addFact(at, "WWPN", port.address());
  addFact(at, "Speed set", speedWords(port.setSpeed()));
  addFact(at, "Topology set", topologyWords(information.settingTopology));
  addFact(at, "Queue depth", std::to_string(port.queueDepth()));
  if (information.hard_alpa != 0) addFact(at, "Hard AL_PA", byteWords(information.hard_alpa));
  return at;
}

PathStation tenGigabitPortStation(const PortFacts& port) {
  const TenGigabitPortReading& reading = *port.tenGigabit();
  if (!reading.isEnabled) return withoutAnswer(Segment::Port, reading.isEnabled.none());
  PathStation at =
      station(Segment::Port, SegmentState::Good, *reading.isEnabled ? "enabled" : "not enabled");
  addFact(at, "MAC address", reading.macAddress.valueOr(""));
  addFact(at, "MTU", factText(reading.MTU));
  addFact(at, "Checksum offload", factText(reading.checksumOffload));
  return at;
}

PathStation portStation(const PortFacts& port) {
  return port.isFibreChannel() ? fibreChannelPortStation(port) : tenGigabitPortStation(port);
}

PathStation fibreChannelModuleStation(const PortFacts& port) {
  const auto& answer = port.fibreChannel()->module;
  if (!answer) return withoutAnswer(Segment::Module, answer.none());
  if (!port.transceiver()) return station(Segment::Module, SegmentState::Good, "empty cage");
  PathStation at =
      station(Segment::Module, SegmentState::Good, transceiverSummary(*port.transceiver()));
  for (const TransceiverLine& line : explainTransceiver(*port.transceiver()))
    at.facts.emplace_back(line.caption, line.words);
  return at;
}

PathStation tenGigabitModuleStation(const PortFacts& port) {
  if (!port.hasCage()) return station(Segment::Module, SegmentState::NotAsked, "no cage");
  const auto& moduleClass = port.tenGigabit()->moduleClass;
  if (!moduleClass) return withoutAnswer(Segment::Module, moduleClass.none());
  if (port.module() == ModuleState::Empty)
    return station(Segment::Module, SegmentState::Good, port.hasLink() ? "not told" : "empty cage");
  const std::string name = port.moduleName();
  return station(Segment::Module, SegmentState::Good, name.empty() ? "of an unknown kind" : name);
}

PathStation moduleStation(const PortFacts& port) {
  return port.isFibreChannel() ? fibreChannelModuleStation(port) : tenGigabitModuleStation(port);
}

std::string linkText(const PortFacts& port) {
  if (port.speed() == 0) return "up";
  if (!port.isFibreChannel()) return "up at " + speedWords(port.speed());
  return fmt::format("up at {}, {}", speedWords(port.speed()),
                     topologyWords(port.information()->portTopology));
}

NoValue whyLinkIsUnknown(const PortFacts& port) {
  if (!port.isFibreChannel()) return port.tenGigabit()->hasLink.none();
  const auto& information = port.fibreChannel()->information;
  return information ? NoValue{Reason::NoAnswer, {}} : information.none();
}

PathStation linkStation(const PortFacts& port) {
  if (port.hasLink()) {
    PathStation at = station(Segment::Link, SegmentState::Good, linkText(port));
    if (!port.isFibreChannel()) addFact(at, "Medium", factText(port.tenGigabit()->medium));
    return at;
  }
  if (!port.lacksLink()) return withoutAnswer(Segment::Link, whyLinkIsUnknown(port));
  const bool isCageEmpty = port.module() == ModuleState::Empty;
  return station(Segment::Link, isCageEmpty ? SegmentState::NotAsked : SegmentState::Good,
                 "no link");
}

PathStation behindStation(const PortFacts& port) {
  if (!port.isFibreChannel()) {
    const auto& name = port.tenGigabit()->enName;
    if (!name) return withoutAnswer(Segment::Behind, name.none());
    return station(Segment::Behind, port.hasLink() ? SegmentState::Good : SegmentState::NotAsked,
                   *name);
  }
  if (!port.hasLink()) return station(Segment::Behind, SegmentState::NotAsked, "no link");
  const auto& disks = port.fibreChannel()->disks;
  if (!disks) return withoutAnswer(Segment::Behind, disks.none());
  return station(Segment::Behind, SegmentState::Good, disks->empty() ? "no disk" : listed(*disks));
}

/// The worst that is told of the port at that station, notes aside.
std::optional<Severity> troubleAt(const Drafts& told, const Place& place, Segment segment) {
  std::optional<Severity> worst;
  for (const Draft& draft : told)
    if (draft.rule->segment == segment && draft.severity != Severity::Note &&
        draft.concernsPlace(place) && (!worst || draft.severity < *worst))
      worst = draft.severity;
  return worst;
}

// What a trouble before it explains was not asked for its own sake.
void leaveOutExplained(std::array<PathStation, segmentCount>& path, const PortFacts& port) {
  bool isTrouble = false;
  for (PathStation& at : path) {
    const bool isUnderLink = at.segment == Segment::Link || at.segment == Segment::Behind;
    const bool isExplained = at.state == SegmentState::Unknown ||
                             (isUnderLink && !port.hasLink() && at.state == SegmentState::Good);
    const bool isOfPort = at.segment > Segment::Adapter;
    if (isTrouble && isOfPort && isExplained) at.state = SegmentState::NotAsked;
    isTrouble = isTrouble || (at.state == SegmentState::Bad && at.segment != Segment::Adapter);
  }
}

}  // namespace

std::array<PathStation, segmentCount> pathOf(const Look& look, const PortFacts& port,
                                             const Drafts& told) {
  std::array<PathStation, segmentCount> path{
      computerStation(look, port), chainStation(port), adapterStation(port), portStation(port),
      moduleStation(port),         linkStation(port),  behindStation(port)};
  for (PathStation& at : path) {
    at.severity = troubleAt(told, placeOf(port), at.segment);
    if (at.severity) at.state = SegmentState::Bad;
  }
  leaveOutExplained(path, port);
  return path;
}

}  // namespace corvane
