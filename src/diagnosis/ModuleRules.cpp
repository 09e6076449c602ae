#include <fmt/format.h>

#include "diagnosis/Rules.h"
#include "diagnosis/SentenceWords.h"
#include "fibre_channel/TransceiverWords.h"

namespace corvane {

namespace {

bool isRemembered(const PortFacts& port) {
  return port.wasSeenWithLink() && !port.memory()->module.empty();
}

bool isEmptyWithoutLink(const PortFacts& port) {
  return port.module() == ModuleState::Empty && port.lacksLink();
}

bool isReadableFibreChannel(const PortFacts& port) {
  return port.transceiver() && port.hasGoodModule();
}

bool has1GModule(const PortFacts& port) {
  constexpr int64_t first1GClass = 5;
  constexpr int64_t last1GClass = 7;
  if (port.isFibreChannel() || !port.hasGoodModule()) return false;
  const int64_t moduleClass = *port.tenGigabit()->moduleClass;
  return moduleClass >= first1GClass && moduleClass <= last1GClass;
}

std::vector<uint64_t> commonSpeeds(const PortFacts& port, const std::vector<uint64_t>& speeds) {
  std::vector<uint64_t> common;
  for (const uint64_t speed : speeds)
    for (const uint64_t offered : port.offeredSpeeds())
      if (speed == offered) common.push_back(speed);
  return common;
}

std::string whyUnreadable(const PortFacts& port) {
  const auto& answer = port.fibreChannel()->module;
  if (!answer) return reasonText(answer.none());
  return answer->has_value() ? "all bytes are alike"
                             : "the link is up, yet the cage reads as empty";
}

// The module is named by its rate, and by what it says that it is where its bytes can be relied on.
std::string wrongFibreChannelModule(const PortFacts& port) {
  const TransceiverFacts& facts = *port.transceiver();
  const std::vector<std::string> kinds = kindNames(facts);
  const std::string rate = signallingRateWords(facts);
  const std::string start = port.hasLink() ? "Carries a link although:" : "No link:";
  std::string text = kinds.empty() ? fmt::format("{} a {} module; this port needs {}.", start, rate,
                                                 neededWords(port))
                                   : fmt::format("{} a {} module ({}); this port needs {}.", start,
                                                 rate, listed(kinds), neededWords(port));
  const auto common = commonSpeeds(port, facts.speeds());
  if (facts.base().fits() && !common.empty())
    text += fmt::format(" It names {} itself.", speedsWords(common));
  if (!facts.base().fits()) text += " Its checksum is wrong too.";
  return text;
}

Words wrongTenGigabitModule(const PortFacts& port) {
  const char* const start = port.hasLink() ? "Carries a link although:" : "No link:";
  return {fmt::format("{} a module of a kind that the driver does not know; this port needs {}.",
                      start, neededWords(port)),
          port.hasLink() ? "Nothing now; keep a spare of the right kind."
                         : "Put in a 10G optical module, then unplug Thunderbolt and attach it "
                           "again with the adapter powered."};
}

}  // namespace

constinit const PortRule moduleGone{
    [](const Look&, const PortFacts& port) {
      return isEmptyWithoutLink(port) && isRemembered(port);
    },
    [](const Look&, SomePorts ports) {
      const PortMemory& memory = *ports.front()->memory();
      const std::string date = dateOf(*memory.lastUp);
      return Words{ports.size() > 1
                       ? fmt::format("Neither port has its module any more: {} and {}, with a "
                                     "link on {}.",
                                     memory.module, ports.back()->memory()->module, date)
                       : fmt::format("The module {} with a link on {} is not in the cage any more.",
                                     memory.module, date),
                   "Push the module in until it clicks; if it was taken out on purpose, nothing."};
    }};

constinit const PortRule moduleUnreadable{
    [](const Look&, const PortFacts& port) {
      if (!port.isFibreChannel()) return false;
      return port.module() == ModuleState::NotKnown || port.module() == ModuleState::Blank ||
             (port.module() == ModuleState::Empty && port.hasLink());
    },
    [](const Look&, SomePorts ports) {
      const PortFacts& port = *ports.front();
      return Words{
          ports.size() > 1
              ? fmt::format("Neither port's module can be read ({}).", whyUnreadable(port))
              : fmt::format("A module is there but cannot be read ({}).", whyUnreadable(port)),
          "Pull it out and push it in again; try it in the other port; try another "
          "module."};
    }};

constinit const PortRule moduleHalfRead{
    [](const Look&, const PortFacts& port) { return port.module() == ModuleState::HalfRead; },
    [](const Look&, SomePorts ports) {
      const TransceiverFacts& facts = *ports.front()->transceiver();
      return Words{fmt::format("The module's identification is garbled (starts with {}, checksum "
                               "{} instead of {}); whether it suits cannot be told.",
                               byteWords(facts.byte(0)), byteWords(facts.base().is),
                               byteWords(facts.base().should)),
                   "Pull it out, wait ten seconds, push it in; unplug the adapter and attach it "
                   "again; then another module."};
    }};

constinit const PortRule moduleWrongClass{
    [](const Look&, const PortFacts& port) { return port.module() == ModuleState::WrongClass; },
    [](const Look&, SomePorts ports) {
      const PortFacts& port = *ports.front();
      if (!port.isFibreChannel()) return wrongTenGigabitModule(port);
      return Words{wrongFibreChannelModule(port),
                   port.hasLink()
                       ? "Nothing now; keep a spare of the right kind."
                       : fmt::format("Put in a Fibre Channel module for {}.", neededWords(port))};
    }};

constinit const PortRule moduleNoSpeed{
    [](const Look&, const PortFacts& port) {
      if (!isReadableFibreChannel(port) || !port.lacksLink()) return false;
      const TransceiverFacts& facts = *port.transceiver();
      return facts.base().fits() && !facts.isCable() && facts.hasComplianceCodes() &&
             !port.offeredSpeeds().empty() && commonSpeeds(port, facts.speeds()).empty();
    },
    [](const Look&, SomePorts ports) {
      const PortFacts& port = *ports.front();
      return Words{fmt::format("No link: the module names {} and no Fibre Channel speed of this "
                               "port; only its bit rate passed the test.",
                               listed(kindNames(*port.transceiver()))),
                   fmt::format("Put in a Fibre Channel module for {}.", neededWords(port))};
    }};

constinit const PortRule moduleChecksum{
    [](const Look&, const PortFacts& port) {
      return isReadableFibreChannel(port) && !port.transceiver()->base().fits();
    },
    [](const Look&, SomePorts ports) {
      const TransceiverChecksum base = ports.front()->transceiver()->base();
      return Words{fmt::format("The module's checksum is {} instead of {}; what it says of itself "
                               "cannot be relied on.",
                               byteWords(base.is), byteWords(base.should)),
                   "Nothing while the link works; a rewritten module often looks so; try another "
                   "if there is trouble."};
    }};

constinit const PortRule moduleChecksumExtended{
    [](const Look&, const PortFacts& port) {
      return isReadableFibreChannel(port) && port.transceiver()->base().fits() &&
             !port.transceiver()->extended().fits();
    },
    [](const Look&, SomePorts ports) {
      const TransceiverChecksum extended = ports.front()->transceiver()->extended();
      return Words{fmt::format("The checksum over serial number and date is {} instead of {}.",
                               byteWords(extended.is), byteWords(extended.should)),
                   "Nothing; do not rely on the serial number."};
    }};

constinit const PortRule module1G{
    [](const Look&, const PortFacts& port) { return has1GModule(port); },
    [](const Look&, SomePorts) {
      return Words{"A 1G module; this port can do 10G.",
                   "Nothing if it is meant; else a 10G module."};
    }};

constinit const PortRule moduleNone{
    [](const Look&, const PortFacts& port) {
      return isEmptyWithoutLink(port) && !isRemembered(port);
    },
    [](const Look&, SomePorts ports) {
      return Words{ports.size() > 1 ? "Neither port has a module." : "Port has no module.",
                   fmt::format("Nothing for a spare port; else put in a module for {}.",
                               neededWords(*ports.front()))};
    }};

}  // namespace corvane
