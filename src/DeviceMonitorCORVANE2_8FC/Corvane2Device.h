#pragma once

#include <optional>
#include <string>

#include "DeviceMonitorCORVANE2_8FC/FCPort.h"
#include "discovery/PairedPorts.h"

namespace corvane {

/// A Fibre Channel adapter: two ports with one node name, told apart by their port names.
class Corvane2Device : public PairedPorts<FCPort> {
 public:
  /// The world wide node name of the first port that was taken. Unset before.
  std::optional<std::string> nodeWWN() const { return identity(); }
};

}  // namespace corvane
