#pragma once

#include <string>
#include <vector>

#include "FakeRegistry.h"

namespace corvane {

/// A registry byte string of a 32-bit little-endian number.
inline PropertyValue registryNumber(uint32_t value) {
  return PropertyValue::Data{static_cast<uint8_t>(value), static_cast<uint8_t>(value >> 8U),
                             static_cast<uint8_t>(value >> 16U),
                             static_cast<uint8_t>(value >> 24U)};
}

/// The registry ancestors of a function that `hop` Thunderbolt hops away from the host's downstream
/// bridge `downstream`, as a Mac has them; the last entry is the bridge above the function. The
/// adapter's upstream bridge carries `endpoint`.
inline RegistryHandle addThunderboltChain(FakeRegistry& registry, const std::string& downstream,
                                          int hop, PropertyValue::Dictionary endpoint = {}) {
  RegistryHandle at = registry.addChain(
      registry.root, {"MacPro6,1", "PCI0", "AppleACPIPCI", "PEG0", "IOPP", "UPSB", "IOPP"});
  at = registry.addChain(at, {downstream, "IOPP"});
  for (int each = 1; each <= hop; ++each) {
    const std::string upstream = each == 1 ? "UPS0" : "pci-bridge";
    at = registry.add(at, upstream, each == hop ? endpoint : PropertyValue::Dictionary{});
    at = registry.addChain(at, {"IOPP", "pci-bridge", "IOPP"});
  }
  return at;
}

/// What a Fibre Channel adapter in a test's registry is made of.
struct FakeFibreChannelAdapter {
  uint32_t model = 0x0d;  ///< Thunderbolt model identifier
  uint32_t vendor = 2;    ///< Thunderbolt vendor identifier
  std::string downstream = "DSB2";
  int hop = 1;
  uint8_t number = 0x56;  ///< last byte of its names
  std::string driver = "com.velmar.Corvane2-FC";
};

/// Adds the adapter's two port services, not yet published; the first has the lower port name.
inline std::vector<RegistryHandle> addFibreChannelAdapter(FakeRegistry& registry,
                                                          const FakeFibreChannelAdapter& adapter) {
  const RegistryHandle bridge =
      addThunderboltChain(registry, adapter.downstream, adapter.hop,
                          {{"Tunnel Endpoint Device Vendor ID", registryNumber(adapter.vendor)},
                           {"Tunnel Endpoint Device Model ID", registryNumber(adapter.model)}});
  std::vector<RegistryHandle> ports;
  for (uint8_t port = 0; port < 2; ++port) {
    const RegistryHandle function = registry.addChain(bridge, {"pci10df,e200", "VelmarCORVANE"});
    const PropertyValue::Dictionary characteristics{
        {"Node World Wide Name",
         PropertyValue::Data{0x20, 0, 0, 0x10, 0x9b, 0x12, 0x34, adapter.number}},
        {"Port World Wide Name", PropertyValue::Data{static_cast<uint8_t>(0x21 + port), 0, 0, 0x10,
                                                     0x9b, 0x12, 0x34, adapter.number}}};
    ports.push_back(registry.add(function, "IOFibreChannelPort",
                                 {{"CFBundleIdentifier", PropertyValue(adapter.driver)},
                                  {"Controller Characteristics", PropertyValue(characteristics)}}));
  }
  return ports;
}

/// The node name of such an adapter.
inline std::string fakeNodeName(const FakeFibreChannelAdapter& adapter) {
  constexpr const char* digits = "0123456789ABCDEF";
  return std::string("20:00:00:10:9B:12:34:") + digits[adapter.number >> 4U] +
         digits[adapter.number & 15U];
}

/// What a 10GbE adapter in a test's registry is made of.
struct FakeTenGigabitAdapter {
  uint32_t subsystem = 0x6202;
  std::string downstream = "DSB1";
  int hop = 1;
  int bus = 12;
  bool enabled1 = true;
  bool enabled2 = true;
  uint8_t number = 0xCC;  ///< the address's byte before the last one
};

/// Adds the adapter's two port services, not yet published; the first has the lower address.
inline std::vector<RegistryHandle> addTenGigabitAdapter(FakeRegistry& registry,
                                                        const FakeTenGigabitAdapter& adapter) {
  const RegistryHandle bridge = addThunderboltChain(registry, adapter.downstream, adapter.hop, {});
  std::vector<RegistryHandle> ports;
  for (uint8_t port = 0; port < 2; ++port) {
    const RegistryHandle function = registry.add(
        bridge, "ethernet",
        {{"pcidebug", PropertyValue(std::to_string(adapter.bus) + ":0:" + std::to_string(port))},
         {"subsystem-id", registryNumber(adapter.subsystem)}});
    PropertyValue::Dictionary properties{
        {"CFBundleIdentifier", PropertyValue("com.velmar.driver.Corvane2-10GE")},
        {"IOMACAddress", PropertyValue::Data{0, 0x1b, 0x21, 0xaa, adapter.number, port}}};
    if (port == 0 ? adapter.enabled1 : adapter.enabled2)
      properties["EN Number"] = PropertyValue(5 + port);
    const RegistryHandle service = registry.add(function, "Corvane10GE", properties);
    registry.add(service, "en" + std::to_string(5 + port));
    ports.push_back(service);
  }
  return ports;
}

}  // namespace corvane
