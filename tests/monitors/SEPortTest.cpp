#include "DeviceMonitorCORVANE2_10GE/SEPort.h"

#include "fakes/FakeAdapters.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

using namespace corvane;
using std::chrono::milliseconds;
using std::chrono::seconds;

namespace {

class SEPortTest : public ::testing::Test {
 protected:
  SEPort read(RegistryHandle service) {
    return SEPort(fake.platform(), fake.registry.give(service), StopToken());
  }

  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
};

struct TenGigabitSubsystemRow {
  uint32_t subsystem;
  const char* product;
};

class SEPortProductTest : public SEPortTest,
                          public ::testing::WithParamInterface<TenGigabitSubsystemRow> {};

}  // namespace

TEST_P(SEPortProductTest, RecognisesTheProductByTheSubsystem) {
  FakeTenGigabitAdapter adapter;
  adapter.subsystem = GetParam().subsystem;
  EXPECT_EQ(read(addTenGigabitAdapter(fake.registry, adapter)[0]).procudtTpe(), GetParam().product);
  EXPECT_EQ(fake.registry.references(), 0);
}

INSTANTIATE_TEST_SUITE_P(Products, SEPortProductTest,
                         ::testing::Values(TenGigabitSubsystemRow{0x6201, "Corvane2 10G Base-T"},
                                           TenGigabitSubsystemRow{0x6202, "Corvane2 10G SFP+"},
                                           TenGigabitSubsystemRow{0x7203, "Corvane3 NBASE-T1"},
                                           TenGigabitSubsystemRow{0x7201, "Corvane3 10G Base-T"},
                                           TenGigabitSubsystemRow{0x7202, "Corvane3 10G SFP+"}));

TEST_F(SEPortTest, ReadsAPortWhole) {
  const SEPort port = read(addTenGigabitAdapter(fake.registry, {})[1]);
  EXPECT_EQ(port.pciDebug(), "12");
  EXPECT_EQ(port.nicNum(), "en6");
  ASSERT_NE(port.macAddr(), nullptr);
  EXPECT_EQ(*port.macAddr(), "00:1B:21:AA:CC:01");
  EXPECT_EQ(port.isAccessAbleflag(), 1);
  EXPECT_NE(findProperty(port.property(), "IOMACAddress"), nullptr);
  EXPECT_THAT(fake.log.lines(),
              ::testing::ElementsAre("show current enNum --> 6", "port en6 is enable"));
}

TEST_F(SEPortTest, APortTheDriverHasNotEnabled) {
  FakeTenGigabitAdapter adapter;
  adapter.enabled1 = false;
  const SEPort port = read(addTenGigabitAdapter(fake.registry, adapter)[0]);
  EXPECT_EQ(port.isAccessAbleflag(), 0);
  EXPECT_THAT(fake.log.lines(),
              ::testing::ElementsAre("show current enNum --> (null)", "port en5 is disable"));
}

TEST_F(SEPortTest, UnknownSubsystemKeepsTheBus) {
  FakeTenGigabitAdapter adapter;
  adapter.subsystem = 0x9999;
  const SEPort port = read(addTenGigabitAdapter(fake.registry, adapter)[0]);
  EXPECT_FALSE(port.procudtTpe());
  EXPECT_EQ(port.pciDebug(), "12");
}

TEST_F(SEPortTest, TheOutermostOfTheEthernetAncestorsDecides) {
  auto& registry = fake.registry;
  const auto outer =
      registry.add(registry.root, "my ethernet bridge", {{"pcidebug", PropertyValue("99:0:0")}});
  const auto inner = registry.add(
      outer, "ethernet",
      {{"pcidebug", PropertyValue("12:0:0")}, {"subsystem-id", registryNumber(0x6202)}});
  const SEPort port = read(registry.add(inner, "port"));
  EXPECT_EQ(port.pciDebug(), "99");
  EXPECT_EQ(port.procudtTpe(), "Corvane2 10G SFP+") << "kept where the outer one tells none";
}

TEST_F(SEPortTest, OnlyTheContiguousRunAboveThePortCounts) {
  auto& registry = fake.registry;
  const auto outer =
      registry.add(registry.root, "ethernet", {{"pcidebug", PropertyValue("1:0:0")}});
  const auto between = registry.add(outer, "IOPP");
  const SEPort port = read(registry.add(between, "port"));
  EXPECT_FALSE(port.pciDebug());
  EXPECT_FALSE(port.procudtTpe());
  EXPECT_EQ(registry.references(), 1) << "the port's own";
}

