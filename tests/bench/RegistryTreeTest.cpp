#include "platform/bench/tree/RegistryTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "platform/bench/file/BenchEdits.h"
#include "platform/bench/file/BenchProducts.h"
#include "platform/bench/tree/RegistryMatching.h"

using namespace corvane;

namespace {

BenchState treeBench() {
  BenchState state;
  state.drivers = {{"Corvane2-FC", "2.0.10"}, {"Corvane2-10GE", "1.4.7"}};
  return state;
}

const RegistryTreeEntry* findEntry(const RegistryTreeEntry& root, const std::string& name,
                                   const std::string& below = "") {
  for (const RegistryTreeEntry* entry : inTreeOrder(root)) {
    if (entry->name == name && entry->path().find(below) != std::string::npos) return entry;
  }
  return nullptr;
}

std::vector<const RegistryTreeEntry*> findServices(const RegistryTreeEntry& root,
                                                   const std::string& identifier) {
  std::vector<const RegistryTreeEntry*> found;
  for (const RegistryTreeEntry* entry : inTreeOrder(root)) {
    if (propertyText(entry->properties, "CFBundleIdentifier") == identifier) found.push_back(entry);
  }
  return found;
}

std::set<std::string> serviceIdentities(const BenchState& state) {
  const auto root = buildRegistryTree(state);
  std::set<std::string> identities;
  for (const auto* service : findServices(*root, "com.velmar.Corvane2-FC")) {
    identities.insert(service->identity);
  }
  return identities;
}

/// Names from the entry's parent up to the "DSB" entry.
std::vector<std::string> namesToSlot(const RegistryTreeEntry& entry) {
  std::vector<std::string> names;
  for (const RegistryTreeEntry* next = entry.parent; next != nullptr; next = next->parent) {
    names.push_back(next->title());
    if (next->name.find("DSB") != std::string::npos) return names;
  }
  return names;
}

size_t bridgesToSlot(const RegistryTreeEntry& entry) {
  size_t count = 0;
  for (const std::string& name : namesToSlot(entry)) {
    if (name.find("pci-bridge") != std::string::npos) ++count;
  }
  return count;
}

}  // namespace

TEST(RegistryTreeTest, TheFirstHopHasTheAncestorsOfARealChain) {
  BenchState state = treeBench();
  plugAdapter(state, "Corvane2 8G FC", 1, 1, "20:00:00:10:9B:12:34:56");
  const auto root = buildRegistryTree(state);
  const auto services = findServices(*root, "com.velmar.Corvane2-FC");
  ASSERT_EQ(services.size(), 2U);
  EXPECT_EQ(namesToSlot(*services[0]),
            (std::vector<std::string>{"VelmarCORVANE", "pci10df,e200@0", "IOPP", "pci-bridge@1",
                                      "IOPP", "UPS0@0", "IOPP", "DSB1@3"}));
  EXPECT_EQ(services[1]->parent->parent->title(), "pci10df,e200@0,1");
  EXPECT_EQ(root->path(), "IOService:/");
  EXPECT_EQ(findEntry(*root, "DSB1")->path(),
            "IOService:/MacPro6,1/AppleACPIPlatformExpert/PCI0@0/AppleACPIPCI/RP05@1C,4/IOPP/"
            "UPSB@0/IOPP/DSB1@3");
}

TEST(RegistryTreeTest, EachHopAddsTwoBridges) {
  BenchState state = treeBench();
  for (int64_t hop = 1; hop <= 6; ++hop) plugAdapter(state, "Corvane3 F2", 2, hop, {});
  const auto root = buildRegistryTree(state);
  const auto services = findServices(*root, "com.velmar.Corvane2-FC");
  ASSERT_EQ(services.size(), 12U);
  std::multiset<size_t> counts;
  for (const RegistryTreeEntry* service : services) counts.insert(bridgesToSlot(*service));
  EXPECT_EQ(counts, (std::multiset<size_t>{1, 1, 3, 3, 5, 5, 7, 7, 9, 9, 11, 11}));
}

TEST(RegistryTreeTest, AnAdapterBehindAGapOrAnotherMakersDeviceKeepsItsPosition) {
  BenchState state = treeBench();
  state.thunderboltDevices.push_back({"", "Dock", 3, 1, 0x3d, 0x11});
  plugAdapter(state, "Corvane2 16G FC", 3, 3, {});
  const auto root = buildRegistryTree(state);
  const auto services = findServices(*root, "com.velmar.Corvane2-FC");
  ASSERT_EQ(services.size(), 2U);
  EXPECT_EQ(bridgesToSlot(*services[0]), 5U);
  const RegistryTreeEntry* dock = findEntry(*root, "UPS0", "DSB3");
  EXPECT_EQ(propertyText(dock->properties, "Tunnel Endpoint Device Vendor ID"), "<3d000000>");
}

