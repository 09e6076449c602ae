#include <fmt/format.h>

#include <algorithm>

#include "platform/bench/tree/RegistryTreeParts.h"

// The part of the registry that every computer has, whatever hangs on its Thunderbolt ports.
namespace corvane {

namespace {

constexpr int64_t firstSlot = 1;
constexpr int64_t lastBuiltInSlot = 4;
/// A slot's location on its bus is two above its number.
constexpr int64_t slotLocationOffset = 2;

/// Up to 10.8 the driver between two PCI devices had another name.
bool hasOldBridgeDriver(const std::string& osVersion) {
  for (const char* release : {"10.6", "10.7", "10.8"}) {
    if (osVersion == release || osVersion.rfind(std::string(release) + ".", 0) == 0) return true;
  }
  return false;
}

PropertyValue::Dictionary deviceNumbers(uint16_t vendor, uint16_t device, const char* ioName) {
  return {{"IOName", ioName},
          {"vendor-id", numberData(vendor, 4)},
          {"device-id", numberData(device, 4)}};
}

void addNetworkPort(RegistryTreeEntry& bus, const BenchNetworkInterface& interface, int place) {
  const bool isWireless = interface.kind == "Wi-Fi";
  RegistryTreeEntry& function =
      addEntry(bus, isWireless ? "ARPT" : "GIGE", std::to_string(place), "IOPCIDevice",
               deviceNumbers(0x14e4, isWireless ? 0x43a0 : 0x1682,
                             isWireless ? "pci14e4,43a0" : "ethernet"));
  RegistryTreeEntry& driver =
      addEntry(function, isWireless ? "AirPort_Brcm4360" : "BCM5701Enet", "",
               isWireless ? "AirPort_Brcm4360" : "BCM5701Enet",
               {{"CFBundleIdentifier", isWireless ? "com.apple.driver.AirPort.Brcm4360"
                                                  : "com.apple.iokit.AppleBCM5701Ethernet"},
                {"IOMACAddress", addressData(interface.mac)}});
  addInterface(driver, interface.name, interface.mac, true);
}

void addThunderboltInterface(RegistryTreeEntry& hostController,
                             const BenchNetworkInterface& interface) {
  RegistryTreeEntry& driver =
      addEntry(hostController, "AppleThunderboltIPPort", "", "AppleThunderboltIPPort",
               {{"CFBundleIdentifier", "com.apple.driver.AppleThunderboltIP"},
                {"IOMACAddress", addressData(interface.mac)},
                {"IOLinkSpeed", int64_t{10000000000}}});
  driver.identity += "/" + interface.name;
  addInterface(driver, interface.name, interface.mac, true);
}

void addBuiltInNetwork(RegistryTreeEntry& rootBus, const BenchState& state) {
  RegistryTreeEntry& bus = addBridge(rootBus, state, "RP03", "1C,2");
  int place = 0;
  for (const BenchNetworkInterface& interface : state.networkInterfaces) {
    if (interface.kind != "IP over Thunderbolt") addNetworkPort(bus, interface, place++);
  }
}

void addStorage(RegistryTreeEntry& rootBus, const BenchState& state) {
  RegistryTreeEntry& sata = addEntry(rootBus, "SATA", "1F,2", "IOPCIDevice",
                                     deviceNumbers(0x8086, 0x1d02, "pci8086,1d02"));
  RegistryTreeEntry& ahci = addEntry(sata, "AppleIntelPchSeriesAHCI", "", "AppleIntelPchSeriesAHCI",
                                     {{"CFBundleIdentifier", "com.apple.driver.AppleAHCIPort"}});
  addBusDisks(addEntry(ahci, "PRT0", "0", "AppleAHCIPort"), state, "SATA");
  addBusDisks(addBridge(rootBus, state, "SSD0", "1C"), state, "NVMe");
  RegistryTreeEntry& usb =
      addEntry(rootBus, "XHC1", "14", "IOPCIDevice", deviceNumbers(0x8086, 0x1e31, "pci8086,1e31"));
  addBusDisks(addEntry(usb, "AppleUSBXHCI", "14000000", "AppleUSBXHCI"), state, "USB");
}

void addDisplay(RegistryTreeEntry& rootBus, const BenchState& state) {
  RegistryTreeEntry& bus = addBridge(rootBus, state, "PEG1", "1,1");
  addEntry(bus, "GFX1", "0", "IOPCIDevice", deviceNumbers(0x1002, 0x6798, "display"));
}

int64_t highestSlot(const BenchState& state) {
  int64_t highest = lastBuiltInSlot;
  for (const BenchAdapter& adapter : state.adapters) highest = std::max(highest, adapter.bridge);
  for (const BenchThunderboltDevice& device : state.thunderboltDevices) {
    highest = std::max(highest, device.bridge);
  }
  return highest;
}

RegistryTreeEntry& addSlot(RegistryTreeEntry& bus, const BenchState& state, int64_t number,
                           int64_t location) {
  return addBridge(bus, state, fmt::format("DSB{}", number), fmt::format("{:X}", location));
}

void addThunderbolt(RegistryTreeEntry& rootBus, const BenchState& state) {
  RegistryTreeEntry& hostBus = addBridge(rootBus, state, "RP05", "1C,4");
  RegistryTreeEntry& upstream = addBridge(hostBus, state, "UPSB", "0");
  RegistryTreeEntry& controllerBus = addSlot(upstream, state, 0, 0);
  RegistryTreeEntry& function = addEntry(controllerBus, "NHI0", "0", "IOPCIDevice",
                                         deviceNumbers(0x8086, 0x1547, "pci8086,1547"));
  RegistryTreeEntry& controller =
      addEntry(function, "AppleThunderboltHAL", "", "AppleThunderboltHAL",
               {{"CFBundleIdentifier", "com.apple.driver.AppleThunderboltNHI"}});
  for (const BenchNetworkInterface& interface : state.networkInterfaces) {
    if (interface.kind == "IP over Thunderbolt") addThunderboltInterface(controller, interface);
  }
  addChain(controllerBus, state, 0);
  for (int64_t number = firstSlot; number <= highestSlot(state); ++number) {
    addChain(addSlot(upstream, state, number, number + slotLocationOffset), state, number);
  }
}

}  // namespace

void addHost(RegistryTreeEntry& root, const BenchState& state) {
  RegistryTreeEntry& computer = addEntry(root, state.computer.model, "", "IOPlatformExpertDevice",
                                         {{"model", textData(state.computer.model)},
                                          {"manufacturer", textData("Apple Inc.")},
                                          {"IOPlatformSerialNumber", "F5KBENCH0000"}});
  RegistryTreeEntry& expert =
      addEntry(computer, "AppleACPIPlatformExpert", "", "AppleACPIPlatformExpert",
               {{"CFBundleIdentifier", "com.apple.driver.AppleACPIPlatform"}});
  RegistryTreeEntry& bridge =
      addEntry(expert, "PCI0", "0", "IOACPIPlatformDevice", {{"name", textData("PNP0A08")}});
  RegistryTreeEntry& rootBus =
      addEntry(bridge, "AppleACPIPCI", "", "AppleACPIPCI",
               {{"CFBundleIdentifier", "com.apple.driver.AppleACPIPlatform"}});
  addDisplay(rootBus, state);
  addBuiltInNetwork(rootBus, state);
  addStorage(rootBus, state);
  addThunderbolt(rootBus, state);
}

RegistryTreeEntry& addBridge(RegistryTreeEntry& bus, const BenchState& state, std::string name,
                             std::string location, PropertyValue::Dictionary properties) {
  properties.emplace("IOName", "pci-bridge");
  properties.emplace("name", textData("pci-bridge"));
  RegistryTreeEntry& bridge =
      addEntry(bus, std::move(name), std::move(location), "IOPCIDevice", std::move(properties));
  const char* driver = hasOldBridgeDriver(state.computer.osVersion) ? "IOPCI2PCIBridge" : "IOPP";
  return addEntry(bridge, driver, "", "IOPCI2PCIBridge",
                  {{"CFBundleIdentifier", "com.apple.iokit.IOPCIFamily"}});
}

RegistryTreeEntry& addInterface(RegistryTreeEntry& driver, const std::string& name,
                                const std::string& mac, bool builtIn) {
  RegistryTreeEntry& interface =
      addEntry(driver, name, "", unnamedInterface,
               {{"BSD Name", name}, {"IOMACAddress", addressData(mac)}, {"IOBuiltin", builtIn}});
  interface.isNamedLater = !builtIn;
  return interface;
}

}  // namespace corvane
