#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "discovery/AdapterFamily.h"
#include "inventory/PortReadings.h"

namespace corvane {

/// One look at an adapter of the device list and both its ports.
struct AdapterReading {
  std::string label;     ///< "Sequence": chain letter and position, such as "B - 2"
  std::string WWN;       ///< node WWN; for 10GbE the MAC address of the first port
  std::string product;   ///< "ProductType"
  std::string image;     ///< icon file name
  std::string pcidebug;  ///< PCI bus number of a 10GbE adapter; empty for Fibre Channel
  ReadingTime readAt{};

  /// The version text of the installed driver's bundle; empty where the bundle has none.
  Answer<std::string> driverVersion;

  std::variant<std::array<FibreChannelPortReading, 2>, std::array<TenGigabitPortReading, 2>> ports;

  AdapterFamily family() const {
    return ports.index() == 0 ? AdapterFamily::FibreChannel : AdapterFamily::TenGigabit;
  }

  /// The ports of an adapter of that family. Undefined for the other one.
  const std::array<FibreChannelPortReading, 2>& fibreChannelPorts() const {
    return *std::get_if<0>(&ports);
  }
  const std::array<TenGigabitPortReading, 2>& tenGigabitPorts() const {
    return *std::get_if<1>(&ports);
  }

  bool operator==(const AdapterReading&) const = default;
};

/// An adapter that the registry shows on a chain and that is not in the device list.
struct UnlistedAdapter {
  std::string label;
  AdapterFamily family = AdapterFamily::FibreChannel;
  std::optional<std::string> product;  ///< unset when no table names its model
  std::string model;                   ///< the registry's text of its model or "subsystem-id"
  int64_t functions = 0;               ///< PCI functions below it
  int64_t services = 0;                ///< the driver's services below it
  std::string identifier;  ///< "CFBundleIdentifier" of those services; empty without one
  std::string nodeWWN;     ///< what its services tell; empty without one

  /// A 10GbE port of it is still waited for: the network stack has not named its interface.
  bool isUnnamed = false;
  int64_t unnamedPort = 0;  ///< 1 or 2; 0 when none is

  /// It was attached so lately that discovery still gives it time to appear.
  bool isArriving = false;

  bool operator==(const UnlistedAdapter&) const = default;
};

/// A volume that an update which has ended left unmounted.
struct VolumeLeftOff {
  std::string disk;   ///< BSD name
  std::string under;  ///< WWN of the port that its path led through; empty when not known
  std::string since;  ///< when that update began, as utcText() prints it; empty when not known

  bool operator==(const VolumeLeftOff&) const = default;
};

/// An update of firmware that a living program is carrying out on this computer.
struct RunningUpdate {
  std::string program;
  std::string label;
  std::string since;  ///< as utcText() prints it

  bool operator==(const RunningUpdate&) const = default;
};

/// The driver bundles that the rules ask for, by name without ".kext".
inline constexpr const char* fibreChannelBundle1 = "Corvane-FC";
inline constexpr const char* fibreChannelBundle2 = "Corvane2-FC";
inline constexpr const char* tenGigabitBundle = "Corvane2-10GE";

/// One look at the whole computer: the drivers, the chains, and every adapter.
struct ComputerReading {
  ReadingTime readAt{};
  bool isDump = false;                 ///< from a registry dump or a bundle
  Answer<std::string> productVersion;  ///< the operating system's release
  std::string model;                   ///< the computer's model; empty when not known
  bool hasAppleSilicon = false;

  /// By bundle name: nothing where the release's folder has none, else its version text, which may
  /// be empty.
  Answer<std::map<std::string, std::optional<std::string>>> bundles;

  /// What each monitor's registration gave: 0 or registrationFailed.
  Answer<int64_t> fibreChannelMonitor;
  Answer<int64_t> tenGigabitMonitor;

  std::vector<AdapterReading> adapters;  ///< in the order of the device list
  std::vector<UnlistedAdapter> unlisted;
  std::vector<VolumeLeftOff> leftUnmounted;
  std::optional<RunningUpdate> runningUpdate;

  bool operator==(const ComputerReading&) const = default;
};

}  // namespace corvane
