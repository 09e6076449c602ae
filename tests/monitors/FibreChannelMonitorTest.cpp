#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"

#include "fakes/FakeAdapters.h"
#include "monitors/MonitorFixture.h"

using namespace corvane;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

const std::vector<std::string> fibreChannelStartLines{
    "CFDictionaryCreateMutable successfully", "CFDictionaryCreateMutable successfully",
    "IONotificationPortCreate successfully", "IONotificationPortGetRunLoopSource successfully"};

class FibreChannelMonitorTest : public MonitorFixture<DeviceMonitorCORVANE2> {
 protected:
  FibreChannelMonitorTest() {
    fake.bundles.install("/Library/Extensions/Corvane2-FC.kext", "2.0.8");
  }

  /// Adds and publishes an adapter, port by port.
  std::vector<RegistryHandle> plug(const FakeFibreChannelAdapter& adapter) {
    const auto ports = addFibreChannelAdapter(fake.registry, adapter);
    publish(ports);
    return ports;
  }
};

struct FibreChannelAppearanceRow {
  uint32_t model;
  const char* notification;  ///< null for none
  const char* logged;
};

class FibreChannelAppearanceTest : public FibreChannelMonitorTest,
                                   public ::testing::WithParamInterface<FibreChannelAppearanceRow> {
};

}  // namespace

TEST_P(FibreChannelAppearanceTest, TheSecondPortAnnouncesTheAdapter) {
  start();
  fake.log.clear();
  FakeFibreChannelAdapter adapter;
  adapter.model = GetParam().model;
  const auto ports = addFibreChannelAdapter(fake.registry, adapter);

  fake.registry.publish({ports[0]});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  EXPECT_THAT(fake.log.lines(), IsEmpty());
  ASSERT_NE(monitor.getDevice(fakeNodeName(adapter)), nullptr) << "held, but not announced";

  fake.registry.publish({ports[1]});
  if (GetParam().notification == nullptr) {
    EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  } else {
    EXPECT_THAT(fake.notifications.posts(),
                ElementsAre(Pair(GetParam().notification, fakeNodeName(adapter))));
  }
  EXPECT_THAT(fake.log.lines(), ElementsAre(GetParam().logged));
  EXPECT_EQ(monitor.getDevice(fakeNodeName(adapter))->port2()->portService(), ports[1]);
}

INSTANTIATE_TEST_SUITE_P(
    Models, FibreChannelAppearanceTest,
    ::testing::Values(FibreChannelAppearanceRow{0x05, "Corvane2Appeared", "Corvane2 8G FC"},
                      FibreChannelAppearanceRow{0x0d, "Corvane2Appeared", "Corvane2 16G FC"},
                      FibreChannelAppearanceRow{0x15, "Corvane3Appeared", "Corvane3 8G FC"},
                      FibreChannelAppearanceRow{0x12, "Corvane3Appeared", "Corvane3 F2"},
                      FibreChannelAppearanceRow{0x07, nullptr, "(null)"}));

TEST_F(FibreChannelMonitorTest, RegistersForTheInstalledDriver) {
  start();
  const PropertyValue::Dictionary matching{
      {"IOPropertyMatch",
       PropertyValue::Dictionary{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}}}};
  EXPECT_THAT(fake.registry.registered, ElementsAre(Pair("IOServiceFirstMatch", matching),
                                                    Pair("IOServiceTerminate", matching)));
  EXPECT_EQ(fake.log.lines(), fibreChannelStartLines);
  EXPECT_EQ(fake.runLoops.loop->sources.size(), 1U);
  EXPECT_EQ(fake.runLoops.loop->runs, 1);
}

TEST_F(FibreChannelMonitorTest, MatchesByTheDriversGeneration) {
  EXPECT_EQ(monitor._getDriverAddress(), "com.velmar.Corvane2-FC");
  fake.bundles.install("/Library/Extensions/Corvane-FC.kext", "1.0.45");
  EXPECT_EQ(monitor._getDriverAddress(), "com.velmar.Corvane-FC");
  fake.bundles.bundles.clear();
  EXPECT_EQ(monitor._getDriverAddress(), "");
}

TEST_F(FibreChannelMonitorTest, WithoutDriverNothingMatchesAndNothingIsReported) {
  fake.bundles.bundles.clear();
  start();
  plug({});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  EXPECT_EQ(fake.log.lines(), fibreChannelStartLines);
}

TEST_F(FibreChannelMonitorTest, AdaptersPresentAtTheStartAreReported) {
  plug({});
  FakeFibreChannelAdapter other;
  other.number = 0x57;
  other.model = 0x12;
  plug(other);
  int32_t status = -1;
  size_t posted = 0;
  monitor.whenStarted([&](int32_t result) {
    status = result;
    posted = fake.notifications.posts().size();
  });
  start();
  EXPECT_EQ(status, 0);
  EXPECT_EQ(posted, 2U) << "by the time the start is told";
}

TEST_F(FibreChannelMonitorTest, StartReturnsBeforeTheMonitorRuns) {
  monitor.start();
  EXPECT_THAT(fake.log.lines(), IsEmpty());
  EXPECT_EQ(dispatch.unfinished(), 1U);
  EXPECT_THAT(dispatch.priorities(), ElementsAre(QueuePriority::Default));
}

