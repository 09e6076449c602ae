#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "diagnosis/Rules.h"
#include "diagnosis/SentenceWords.h"

namespace corvane {

namespace {

constexpr int64_t portsOfProduct = 2;

/// A finding for each settled unlisted adapter for which `holds` is true.
template <typename Holds, typename Say>
std::vector<Said> eachUnlisted(const Look& look, Holds holds, Say say) {
  std::vector<Said> findings;
  for (size_t index = 0; index < look.reading().unlisted.size(); ++index) {
    const UnlistedAdapter& adapter = look.reading().unlisted[index];
    if (adapter.isArriving || !holds(adapter)) continue;
    findings.push_back({say(adapter), {{false, index, 0}}, adapter.family});
  }
  return findings;
}

/// Places by the address that they use.
using PlacesByAddress = std::map<std::string, std::vector<Place>>;

bool isAddress(const std::string& text) {
  return text.find_first_not_of("0:") != std::string::npos && text.find(':') != std::string::npos;
}

Said addressFinding(const Look& look, const std::string& address, std::vector<Place> places) {
  return {{fmt::format("{} is used by {}.", address, placesWords(look, places)),
           "Unplug one of them at once; a switch or loop will throw out one of the two; have the "
           "address put right by the maker."},
          std::move(places),
          {}};
}

/// Adapters that share a node WWN, listed and not.
PlacesByAddress adaptersByNode(const Look& look) {
  PlacesByAddress places;
  const ComputerReading& reading = look.reading();
  for (size_t index = 0; index < reading.adapters.size(); ++index)
    if (reading.adapters[index].family() == AdapterFamily::FibreChannel)
      places[reading.adapters[index].WWN].push_back({true, index, 0});
  for (size_t index = 0; index < reading.unlisted.size(); ++index)
    places[reading.unlisted[index].nodeWWN].push_back({false, index, 0});
  std::erase_if(places,
                [](const auto& each) { return !isAddress(each.first) || each.second.size() < 2; });
  return places;
}

PlacesByAddress portsByAddress(const Look& look) {
  PlacesByAddress places;
  for (const PortFacts& port : look.ports())
    if (isAddress(port.address())) places[port.address()].push_back(placeOf(port));
  std::erase_if(places, [](const auto& each) { return each.second.size() < 2; });
  return places;
}

/// Whether all these ports belong to adapters of one of the groups.
bool areCoveredBy(const PlacesByAddress& groups, const std::vector<Place>& ports) {
  return std::any_of(groups.begin(), groups.end(), [&ports](const auto& group) {
    return std::all_of(ports.begin(), ports.end(), [&group](const Place& port) {
      return std::find(group.second.begin(), group.second.end(),
                       Place{port.isListed, port.adapter, 0}) != group.second.end();
    });
  });
}

std::vector<std::string> addressesOf(const Look& look, const std::vector<Place>& adapters) {
  std::vector<std::string> addresses;
  addresses.reserve(adapters.size());
  for (const Place& place : adapters)
    addresses.push_back(look.reading().adapters.at(place.adapter).WWN);
  return addresses;
}

}  // namespace

constinit const WideRule labelTwice{[](const Look& look) {
  std::map<std::string, std::vector<Place>> byLabel;
  for (size_t index = 0; index < look.reading().adapters.size(); ++index)
    byLabel[look.reading().adapters[index].label].push_back({true, index, 0});
  std::vector<Said> findings;
  for (const auto& [label, places] : byLabel)
    if (places.size() > 1)
      findings.push_back(
          {{fmt::format("{} adapters are called {}; a command cannot tell them apart by it.",
                        places.size(), label),
            fmt::format("Name them by {}; or move one to another Thunderbolt port.",
                        listed(addressesOf(look, places)))},
           places,
           {}});
  return findings;
}};

constinit const WideRule adapterNoFunction{[](const Look& look) {
  return eachUnlisted(
      look,
      [](const UnlistedAdapter& adapter) {
        return adapter.family == AdapterFamily::FibreChannel && adapter.product &&
               adapter.functions == 0;
      },
      [](const UnlistedAdapter&) {
        return Words{"The adapter is on the chain, but its controller does not show.",
                     "Unplug Thunderbolt and power for ten seconds and attach again; another "
                     "cable, another port; then repair."};
      });
}};

constinit const WideRule adapterWithoutService{[](const Look& look) {
  return eachUnlisted(
      look,
      [&look](const UnlistedAdapter& adapter) {
        return adapter.functions > 0 && adapter.services == 0 && look.isServed(adapter.family);
      },
      [](const UnlistedAdapter&) {
        return Words{"The driver runs, but has not taken this adapter.",
                     "Unplug it and attach it again; restart; then collect the logs."};
      });
}};

constinit const WideRule adapterOnePort{[](const Look& look) {
  return eachUnlisted(
      look,
      [](const UnlistedAdapter& adapter) {
        return adapter.services == 1 ||
               (adapter.functions == 1 && adapter.services < portsOfProduct);
      },
      [](const UnlistedAdapter& adapter) {
        return Words{
            fmt::format("Only one of the two ports shows ({}, {}); the adapter cannot be listed.",
                        counted(static_cast<size_t>(adapter.functions), "function"),
                        counted(static_cast<size_t>(adapter.services), "driver service")),
            "Unplug it for ten seconds and attach it again; restart; with one function only: "
            "repair."};
      });
}};

constinit const WideRule addressTwice{[](const Look& look) {
  std::vector<Said> findings;
  const PlacesByAddress nodes = adaptersByNode(look);
  for (const auto& [address, places] : nodes)
    findings.push_back(addressFinding(look, address, places));
  for (const auto& [address, places] : portsByAddress(look))
    if (!areCoveredBy(nodes, places)) findings.push_back(addressFinding(look, address, places));
  return findings;
}};

constinit const WideRule productUnknown{[](const Look& look) {
  return eachUnlisted(
      look, [](const UnlistedAdapter& adapter) { return !adapter.product; },
      [](const UnlistedAdapter& adapter) {
        return Words{fmt::format("An adapter of a model that this version does not know is "
                                 "attached ({}).",
                                 adapter.model.empty() ? "no model" : adapter.model),
                     "Update the utility."};
      });
}};

}  // namespace corvane
