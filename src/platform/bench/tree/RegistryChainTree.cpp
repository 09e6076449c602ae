#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "platform/bench/file/BenchProducts.h"
#include "platform/bench/tree/RegistryTreeParts.h"
#include "text/WholeNumber.h"

// The Thunderbolt chains: adapters and other devices with their bridges, functions and drivers.
namespace corvane {

namespace {

constexpr int64_t hopsOfBridge = 6;
/// The downstream bridge inside a device that leads to its own function, and the one that leads to
/// the next device of the chain.
constexpr const char* functionSlot = "1";
constexpr const char* chainSlot = "4";

constexpr uint16_t controllerVendor = 0x10df;
constexpr uint16_t secondGenerationController = 0xe200;
constexpr uint16_t thirdGenerationController = 0xe300;
constexpr uint16_t ethernetVendor = 0x8086;
constexpr uint16_t ethernetDevice = 0x1528;
constexpr uint16_t ethernetSubsystemVendor = 0x1cb6;
constexpr int64_t ethernetLinkSpeed = 10000000000;

/// Who stands at one place of a chain. At most one of the two is set; neither where a device is
/// that says nothing of itself.
struct Occupant {
  const BenchAdapter* adapter = nullptr;
  const BenchThunderboltDevice* device = nullptr;
};

Occupant occupantOf(const BenchState& state, int64_t bridge, int64_t hop) {
  for (const BenchAdapter& adapter : state.adapters) {
    if (adapter.attached && adapter.bridge == bridge && adapter.hop == hop)
      return {&adapter, nullptr};
  }
  for (const BenchThunderboltDevice& device : state.thunderboltDevices) {
    if (device.bridge == bridge && device.hop == hop) return {nullptr, &device};
  }
  return {};
}

int64_t lastHop(const BenchState& state, int64_t bridge) {
  int64_t last = 0;
  for (int64_t hop = 1; hop <= hopsOfBridge; ++hop) {
    const Occupant occupant = occupantOf(state, bridge, hop);
    if (occupant.adapter != nullptr || occupant.device != nullptr) last = hop;
  }
  return last;
}

/// The PCI bus of a device's function: the same wherever else something is plugged in, and no two
/// devices share one.
int64_t functionBus(int64_t bridge, int64_t hop) {
  constexpr int64_t firstBus = 12;
  constexpr int64_t busesOfDevice = 2;
  return firstBus + (bridge * hopsOfBridge + hop - 1) * busesOfDevice;
}

std::string adapterIdentity(const BenchAdapter& adapter) {
  const std::string& name =
      adapter.nodeWWN.empty() ? adapter.ethernetPorts.front().mac : adapter.nodeWWN;
  return fmt::format("#{}#{}", name, adapter.timesPlugged);
}

std::string occupantIdentity(const Occupant& occupant) {
  if (occupant.adapter != nullptr) return adapterIdentity(*occupant.adapter);
  return occupant.device != nullptr ? "#" + occupant.device->name : std::string("#");
}

PropertyValue::Dictionary tunnelEndpoint(uint64_t vendor, uint64_t model, uint64_t unique) {
  return {{"Tunnel Endpoint Device Vendor ID", numberData(vendor, 4)},
          {"Tunnel Endpoint Device Model ID", numberData(model, 4)},
          {"Tunnel Endpoint GUID", numberData(unique, 8)}};
}

PropertyValue::Dictionary upstreamProperties(const Occupant& occupant, int64_t bus) {
  PropertyValue::Dictionary properties;
  const auto unique = static_cast<uint64_t>(0x0001000200000000 + bus);
  if (occupant.adapter != nullptr) {
    const BenchProduct& product = *findBenchProduct(occupant.adapter->product);
    properties = tunnelEndpoint(benchTunnelVendorID, product.tunnelModelID, unique);
  } else if (occupant.device != nullptr) {
    properties = tunnelEndpoint(static_cast<uint64_t>(occupant.device->vendorID),
                                static_cast<uint64_t>(occupant.device->modelID), unique);
  }
  properties["IOPCITunnelled"] = true;
  properties["pcidebug"] = fmt::format("{}:0:0({}:{})", bus - 2, bus - 1, bus);
  return properties;
}

PropertyValue::Dictionary downstreamProperties(int64_t bus) {
  return {{"IOPCITunnelled", true},
          {"pcidebug", fmt::format("{}:{}:0({}:{})", bus - 1, functionSlot, bus, bus)}};
}

std::string functionLocation(size_t number) {
  return number == 0 ? "0" : fmt::format("0,{:X}", number);
}

PropertyValue::Dictionary functionProperties(uint16_t vendor, uint16_t device, int64_t bus,
                                             size_t number) {
  return {{"IOPCITunnelled", true},
          {"pcidebug", fmt::format("{}:0:{}", bus, number)},
          {"vendor-id", numberData(vendor, 4)},
          {"device-id", numberData(device, 4)}};
}

void addFibreChannelFunction(RegistryTreeEntry& bus, const BenchState& state,
                             const BenchAdapter& adapter, size_t number, int64_t busNumber) {
  const BenchFibreChannelPort& port = adapter.fibreChannelPorts[number];
  const bool isSecond = findBenchProduct(adapter.product)->generation == 2;
  const uint16_t device = isSecond ? secondGenerationController : thirdGenerationController;
  RegistryTreeEntry& function =
      addEntry(bus, fmt::format("pci{:x},{:x}", controllerVendor, device), functionLocation(number),
               "IOPCIDevice", functionProperties(controllerVendor, device, busNumber, number));
  const std::string identifier = fibreChannelDriverIdentifier(state);
  if (identifier.empty()) return;
  RegistryTreeEntry& driver =
      addEntry(function, "VelmarCORVANE", "", "com_velmar_driver_CorvaneFC",
               {{"IOClass", "com_velmar_driver_CorvaneFC"}, {"IOProviderClass", "IOPCIDevice"}});
  RegistryTreeEntry& service =
      addEntry(driver, "CorvaneFCPort", std::to_string(number), "com_velmar_driver_CorvaneFCPort",
               {{"CFBundleIdentifier", identifier},
                {"IOPowerManagement", PropertyValue::Dictionary{{"ChildrenPowerState", 2}}},
                {"Controller Characteristics",
                 PropertyValue::Dictionary{{"Node World Wide Name", addressData(adapter.nodeWWN)},
                                           {"Port World Wide Name", addressData(port.wwpn)},
                                           {"Vendor Name", "Velmar"},
                                           {"Product Name", adapter.product}}}});
  service.identity += "#" + port.wwpn;
  if (port.link) addPortDisks(service, state, port.wwpn);
}

PropertyValue subsystemData(uint32_t memoryOrder) {
  constexpr size_t width = 4;
  PropertyValue::Data bytes;
  for (size_t index = width; index > 0; --index) {
    bytes.push_back(static_cast<uint8_t>(memoryOrder >> (8 * (index - 1))));
  }
  return bytes;
}

int64_t interfaceNumber(const BenchEthernetPort& port) {
  if (!port.interface) return 0;
  return leadingInteger(port.interface->substr(port.interface->find_first_of("0123456789")));
}

void addEthernetInterface(RegistryTreeEntry& driver, const BenchEthernetPort& port) {
  if (port.interface) {
    addInterface(driver, *port.interface, port.mac, false);
  } else if (port.enabled) {
    addEntry(driver, unnamedInterface, "", unnamedInterface,
             {{"IOMACAddress", addressData(port.mac)}});
  }
}

void addEthernetFunction(RegistryTreeEntry& bus, const BenchState& state,
                         const BenchAdapter& adapter, size_t number, int64_t busNumber) {
  const BenchEthernetPort& port = adapter.ethernetPorts[number];
  PropertyValue::Dictionary properties =
      functionProperties(ethernetVendor, ethernetDevice, busNumber, number);
  properties["IOName"] = "ethernet";
  properties["subsystem-vendor-id"] = numberData(ethernetSubsystemVendor, 4);
  properties["subsystem-id"] = subsystemData(findBenchProduct(adapter.product)->subsystemID);
  RegistryTreeEntry& function =
      addEntry(bus, "ethernet", functionLocation(number), "IOPCIDevice", std::move(properties));
  const std::string identifier = ethernetDriverIdentifier(state);
  if (identifier.empty()) return;
  PropertyValue::Dictionary driverProperties = {{"CFBundleIdentifier", identifier},
                                                {"IOMACAddress", addressData(port.mac)},
                                                {"IOLinkSpeed", ethernetLinkSpeed}};
  if (port.enabled) driverProperties["EN Number"] = interfaceNumber(port);
  RegistryTreeEntry& driver =
      addEntry(function, "com_velmar_driver_Corvane2_10GE", "", "com_velmar_driver_Corvane2_10GE",
               std::move(driverProperties));
  driver.identity += "#" + port.mac;
  addEthernetInterface(driver, port);
}

void addFunctions(RegistryTreeEntry& bus, const BenchState& state, const BenchAdapter& adapter,
                  int64_t busNumber) {
  for (size_t number = 0; number < adapter.fibreChannelPorts.size(); ++number) {
    addFibreChannelFunction(bus, state, adapter, number, busNumber);
  }
  for (size_t number = 0; number < adapter.ethernetPorts.size(); ++number) {
    addEthernetFunction(bus, state, adapter, number, busNumber);
  }
}

/// Adds the device at one place of the chain and returns where the next one goes. The firmware
/// names the upstream bridge at the first hop only.
RegistryTreeEntry& addDevice(RegistryTreeEntry& bus, const BenchState& state,
                             const Occupant& occupant, int64_t bridge, int64_t hop) {
  const int64_t busNumber = functionBus(bridge, hop);
  RegistryTreeEntry& upstream = addBridge(bus, state, hop == 1 ? "UPS0" : "pci-bridge", "0",
                                          upstreamProperties(occupant, busNumber));
  upstream.identity = fmt::format("#{}.{}{}", bridge, hop, occupantIdentity(occupant));
  RegistryTreeEntry& functions =
      addBridge(upstream, state, "pci-bridge", functionSlot, downstreamProperties(busNumber));
  if (occupant.adapter != nullptr) addFunctions(functions, state, *occupant.adapter, busNumber);
  return addBridge(upstream, state, "pci-bridge", chainSlot, {{"IOPCITunnelled", true}});
}

}  // namespace

void addChain(RegistryTreeEntry& bus, const BenchState& state, int64_t number) {
  RegistryTreeEntry* next = &bus;
  const int64_t last = lastHop(state, number);
  for (int64_t hop = 1; hop <= last; ++hop) {
    next = &addDevice(*next, state, occupantOf(state, number, hop), number, hop);
  }
}

}  // namespace corvane
