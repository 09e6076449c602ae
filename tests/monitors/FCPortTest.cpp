#include "DeviceMonitorCORVANE2_8FC/FCPort.h"

#include "fakes/FakeAdapters.h"

using namespace corvane;

namespace {

class FCPortTest : public ::testing::Test {
 protected:
  FCPort read(RegistryHandle service) { return FCPort(registry, registry.give(service)); }

  FakeRegistry registry;
};

struct FibreChannelModelRow {
  uint32_t model;
  const char* product;
};

class FCPortModelTest : public FCPortTest,
                        public ::testing::WithParamInterface<FibreChannelModelRow> {};

}  // namespace

TEST_P(FCPortModelTest, RecognisesTheProductByTheTunnelEndpoint) {
  FakeFibreChannelAdapter adapter;
  adapter.model = GetParam().model;
  adapter.hop = 3;
  const auto ports = addFibreChannelAdapter(registry, adapter);
  EXPECT_EQ(read(ports[0]).procudtTpe(), GetParam().product);
  EXPECT_EQ(registry.references(), 0);
}

INSTANTIATE_TEST_SUITE_P(Products, FCPortModelTest,
                         ::testing::Values(FibreChannelModelRow{0x05, "Corvane2 8G FC"},
                                           FibreChannelModelRow{0x0d, "Corvane2 16G FC"},
                                           FibreChannelModelRow{0x15, "Corvane3 8G FC"},
                                           FibreChannelModelRow{0x12, "Corvane3 F2"}));

TEST_F(FCPortTest, NodeNameInColonFormPortNameInDataForm) {
  const auto ports = addFibreChannelAdapter(registry, {});
  const FCPort port = read(ports[0]);
  EXPECT_EQ(port.nodeWWN(), "20:00:00:10:9B:12:34:56");
  EXPECT_EQ(port.portWWN(), "21000010 9b123456");
  EXPECT_EQ(read(ports[1]).portWWN(), "22000010 9b123456");
}

TEST_F(FCPortTest, KeepsTheEndpointsPropertiesAsLastRead) {
  const auto ports = addFibreChannelAdapter(registry, {});
  EXPECT_NE(findProperty(read(ports[0]).property(), "Tunnel Endpoint Device Model ID"), nullptr);
}

TEST_F(FCPortTest, UnknownModelGoesOnToTheRootAndStaysUnset) {
  FakeFibreChannelAdapter adapter;
  adapter.model = 7;
  const auto ports = addFibreChannelAdapter(registry, adapter);
  registry.setProperty(registry.root, "whole", PropertyValue(true));
  const FCPort port = read(ports[0]);
  EXPECT_FALSE(port.procudtTpe());
  EXPECT_NE(findProperty(port.property(), "whole"), nullptr);
}

TEST_F(FCPortTest, OtherVendorsEndpointDoesNotEndTheWalk) {
  const PropertyValue::Dictionary ours{{"Tunnel Endpoint Device Vendor ID", registryNumber(2)},
                                       {"Tunnel Endpoint Device Model ID", registryNumber(0x12)}};
  const PropertyValue::Dictionary other{{"Tunnel Endpoint Device Vendor ID", registryNumber(3)},
                                        {"Tunnel Endpoint Device Model ID", registryNumber(0x05)}};
  const auto outer = registry.add(registry.root, "UPS0", ours);
  const auto inner = registry.add(outer, "pci-bridge", other);
  const auto service = registry.add(inner, "port");
  EXPECT_EQ(read(service).procudtTpe(), "Corvane3 F2");
}

TEST_F(FCPortTest, AnAncestorThatCannotBeReadIsPassedOver) {
  const auto ports = addFibreChannelAdapter(registry, {});
  RegistryHandle parent = 0;
  ASSERT_EQ(registry.parentEntry(ports[0], servicePlane, parent), statusSuccess);
  registry.release(parent);
  registry.refuseProperties(parent);
  EXPECT_EQ(read(ports[0]).procudtTpe(), "Corvane2 16G FC");
}