TEST_F(FibreChannelMonitorTest, BothPortsInOneBatchPostOnce) {
  start();
  plug({});
  EXPECT_THAT(fake.notifications.posts(),
              ElementsAre(Pair("Corvane2Appeared", "20:00:00:10:9B:12:34:56")));
}

TEST_F(FibreChannelMonitorTest, TheProductIsLoggedBeforeTheAdapterIsAnnounced) {
  start();
  std::string logged;
  const auto observation = fake.notifications.observe(
      "Corvane2Appeared", [&](const Notification&) { logged = fake.log.lines().back(); });
  plug({});
  EXPECT_EQ(logged, "Corvane2 16G FC");
}

TEST_F(FibreChannelMonitorTest, OtherServicesAreLeftAlone) {
  start();
  FakeFibreChannelAdapter other;
  other.driver = "com.example.other";
  plug(other);
  EXPECT_EQ(monitor.getDevice(fakeNodeName(other)), nullptr);
  EXPECT_EQ(fake.registry.references(), 2) << "the two iterators";
}

TEST_F(FibreChannelMonitorTest, DepartureIsPostedOnceFromAGlobalQueue) {
  start();
  FakeFibreChannelAdapter adapter;
  adapter.model = 0x12;
  const auto ports = plug(adapter);
  fake.notifications.clear();
  bool onMain = true;
  const auto observation = fake.notifications.observe(
      "Corvane2Disppeared", [&](const Notification&) { onMain = dispatch.isMain(); });

  fake.registry.terminate({ports[0]});
  dispatch.runUntilIdle();
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  EXPECT_NE(monitor.getDevice(fakeNodeName(adapter)), nullptr);

  fake.registry.terminate({ports[1]});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty()) << "not on the monitor's thread";
  EXPECT_EQ(monitor.getDevice(fakeNodeName(adapter)), nullptr);
  dispatch.runUntilIdle();
  EXPECT_THAT(fake.notifications.posts(),
              ElementsAre(Pair("Corvane2Disppeared", fakeNodeName(adapter))));
  EXPECT_FALSE(onMain);
  EXPECT_THAT(dispatch.priorities(), Each(QueuePriority::Default));
  EXPECT_EQ(fake.registry.references(), 2) << "the two iterators";
}

TEST_F(FibreChannelMonitorTest, AHalfPluggedAdapterGoesWithItsOnePort) {
  start();
  const auto ports = addFibreChannelAdapter(fake.registry, {});
  fake.registry.publish({ports[0]});
  terminate({ports[0]});
  EXPECT_THAT(fake.notifications.posts(),
              ElementsAre(Pair("Corvane2Disppeared", "20:00:00:10:9B:12:34:56")));
}

TEST_F(FibreChannelMonitorTest, APortThatReturnsWhileItsPartnerStayedIsRefused) {
  start();
  const auto ports = plug({});
  fake.notifications.clear();
  terminate({ports[0]});
  fake.registry.publish({ports[0]});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  const auto device = monitor.getDevice("20:00:00:10:9B:12:34:56");
  EXPECT_EQ(device->port1()->portService(), 0U) << "the slot is still taken";
  EXPECT_EQ(fake.registry.references(), 3) << "the refused port's reference went";
}

TEST_F(FibreChannelMonitorTest, AnAdapterPluggedInAgainIsAnnouncedAgain) {
  start();
  const auto ports = plug({});
  terminate(ports);
  fake.notifications.clear();
  fake.registry.publish(ports);
  EXPECT_THAT(fake.notifications.posts(),
              ElementsAre(Pair("Corvane2Appeared", "20:00:00:10:9B:12:34:56")));
}

TEST_F(FibreChannelMonitorTest, APortWithoutNodeNameIsLeftAlone) {
  start();
  const auto ports = addFibreChannelAdapter(fake.registry, {});
  fake.registry.setProperty(ports[0], "Controller Characteristics", PropertyValue());
  fake.registry.publish({ports[0]});
  EXPECT_EQ(fake.registry.references(), 2) << "the two iterators";
  terminate({ports[0]});
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
}

TEST_F(FibreChannelMonitorTest, ADepartedPortThatIsNotKnownIsIgnored) {
  const auto ports = addFibreChannelAdapter(fake.registry, {});
  fake.registry.publish(ports);
  start();
  fake.registry.setProperty(
      ports[0], "Controller Characteristics",
      PropertyValue::Dictionary{{"Node World Wide Name", PropertyValue::Data(8, 9)},
                                {"Port World Wide Name", PropertyValue::Data(8, 9)}});
  terminate({ports[0]});
  EXPECT_EQ(fake.notifications.posts().size(), 1U) << "the arrival alone";
  EXPECT_NE(monitor.getDevice("20:00:00:10:9B:12:34:56"), nullptr);
}

