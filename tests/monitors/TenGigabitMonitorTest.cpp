#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "DeviceMonitorCORVANE2_10GE/SmallTree.h"
#include "fakes/FakeAdapters.h"
#include "monitors/MonitorFixture.h"

using namespace corvane;
using std::chrono::seconds;
using ::testing::Contains;
using ::testing::Each;
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

struct TenGigabitAppearanceRow {
  uint32_t subsystem;
  const char* notification;  ///< null for none
  const char* logged;
};

class TenGigabitAppearanceTest : public TenGigabitMonitorTest,
                                 public ::testing::WithParamInterface<TenGigabitAppearanceRow> {};

}  // namespace

TEST_P(TenGigabitAppearanceTest, TheSecondPortAnnouncesTheAdapter) {
  start();
  FakeTenGigabitAdapter adapter;
  adapter.subsystem = GetParam().subsystem;
  const auto ports = addTenGigabitAdapter(fake.registry, adapter);
  publish({ports[0]});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  ASSERT_NE(monitor.getDevice("12"), nullptr) << "held, but not announced";
  fake.log.clear();

  publish({ports[1]});
  if (GetParam().notification == nullptr) {
    EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  } else {
    EXPECT_THAT(fake.notifications.posts(), ElementsAre(Pair(GetParam().notification, "12")));
  }
  EXPECT_EQ(fake.log.lines().back(), GetParam().logged);
}

INSTANTIATE_TEST_SUITE_P(
    Products, TenGigabitAppearanceTest,
    ::testing::Values(
        TenGigabitAppearanceRow{0x6201, "Corvane2Appeared_10GE", "Corvane2 10G Base-T"},
        TenGigabitAppearanceRow{0x6202, "Corvane2Appeared_10GE", "Corvane2 10G SFP+"},
        TenGigabitAppearanceRow{0x7203, "Corvane3Appeared_10GE", "Corvane3 NBASE-T1"},
        TenGigabitAppearanceRow{0x7201, "Corvane3Appeared_10GE", "Corvane3 10G Base-T"},
        TenGigabitAppearanceRow{0x7202, "Corvane3Appeared_10GE", "Corvane3 10G SFP+"},
        TenGigabitAppearanceRow{0x1234, nullptr, "(null)"}));

TEST_F(TenGigabitMonitorTest, RegistersForTheDriver) {
  start();
  const PropertyValue::Dictionary matching{
      {"IOPropertyMatch",
       PropertyValue::Dictionary{{"CFBundleIdentifier", "com.velmar.driver.Corvane2-10GE"}}}};
  EXPECT_THAT(fake.registry.registered, ElementsAre(Pair("IOServiceFirstMatch", matching),
                                                    Pair("IOServiceTerminate", matching)));
  EXPECT_THAT(fake.log.lines(), ElementsAre("CFDictionaryCreateMutable successfully",
                                            "CFDictionaryCreateMutable successfully",
                                            "IONotificationPortCreate successfully",
                                            "IONotificationPortGetRunLoopSource successfully"));
  EXPECT_THAT(fake.diskArbitration.order(), IsEmpty()) << "no disks are followed";
}

TEST_F(TenGigabitMonitorTest, StartReturnsBeforeTheMonitorRuns) {
  monitor.start();
  EXPECT_THAT(fake.log.lines(), IsEmpty());
  EXPECT_EQ(dispatch.unfinished(), 1U);
  EXPECT_THAT(dispatch.priorities(), ElementsAre(QueuePriority::Default));
}

TEST_F(TenGigabitMonitorTest, AdaptersPresentAtTheStartAreReported) {
  FakeTenGigabitAdapter other;
  other.bus = 30;
  other.number = 0x11;
  fake.registry.publish(addTenGigabitAdapter(fake.registry, {}));
  fake.registry.publish(addTenGigabitAdapter(fake.registry, other));
  size_t posted = 0;
  monitor.whenStarted([&](int32_t) { posted = fake.notifications.posts().size(); });
  start();
  EXPECT_EQ(posted, 2U);
}

TEST_F(TenGigabitMonitorTest, TheProductIsLoggedBeforeTheAdapterIsAnnounced) {
  start();
  std::string logged;
  const auto observation = fake.notifications.observe(
      "Corvane2Appeared_10GE", [&](const Notification&) { logged = fake.log.lines().back(); });
  publish(addTenGigabitAdapter(fake.registry, {}));
  EXPECT_EQ(logged, "Corvane2 10G SFP+");
}

TEST_F(TenGigabitMonitorTest, DepartureIsPostedOnceFromAGlobalQueue) {
  start();
  FakeTenGigabitAdapter adapter;
  adapter.subsystem = 0x7202;
  const auto ports = addTenGigabitAdapter(fake.registry, adapter);
  publish(ports);
  fake.notifications.clear();
  bool onMain = true;
  const auto observation = fake.notifications.observe(
      "Corvane2Disppeared_10GE", [&](const Notification&) { onMain = dispatch.isMain(); });

  terminate({ports[0]});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  fake.registry.terminate({ports[1]});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty()) << "not on the monitor's thread";
  EXPECT_EQ(monitor.getDevice("12"), nullptr);
  dispatch.runUntilIdle();
  EXPECT_THAT(fake.notifications.posts(), ElementsAre(Pair("Corvane2Disppeared_10GE", "12")));
  EXPECT_FALSE(onMain);
  EXPECT_THAT(dispatch.priorities(), Each(QueuePriority::Default));
  EXPECT_EQ(fake.registry.references(), 2) << "the two iterators";
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

