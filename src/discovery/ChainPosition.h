#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Registry.h"

namespace corvane {

/// Where an adapter stands among the daisy-chained ones.
struct ChainPosition {
  /// Its place along the chain: 1 for the first adapter.
  int64_t sequence = 0;

  /// The letter of the host's Thunderbolt port through which the chain is reached, "A" to "I".
  /// Unset when the port's number has none or no such port is above the adapter.
  std::optional<std::string> port;
};

/// Finds the place of the adapter that the port `service` belongs to by walking up the registry to
/// the host's downstream bridge. `service` stays the caller's.
ChainPosition findChainPosition(Registry& registry, RegistryHandle service);

}  // namespace corvane
