#include <fmt/format.h>

#include "CLIParser/commandAPI.h"
#include "diagnosis/Rules.h"
#include "diagnosis/SentenceWords.h"

namespace corvane {

namespace {

constexpr const char* unnamedInterface = "IOEthernetInterface";
constexpr int64_t namingSeconds = 10;
constexpr int64_t usualMTU = 1500;
constexpr int64_t smallestMTU = 1280;
constexpr const char* attachAgain =
    "Unplug the adapter and attach it again; restart; install the driver again.";

bool isCustomPreset(const PortFacts& port) {
  constexpr auto custom = static_cast<int64_t>(PerformanceMode::Custom);
  return presetMode(port.tenGigabit()->preset).is(custom);
}

std::string presetValues(const PresetReading& preset) {
  return fmt::format("{}, {}, {}, {}, {}", *preset.rxIntrThrottle, *preset.rxRingSize,
                     *preset.txIntrThrottle, *preset.txRingSize, *preset.rxRingCount);
}

std::string whatIsOff(const TenGigabitPortReading& port) {
  const bool isChecksumOff = port.checksumOffload.is(false);
  const bool isCoalescingOff = port.receiveCoalescing.is(false);
  if (isChecksumOff && isCoalescingOff) return "Checksum offload and RSC off.";
  return isChecksumOff ? "Checksum offload off." : "RSC off.";
}

/// A setting's name and why it was not read; nothing when it was, or was not asked.
template <typename Value>
void addUnread(std::vector<std::string>& fields, const char* name, const Answer<Value>& answer,
               bool isStrangeUnread = true) {
  if (answer) return;
  const Reason reason = answer.none().reason;
  if (reason != Reason::NoAnswer && reason != Reason::Refused &&
      !(reason == Reason::Senseless && isStrangeUnread))
    return;
  fields.push_back(fmt::format("{} ({})", name, reasonText(answer.none())));
}

std::vector<std::string> unreadFields(const PortFacts& port) {
  std::vector<std::string> fields;
  const TenGigabitPortReading& reading = *port.tenGigabit();
  if (port.hasCage()) addUnread(fields, "module", reading.moduleClass);
  addUnread(fields, "RxIntrThrottle", reading.preset.rxIntrThrottle);
  addUnread(fields, "RxRingSize", reading.preset.rxRingSize);
  addUnread(fields, "TxIntrThrottle", reading.preset.txIntrThrottle);
  addUnread(fields, "TxRingSize", reading.preset.txRingSize);
  addUnread(fields, "RxRingCount", reading.preset.rxRingCount);
  addUnread(fields, "TCPipv4ChecksumEnable", reading.checksumOffload, false);
  addUnread(fields, "RSCEnable", reading.receiveCoalescing, false);
  return fields;
}

bool hasReadMTU(const PortFacts& port) {
  return !port.isFibreChannel() && port.hasLink() && port.tenGigabit()->MTU.valueOr(0) > 0;
}

bool hasSmallMTU(const PortFacts& port) {
  return hasReadMTU(port) && *port.tenGigabit()->MTU < smallestMTU;
}

}  // namespace

constinit const WideRule adapterDisabled{[](const Look& look) {
  std::vector<Said> findings;
  for (size_t index = 0; index < look.reading().adapters.size(); ++index) {
    const AdapterReading& adapter = look.reading().adapters[index];
    if (adapter.family() != AdapterFamily::TenGigabit) continue;
    const auto& ports = adapter.tenGigabitPorts();
    if (!ports[0].isEnabled.is(false) || !ports[1].isEnabled.is(false)) continue;
    findings.push_back({{"Neither port is enabled by the driver.", attachAgain},
                        look.portsOfAdapter(index),
                        AdapterFamily::TenGigabit});
  }
  return findings;
}};

constinit const WideRule portUnnamed{[](const Look& look) {
  const auto unnamed = [](const std::string& port) {
    return Words{
        fmt::format("The network stack has not named the interface of port {} within {} s.", port,
                    namingSeconds),
        "Open Network settings so that the interface is added; unplug and attach again; "
        "restart."};
  };
  std::vector<Said> findings;
  for (const PortFacts& port : look.ports())
    if (!port.isFibreChannel() && port.tenGigabit()->enName.is(unnamedInterface))
      findings.push_back(
          {unnamed(std::to_string(port.number())), {placeOf(port)}, AdapterFamily::TenGigabit});
  for (const size_t index : look.settledUnlisted(AdapterFamily::TenGigabit)) {
    const UnlistedAdapter& adapter = look.reading().unlisted[index];
    if (!adapter.isUnnamed) continue;
    const std::string port =
        adapter.unnamedPort == 0 ? "1 or 2" : std::to_string(adapter.unnamedPort);
    findings.push_back({unnamed(port), {{false, index, 0}}, AdapterFamily::TenGigabit});
  }
  return findings;
}};

constinit const PortRule portDisabled{
    [](const Look& look, const PortFacts& port) {
      return !port.isFibreChannel() && port.tenGigabit()->isEnabled.is(false) &&
             look.sister(port).tenGigabit()->isEnabled.is(true);
    },
    [](const Look&, SomePorts) {
      return Words{"The driver has not enabled this port; nothing of it is read.", attachAgain};
    }};

constinit const PortRule mtuSmall{
    [](const Look&, const PortFacts& port) { return hasSmallMTU(port); },
    [](const Look&, SomePorts ports) {
      return Words{fmt::format("MTU {} is below 1280; IPv6 does not work and everything is slow.",
                               *ports.front()->tenGigabit()->MTU),
                   fmt::format("Set it to {} in Network settings, or to what the whole network "
                               "uses.",
                               usualMTU)};
    }};

constinit const PortRule presetCustom{
    [](const Look&, const PortFacts& port) {
      return !port.isFibreChannel() && port.hasLink() && isCustomPreset(port);
    },
    [](const Look&, SomePorts ports) {
      return Words{fmt::format("Ring and interrupt settings are none of the four presets ({}).",
                               presetValues(ports.front()->tenGigabit()->preset)),
                   "Nothing if they are meant; else choose a preset."};
    }};

constinit const PortRule offloadOff{
    [](const Look&, const PortFacts& port) {
      return !port.isFibreChannel() && port.hasLink() &&
             (port.tenGigabit()->checksumOffload.is(false) ||
              port.tenGigabit()->receiveCoalescing.is(false));
    },
    [](const Look&, SomePorts ports) {
      return Words{whatIsOff(*ports.front()->tenGigabit()),
                   "Nothing if it is meant (RSC off suits bridging); else switch it on."};
    }};

constinit const WideRule mtuDiffers{[](const Look& look) {
  std::vector<Said> findings;
  for (size_t index = 0; index < look.reading().adapters.size(); ++index) {
    const PortFacts& first = look.port(index, 1);
    const PortFacts& second = look.port(index, 2);
    if (!hasReadMTU(first) || !hasReadMTU(second) || hasSmallMTU(first) || hasSmallMTU(second) ||
        first.tenGigabit()->MTU == second.tenGigabit()->MTU)
      continue;
    findings.push_back({{fmt::format("MTU {} on port 1, {} on port 2.", *first.tenGigabit()->MTU,
                                     *second.tenGigabit()->MTU),
                         "Nothing for two networks; in one network set both alike."},
                        look.portsOfAdapter(index),
                        AdapterFamily::TenGigabit});
  }
  return findings;
}};

constinit const PortRule valuesNotRead{
    [](const Look&, const PortFacts& port) {
      return !port.isFibreChannel() && !unreadFields(port).empty();
    },
    [](const Look&, SomePorts ports) {
      return Words{fmt::format("Not read: {}.", listed(unreadFields(*ports.front()))),
                   "Look again; if it stays, install tool and driver of one release."};
    }};

}  // namespace corvane