TEST(RegistryTreeTest, BridgeDriversHaveTheNameOfTheRelease) {
  for (const auto& [version, driver] :
       std::map<std::string, std::string>{{"10.8.5", "IOPCI2PCIBridge"},
                                          {"10.6", "IOPCI2PCIBridge"},
                                          {"10.9.1", "IOPP"},
                                          {"10.10.5", "IOPP"},
                                          {"14.3", "IOPP"}}) {
    BenchState state = treeBench();
    state.computer.osVersion = version;
    const auto root = buildRegistryTree(state);
    EXPECT_EQ(findEntry(*root, "UPSB")->children.front()->name, driver) << version;
  }
}

TEST(RegistryTreeTest, TunnelEndpointPropertiesStandOnTheUpstreamBridgeOnly) {
  const std::map<std::string, std::string> models = {{"Corvane2 8G FC", "<05000000>"},
                                                     {"Corvane2 16G FC", "<0d000000>"},
                                                     {"Corvane3 8G FC", "<15000000>"},
                                                     {"Corvane3 F2", "<12000000>"}};
  for (const auto& [product, model] : models) {
    BenchState state = treeBench();
    plugAdapter(state, product, 1, 1, {});
    const auto root = buildRegistryTree(state);
    std::vector<std::string> holders;
    for (const RegistryTreeEntry* entry : inTreeOrder(*root)) {
      if (!findProperty(entry->properties, "Tunnel Endpoint Device Model ID")) continue;
      holders.push_back(entry->title());
      EXPECT_EQ(propertyText(entry->properties, "Tunnel Endpoint Device Vendor ID"), "<02000000>");
      EXPECT_EQ(propertyText(entry->properties, "Tunnel Endpoint Device Model ID"), model);
      EXPECT_EQ(findProperty(entry->properties, "Tunnel Endpoint GUID")->data()->size(), 8U);
    }
    EXPECT_EQ(holders, std::vector<std::string>{"UPS0@0"}) << product;
  }
}

TEST(RegistryTreeTest, PortServicesCarryTheirNames) {
  BenchState state = treeBench();
  plugAdapter(state, "Corvane2 8G FC", 1, 1, "20:00:00:10:9b:12:34:56");
  const auto root = buildRegistryTree(state);
  const RegistryTreeEntry* service = findServices(*root, "com.velmar.Corvane2-FC").front();
  const PropertyValue* characteristics =
      findProperty(service->properties, "Controller Characteristics");
  EXPECT_EQ(characteristics->find("Node World Wide Name")->description(), "<20000010 9b123456>");
  EXPECT_EQ(characteristics->find("Port World Wide Name")->description(), "<21000010 9b123456>");
}

TEST(RegistryTreeTest, TheDriverThatRunsDecidesTheIdentifier) {
  BenchState state = treeBench();
  plugAdapter(state, "Corvane2 8G FC", 1, 1, {});
  state.drivers["Corvane-FC"] = "1.1.0";
  EXPECT_EQ(findServices(*buildRegistryTree(state), "com.velmar.Corvane-FC").size(), 2U);
  EXPECT_EQ(findServices(*buildRegistryTree(state), "com.velmar.Corvane2-FC").size(), 0U);
  state.drivers.clear();
  EXPECT_EQ(findEntry(*buildRegistryTree(state), "VelmarCORVANE"), nullptr);
}

TEST(RegistryTreeTest, AnEthernetPortHangsOnItsEthernetFunction) {
  const std::map<std::string, std::string> subsystems = {{"Corvane2 10G Base-T", "<01620000>"},
                                                         {"Corvane2 10G SFP+", "<02620000>"},
                                                         {"Corvane3 NBASE-T1", "<03720000>"},
                                                         {"Corvane3 10G Base-T", "<01720000>"},
                                                         {"Corvane3 10G SFP+", "<02720000>"}};
  for (const auto& [product, subsystem] : subsystems) {
    BenchState state = treeBench();
    plugAdapter(state, product, 2, 2, "00:1B:21:AA:BB:CC");
    const auto root = buildRegistryTree(state);
    const auto services = findServices(*root, "com.velmar.driver.Corvane2-10GE");
    ASSERT_EQ(services.size(), 2U);
    const RegistryTreeEntry* function = services[0]->parent;
    EXPECT_EQ(function->title(), "ethernet@0");
    EXPECT_EQ(function->parent->name.find("ethernet"), std::string::npos);
    EXPECT_EQ(propertyText(function->properties, "subsystem-id"), subsystem) << product;
    const std::string first = propertyText(function->properties, "pcidebug");
    const std::string second = propertyText(services[1]->parent->properties, "pcidebug");
    EXPECT_EQ(first.substr(0, first.find(':')), second.substr(0, second.find(':')));
    EXPECT_EQ(propertyText(services[0]->properties, "IOMACAddress"), "<001b21aa bbcc>");
    EXPECT_EQ(services[0]->children.front()->name, "en5");
    EXPECT_TRUE(services[0]->children.front()->isNamedLater);
    EXPECT_EQ(services[0]->children.front()->className, unnamedInterface);
  }
}

