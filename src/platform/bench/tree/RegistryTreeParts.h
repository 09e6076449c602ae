#pragma once

#include <string>

#include "platform/bench/tree/RegistryTree.h"

/// The pieces from which the simulated registry is put together.
namespace corvane {

/// Adds a child. Its identity is its path unless the caller gives it another.
RegistryTreeEntry& addEntry(RegistryTreeEntry& parent, std::string name, std::string location,
                            std::string className, PropertyValue::Dictionary properties = {});

/// A number as a byte string of that width, least significant byte first.
PropertyValue numberData(uint64_t value, size_t width);

/// The bytes of hexadecimal pairs joined by ":".
PropertyValue addressData(const std::string& pairs);

/// A text as a byte string, its final zero byte included.
PropertyValue textData(const std::string& text);

/// The computer itself with everything that is built in, and its Thunderbolt chains.
void addHost(RegistryTreeEntry& root, const BenchState& state);

/// A PCI bridge with the bridge driver below it, which is returned: that is where the devices of
/// the bridge's bus stand.
RegistryTreeEntry& addBridge(RegistryTreeEntry& bus, const BenchState& state, std::string name,
                             std::string location, PropertyValue::Dictionary properties = {});

/// The chain that begins at the host's downstream bridge `number`, below that bridge's driver.
void addChain(RegistryTreeEntry& bus, const BenchState& state, int64_t number);

/// A network interface below its driver.
RegistryTreeEntry& addInterface(RegistryTreeEntry& driver, const std::string& name,
                                const std::string& mac, bool builtIn);

/// The disks that are reached through a Fibre Channel port, below the port's service.
void addPortDisks(RegistryTreeEntry& port, const BenchState& state, const std::string& wwpn);

/// The disks on one of the computer's other buses, below that bus's driver.
void addBusDisks(RegistryTreeEntry& bus, const BenchState& state, const std::string& busName);

}  // namespace corvane
