#include "ApplicationFixture.h"
#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

using AppDelegateLaunchTest = ApplicationFixture;

constexpr const char* administratorScriptText =
    "do shell script \"chmod +s /usr/local/bin/corvaneutil \" with administrator privileges";

}  // namespace

TEST_F(AppDelegateLaunchTest, NothingHappensBeforeTheLaunch) {
  settle();
  EXPECT_THAT(fake.authorization.order, IsEmpty());
  EXPECT_THAT(fake.notifications.observed(), IsEmpty());
  EXPECT_THAT(fake.log.lines(), IsEmpty());
  EXPECT_THAT(fake.scripts.scripts, IsEmpty());
}

TEST_F(AppDelegateLaunchTest, TheScriptRunsAfterTheSetUpAndBeforeTheMonitors) {
  bool ran = false;
  fake.scripts.onRun = [&] {
    ran = true;
    ASSERT_GE(fake.authorization.order.size(), 3U);
    EXPECT_EQ(fake.authorization.order[0], "setRight system.privilege.admin");
    EXPECT_EQ(fake.authorization.order[1], "updateStatus");
    EXPECT_EQ(fake.authorization.order[2], "setString TEST");
    EXPECT_FALSE(app->controls().fuckMenu.autoenablesItems());
    EXPECT_FALSE(app->controls().checkUpdate.isEnabled());
    EXPECT_EQ(app->controls().deviceTable.rowHeight(), 40);
    EXPECT_THAT(app->state().updateAlert.buttons,
                ElementsAre(AlertButton{"OK", true, false}, AlertButton{"Cancel", true, false}));
    EXPECT_THAT(
        fake.notifications.observed(),
        ElementsAre("Corvane2Appeared_10GE", "Corvane3Appeared_10GE", "Corvane2Disppeared_10GE",
                    "Corvane2Appeared", "Corvane3Appeared", "Corvane2Disppeared"));
    EXPECT_EQ(dispatch.unfinished(), 0U) << "no monitor is on its way yet";
  };
  launch();
  EXPECT_TRUE(ran);
  EXPECT_THAT(fake.scripts.scripts, ElementsAre(administratorScriptText));
}

TEST_F(AppDelegateLaunchTest, TheFibreChannelMonitorStartsFirst) {
  launch();
  ASSERT_THAT(fake.registry.registered, SizeIs(4));
  const auto identifier = [this](size_t index) {
    return fake.registry.registered[index]
        .second.at("IOPropertyMatch")
        .find("CFBundleIdentifier")
        ->description();
  };
  EXPECT_EQ(identifier(0), "com.velmar.Corvane2-FC");
  EXPECT_EQ(identifier(2), "com.velmar.driver.Corvane2-10GE");
}

TEST_F(AppDelegateLaunchTest, ACancelledPasswordSetsTheLockUpAgain) {
  fake.scripts.result = {false, "User canceled."};
  launch();
  EXPECT_EQ(std::count(fake.authorization.order.begin(), fake.authorization.order.end(),
                       "setRight system.privilege.admin"),
            2);
  EXPECT_THAT(fake.registry.registered, SizeIs(4)) << "the monitors start all the same";
}

TEST_F(AppDelegateLaunchTest, AnyOtherFailureOfTheScriptIsIgnored) {
  fake.scripts.result = {false, "The command failed."};
  launch();
  EXPECT_EQ(std::count(fake.authorization.order.begin(), fake.authorization.order.end(),
                       "setRight system.privilege.admin"),
            1);
  EXPECT_THAT(fake.prompts.alerts, IsEmpty());
}

TEST_F(AppDelegateLaunchTest, StartsOnThePageForNoAdapter) {
  launch();
  EXPECT_EQ(page(), Page::NoAdapter);
  EXPECT_THAT(pageButtons(), ElementsAre("off!", "off!", "off!"));
  EXPECT_TRUE(app->mainWindow().isShown());
}

TEST_F(AppDelegateLaunchTest, ReopeningShowsTheMainWindowAgain) {
  launch();
  app->mainWindow().end();
  EXPECT_TRUE(app->applicationShouldHandleReopen(false));
  EXPECT_TRUE(app->mainWindow().isShown());
  EXPECT_TRUE(app->applicationShouldHandleReopen(true));
}

TEST_F(AppDelegateLaunchTest, DiscoveryIsToldOnceTheAttachedAdaptersAreListed) {
  plug(FakeFibreChannelAdapter{});
  plug(FakeTenGigabitAdapter{});
  int told = 0;
  size_t listed = 0;
  app->inventory().whenDiscovered([&] {
    ++told;
    listed = app->state().CorvaneList.count();
    EXPECT_TRUE(dispatch.isMain());
  });
  launch();
  EXPECT_EQ(told, 1);
  EXPECT_EQ(listed, 2U);
  EXPECT_FALSE(app->inventory().hasFailedMonitor());
}

TEST_F(AppDelegateLaunchTest, DiscoveryIsToldWhenNothingCanBeRegistered) {
  fake.registry.failCreatePort = true;
  int told = 0;
  app->inventory().whenDiscovered([&told] { ++told; });
  launch();
  EXPECT_EQ(told, 1);
  EXPECT_TRUE(app->inventory().hasFailedMonitor());
  EXPECT_THAT(fake.prompts.alerts, IsEmpty()) << "the log alone tells of it";
}

TEST_F(AppDelegateLaunchTest, OneMonitorThatFailsLeavesTheOtherFamily) {
  fake.diskArbitration.failCreate = true;
  launch();
  EXPECT_TRUE(app->inventory().hasFailedMonitor());
  plug(FakeTenGigabitAdapter{});
  EXPECT_EQ(labels(), std::vector<std::string>{"A - 1"});
}

TEST_F(AppDelegateLaunchTest, GoingAwayLeavesNothingBehind) {
  launch();
  const auto ports = plug(FakeFibreChannelAdapter{});
  plug(FakeTenGigabitAdapter{});
  fake.registry.terminate(ports);
  app.reset();
  settle();
  EXPECT_EQ(fake.registry.references(), 0);
  EXPECT_EQ(fake.registry.overReleases, 0);
  EXPECT_THAT(fake.notifications.observed(), IsEmpty());
  EXPECT_EQ(fake.authorization.delegate, nullptr);
  EXPECT_EQ(fake.userClient.openConnections(), 0U);
  EXPECT_EQ(fake.log.count("Monitor stopped"), 2);
}
