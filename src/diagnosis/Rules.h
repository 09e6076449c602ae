#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "diagnosis/Look.h"

/// The rules, one by one. What they silence of each other, how they are merged and in which order
/// they come out is not their matter: each looks at the readings alone.
namespace corvane {

/// What a finding says.
struct Words {
  std::string text;
  std::string remedy;
};

/// One or both ports of an adapter.
using SomePorts = std::span<const PortFacts* const>;

/// A rule about one port.
struct PortRule {
  bool (*holds)(const Look& look, const PortFacts& port);

  /// For one port where the rule holds, or for both ports of an adapter where it holds for both.
  Words (*words)(const Look& look, SomePorts ports);
};

/// One finding of a rule about more than a port.
struct Said {
  Words words;
  std::vector<Place> concerns;

  /// Whose finding it is, where it is one family's.
  std::optional<AdapterFamily> family;

  /// Never with a label, even where all that it concerns is one adapter.
  bool isOfComputer = false;
};

/// A rule about the computer, its chains or its adapters.
struct WideRule {
  std::vector<Said> (*say)(const Look& look);
};

// The computer.
extern const WideRule monitorNotStarted, driverMissing, driverOtherRuns, driverNotRunning,
    driverVersionUnknown, driverTooOld, scratchBlocked, toolMissing, toolHangs, toolUnreadable,
    driverTwoInstalled, updateRunning, noAdapter;

// Chains and adapters.
extern const WideRule labelTwice, adapterNoFunction, adapterWithoutService, adapterOnePort,
    addressTwice, productUnknown, portUnnamed;

// Firmware.
extern const WideRule firmwareNotTaken, firmwarePending, firmwareDiffers, firmwareCatalogue;

// Settings of ports.
extern const WideRule adapterDisabled, alpaSame, mtuDiffers;
extern const PortRule driverNoAnswer, speedUnsupported, topologyUnsupported, speedNotInModule,
    portDisabled, alpaInvalid, mtuSmall, alpaUnused, speedForced, queueDepthOwn, presetCustom,
    offloadOff, settingLost, valueSenseless, valuesNotRead;

// Modules.
extern const PortRule moduleGone, moduleUnreadable, moduleHalfRead, moduleWrongClass, moduleNoSpeed,
    moduleChecksum, moduleChecksumExtended, module1G, moduleNone;

// Links.
extern const PortRule linkDownForced, linkDown, linkFlaps, linkIdle, linkNotRead, speedNotAsSet,
    topologyNotAsSet, linkAt100, linkSlowerThanBefore, linkSlower, linkSettling, portSpare;

// What is behind a port.
extern const WideRule volumesUnmounted, behindEmpty;
extern const PortRule interfaceMissing, behindGone;

/// What the two ports of an adapter are set to and differ in, as long as nothing else that was
/// found names it: `isNamed` tells of a code whether it stands for either port. Nothing when that
/// leaves nothing.
std::optional<Words> portsDifferWords(const Look& look, size_t adapter,
                                      const std::vector<std::string_view>& codesThere);

/// Whether the driver does not answer for a port that it serves.
bool isWithoutAnswer(const PortFacts& port);

/// Whether the interface that the driver names is unknown to the network stack.
bool isInterfaceMissing(const PortFacts& port);

}  // namespace corvane
