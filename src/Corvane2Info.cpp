#include "Corvane2Info.h"

#include <fmt/format.h>

#include "discovery/ChainPosition.h"

namespace corvane {

Corvane2Info::Corvane2Info(const Platform& platform)
    : port1Info(platform.userClient, platform.dispatch, platform.log),
      port2Info(platform.userClient, platform.dispatch, platform.log),
      registry_(platform.registry) {}

int64_t Corvane2Info::sortDeviceSequence(RegistryHandle service) {
  const ChainPosition position = findChainPosition(registry_, service);
  if (position.port) devicePort = position.port;
  return position.sequence;
}

std::string Corvane2Info::label() const {
  return fmt::format("{} - {}", textOrNull(devicePort), deviceSequence);
}

}  // namespace corvane
