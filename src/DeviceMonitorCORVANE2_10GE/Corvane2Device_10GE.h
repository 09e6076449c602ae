#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "DeviceMonitorCORVANE2_10GE/SEPort.h"
#include "discovery/PairedPorts.h"
#include "platform/Registry.h"

namespace corvane {

/// A 10GbE adapter: two ports on one PCI bus, and the adapter's place among the daisy-chained ones.
class Corvane2Device_10GE : public PairedPorts<SEPort> {
 public:
  /// The PCI bus number of the first port that was taken, by which the adapter is known. Unset
  /// before.
  std::optional<std::string> fuckPcidebug() const { return identity(); }

  /// The letter of the chain; unset when it has none.
  std::optional<std::string> devicePort() const;

  /// The place along the chain, in decimal. Unset until it was set.
  std::optional<std::string> deviceSequence() const;
  void setDeviceSequence(const std::string& deviceSequence);

  /// Returns the place along its chain of the adapter that the port `service` belongs to, and sets
  /// devicePort unless the chain has no letter.
  int64_t sortDeviceSequence(Registry& registry, RegistryHandle service);

 private:
  // Guarded by the record's lock.
  std::optional<std::string> devicePort_;
  std::optional<std::string> deviceSequence_;
};

}  // namespace corvane
