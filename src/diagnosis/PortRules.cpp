#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "diagnosis/Rules.h"
#include "diagnosis/SentenceWords.h"
#include "fibre_channel/ArbitratedLoopAddresses.h"

namespace corvane {

namespace {

constexpr const char* setToAutomatic = "Set the speed to automatic.";

/// What a Fibre Channel port tells, where it has told.
const FibreChannelPortInformation& told(const PortFacts& port) {
  return *port.information();
}

bool isLinked(const PortFacts& port) {
  return port.information() != nullptr && port.hasLink();
}

bool isUnlinked(const PortFacts& port) {
  return port.information() != nullptr && port.lacksLink();
}

bool contains(const std::vector<uint64_t>& speeds, uint64_t speed) {
  return std::find(speeds.begin(), speeds.end(), speed) != speeds.end();
}

// Driver and interface.

bool hasDriverFailed(const Answer<FibreChannelPortInformation>& information) {
  return !information && !isNotAsked(information.none().reason) &&
         !information.lacksFor(Reason::NotInDump);
}

std::string driverStatus(const PortFacts& port) {
  const auto& information = port.fibreChannel()->information;
  return information ? "an answer of zeros" : reasonText(information.none());
}

// Loop addresses.

bool isLoopAddress(uint64_t address) {
  return std::any_of(arbitratedLoopAddresses.begin(), arbitratedLoopAddresses.end(),
                     [address](uint8_t each) { return each == address; });
}

bool isOnLoopWithAddress(const PortFacts& port) {
  return port.isSetToLoop() && told(port).hard_alpa != 0;
}

}  // namespace

bool isWithoutAnswer(const PortFacts& port) {
  if (!port.isFibreChannel() || port.information() != nullptr) return false;
  const auto& information = port.fibreChannel()->information;
  return information.isKnown() || hasDriverFailed(information);
}

constinit const PortRule driverNoAnswer{
    [](const Look& look, const PortFacts& port) {
      return isWithoutAnswer(port) && !look.reading().runningUpdate;
    },
    [](const Look&, SomePorts ports) {
      const std::string status = driverStatus(*ports.front());
      return Words{ports.size() > 1
                       ? fmt::format("The driver answers for neither port ({}); nothing of them is "
                                     "known.",
                                     status)
                       : fmt::format("The driver does not answer for this port ({}); nothing of it "
                                     "is known.",
                                     status),
                   "Unplug the adapter and attach it again; restart; then collect the logs."};
    }};

constinit const PortRule speedUnsupported{
    [](const Look&, const PortFacts& port) {
      return isUnlinked(port) && port.setSpeed() != speedAutomatic &&
             !port.offeredSpeeds().empty() && !contains(port.offeredSpeeds(), port.setSpeed());
    },
    [](const Look&, SomePorts ports) {
      const PortFacts& port = *ports.front();
      return Words{fmt::format("No link: set to {}, which a {} does not have ({}).",
                               speedWords(port.setSpeed()), port.adapter().product,
                               speedListWords(port.offeredSpeeds())),
                   setToAutomatic};
    }};

constinit const PortRule topologyUnsupported{
    [](const Look&, const PortFacts& port) {
      return isUnlinked(port) && port.isSetToLoop() && contains(port.offeredSpeeds(), speed16G);
    },
    [](const Look&, SomePorts ports) {
      return Words{fmt::format("No link: set to Arbitrated Loop, which a {} does not have.",
                               ports.front()->adapter().product),
                   "Set the topology to point to point."};
    }};

constinit const PortRule speedNotInModule{
    [](const Look&, const PortFacts& port) {
      const auto speeds = port.trustedSpeeds();
      return isUnlinked(port) && port.setSpeed() != speedAutomatic && !speeds.empty() &&
             !contains(speeds, port.setSpeed());
    },
    [](const Look&, SomePorts ports) {
      const PortFacts& port = *ports.front();
      const std::string set = speedWords(port.setSpeed());
      return Words{fmt::format("No link: set to {}, but the module is made for {}.", set,
                               speedListWords(port.trustedSpeeds())),
                   fmt::format("Set the speed to automatic; or put in a module for {}.", set)};
    }};

constinit const PortRule alpaInvalid{
    [](const Look&, const PortFacts& port) {
      return isOnLoopWithAddress(port) && !isLoopAddress(told(port).hard_alpa);
    },
    [](const Look&, SomePorts ports) {
      return Words{fmt::format("The hard AL_PA {} is no loop address; the port takes a free one "
                               "instead, or none.",
                               byteWords(told(*ports.front()).hard_alpa)),
                   "Choose one of the 126 addresses, or 0 for none."};
    }};

constinit const WideRule alpaSame{[](const Look& look) {
  std::map<uint64_t, std::vector<Place>> byAddress;
  for (const PortFacts& port : look.ports())
    if (isOnLoopWithAddress(port)) byAddress[told(port).hard_alpa].push_back(placeOf(port));
  std::vector<Said> findings;
  for (const auto& [address, places] : byAddress)
    if (places.size() > 1)
      findings.push_back(
          {{fmt::format("{} ask for the same hard AL_PA {}.", placesWords(look, places),
                        byteWords(address)),
            "Nothing if they are on different loops; on one loop give one of them another."},
           places,
           AdapterFamily::FibreChannel});
  return findings;
}};

constinit const PortRule alpaUnused{
    [](const Look&, const PortFacts& port) {
      return isLinked(port) && told(port).settingTopology == topologyPointToPoint &&
             told(port).hard_alpa != 0;
    },
    [](const Look&, SomePorts ports) {
      return Words{fmt::format("Has the hard AL_PA {}, but is not on a loop.",
                               byteWords(told(*ports.front()).hard_alpa)),
                   "Nothing; clear it if the port is not to go back to a loop."};
    }};

constinit const PortRule speedForced{
    [](const Look&, const PortFacts& port) {
      return isLinked(port) && port.setSpeed() != speedAutomatic && port.speed() == port.setSpeed();
    },
    [](const Look&, SomePorts ports) {
      const PortFacts& port = *ports.front();
      const std::string set = speedWords(port.setSpeed());
      const std::string text = port.possibleSpeed() > port.setSpeed()
                                   ? fmt::format("Set to {} instead of automatic; could do {}.",
                                                 set, speedWords(port.possibleSpeed()))
                                   : fmt::format("Set to {} instead of automatic.", set);
      return Words{text, "Nothing if it is meant; else set it to automatic."};
    }};

constinit const PortRule queueDepthOwn{
    [](const Look&, const PortFacts& port) {
      return isLinked(port) && port.queueDepth() != defaultQueueDepth;
    },
    [](const Look&, SomePorts ports) {
      return Words{fmt::format("Queue depth {} instead of {}.", ports.front()->queueDepth(),
                               defaultQueueDepth),
                   "Nothing if the storage asks for it."};
    }};

}  // namespace corvane
