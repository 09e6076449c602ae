#include "diagnosis/RuleTable.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace corvane {

namespace {

constexpr auto problem = Severity::Problem;
constexpr auto warning = Severity::Warning;
constexpr auto note = Severity::Note;
constexpr auto computer = Segment::Computer;
constexpr auto chain = Segment::Chain;
constexpr auto adapter = Segment::Adapter;
constexpr auto port = Segment::Port;
constexpr auto module = Segment::Module;
constexpr auto link = Segment::Link;
constexpr auto behind = Segment::Behind;
constexpr auto never = Merging::Never;
constexpr auto sameNumbers = Merging::SameNumbers;
constexpr auto always = Merging::Always;

// clang-format off
const std::array rules{
    Rule{"monitor-not-started", "Monitor not started", problem, computer, never, &monitorNotStarted},
    Rule{"driver-missing", "Driver missing", problem, computer, never, &driverMissing},
    Rule{"driver-other-runs", "Another driver runs", problem, computer, never, &driverOtherRuns},
    Rule{"driver-not-running", "Driver does not run", problem, computer, never, &driverNotRunning},
    Rule{"driver-version-unknown", "Driver version unknown", warning, computer, never, &driverVersionUnknown},
    Rule{"driver-too-old", "Driver too old", warning, computer, never, &driverTooOld},
    Rule{"scratch-blocked", "Answer file blocked", warning, computer, never, &scratchBlocked},
    Rule{"tool-missing", "Adapter tool missing", warning, computer, never, &toolMissing},
    Rule{"tool-hangs", "Adapter tool hangs", warning, computer, never, &toolHangs},
    Rule{"tool-unreadable", "Adapter tool unreadable", warning, computer, never, &toolUnreadable},
    Rule{"driver-two-installed", "Two drivers installed", note, computer, never, &driverTwoInstalled},
    Rule{"update-running", "Update running", note, computer, never, &updateRunning},
    Rule{"no-adapter", "No adapter attached", note, computer, never, &noAdapter},

    Rule{"label-twice", "Label used twice", note, chain, never, &labelTwice},
    Rule{"adapter-no-function", "Controller does not show", problem, adapter, never, &adapterNoFunction},
    Rule{"adapter-without-service", "Adapter without driver", problem, adapter, never, &adapterWithoutService},
    Rule{"adapter-one-port", "Only one port shows", problem, adapter, never, &adapterOnePort},
    Rule{"address-twice", "Address used twice", problem, adapter, never, &addressTwice},
    Rule{"product-unknown", "Unknown product", warning, adapter, never, &productUnknown},
    Rule{"firmware-not-taken", "Firmware not taken", warning, adapter, never, &firmwareNotTaken},
    Rule{"firmware-pending", "Firmware waits", warning, adapter, never, &firmwarePending},
    Rule{"firmware-differs", "Older firmware than others", note, adapter, never, &firmwareDiffers},
    Rule{"firmware-catalogue", "Newer firmware offered", note, adapter, never, &firmwareCatalogue},
    Rule{"ports-differ", "Ports set differently", note, adapter, never, nullptr},

    Rule{"adapter-disabled", "Adapter not enabled", problem, port, never, &adapterDisabled},
    Rule{"driver-no-answer", "Driver does not answer", problem, port, always, &driverNoAnswer},
    Rule{"port-unnamed", "Interface not named", problem, port, never, &portUnnamed},
    Rule{"speed-unsupported", "Speed not supported", problem, port, never, &speedUnsupported},
    Rule{"topology-unsupported", "Topology not supported", problem, port, never, &topologyUnsupported},
    Rule{"speed-not-in-module", "Speed not in the module", problem, port, never, &speedNotInModule},
    Rule{"port-disabled", "Port not enabled", warning, port, never, &portDisabled},
    Rule{"alpa-invalid", "Hard AL_PA invalid", warning, port, never, &alpaInvalid},
    Rule{"mtu-small", "MTU too small", warning, port, sameNumbers, &mtuSmall},
    Rule{"alpa-same", "Same hard AL_PA", note, port, never, &alpaSame},
    Rule{"alpa-unused", "Hard AL_PA unused", note, port, sameNumbers, &alpaUnused},
    Rule{"speed-forced", "Speed forced", note, port, sameNumbers, &speedForced},
    Rule{"queue-depth-own", "Own queue depth", note, port, sameNumbers, &queueDepthOwn},
    Rule{"preset-custom", "Custom preset", note, port, sameNumbers, &presetCustom},
    Rule{"offload-off", "Offload off", note, port, sameNumbers, &offloadOff},
    Rule{"mtu-differs", "MTUs differ", note, port, never, &mtuDiffers},
    Rule{"setting-lost", "Setting lost", note, port, never, &settingLost},
    Rule{"value-senseless", "Senseless value", note, port, sameNumbers, &valueSenseless},
    Rule{"values-not-read", "Values not read", note, port, sameNumbers, &valuesNotRead},

    Rule{"module-gone", "Module gone", problem, module, always, &moduleGone},
    Rule{"module-unreadable", "Module unreadable", problem, module, always, &moduleUnreadable, true},
    Rule{"module-half-read", "Module half read", problem, module, never, &moduleHalfRead, true},
    Rule{"module-wrong-class", "Wrong module", problem, module, never, &moduleWrongClass, true},
    Rule{"module-no-fc-speed", "No Fibre Channel speed", problem, module, never, &moduleNoSpeed},
    Rule{"module-checksum", "Module checksum wrong", warning, module, never, &moduleChecksum},
    Rule{"module-checksum-extended", "Serial checksum wrong", note, module, never, &moduleChecksumExtended},
    Rule{"module-1g", "1G module", note, module, never, &module1G},
    Rule{"module-none", "No module", note, module, always, &moduleNone},

    Rule{"link-down-forced", "No link, setting forced", problem, link, sameNumbers, &linkDownForced},
    Rule{"link-down", "No link", problem, link, always, &linkDown},
    Rule{"link-flaps", "Link flaps", warning, link, sameNumbers, &linkFlaps},
    Rule{"link-idle", "No link, maybe unused", warning, link, always, &linkIdle},
    Rule{"link-not-read", "Link not read", warning, link, never, &linkNotRead},
    Rule{"speed-not-as-set", "Speed not as set", warning, link, never, &speedNotAsSet},
    Rule{"topology-not-as-set", "Topology not as set", warning, link, never, &topologyNotAsSet},
    Rule{"link-at-100", "Link at 100 Mb/s", warning, link, never, &linkAt100},
    Rule{"link-slower-than-before", "Slower than before", warning, link, sameNumbers, &linkSlowerThanBefore},
    Rule{"link-slower", "Slower than possible", note, link, sameNumbers, &linkSlower},
    Rule{"link-settling", "Link coming back", note, link, never, &linkSettling},
    Rule{"port-spare", "Spare port", note, link, always, &portSpare},

    Rule{"volumes-unmounted", "Volumes still off", problem, behind, never, &volumesUnmounted},
    Rule{"interface-missing", "Interface missing", problem, behind, always, &interfaceMissing},
    Rule{"behind-gone", "Disks gone", warning, behind, sameNumbers, &behindGone},
    Rule{"behind-empty", "No disk anywhere", note, behind, never, &behindEmpty},
};
// clang-format on

}  // namespace

std::span<const Rule> allRules() {
  return rules;
}

const Rule& ruleOf(std::string_view code) {
  const auto found = std::find_if(rules.begin(), rules.end(),
                                  [code](const Rule& each) { return each.code == code; });
  if (found == rules.end()) throw std::logic_error("no such rule: " + std::string(code));
  return *found;
}

}  // namespace corvane