TEST_F(FCPortTest, OnlyTheExactBytesCount) {
  const PropertyValue::Dictionary endpoint{
      {"Tunnel Endpoint Device Vendor ID", PropertyValue::Data{2, 0, 0, 0}},
      {"Tunnel Endpoint Device Model ID", PropertyValue::Data{5, 0, 0}}};
  const auto service = registry.add(registry.add(registry.root, "UPS0", endpoint), "port");
  EXPECT_FALSE(read(service).procudtTpe());
}

TEST_F(FCPortTest, PropertiesThatCannotBeReadLeaveTheNamesUnset) {
  const auto ports = addFibreChannelAdapter(registry, {});
  registry.refuseProperties(ports[0]);
  const FCPort port = read(ports[0]);
  EXPECT_FALSE(port.nodeWWN());
  EXPECT_FALSE(port.portWWN());
  EXPECT_EQ(port.procudtTpe(), "Corvane2 16G FC");
}

TEST_F(FCPortTest, MissingNamesPrintAsNull) {
  const auto service = registry.add(registry.root, "port",
                                    {{"Controller Characteristics", PropertyValue::Dictionary{}}});
  const FCPort port = read(service);
  EXPECT_FALSE(port.nodeWWN());
  EXPECT_EQ(port.portWWN(), "(null)");
}

TEST_F(FCPortTest, HostileNamesAreHeldWithinBounds) {
  const PropertyValue::Dictionary characteristics{
      {"Node World Wide Name", PropertyValue::Data{0x20, 0, 0}},
      {"Port World Wide Name", PropertyValue(PropertyValue::Data{})}};
  const auto service =
      registry.add(registry.root, "port", {{"Controller Characteristics", characteristics}});
  const FCPort port = read(service);
  EXPECT_FALSE(port.nodeWWN());
  EXPECT_EQ(port.portWWN(), "");
  const auto odd =
      registry.add(registry.root, "port", {{"Controller Characteristics", PropertyValue("text")}});
  EXPECT_FALSE(read(odd).portWWN());
}

TEST_F(FCPortTest, OfALongNodeNameTheFirstEightBytesCount) {
  const PropertyValue::Dictionary characteristics{
      {"Node World Wide Name",
       PropertyValue::Data{0x20, 0, 0, 0x10, 0x9b, 0x12, 0x34, 0x56, 0xff, 0xff}},
      {"Port World Wide Name", PropertyValue::Data{0x21, 0, 0, 0x10, 0x9b}}};
  const auto service =
      registry.add(registry.root, "port", {{"Controller Characteristics", characteristics}});
  const FCPort port = read(service);
  EXPECT_EQ(port.nodeWWN(), "20:00:00:10:9B:12:34:56");
  EXPECT_EQ(port.portWWN(), "21000010 9b") << "as it is";
}

TEST_F(FCPortTest, NoServiceReadsNothing) {
  const FCPort port(registry, 0);
  EXPECT_EQ(port.portService(), 0U);
  EXPECT_TRUE(port.property().empty());
}

TEST_F(FCPortTest, OwnsOneReferenceAndReleasesItOnce) {
  const auto ports = addFibreChannelAdapter(registry, {});
  {
    FCPort port = read(ports[0]);
    EXPECT_EQ(registry.references(), 1);
    {
      const RegistryObject mine = port.retainedService();
      EXPECT_EQ(mine.get(), ports[0]);
      port.clearService();
      EXPECT_EQ(registry.references(), 1) << "the caller's own reference";
    }
    EXPECT_EQ(port.portService(), 0U);
    EXPECT_FALSE(port.retainedService());
    port.clearService();
  }
  EXPECT_EQ(registry.references(), 0);
  EXPECT_EQ(registry.overReleases, 0);
}
