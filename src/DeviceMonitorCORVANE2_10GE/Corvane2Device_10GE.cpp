#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"

#include "discovery/ChainPosition.h"

namespace corvane {

std::optional<std::string> Corvane2Device_10GE::devicePort() const {
  const auto held = lock();
  return devicePort_;
}

std::optional<std::string> Corvane2Device_10GE::deviceSequence() const {
  const auto held = lock();
  return deviceSequence_;
}

void Corvane2Device_10GE::setDeviceSequence(const std::string& deviceSequence) {
  const auto held = lock();
  deviceSequence_ = deviceSequence;
}

int64_t Corvane2Device_10GE::sortDeviceSequence(Registry& registry, RegistryHandle service) {
  const ChainPosition position = findChainPosition(registry, service);
  const auto held = lock();
  if (position.port) devicePort_ = position.port;
  return position.sequence;
}

}  // namespace corvane
