#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"

#include "fakes/FakeAdapters.h"
#include "monitors/MonitorFixture.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

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

}  // namespace

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
  EXPECT_EQ(fake.log.lines(), monitorStartLines);
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
  EXPECT_EQ(fake.log.lines(), monitorStartLines);
  monitor.stop();
  EXPECT_EQ(fake.registry.references(), 0);
}

TEST_F(FibreChannelMonitorTest, ChildEventsShareThePortOfTheOthers) {
  start();
  EXPECT_EQ(monitor.registCorvane2ChildEvent(), 0);
  EXPECT_EQ(fake.registry.openPorts(), 1U);
  EXPECT_EQ(fake.registry.registrations(), 4U);
}