TEST_F(TenGigabitMonitorTest, ADepartedPortThatNeverAppearedIsIgnored) {
  start();
  const auto ports = addTenGigabitAdapter(fake.registry, {});
  publish(ports);
  fake.notifications.clear();
  fake.registry.setProperty(ports[0], "IOMACAddress", PropertyValue(PropertyValue::Data(6, 9)));
  terminate({ports[0]});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  EXPECT_FALSE(monitor.getDevice("12")->isEmpty());
}

TEST_F(TenGigabitMonitorTest, AnAdapterPluggedInAgainIsANewDevice) {
  start();
  const auto ports = addTenGigabitAdapter(fake.registry, {});
  publish(ports);
  const auto former = monitor.getDevice("12");
  terminate(ports);
  fake.notifications.clear();
  publish(ports);
  EXPECT_THAT(fake.notifications.posts(), ElementsAre(Pair("Corvane2Appeared_10GE", "12")));
  EXPECT_NE(monitor.getDevice("12"), former);
}

TEST_F(TenGigabitMonitorTest, APortThatReturnsWhileItsPartnerStayedIsRefused) {
  start();
  const auto ports = addTenGigabitAdapter(fake.registry, {});
  publish(ports);
  terminate({ports[1]});
  fake.notifications.clear();
  publish({ports[1]});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
}

TEST_F(TenGigabitMonitorTest, APortWithoutBusIsLeftAlone) {
  start();
  const auto service =
      fake.registry.add(fake.registry.root, "port",
                        {{"CFBundleIdentifier", PropertyValue("com.velmar.driver.Corvane2-10GE")}});
  publish({service});
  EXPECT_EQ(fake.registry.references(), 2) << "the two iterators";
  terminate({service});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
}

TEST_F(TenGigabitMonitorTest, TenThousandPlugsLeaveNoReferenceBehind) {
  start();
  FakeTenGigabitAdapter other;
  other.bus = 30;
  other.number = 0x11;
  const std::vector<std::vector<RegistryHandle>> adapters{
      addTenGigabitAdapter(fake.registry, {}), addTenGigabitAdapter(fake.registry, other)};
  for (int cycle = 0; cycle < 10000; ++cycle) {
    const auto& ports = adapters[static_cast<size_t>(cycle % 2)];
    fake.registry.publish(ports);
    fake.registry.terminate(ports);
    if (cycle % 100 == 0) dispatch.runUntilIdle();
  }
  dispatch.runUntilIdle();
  EXPECT_EQ(fake.notifications.posts().size(), 20000U);
  monitor.stop();
  EXPECT_EQ(fake.registry.references(), 0);
  EXPECT_EQ(fake.registry.overReleases, 0);
  EXPECT_EQ(fake.registry.usesAfterRelease, 0);
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

TEST_F(TenGigabitMonitorTest, StopTearsEverythingDown) {
  start();
  publish(addTenGigabitAdapter(fake.registry, {}));
  fake.notifications.clear();
  fake.log.clear();
  monitor.stop();
  EXPECT_THAT(fake.log.lines(), ElementsAre("Monitor stopped"));
  EXPECT_EQ(fake.runLoops.loop->stops, 1);
  EXPECT_EQ(fake.registry.references(), 0);
  EXPECT_EQ(fake.registry.openPorts(), 0U);
  EXPECT_EQ(monitor.getDevice("12"), nullptr);
  dispatch.runUntilIdle();
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
}

TEST_F(TenGigabitMonitorTest, StopGoesFromTheIteratorsToTheAdapters) {
  start();
  publish(addTenGigabitAdapter(fake.registry, {}));
  std::vector<std::string> steps;
  fake.registry.onRelease = [&] {
    steps.emplace_back(monitor.getDevice("12") != nullptr ? "iterator" : "service");
    EXPECT_EQ(fake.runLoops.loop->stops, 1);
    EXPECT_EQ(fake.registry.openPorts(), 1U) << "the notification port goes last";
    EXPECT_EQ(fake.log.count("Monitor stopped"), 0);
  };
  monitor.stop();
  fake.registry.onRelease = nullptr;
  EXPECT_THAT(steps, ElementsAre("iterator", "iterator", "service", "service"));
}

TEST_F(TenGigabitMonitorTest, EachMonitorStartsWithAnEmptySmallTree) {
  saveFUCKsmalltree("a", "12");
  const DeviceMonitorCORVANE2_10GE another(fake.platform());
  EXPECT_EQ(getFUCKsmalltree("a"), "");
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
  callbackRef_10GE context{fake.platform(), nullptr, nullptr, {}};
  ASSERT_EQ(fake.registry.addMatchingNotification(*port, firstMatchNotification, matching,
                                                  corvane2ChildAppeared_10GE, &context, iterator),
            statusSuccess);
  EXPECT_EQ(fake.registry.references(), before + 3);
  corvane2ChildAppeared_10GE(&context, iterator);
  EXPECT_EQ(fake.registry.references(), before + 1);
}
