#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/PropertyValue.h"
#include "platform/bench/file/BenchState.h"

namespace corvane {

/// An entry of the simulated computer's registry, in the service plane, with everything below it.
struct RegistryTreeEntry {
  std::string name;
  std::string location;   ///< upper-case hexadecimal, with an optional ",function"; empty for none
  std::string className;  ///< such as "IOPCIDevice"
  uint64_t id = 0;        ///< unique in the tree
  PropertyValue::Dictionary properties;
  std::vector<std::unique_ptr<RegistryTreeEntry>> children;
  const RegistryTreeEntry* parent = nullptr;  ///< null for the root

  /// Tells the entry from every other, over changes of the tree: an entry of the next tree with the
  /// same text is the same entry. An adapter that was plugged in again is not.
  std::string identity;

  /// A network interface that the network stack names a moment after it appears; until then its
  /// name is unnamedInterface.
  bool isNamedLater = false;

  /// "NAME@LOCATION", or the name alone.
  std::string title() const;

  /// The path in the service plane: "IOService:/" and the titles below the root.
  std::string path() const;
};

/// The name of a network interface that the network stack has not named yet.
inline constexpr const char* unnamedInterface = "IOEthernetInterface";

/// The registry that a computer in that state has: the host with its own devices, and on its
/// Thunderbolt chains the adapters with their bridges, functions and the drivers' services.
std::unique_ptr<RegistryTreeEntry> buildRegistryTree(const BenchState& state);

/// The bundle identifier of the Fibre Channel driver that runs; empty when none is installed.
std::string fibreChannelDriverIdentifier(const BenchState& state);

/// The bundle identifier of the 10GbE driver; empty when it is not installed.
std::string ethernetDriverIdentifier(const BenchState& state);

}  // namespace corvane
