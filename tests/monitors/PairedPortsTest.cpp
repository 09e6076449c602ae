#include "discovery/PairedPorts.h"

#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "fakes/FakeAdapters.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

using namespace corvane;

namespace {

class FibreChannelPairTest : public ::testing::Test {
 protected:
  /// A port with that node and port name, by their last bytes.
  std::shared_ptr<FCPort> port(uint8_t name, uint8_t node = 1) {
    const PropertyValue::Dictionary characteristics{
        {"Node World Wide Name", PropertyValue::Data{0x20, 0, 0, 0, 0, 0, 0, node}},
        {"Port World Wide Name", PropertyValue::Data{0x21, 0, 0, 0, 0, 0, 0, name}}};
    const auto service =
        registry.add(registry.root, "port", {{"Controller Characteristics", characteristics}});
    return std::make_shared<FCPort>(registry, registry.give(service));
  }

  static std::string name(uint8_t last) {
    return "21000000 000000" + std::string(last < 16 ? "0" : "") + "0123456789abcdef"[last & 15U];
  }

  FakeRegistry registry;
  Corvane2Device device;
};

class TenGigabitPairTest : public ::testing::Test {
 protected:
  std::shared_ptr<SEPort> port(uint8_t address, const std::string& bus = "12") {
    const auto function = fake.registry.add(fake.registry.root, "ethernet",
                                            {{"pcidebug", PropertyValue(bus + ":0:0")}});
    const auto service = fake.registry.add(
        function, "port", {{"IOMACAddress", PropertyValue::Data{0, 0x1b, 0x21, 0, 0, address}}});
    return std::make_shared<SEPort>(fake.platform(), fake.registry.give(service), StopToken());
  }

  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
  Corvane2Device_10GE device;
};

}  // namespace

TEST_F(FibreChannelPairTest, StartsEmpty) {
  EXPECT_EQ(device.port1(), nullptr);
  EXPECT_EQ(device.port2(), nullptr);
  EXPECT_FALSE(device.nodeWWN());
  EXPECT_TRUE(device.isEmpty());
}

TEST_F(FibreChannelPairTest, TakesTwoPortsAndRefusesAThird) {
  const auto first = port(1);
  const auto second = port(2);
  EXPECT_TRUE(device.setPort(first));
  EXPECT_EQ(device.nodeWWN(), "20:00:00:00:00:00:00:01");
  EXPECT_TRUE(device.setPort(second));
  EXPECT_FALSE(device.setPort(port(3)));
  EXPECT_EQ(device.port1(), first);
  EXPECT_EQ(device.port2(), second);
}

TEST_F(FibreChannelPairTest, RefusesTheSamePortAgainByContent) {
  EXPECT_TRUE(device.setPort(port(1)));
  EXPECT_FALSE(device.setPort(port(1)));
  EXPECT_EQ(device.port2(), nullptr);
}

TEST_F(FibreChannelPairTest, KeepsThePortsInOrderOfTheirNames) {
  const auto b = port(2);
  const auto a = port(1);
  device.setPort(b);
  EXPECT_EQ(device.port1(), b);
  device.setPort(a);
  EXPECT_EQ(device.port1(), a);
  EXPECT_EQ(device.port2(), b);
  EXPECT_EQ(device.nodeWWN(), "20:00:00:00:00:00:00:01");
}

TEST_F(FibreChannelPairTest, TheNodeNameIsTheFirstPortsForGood) {
  device.setPort(port(2, 7));
  device.setPort(port(1, 8));
  EXPECT_EQ(device.nodeWWN(), "20:00:00:00:00:00:00:07");
  device.clearAll();
  EXPECT_EQ(device.nodeWWN(), "20:00:00:00:00:00:00:07");
}

TEST_F(FibreChannelPairTest, ClearingKeepsThePortInItsSlot) {
  const auto first = port(1);
  device.setPort(first);
  device.setPort(port(2));
  EXPECT_EQ(registry.references(), 2);

  EXPECT_TRUE(device.clearPort(name(1)));
  EXPECT_EQ(device.port1(), first);
  EXPECT_EQ(first->portService(), 0U);
  EXPECT_EQ(registry.references(), 1);
  EXPECT_FALSE(device.isEmpty());

  EXPECT_FALSE(device.setPort(port(1))) << "the slot stays taken";

  EXPECT_TRUE(device.clearPort(name(2)));
  EXPECT_TRUE(device.isEmpty());
  EXPECT_NE(device.port2(), nullptr);
  EXPECT_EQ(registry.references(), 0);
}

