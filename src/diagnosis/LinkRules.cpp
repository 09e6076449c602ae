#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "diagnosis/Rules.h"
#include "diagnosis/SentenceWords.h"

namespace corvane {

namespace {

using std::chrono::days;
using std::chrono::minutes;
using std::chrono::seconds;

constexpr seconds settlingTime{15};
constexpr minutes flapWindow{10};
constexpr days bestIsRemembered{90};
constexpr size_t fewestFlaps = 3;
constexpr int64_t unmarkedMTU = 1500;
constexpr uint64_t gigabit = 1000;
constexpr uint64_t tenGigabits = 10000;
constexpr uint64_t hundredMegabits = 100;

// Why a port without a link is not a spare one.

bool isOnlyHope(const Look& look, const PortFacts& port) {
  return port.hasGoodModule() && look.sister(port).lacksLink();
}

bool isMarked(const PortFacts& port) {
  if (port.isFibreChannel()) return false;
  const int64_t mtu = port.tenGigabit()->MTU.valueOr(0);
  return mtu > 0 && mtu != unmarkedMTU;
}

bool isOddOneOut(const Look& look, const PortFacts& port) {
  constexpr int64_t fewestOthers = 5;
  if (!port.hasGoodModule()) return false;
  const auto isOther = [&port](const PortFacts& each) {
    return &each != &port && each.hasGoodModule();
  };
  const auto& ports = look.ports();
  return std::count_if(ports.begin(), ports.end(), isOther) >= fewestOthers &&
         std::all_of(ports.begin(), ports.end(), [&isOther](const PortFacts& each) {
           return !isOther(each) || each.hasLink();
         });
}

bool isUsed(const Look& look, const PortFacts& port) {
  return port.wasSeenWithLink() || port.holdsCable() || isOnlyHope(look, port) || isMarked(port) ||
         isOddOneOut(look, port);
}

/// No module can be told: the product has none, or nobody asked, or nobody answered.
bool isModuleUnknown(const PortFacts& port) {
  return port.module() == ModuleState::NotThere ||
         (port.module() == ModuleState::NotKnown && !port.isFibreChannel());
}

/// The module, good or not known, does not explain that there is no link.
bool isModuleInNoOnesWay(const PortFacts& port) {
  return port.hasGoodModule() || isModuleUnknown(port);
}

bool isForced(const PortFacts& port) {
  return port.setSpeed() != speedAutomatic || port.isSetToLoop();
}

bool isForcedDown(const PortFacts& port) {
  return port.lacksLink() && isModuleInNoOnesWay(port) && isForced(port);
}

std::string goodModule(const PortFacts& port) {
  const std::string module = moduleWords(port);
  return module.empty() ? "the module is good" : fmt::format("the module is good ({})", module);
}

std::string lastSeen(const PortFacts& port) {
  if (port.memory() == nullptr || !port.memory()->lastUp) return {};
  const std::string date = dateOf(*port.memory()->lastUp);
  if (port.memory()->bestSpeed == 0) return fmt::format("; last seen {}", date);
  return fmt::format("; last seen {} at {}", date, speedWords(port.memory()->bestSpeed));
}

std::string noLink(SomePorts ports) {
  return ports.size() > 1 ? "Neither port has a link" : "No link";
}

bool haveAllGoodModules(SomePorts ports) {
  return std::all_of(ports.begin(), ports.end(),
                     [](const PortFacts* port) { return port->hasGoodModule(); });
}

/// The port that was seen with a link last, or the first.
const PortFacts& lastSeenOf(SomePorts ports) {
  return **std::max_element(
      ports.begin(), ports.end(), [](const PortFacts* one, const PortFacts* other) {
        const auto time = [](const PortFacts* port) {
          return port->memory() == nullptr ? std::nullopt : port->memory()->lastUp;
        };
        return time(one) < time(other);
      });
}

std::string linkDownReason(SomePorts ports) {
  if (!haveAllGoodModules(ports)) return "nothing comes from the other end";
  if (ports.size() == 1) return goodModule(*ports.front());
  return fmt::format("the modules are good ({}; {})", moduleWords(*ports.front()),
                     moduleWords(*ports.back()));
}

const char* idleText(bool areBoth, bool areGood) {
  if (areBoth)
    return areGood ? "Neither port has a link; the modules are good, and nothing shows that they "
                     "were ever used."
                   : "Neither port has a link; nothing shows that they were ever used.";
  return areGood ? "No link; the module is good, and nothing shows that it was ever used."
                 : "No link; nothing shows that it was ever used.";
}

std::string forcedSettings(const PortFacts& port) {
  if (port.setSpeed() == speedAutomatic) return "topology set to Arbitrated Loop";
  const std::string speed = "speed set to " + speedWords(port.setSpeed());
  return port.isSetToLoop() ? speed + " and topology to Arbitrated Loop" : speed;
}

// Changes and drops of this run.

/// The last change to the port that was made within `bound` before `time`; null without one.
const PortChange* changeBefore(const Look& look, const PortFacts& port, ReadingTime time,
                               seconds bound) {
  const PortChange* last = nullptr;
  for (const PortChange& change : look.memory().changes) {
    const bool isRecent = change.time <= time && time - change.time <= bound;
    if (change.address == port.address() && change.isMade && isRecent) last = &change;
  }
  return last;
}

/// The drops of the last ten minutes that no change of the utility caused.
size_t recentDrops(const Look& look, const PortFacts& port) {
  const auto found = look.memory().drops.find(port.address());
  if (found == look.memory().drops.end()) return 0;
  return static_cast<size_t>(
      std::count_if(found->second.begin(), found->second.end(), [&look, &port](ReadingTime drop) {
        return drop <= port.now() && port.now() - drop <= flapWindow &&
               changeBefore(look, port, drop, settlingTime) == nullptr;
      }));
}

// Speeds.

bool isAutomatic(const PortFacts& port) {
  return !port.isFibreChannel() || port.setSpeed() == speedAutomatic;
}

/// Whether the memory's best speed was reached with what is there now.
bool isSameModule(const PortFacts& port) {
  if (!port.isFibreChannel()) return true;
  return port.transceiver() && !port.memory()->module.empty() &&
         port.memory()->module == port.moduleName();
}

bool isBestRemembered(const PortFacts& port) {
  const PortMemory* const memory = port.memory();
  return memory != nullptr && memory->bestAt && port.now() - *memory->bestAt <= bestIsRemembered;
}

/// What port and module could do, in Mb/s; 0 when it cannot be told.
uint64_t couldDo(const PortFacts& port) {
  constexpr int64_t shortOrLongRange = 2;
  constexpr int64_t firstOfBothSpeeds = 8;
  if (port.isFibreChannel()) return port.possibleSpeed();
  if (!port.hasCage()) return tenGigabits;
  const int64_t moduleClass = port.tenGigabit()->moduleClass.valueOr(0);
  return moduleClass == shortOrLongRange || moduleClass >= firstOfBothSpeeds ? tenGigabits : 0;
}

bool isSlower(const PortFacts& port) {
  if (!port.hasLink() || port.speed() == 0 || !isAutomatic(port)) return false;
  if (!port.isFibreChannel() && port.speed() != gigabit) return false;
  return port.speed() < couldDo(port);
}

}  // namespace

constinit const PortRule linkDownForced{
    [](const Look&, const PortFacts& port) { return isForcedDown(port); },
    [](const Look&, SomePorts ports) {
      const PortFacts& port = *ports.front();
      const std::string reason = port.hasGoodModule() ? "; " + goodModule(port) : std::string();
      return Words{fmt::format("No link with {}{}.", forcedSettings(port), reason),
                   "Set the speed to automatic; loop only for storage or tape that needs it, point "
                   "to point for a switch; then see to the other end, the plugs, the cable."};
    }};

constinit const PortRule linkDown{
    [](const Look& look, const PortFacts& port) {
      return port.lacksLink() && isModuleInNoOnesWay(port) && !isForced(port) && isUsed(look, port);
    },
    [](const Look&, SomePorts ports) {
      return Words{
          fmt::format("{}: {}{}.", noLink(ports), linkDownReason(ports),
                      lastSeen(lastSeenOf(ports))),
          ports.front()->hasCage()
              ? "See that the other end is on and its port enabled; push the plugs in at both "
                "ends, swap the two fibres, clean them; try the cable and module of a port that "
                "works; 8G to a switch: its fill word; 8G straight to storage: Arbitrated Loop."
              : "See that the other end is on and its port enabled; push the plugs in at both "
                "ends; another cable, another switch port."};
    }};

constinit const PortRule linkFlaps{
    [](const Look& look, const PortFacts& port) { return recentDrops(look, port) >= fewestFlaps; },
    [](const Look& look, SomePorts ports) {
      return Words{fmt::format("The link dropped {} times in the last ten minutes.",
                               recentDrops(look, *ports.front())),
                   "Reseat and clean plugs; another cable; another module; then the other end."};
    }};

constinit const PortRule linkIdle{
    [](const Look& look, const PortFacts& port) {
      return port.lacksLink() && !isUsed(look, port) && !port.isIdle() &&
             (port.hasGoodModule() || (isModuleUnknown(port) && !look.sister(port).hasLink()));
    },
    [](const Look&, SomePorts ports) {
      return Words{idleText(ports.size() > 1, haveAllGoodModules(ports)),
                   "If a cable is plugged in: see that the other end is on, push in both plugs, "
                   "swap the two fibres, try a cable that works. If it is a spare: nothing; the "
                   "warning goes by itself after a week, or with the module."};
    }};

constinit const PortRule linkNotRead{
    [](const Look&, const PortFacts& port) {
      if (port.isFibreChannel() || port.tenGigabit()->hasLink || isInterfaceMissing(port))
        return false;
      const Reason reason = port.tenGigabit()->hasLink.none().reason;
      return !isNotAsked(reason) && reason != Reason::NotInDump && reason != Reason::Blocked;
    },
    [](const Look&, SomePorts ports) {
      const TenGigabitPortReading& reading = *ports.front()->tenGigabit();
      return Words{fmt::format("Whether there is a link could not be told ({}).",
                               reasonText(reading.hasLink.none())),
                   fmt::format("Look again; run ifconfig {}.", reading.enName.valueOr("-a"))};
    }};

constinit const PortRule speedNotAsSet{
    [](const Look&, const PortFacts& port) {
      return port.isFibreChannel() && port.hasLink() && port.setSpeed() != speedAutomatic &&
             port.speed() != 0 && port.speed() != port.setSpeed();
    },
    [](const Look&, SomePorts ports) {
      return Words{fmt::format("Runs at {}, set to {}.", speedWords(ports.front()->speed()),
                               speedWords(ports.front()->setSpeed())),
                   "Set it again; unplug the adapter and attach it again."};
    }};

constinit const PortRule topologyNotAsSet{
    [](const Look&, const PortFacts& port) {
      if (!port.isFibreChannel() || !port.hasLink()) return false;
      const auto& information = *port.information();
      return information.portTopology <= topologyArbitratedLoop &&
             information.settingTopology <= topologyArbitratedLoop &&
             information.portTopology != information.settingTopology;
    },
    [](const Look&, SomePorts ports) {
      const auto& information = *ports.front()->information();
      return Words{fmt::format("Runs in {}, set to {}.", topologyWords(information.portTopology),
                               topologyWords(information.settingTopology)),
                   "Set it again; unplug the adapter and attach it again."};
    }};

constinit const PortRule linkAt100{
    [](const Look&, const PortFacts& port) {
      return !port.isFibreChannel() && !port.hasCage() && port.hasLink() &&
             port.speed() == hundredMegabits;
    },
    [](const Look&, SomePorts) {
      return Words{"Only 100 Mb/s: two of the four pairs.",
                   "Another cable (Cat 6A for 10G over 100 m); the wall socket's wiring; then the "
                   "switch port's setting."};
    }};

constinit const PortRule linkSlowerThanBefore{
    [](const Look&, const PortFacts& port) {
      return port.hasLink() && port.speed() != 0 && isAutomatic(port) && isBestRemembered(port) &&
             port.speed() < port.memory()->bestSpeed && isSameModule(port);
    },
    [](const Look&, SomePorts ports) {
      const PortFacts& port = *ports.front();
      return Words{
          fmt::format("Runs at {}; on {} it ran at {}.", speedWords(port.speed()),
                      dateOf(*port.memory()->bestAt), speedWords(port.memory()->bestSpeed)),
          "Clean and reseat the plugs; see what was changed at the other end; try another "
          "module."};
    }};

constinit const PortRule linkSlower{
    [](const Look&, const PortFacts& port) { return isSlower(port); },
    [](const Look&, SomePorts ports) {
      const PortFacts& port = *ports.front();
      const std::string could = speedWords(couldDo(port));
      return Words{
          fmt::format("Runs at {}; port and module could do {}.", speedWords(port.speed()), could),
          fmt::format("Nothing if the other end can do no more; else its speed setting and module; "
                      "fibre too long for {} (16G: 100 m OM3, 35 m OM2).",
                      could)};
    }};

constinit const PortRule linkSettling{
    [](const Look& look, const PortFacts& port) {
      return port.lacksLink() && changeBefore(look, port, port.now(), settlingTime) != nullptr;
    },
    [](const Look& look, SomePorts ports) {
      const PortFacts& port = *ports.front();
      const PortChange& change = *changeBefore(look, port, port.now(), settlingTime);
      const auto ago = std::chrono::duration_cast<seconds>(port.now() - change.time).count();
      return Words{fmt::format("The link is coming back after a change of {} {} s ago.",
                               change.what.empty() ? "its settings" : change.what, ago),
                   "Look again in ten seconds."};
    }};

constinit const PortRule portSpare{
    [](const Look& look, const PortFacts& port) {
      if (!port.lacksLink()) return false;
      return port.isIdle() ||
             (!isUsed(look, port) && isModuleUnknown(port) && look.sister(port).hasLink());
    },
    [](const Look&, SomePorts) {
      return Words{"Nothing is connected, as far as can be told.", "Nothing for a spare port."};
    }};

}  // namespace corvane