TEST_F(SEPortTest, AnEthernetAncestorThatCannotBeReadIsPassedOver) {
  auto& registry = fake.registry;
  const auto outer =
      registry.add(registry.root, "ethernet", {{"pcidebug", PropertyValue("7:0:0")}});
  const auto inner = registry.add(outer, "ethernet", {{"pcidebug", PropertyValue("8:0:0")}});
  registry.refuseProperties(inner);
  EXPECT_EQ(read(registry.add(inner, "port")).pciDebug(), "7");
}

TEST_F(SEPortTest, TheBusNumberEndsAtTheFirstColon) {
  const std::vector<std::pair<PropertyValue, std::string>> rows{
      {PropertyValue("156:0:0(157:160)"), "156"},
      {PropertyValue("12"), "12"},
      {PropertyValue(":0:0"), ""},
      {PropertyValue(int64_t{12}), "12"},
  };
  for (const auto& [value, bus] : rows) {
    const auto function = fake.registry.add(fake.registry.root, "ethernet", {{"pcidebug", value}});
    EXPECT_EQ(read(fake.registry.add(function, "port")).pciDebug(), bus);
  }
  const auto without = fake.registry.add(fake.registry.root, "ethernet");
  EXPECT_EQ(read(fake.registry.add(without, "port")).pciDebug(), "(null)");
}

TEST_F(SEPortTest, WaitsForTheInterfaceToBeNamed) {
  const auto service = fake.registry.add(fake.registry.root, "port");
  const auto interface = fake.registry.add(service, "IOEthernetInterface");
  std::optional<std::string> name;
  dispatch.asyncGlobal(QueuePriority::Default, [&] { name = read(service).nicNum(); });
  dispatch.advance(milliseconds(2500));
  EXPECT_FALSE(name);
  fake.registry.rename(interface, "en12");
  dispatch.advance(milliseconds(499));
  EXPECT_FALSE(name) << "looked at each second only";
  dispatch.advance(milliseconds(1));
  EXPECT_FALSE(name) << "and a second more is waited";
  dispatch.advance(seconds(1));
  EXPECT_EQ(name, "en12");
  EXPECT_EQ(fake.registry.references(), 0);
}

TEST_F(SEPortTest, WaitsASecondInAnyCase) {
  const auto service = fake.registry.add(fake.registry.root, "port");
  read(service);
  EXPECT_EQ(dispatch.now(), seconds(1));
}

TEST_F(SEPortTest, AnInterfaceThatIsNeverNamedIsWaitedForWithoutEnd) {
  const auto service = fake.registry.add(fake.registry.root, "port");
  fake.registry.add(service, "IOEthernetInterface");
  StopSource stopping;
  bool read = false;
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    const SEPort port(fake.platform(), fake.registry.give(service), stopping.get_token());
    read = true;
  });
  dispatch.advance(std::chrono::hours(24));
  EXPECT_FALSE(read);
  stopping.request_stop();
  dispatch.advance(seconds(1));
  EXPECT_TRUE(read) << "until it is asked to stop";
}

TEST_F(SEPortTest, WithoutInterfaceThereIsNoName) {
  const auto service = fake.registry.add(fake.registry.root, "port");
  const SEPort port = read(service);
  EXPECT_FALSE(port.nicNum());
  EXPECT_EQ(fake.log.count("port (null) is disable"), 1);
}

TEST_F(SEPortTest, PropertiesThatCannotBeReadLeaveTheAddressUnset) {
  const auto ports = addTenGigabitAdapter(fake.registry, {});
  fake.registry.refuseProperties(ports[0]);
  const SEPort port = read(ports[0]);
  EXPECT_EQ(port.macAddr(), nullptr);
  EXPECT_EQ(port.pciDebug(), "12");
  EXPECT_TRUE(fake.log.lines().empty());
}

TEST_F(SEPortTest, AShortAddressStaysUnset) {
  const auto service = fake.registry.add(fake.registry.root, "port",
                                         {{"IOMACAddress", PropertyValue::Data{0, 0x1b, 0x21}}});
  EXPECT_EQ(read(service).macAddr(), nullptr);
}

TEST_F(SEPortTest, NoServiceReadsNothing) {
  const SEPort port(fake.platform(), 0, StopToken());
  EXPECT_EQ(port.portService(), 0U);
  EXPECT_EQ(dispatch.now(), milliseconds(0));
}