TEST_F(FibreChannelPairTest, ClearingAnUnknownNameChangesNothing) {
  device.setPort(port(1));
  EXPECT_FALSE(device.clearPort(name(9)));
  EXPECT_FALSE(device.clearPort("20:00:00:00:00:00:00:01"));
  EXPECT_EQ(registry.references(), 1);
}

TEST_F(FibreChannelPairTest, ClearingTwiceReleasesOnce) {
  device.setPort(port(1));
  EXPECT_TRUE(device.clearPort(name(1)));
  EXPECT_TRUE(device.clearPort(name(1)));
  EXPECT_EQ(registry.overReleases, 0);
}

TEST_F(FibreChannelPairTest, ClearAllReleasesAndEmptiesBothSlots) {
  device.setPort(port(1));
  device.setPort(port(2));
  device.clearAll();
  EXPECT_EQ(device.port1(), nullptr);
  EXPECT_EQ(device.port2(), nullptr);
  EXPECT_TRUE(device.isEmpty());
  EXPECT_EQ(registry.references(), 0);
  EXPECT_EQ(registry.overReleases, 0);
  EXPECT_TRUE(device.setPort(port(5))) << "the slots are free again";
}

TEST_F(FibreChannelPairTest, PortsWithoutANameAreTakenAndKeptInOrderOfArrival) {
  const auto nameless = std::make_shared<FCPort>(registry, 0);
  EXPECT_TRUE(device.setPort(nameless));
  EXPECT_TRUE(device.setPort(std::make_shared<FCPort>(registry, 0)));
  EXPECT_EQ(device.port1(), nameless);
  EXPECT_FALSE(device.nodeWWN());
  EXPECT_FALSE(device.clearPort(""));
}

TEST_F(TenGigabitPairTest, TakesADistinctPortWithTheSameAddress) {
  EXPECT_TRUE(device.setPort(port(1)));
  EXPECT_TRUE(device.setPort(port(1))) << "addresses are compared as objects";
  EXPECT_FALSE(device.setPort(port(2)));
}

TEST_F(TenGigabitPairTest, RefusesTheVerySamePort) {
  const auto same = port(1);
  EXPECT_TRUE(device.setPort(same));
  EXPECT_FALSE(device.setPort(same));
}

TEST_F(TenGigabitPairTest, KeepsThePortsInOrderOfTheirAddresses) {
  const auto b = port(0xb);
  const auto a = port(0xa);
  device.setPort(b);
  device.setPort(a);
  EXPECT_EQ(device.port1(), a);
  EXPECT_EQ(device.port2(), b);
  EXPECT_EQ(device.fuckPcidebug(), "12");
}

TEST_F(TenGigabitPairTest, TheBusIsTheFirstPortsForGood) {
  device.setPort(port(0xb, "12"));
  device.setPort(port(0xa, "13"));
  EXPECT_EQ(device.fuckPcidebug(), "12");
}

TEST_F(TenGigabitPairTest, ClearingComparesTheAddressByContent) {
  device.setPort(port(1));
  device.setPort(port(2));
  EXPECT_FALSE(device.clearPort("00:1B:21:00:00:03"));
  EXPECT_TRUE(device.clearPort("00:1B:21:00:00:02"));
  EXPECT_EQ(device.port2()->portService(), 0U);
  EXPECT_FALSE(device.isEmpty());
  EXPECT_TRUE(device.clearPort("00:1B:21:00:00:01"));
  EXPECT_TRUE(device.isEmpty());
  EXPECT_EQ(fake.registry.references(), 0);
}

TEST_F(TenGigabitPairTest, ClearAllLeavesThePlace) {
  device.setDeviceSequence("2");
  const auto service = fake.registry.addChain(fake.registry.root, {"DSB3", "port"});
  device.sortDeviceSequence(fake.registry, service);
  device.setPort(port(1));
  device.clearAll();
  EXPECT_EQ(device.devicePort(), "C");
  EXPECT_EQ(device.deviceSequence(), "2");
  EXPECT_EQ(device.fuckPcidebug(), "12");
}
