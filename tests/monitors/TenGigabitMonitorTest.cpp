#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "fakes/FakeAdapters.h"
#include "monitors/MonitorFixture.h"

using namespace corvane;
using std::chrono::seconds;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

class TenGigabitMonitorTest : public MonitorFixture<DeviceMonitorCORVANE2_10GE> {
 protected:
  /// Starts the monitor and lets the time pass that it waits before it registers.
  void start() {
    MonitorFixture::start();
    dispatch.advance(seconds(10));
  }
};

}  // namespace

TEST_F(TenGigabitMonitorTest, NoDisksAreFollowed) {
  start();
  EXPECT_THAT(fake.diskArbitration.order(), IsEmpty());
}

TEST_F(TenGigabitMonitorTest, ADepartedPortIsKnownByItsAddressAlone) {
  start();
  const auto ports = addTenGigabitAdapter(fake.registry, {});
  publish(ports);
  fake.notifications.clear();
  RegistryHandle function = 0;
  for (const auto port : ports) {
    ASSERT_EQ(fake.registry.parentEntry(port, servicePlane, function), statusSuccess);
    fake.registry.release(function);
    fake.registry.removeProperty(function, "pcidebug");
  }
  terminate(ports);
  EXPECT_THAT(fake.notifications.posts(), ElementsAre(Pair("Corvane2Disppeared_10GE", "12")));
}

TEST_F(TenGigabitMonitorTest, StopEndsTheWaitingForAName) {
  const auto ports = addTenGigabitAdapter(fake.registry, {});
  RegistryHandle interface = 0;
  ASSERT_EQ(fake.registry.childEntry(ports[0], servicePlane, interface), statusSuccess);
  fake.registry.release(interface);
  fake.registry.rename(interface, "IOEthernetInterface");
  fake.registry.publish(ports);
  monitor.start();
  dispatch.advance(std::chrono::hours(1));
  EXPECT_EQ(dispatch.unfinished(), 1U) << "the monitor waits";
  monitor.stop();
  EXPECT_EQ(dispatch.unfinished(), 0U);
  EXPECT_EQ(fake.registry.references(), 0);
  EXPECT_THAT(fake.log.lines(), Contains("Monitor stopped"));
}

TEST_F(TenGigabitMonitorTest, TheChildCallbackDrainsItsIterator) {
  start();
  const auto ports = addTenGigabitAdapter(fake.registry, {});
  fake.registry.publish(ports);
  dispatch.runUntilIdle();
  const int64_t before = fake.registry.references();
  RegistryHandle iterator = 0;
  const auto port = fake.registry.createNotificationPort();
  const auto matching = std::make_shared<PropertyValue::Dictionary>(
      PropertyValue::Dictionary{{"IOPropertyMatch", PropertyValue::Dictionary{}}});
  callbackRef_10GE context{{fake.platform(), nullptr, nullptr, {}}, nullptr, {}};
  ASSERT_EQ(fake.registry.addMatchingNotification(*port, firstMatchNotification, matching,
                                                  corvane2ChildAppeared_10GE, &context, iterator),
            statusSuccess);
  EXPECT_EQ(fake.registry.references(), before + 3);
  corvane2ChildAppeared_10GE(&context, iterator);
  EXPECT_EQ(fake.registry.references(), before + 1);
}