TEST(RegistryTreeTest, OnlyAnEnabledPortCarriesItsNumber) {
  BenchState state = treeBench();
  plugAdapter(state, "Corvane3 NBASE-T1", 1, 1, {});
  state.adapters[0].ethernetPorts[1].enabled = false;
  state.adapters[0].ethernetPorts[1].interface.reset();
  const auto root = buildRegistryTree(state);
  const auto services = findServices(*root, "com.velmar.driver.Corvane2-10GE");
  EXPECT_EQ(propertyText(services[0]->properties, "EN Number"), "5");
  EXPECT_EQ(findProperty(services[1]->properties, "EN Number"), nullptr);
  EXPECT_TRUE(services[1]->children.empty());
}

TEST(RegistryTreeTest, DisksOfAPortStandBelowTheDriverAndOthersElsewhere) {
  BenchState state = treeBench();
  for (int64_t hop = 1; hop <= 6; ++hop) plugAdapter(state, "Corvane2 8G FC", 1, hop, {});
  BenchDisk deepest;
  deepest.name = "disk4";
  deepest.port = state.adapters[5].fibreChannelPorts[1].wwpn;
  deepest.partitions = {{"disk4s1", true}};
  BenchDisk inner;
  inner.name = "disk0";
  inner.partitions = {{"disk0s2", true}};
  state.disks = {deepest, inner};
  const auto root = buildRegistryTree(state);
  for (const RegistryTreeEntry* entry : inTreeOrder(*root)) {
    if (entry->className != "IOMedia") continue;
    const bool isBelow = entry->path().find("/VelmarCORVANE/") != std::string::npos;
    const std::string name = propertyText(entry->properties, "BSD Name");
    EXPECT_EQ(isBelow, name.rfind("disk4", 0) == 0) << name;
    EXPECT_LT(entry->path().size(), size_t{512}) << entry->path();
  }
  EXPECT_EQ(propertyText(findEntry(*root, "RAID Media")->properties, "BSD Name"), "disk4");
}

TEST(RegistryTreeTest, DisksVanishWithTheirLink) {
  BenchState state = treeBench();
  plugAdapter(state, "Corvane2 8G FC", 1, 1, {});
  BenchDisk disk;
  disk.name = "disk4";
  disk.port = state.adapters[0].fibreChannelPorts[0].wwpn;
  state.disks = {disk};
  EXPECT_NE(findEntry(*buildRegistryTree(state), "RAID Media"), nullptr);
  state.adapters[0].fibreChannelPorts[0].link = false;
  EXPECT_EQ(findEntry(*buildRegistryTree(state), "RAID Media"), nullptr);
}

TEST(RegistryTreeTest, ABridgeAboveTheBuiltInOnesHasItsOwnSlot) {
  BenchState state = treeBench();
  plugAdapter(state, "Corvane2 8G FC", 10, 1, {});
  const auto root = buildRegistryTree(state);
  EXPECT_EQ(namesToSlot(*findEntry(*root, "VelmarCORVANE")).back(), "DSB10@C");
}

TEST(RegistryTreeTest, IdentifiersAndIdentitiesAreUnique) {
  BenchState state = treeBench();
  for (int64_t bridge = 0; bridge < 4; ++bridge) {
    plugAdapter(state, "Corvane2 16G FC", bridge, 1, {});
    plugAdapter(state, "Corvane2 10G SFP+", bridge, 2, {});
  }
  state.networkInterfaces = {
      {"", "en0", "00:3E:E1:00:00:01", "Ethernet", true, "", 1500},
      {"", "en1", "00:3E:E1:00:00:02", "Wi-Fi", true, "", 1500},
      {"", "en2", "00:3E:E1:00:00:03", "IP over Thunderbolt", true, "", 1500},
      {"", "en3", "00:3E:E1:00:00:04", "IP over Thunderbolt", true, "", 1500}};
  const auto root = buildRegistryTree(state);
  std::set<uint64_t> identifiers;
  std::set<std::string> identities;
  const auto entries = inTreeOrder(*root);
  for (const RegistryTreeEntry* entry : entries) {
    identifiers.insert(entry->id);
    EXPECT_TRUE(identities.insert(entry->identity).second) << entry->path();
  }
  EXPECT_EQ(identifiers.size(), entries.size());
}

TEST(RegistryTreeTest, AnAdapterKeepsItsIdentityWhateverIsPluggedBeforeIt) {
  BenchState state = treeBench();
  plugAdapter(state, "Corvane2 8G FC", 1, 2, {});
  const std::set<std::string> before = serviceIdentities(state);
  plugAdapter(state, "Corvane2 8G FC", 1, 1, {});
  const std::set<std::string> after = serviceIdentities(state);
  EXPECT_EQ(after.size(), 4U);
  EXPECT_TRUE(std::includes(after.begin(), after.end(), before.begin(), before.end()));
}

TEST(RegistryTreeTest, AnAdapterThatIsPluggedInAgainIsANewEntry) {
  BenchState state = treeBench();
  plugAdapter(state, "Corvane2 8G FC", 1, 2, {});
  const std::set<std::string> before = serviceIdentities(state);
  unplugAdapter(state.adapters[0]);
  plugAdapter(state, "Corvane2 8G FC", 1, 2, {});
  for (const std::string& identity : serviceIdentities(state))
    EXPECT_EQ(before.count(identity), 0U);
}
