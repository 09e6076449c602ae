#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "fakes/FakeAdapters.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

constexpr const char* dictionaryMade = "CFDictionaryCreateMutable successfully";
constexpr const char* dictionaryFailed = "CFDictionaryCreateMutable failed";
constexpr const char* portMade = "IONotificationPortCreate successfully";
constexpr const char* portFailed = "IONotificationPortCreate failed";
constexpr const char* sourceMade = "IONotificationPortGetRunLoopSource successfully";
constexpr const char* sourceFailed = "IONotificationPortGetRunLoopSource failed";
constexpr const char* registrationFailedLine = "IOServiceAddMatchingNotification failed";

/// One step of the registration that fails, and the lines that it leaves.
struct FailingStepRow {
  const char* name;
  void (*prepare)(FakePlatform& fake);
  std::vector<std::string> lines;
  size_t registrations;  ///< how many came before it
};

std::ostream& operator<<(std::ostream& out, const FailingStepRow& row) {
  return out << row.name;
}

const std::vector<FailingStepRow> failingSteps{
    {"first dictionary",
     [](FakePlatform& fake) { fake.registry.failCreateDictionary = 1; },
     {dictionaryFailed},
     0},
    {"second dictionary",
     [](FakePlatform& fake) { fake.registry.failCreateDictionary = 2; },
     {dictionaryMade, dictionaryFailed},
     0},
    {"notification port",
     [](FakePlatform& fake) { fake.registry.failCreatePort = true; },
     {dictionaryMade, dictionaryMade, portFailed},
     0},
    {"run loop source",
     [](FakePlatform& fake) { fake.registry.failRunLoopSource = true; },
     {dictionaryMade, dictionaryMade, portMade, sourceFailed},
     0},
    {"run loop",
     [](FakePlatform& fake) { fake.runLoops.available = false; },
     {dictionaryMade, dictionaryMade, portMade, sourceMade},
     0},
    {"first match",
     [](FakePlatform& fake) { fake.registry.failAddNotification = firstMatchNotification; },
     {dictionaryMade, dictionaryMade, portMade, sourceMade, registrationFailedLine},
     0},
    {"terminate",
     [](FakePlatform& fake) { fake.registry.failAddNotification = terminateNotification; },
     {dictionaryMade, dictionaryMade, portMade, sourceMade, registrationFailedLine},
     1},
};

class FailingStepTest : public ::testing::TestWithParam<FailingStepRow> {
 protected:
  template <typename Monitor>
  void expectFailure(Monitor& monitor) {
    GetParam().prepare(fake);
    int32_t told = 0;
    monitor.whenStarted([&told](int32_t status) { told = status; });
    EXPECT_EQ(monitor.startMonitorRunLoop(), 4096);
    EXPECT_EQ(told, 4096);
    EXPECT_THAT(fake.log.lines(), ElementsAreArray(GetParam().lines));
    EXPECT_EQ(fake.registry.registrations(), GetParam().registrations);
    EXPECT_EQ(fake.runLoops.loop->runs, 0) << "the run loop is not entered";
    EXPECT_EQ(fake.diskArbitration.openSessions(), 0U);
    monitor.stop();
    EXPECT_EQ(fake.registry.references(), 0);
    EXPECT_EQ(fake.registry.openPorts(), 0U);
  }

  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
};

class RegistrationTest : public ::testing::Test {
 protected:
  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
};

}  // namespace

TEST_P(FailingStepTest, FibreChannelRegistrationFails) {
  DeviceMonitorCORVANE2 monitor(fake.platform());
  expectFailure(monitor);
}

TEST_P(FailingStepTest, TenGigabitRegistrationFails) {
  DeviceMonitorCORVANE2_10GE monitor(fake.platform());
  expectFailure(monitor);
}

TEST_P(FailingStepTest, ChildRegistrationFails) {
  DeviceMonitorCORVANE2 monitor(fake.platform());
  GetParam().prepare(fake);
  EXPECT_EQ(monitor.registCorvane2ChildEvent(), 4096);
  EXPECT_THAT(fake.log.lines(), ElementsAreArray(GetParam().lines));
}

INSTANTIATE_TEST_SUITE_P(Steps, FailingStepTest, ::testing::ValuesIn(failingSteps));

TEST_F(RegistrationTest, ChildRegistrationFailsWithoutItsNumber) {
  DeviceMonitorCORVANE2 monitor(fake.platform());
  fake.registry.failCreateNumber = true;
  EXPECT_EQ(monitor.registCorvane2ChildEvent(), 4096);
  EXPECT_EQ(fake.log.lines().back(), "CFNumberCreate failed");
}

