#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "inventory/PortReadings.h"

namespace corvane {

/// What is remembered of a port from earlier looks.
struct PortMemory {
  std::optional<ReadingTime> firstLook;
  std::optional<ReadingTime> lastLook;
  int64_t lookDays = 0;               ///< number of days with a look
  std::optional<ReadingTime> lastUp;  ///< last look that found a link
  uint64_t bestSpeed = 0;             ///< in Mb/s; 0 for none
  std::optional<ReadingTime> bestAt;
  std::string module;                    ///< serial number of the module then; empty without one
  std::optional<ReadingTime> lastDisks;  ///< last look that found a link and disks behind it

  bool operator==(const PortMemory&) const = default;
};

/// By the port's WWPN or MAC address.
using PortMemories = std::map<std::string, PortMemory>;

}  // namespace corvane