TEST_F(FibreChannelMonitorTest, TenThousandPlugsLeaveNoReferenceBehind) {
  start();
  FakeFibreChannelAdapter third;
  third.model = 0x15;
  third.number = 0x99;
  const std::vector<std::vector<RegistryHandle>> adapters{
      addFibreChannelAdapter(fake.registry, {}), addFibreChannelAdapter(fake.registry, third)};
  for (int cycle = 0; cycle < 10000; ++cycle) {
    const auto& ports = adapters[static_cast<size_t>(cycle % 2)];
    fake.registry.publish(ports);
    fake.registry.terminate(ports);
    if (cycle % 100 == 0) {
      dispatch.runUntilIdle();
      ASSERT_EQ(fake.registry.references(), 2);
    }
  }
  dispatch.runUntilIdle();
  EXPECT_EQ(fake.notifications.posts().size(), 20000U);
  monitor.stop();
  EXPECT_EQ(fake.registry.references(), 0);
  EXPECT_EQ(fake.registry.overReleases, 0);
  EXPECT_EQ(fake.registry.usesAfterRelease, 0);
}

TEST_F(FibreChannelMonitorTest, StopTearsEverythingDown) {
  start();
  plug({});
  const auto device = monitor.getDevice("20:00:00:10:9B:12:34:56");
  fake.notifications.clear();
  fake.log.clear();
  monitor.stop();
  EXPECT_THAT(fake.log.lines(), ElementsAre("Monitor stopped"));
  EXPECT_EQ(fake.runLoops.loop->stops, 1);
  EXPECT_EQ(fake.registry.references(), 0);
  EXPECT_EQ(fake.registry.openPorts(), 0U);
  EXPECT_EQ(fake.registry.registrations(), 0U);
  EXPECT_EQ(fake.diskArbitration.openSessions(), 0U);
  EXPECT_EQ(monitor.getDevice("20:00:00:10:9B:12:34:56"), nullptr);
  EXPECT_EQ(device->port1(), nullptr);
  dispatch.runUntilIdle();
  EXPECT_THAT(fake.notifications.posts(), IsEmpty()) << "stopping announces no departure";
  monitor.stop();
  EXPECT_EQ(fake.log.count("Monitor stopped"), 1);
}

TEST_F(FibreChannelMonitorTest, StopGoesFromTheDisksToTheAdapters) {
  start();
  plug({});
  std::vector<std::string> steps;
  fake.diskArbitration.onStep = [&](const std::string& step) {
    steps.push_back(step + (fake.runLoops.loop->stops == 0 ? " while it runs" : " once stopped"));
  };
  fake.registry.onRelease = [&] {
    const bool isListed = monitor.getDevice("20:00:00:10:9B:12:34:56") != nullptr;
    steps.emplace_back(isListed ? "iterator" : "service of an adapter no longer listed");
    EXPECT_EQ(fake.registry.openPorts(), 1U) << "the notification port goes last";
    EXPECT_EQ(fake.log.count("Monitor stopped"), 0);
  };
  monitor.stop();
  fake.diskArbitration.onStep = nullptr;
  fake.registry.onRelease = nullptr;
  EXPECT_THAT(steps, ElementsAre("unschedule while it runs", "release once stopped", "iterator",
                                 "iterator", "service of an adapter no longer listed",
                                 "service of an adapter no longer listed"));
}

TEST_F(FibreChannelMonitorTest, ADepartureThatIsStillOnItsWayIsDroppedByStop) {
  start();
  const auto ports = plug({});
  fake.notifications.clear();
  fake.registry.terminate(ports);
  monitor.stop();
  dispatch.runUntilIdle();
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
}

TEST_F(FibreChannelMonitorTest, AMonitorStoppedBeforeItRanNeverRuns) {
  monitor.start();
  monitor.stop();
  dispatch.runUntilIdle();
  EXPECT_THAT(fake.log.lines(), ElementsAre("Monitor stopped"));
}

TEST_F(FibreChannelMonitorTest, ChildEventsAreWatchedForOnRequest) {
  EXPECT_EQ(monitor.registCorvane2ChildEvent(), 0);
  const PropertyValue::Dictionary matching{
      {"IOPropertyMatch",
       PropertyValue::Dictionary{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}}},
      {"IOPowerManagement", PropertyValue::Dictionary{{"ChildrenPowerState", int64_t{2}}}}};
  EXPECT_THAT(fake.registry.registered, ElementsAre(Pair("IOServiceFirstMatch", matching),
                                                    Pair("IOServiceTerminate", matching)));
  const auto ports = plug({});
  fake.registry.terminate(ports);
  dispatch.runUntilIdle();
  EXPECT_THAT(fake.notifications.posts(), IsEmpty());
  EXPECT_EQ(fake.registry.references(), 2) << "drained, the two iterators remain";
  EXPECT_EQ(fake.log.lines(), fibreChannelStartLines);
  monitor.stop();
  EXPECT_EQ(fake.registry.references(), 0);
}

TEST_F(FibreChannelMonitorTest, ChildEventsShareThePortOfTheOthers) {
  start();
  EXPECT_EQ(monitor.registCorvane2ChildEvent(), 0);
  EXPECT_EQ(fake.registry.openPorts(), 1U);
  EXPECT_EQ(fake.registry.registrations(), 4U);
}
