#include "diagnosis/RuleTable.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace corvane {

namespace {

constexpr auto problem = Severity::Problem;
constexpr auto warning = Severity::Warning;
constexpr auto note = Severity::Note;
constexpr auto atComputer = Segment::Computer;
constexpr auto onChain = Segment::Chain;
constexpr auto atAdapter = Segment::Adapter;
constexpr auto atPort = Segment::Port;
constexpr auto atModule = Segment::Module;
constexpr auto atLink = Segment::Link;
constexpr auto behindPort = Segment::Behind;
constexpr auto never = Merging::Never;
constexpr auto sameNumbers = Merging::SameNumbers;
constexpr auto always = Merging::Always;

// clang-format off
const std::array rules{
    Rule{"monitor-not-started", "Monitor not started", problem, atComputer, never, &monitorNotStarted},
    Rule{"driver-missing", "Driver missing", problem, atComputer, never, &driverMissing},
    Rule{"driver-other-runs", "Another driver runs", problem, atComputer, never, &driverOtherRuns},
    Rule{"driver-not-running", "Driver does not run", problem, atComputer, never, &driverNotRunning},
    Rule{"driver-version-unknown", "Driver version unknown", warning, atComputer, never, &driverVersionUnknown},
    Rule{"driver-too-old", "Driver too old", warning, atComputer, never, &driverTooOld},
    Rule{"scratch-blocked", "Answer file blocked", warning, atComputer, never, &scratchBlocked},
    Rule{"tool-missing", "Adapter tool missing", warning, atComputer, never, &toolMissing},
    Rule{"tool-hangs", "Adapter tool hangs", warning, atComputer, never, &toolHangs},
    Rule{"tool-unreadable", "Adapter tool unreadable", warning, atComputer, never, &toolUnreadable},
    Rule{"driver-two-installed", "Two drivers installed", note, atComputer, never, &driverTwoInstalled},
    Rule{"update-running", "Update running", note, atComputer, never, &updateRunning},
    Rule{"no-adapter", "No adapter attached", note, atComputer, never, &noAdapter},

    Rule{"label-twice", "Label used twice", note, onChain, never, &labelTwice},
    Rule{"adapter-no-function", "Controller does not show", problem, atAdapter, never, &adapterNoFunction},
    Rule{"adapter-without-service", "Adapter without driver", problem, atAdapter, never, &adapterWithoutService},
    Rule{"adapter-one-port", "Only one port shows", problem, atAdapter, never, &adapterOnePort},
    Rule{"address-twice", "Address used twice", problem, atAdapter, never, &addressTwice},
    Rule{"product-unknown", "Unknown product", warning, atAdapter, never, &productUnknown},
    Rule{"firmware-not-taken", "Firmware not taken", warning, atAdapter, never, &firmwareNotTaken},
    Rule{"firmware-pending", "Firmware waits", warning, atAdapter, never, &firmwarePending},
    Rule{"firmware-differs", "Older firmware than others", note, atAdapter, never, &firmwareDiffers},
    Rule{"firmware-catalogue", "Newer firmware offered", note, atAdapter, never, &firmwareCatalogue},
    Rule{"ports-differ", "Ports set differently", note, atAdapter, never, nullptr},

    Rule{"adapter-disabled", "Adapter not enabled", problem, atPort, never, &adapterDisabled},
    Rule{"driver-no-answer", "Driver does not answer", problem, atPort, always, &driverNoAnswer},
    Rule{"port-unnamed", "Interface not named", problem, atPort, never, &portUnnamed},
    Rule{"speed-unsupported", "Speed not supported", problem, atPort, never, &speedUnsupported},
    Rule{"topology-unsupported", "Topology not supported", problem, atPort, never, &topologyUnsupported},
    Rule{"speed-not-in-module", "Speed not in the module", problem, atPort, never, &speedNotInModule},
    Rule{"port-disabled", "Port not enabled", warning, atPort, never, &portDisabled},
    Rule{"alpa-invalid", "Hard AL_PA invalid", warning, atPort, never, &alpaInvalid},
    Rule{"mtu-small", "MTU too small", warning, atPort, sameNumbers, &mtuSmall},
    Rule{"alpa-same", "Same hard AL_PA", note, atPort, never, &alpaSame},
    Rule{"alpa-unused", "Hard AL_PA unused", note, atPort, sameNumbers, &alpaUnused},
    Rule{"speed-forced", "Speed forced", note, atPort, sameNumbers, &speedForced},
    Rule{"queue-depth-own", "Own queue depth", note, atPort, sameNumbers, &queueDepthOwn},
    Rule{"preset-custom", "Custom preset", note, atPort, sameNumbers, &presetCustom},
    Rule{"offload-off", "Offload off", note, atPort, sameNumbers, &offloadOff},
    Rule{"mtu-differs", "MTUs differ", note, atPort, never, &mtuDiffers},
    Rule{"setting-lost", "Setting lost", note, atPort, never, &settingLost},
    Rule{"value-senseless", "Senseless value", note, atPort, sameNumbers, &valueSenseless},
    Rule{"values-not-read", "Values not read", note, atPort, sameNumbers, &valuesNotRead},

    Rule{"module-gone", "Module gone", problem, atModule, always, &moduleGone},
    Rule{"module-unreadable", "Module unreadable", problem, atModule, always, &moduleUnreadable, true},
    Rule{"module-half-read", "Module half read", problem, atModule, never, &moduleHalfRead, true},
    Rule{"module-wrong-class", "Wrong module", problem, atModule, never, &moduleWrongClass, true},
    Rule{"module-no-fc-speed", "No Fibre Channel speed", problem, atModule, never, &moduleNoSpeed},
    Rule{"module-checksum", "Module checksum wrong", warning, atModule, never, &moduleChecksum},
    Rule{"module-checksum-extended", "Serial checksum wrong", note, atModule, never, &moduleChecksumExtended},
    Rule{"module-1g", "1G module", note, atModule, never, &module1G},
    Rule{"module-none", "No module", note, atModule, always, &moduleNone},

    Rule{"link-down-forced", "No link, setting forced", problem, atLink, sameNumbers, &linkDownForced},
    Rule{"link-down", "No link", problem, atLink, always, &linkDown},
    Rule{"link-flaps", "Link flaps", warning, atLink, sameNumbers, &linkFlaps},
    Rule{"link-idle", "No link, maybe unused", warning, atLink, always, &linkIdle},
    Rule{"link-not-read", "Link not read", warning, atLink, never, &linkNotRead},
    Rule{"speed-not-as-set", "Speed not as set", warning, atLink, never, &speedNotAsSet},
    Rule{"topology-not-as-set", "Topology not as set", warning, atLink, never, &topologyNotAsSet},
    Rule{"link-at-100", "Link at 100 Mb/s", warning, atLink, never, &linkAt100},
    Rule{"link-slower-than-before", "Slower than before", warning, atLink, sameNumbers, &linkSlowerThanBefore},
    Rule{"link-slower", "Slower than possible", note, atLink, sameNumbers, &linkSlower},
    Rule{"link-settling", "Link coming back", note, atLink, never, &linkSettling},
    Rule{"port-spare", "Spare port", note, atLink, always, &portSpare},

    Rule{"volumes-unmounted", "Volumes still off", problem, behindPort, never, &volumesUnmounted},
    Rule{"interface-missing", "Interface missing", problem, behindPort, always, &interfaceMissing},
    Rule{"behind-gone", "Disks gone", warning, behindPort, sameNumbers, &behindGone},
    Rule{"behind-empty", "No disk anywhere", note, behindPort, never, &behindEmpty},
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
