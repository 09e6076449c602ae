#include "diagnosis/Look.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr size_t portsOfEach = 2;

std::vector<std::string> bundlesOf(AdapterFamily family) {
  if (family == AdapterFamily::FibreChannel) return {fibreChannelBundle1, fibreChannelBundle2};
  return {tenGigabitBundle};
}

}  // namespace

Look::Look(const ComputerReading& reading, const Memory& memory)
    : reading_(reading), memory_(memory) {
  for (size_t adapter = 0; adapter < reading.adapters.size(); ++adapter)
    for (size_t place = 0; place < portsOfEach; ++place)
      ports_.emplace_back(reading, adapter, place, memory);
}

const PortFacts& Look::port(size_t adapter, int64_t number) const {
  return ports_.at(adapter * portsOfEach + static_cast<size_t>(number - 1));
}

const PortFacts& Look::sister(const PortFacts& port) const {
  constexpr int64_t sumOfNumbers = 3;
  return this->port(port.adapterIndex(), sumOfNumbers - port.number());
}

bool Look::isListed(AdapterFamily family) const {
  return std::any_of(reading_.adapters.begin(), reading_.adapters.end(),
                     [family](const AdapterReading& each) { return each.family() == family; });
}

bool Look::isServed(AdapterFamily family) const {
  return isListed(family) || std::any_of(reading_.unlisted.begin(), reading_.unlisted.end(),
                                         [family](const UnlistedAdapter& each) {
                                           return each.family == family && each.services > 0;
                                         });
}

std::vector<size_t> Look::settledUnlisted(AdapterFamily family) const {
  std::vector<size_t> indices;
  for (size_t index = 0; index < reading_.unlisted.size(); ++index) {
    const UnlistedAdapter& each = reading_.unlisted[index];
    if (each.family == family && !each.isArriving) indices.push_back(index);
  }
  return indices;
}

std::optional<std::string> Look::selectedBundle(AdapterFamily family) const {
  if (!reading_.bundles) return std::nullopt;
  for (const std::string& name : bundlesOf(family)) {
    const auto found = reading_.bundles->find(name);
    if (found != reading_.bundles->end() && found->second) return name;
  }
  return std::nullopt;
}

std::optional<std::string> Look::bundleVersion(AdapterFamily family) const {
  const auto selected = selectedBundle(family);
  if (!selected) return std::nullopt;
  return reading_.bundles->at(*selected);
}

bool Look::lacksBundle(AdapterFamily family) const {
  return reading_.bundles.isKnown() && !selectedBundle(family);
}

std::vector<Place> Look::portsOf(AdapterFamily family) const {
  std::vector<Place> places;
  for (const PortFacts& port : ports_)
    if (port.adapter().family() == family) places.push_back(placeOf(port));
  return places;
}

std::vector<Place> Look::portsOfAdapter(size_t adapter) const {
  return {{true, adapter, 1}, {true, adapter, 2}};
}

Place placeOf(const PortFacts& port) {
  return {true, port.adapterIndex(), port.number()};
}

std::string bundleIdentifier(const std::string& bundle) {
  return (bundle == tenGigabitBundle ? "com.velmar.driver." : "com.velmar.") + bundle;
}

}  // namespace corvane