TEST_F(RegistrationTest, WithoutDiskSessionTheRunLoopIsNotEntered) {
  DeviceMonitorCORVANE2 monitor(fake.platform());
  fake.diskArbitration.failCreate = true;
  EXPECT_EQ(monitor.startMonitorRunLoop(), 4096);
  EXPECT_EQ(fake.runLoops.loop->runs, 0);
}

TEST_F(RegistrationTest, DisksNeedARunLoop) {
  DeviceMonitorCORVANE2 monitor(fake.platform());
  EXPECT_EQ(monitor.registDiskEvent(), 4096);
  EXPECT_EQ(fake.diskArbitration.openSessions(), 0U);
}

TEST_F(RegistrationTest, SuccessReturnsZeroAndRunsTheLoop) {
  DeviceMonitorCORVANE2 fibreChannel(fake.platform());
  DeviceMonitorCORVANE2_10GE tenGigabit(fake.platform());
  EXPECT_EQ(fibreChannel.startMonitorRunLoop(), 0);
  EXPECT_EQ(tenGigabit.startMonitorRunLoop(), 0);
  EXPECT_EQ(fake.runLoops.loop->runs, 2);
}

TEST_F(RegistrationTest, AnExceptionWhileRegisteringCountsAsAFailure) {
  fake.bundles.install("/Library/Extensions/Corvane2-FC.kext", "2.0.8");
  fake.registry.publish(addFibreChannelAdapter(fake.registry, {}));
  fake.registry.publish(addTenGigabitAdapter(fake.registry, {}));
  const auto breakDown = [](const Notification&) { throw std::runtime_error("it broke"); };
  const auto first = fake.notifications.observe("Corvane2Appeared", breakDown);
  const auto second = fake.notifications.observe("Corvane2Appeared_10GE", breakDown);
  DeviceMonitorCORVANE2 fibreChannel(fake.platform());
  DeviceMonitorCORVANE2_10GE tenGigabit(fake.platform());
  std::vector<int32_t> told;
  fibreChannel.whenStarted([&told](int32_t status) { told.push_back(status); });
  tenGigabit.whenStarted([&told](int32_t status) { told.push_back(status); });
  EXPECT_EQ(fibreChannel.startMonitorRunLoop(), 4096);
  EXPECT_EQ(tenGigabit.startMonitorRunLoop(), 4096);
  EXPECT_THAT(told, ElementsAre(4096, 4096)) << "nobody waits for the start in vain";
  EXPECT_EQ(fake.log.count("it broke"), 2);
  EXPECT_EQ(fake.runLoops.loop->runs, 0);
}

TEST_F(RegistrationTest, AnExceptionEndsTheTearingDownAndIsLogged) {
  DeviceMonitorCORVANE2 fibreChannel(fake.platform());
  DeviceMonitorCORVANE2_10GE tenGigabit(fake.platform());
  fibreChannel.startMonitorRunLoop();
  tenGigabit.startMonitorRunLoop();
  fake.registry.onRelease = [] { throw std::runtime_error("the release broke"); };
  fibreChannel.stop();
  tenGigabit.stop();
  fake.registry.onRelease = nullptr;
  EXPECT_EQ(fake.log.count("the release broke"), 2);
  EXPECT_EQ(fake.log.count("Monitor stopped"), 0);
}

TEST_F(RegistrationTest, ASessionThatCannotBeUnscheduledDoesNotKeepTheMonitorRunning) {
  DeviceMonitorCORVANE2 monitor(fake.platform());
  monitor.startMonitorRunLoop();
  fake.diskArbitration.onStep = [](const std::string& step) {
    if (step == "unschedule") throw std::runtime_error("it stays");
  };
  monitor.stop();
  fake.diskArbitration.onStep = nullptr;
  EXPECT_EQ(fake.runLoops.loop->stops, 1);
  EXPECT_EQ(fake.log.count("it stays"), 1);
  EXPECT_EQ(fake.log.count("Monitor stopped"), 1);
}

TEST_F(RegistrationTest, AnExceptionEndsTheRoutineAndIsLogged) {
  DeviceMonitorCORVANE2 fibreChannel(fake.platform());
  DeviceMonitorCORVANE2_10GE tenGigabit(fake.platform());
  fake.runLoops.onRun = [] { throw std::runtime_error("the loop broke"); };
  fibreChannel.startMonitorRunLoop();
  tenGigabit.startMonitorRunLoop();
  EXPECT_EQ(fake.log.count("the loop broke"), 2);
}
