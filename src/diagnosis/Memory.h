#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "inventory/PortMemory.h"

namespace corvane {

/// A setting of a Fibre Channel port that a change may have been about; Other stands for all that
/// no rule looks at again.
enum class ChangedSetting { Speed, Topology, QueueDepth, Other };

/// One change that the utility made to a port.
struct PortChange {
  ReadingTime time{};
  std::string address;  ///< WWPN or MAC address of the port
  ChangedSetting setting = ChangedSetting::Other;
  std::string what;     ///< the setting in words, such as "speed"
  uint64_t to = 0;      ///< the driver's number for the value wished
  bool isMade = true;   ///< it was sent and not refused
  bool isTaken = true;  ///< it was read back as wished

  bool operator==(const PortChange&) const = default;
};

/// Firmware that an update handed to an adapter.
struct FlashedFirmware {
  std::string version;
  bool isAttachedAgain = false;  ///< the adapter was attached anew since
  std::optional<ReadingTime> time;

  bool operator==(const FlashedFirmware&) const = default;
};

/// What rules may know beyond one reading. Every part may be empty; no rule fires because one is.
struct Memory {
  PortMemories ports;
  std::vector<PortChange> changes;                 ///< in the order in which they were made
  std::map<std::string, FlashedFirmware> pending;  ///< by node WWN

  /// Versions that a catalogue read in this run offers, by the product's name there.
  std::map<std::string, std::string> catalogue;

  /// When links dropped in the last ten minutes of this run, by WWPN or MAC address.
  std::map<std::string, std::vector<ReadingTime>> drops;

  bool operator==(const Memory&) const = default;
};

}  // namespace corvane
