#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "diagnosis/Rules.h"
#include "diagnosis/SentenceWords.h"

namespace corvane {

namespace {

constexpr std::chrono::days disksAreRemembered{30};

bool saysNothing(const NoValue& none) {
  return none.reason == Reason::NoAnswer || none.reason == Reason::Refused ||
         (none.reason == Reason::Senseless && none.text.find("status") == std::string::npos);
}

bool hasNoDisks(const PortFacts& port) {
  return port.isFibreChannel() && port.fibreChannel()->disks && port.fibreChannel()->disks->empty();
}

bool hadDisks(const PortFacts& port) {
  return port.memory() != nullptr && port.memory()->lastDisks &&
         port.now() - *port.memory()->lastDisks <= disksAreRemembered;
}

std::string addressesOfPorts(const std::vector<const PortFacts*>& ports) {
  std::vector<std::string> addresses;
  addresses.reserve(ports.size());
  for (const PortFacts* port : ports) addresses.push_back(port->address());
  return listed(addresses);
}

std::vector<std::string> diskNames(const std::vector<VolumeLeftOff>& volumes) {
  std::vector<std::string> names;
  names.reserve(volumes.size());
  for (const VolumeLeftOff& volume : volumes) names.push_back(volume.disk);
  return names;
}

std::string volumesText(const std::vector<VolumeLeftOff>& volumes) {
  constexpr size_t dateLength = 10;
  const std::string names = listed(diskNames(volumes));
  const std::string date = volumes.front().since.substr(0, dateLength);
  if (volumes.size() == 1)
    return date.empty()
               ? fmt::format("1 volume is still off since an update: {}.", names)
               : fmt::format("1 volume is still off since the update of {}: {}.", date, names);
  return date.empty()
             ? fmt::format("{} volumes are still off since an update: {}.", volumes.size(), names)
             : fmt::format("{} volumes are still off since the update of {}: {}.", volumes.size(),
                           date, names);
}

/// The ports under which the volumes are.
std::vector<Place> portsUnder(const Look& look, const std::vector<VolumeLeftOff>& volumes) {
  std::vector<Place> places;
  for (const PortFacts& port : look.ports())
    if (std::any_of(volumes.begin(), volumes.end(), [&port](const VolumeLeftOff& volume) {
          return !volume.under.empty() && volume.under == port.address();
        }))
      places.push_back(placeOf(port));
  return places;
}

bool doDisksShowNowhere(const Look& look) {
  return std::all_of(look.ports().begin(), look.ports().end(), [](const PortFacts& port) {
    return !port.isFibreChannel() || hasNoDisks(port);
  });
}

}  // namespace

bool isInterfaceMissing(const PortFacts& port) {
  if (port.isFibreChannel()) return false;
  const TenGigabitPortReading& reading = *port.tenGigabit();
  const bool isNamed = reading.enName.isKnown() && !reading.enName->empty();
  const bool hasMTU = reading.MTU.valueOr(0) > 0;
  const bool isMTUAsked = reading.MTU.isKnown() || saysNothing(reading.MTU.none());
  return isNamed && !reading.hasLink && saysNothing(reading.hasLink.none()) && !hasMTU &&
         isMTUAsked;
}

constinit const WideRule volumesUnmounted{[](const Look& look) -> std::vector<Said> {
  const auto& volumes = look.reading().leftUnmounted;
  if (volumes.empty() || look.reading().runningUpdate) return {};
  return {
      {{volumesText(volumes), "Mount them: `corvane volumes mount`, or the button in the window."},
       portsUnder(look, volumes),
       {}}};
}};

constinit const PortRule interfaceMissing{
    [](const Look&, const PortFacts& port) { return isInterfaceMissing(port); },
    [](const Look&, SomePorts ports) {
      const std::string& name = *ports.front()->tenGigabit()->enName;
      return Words{
          ports.size() > 1
              ? fmt::format("Neither port's interface, {} nor {}, is known to the network stack.",
                            name, *ports.back()->tenGigabit()->enName)
              : fmt::format(
                    "The driver calls the interface {}, the network stack does not know it.", name),
          "Open Network settings; unplug the adapter and attach it again; restart."};
    }};

constinit const PortRule behindGone{
    [](const Look& look, const PortFacts& port) {
      return port.hasLink() && hasNoDisks(port) && hadDisks(port) && !look.reading().runningUpdate;
    },
    [](const Look&, SomePorts ports) {
      return Words{"The link is up, but no disk shows behind it any more.",
                   fmt::format("See the storage's own panel; zoning and LUN masking for {}; then "
                               "the cable to the right port.",
                               addressesOfPorts({ports.begin(), ports.end()}))};
    }};

constinit const WideRule behindEmpty{[](const Look& look) -> std::vector<Said> {
  std::vector<const PortFacts*> linked;
  std::vector<Place> places;
  for (const PortFacts& port : look.ports()) {
    if (!port.isFibreChannel() || !port.hasLink()) continue;
    linked.push_back(&port);
    places.push_back(placeOf(port));
  }
  if (linked.empty() || !doDisksShowNowhere(look)) return {};
  return {
      {{"The link is up, but no disk shows behind any Fibre Channel port.",
        fmt::format("Nothing for tape; else zoning on the switch and LUN masking on the storage "
                    "for {}.",
                    addressesOfPorts(linked))},
       places,
       AdapterFamily::FibreChannel}};
}};

}  // namespace corvane
