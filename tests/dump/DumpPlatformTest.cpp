#include "platform/dump/DumpPlatform.h"

#include <gtest/gtest.h>

#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "DeviceMonitorCORVANE2_8FC/FCDriver.h"
#include "discovery/ChainPosition.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

using namespace corvane;

namespace {

using Posts = std::vector<std::pair<std::string, std::string>>;

class DumpPlatformTest : public testing::Test {
 protected:
  DumpPlatform opened(const std::string& name) {
    SupportReading reading = openSupportMaterial(CORVANE_TEST_DATA "/dumps/" + name);
    EXPECT_TRUE(reading.material.has_value()) << reading.problem;
    return DumpPlatform(
        std::move(*reading.material),
        {fakes.runLoops, dispatch, fakes.notifications, fakes.bundles, fakes.log, fakes.prompts});
  }

  /// What the two monitors announce of a dump.
  Posts announced(const std::string& name) {
    DumpPlatform dump = opened(name);
    DeviceMonitorCORVANE2 device(dump.platform());
    DeviceMonitorCORVANE2_10GE device_10GE(dump.platform());
    device.start();
    device_10GE.start();
    dispatch.advance(std::chrono::seconds(60));
    return fakes.notifications.posts();
  }

  ManualDispatch dispatch;
  FakePlatform fakes{dispatch};
};

class DumpedDesktop : public DumpPlatformTest, public testing::WithParamInterface<const char*> {};

TEST_P(DumpedDesktop, AnnouncesTheCustomersAdapters) {
  EXPECT_EQ(announced(GetParam()), (Posts{{"Corvane2Appeared", "20:00:00:10:9B:12:34:56"},
                                          {"Corvane2Appeared_10GE", "163"}}));
}

INSTANTIATE_TEST_SUITE_P(Forms, DumpedDesktop,
                         testing::Values("desktop-2013.txt", "desktop-2013-hexadecimal.txt",
                                         "desktop-2013.plist", "20151104-093000",
                                         "several-roots.txt", "several-roots.plist",
                                         "with-ancestors.plist"));

TEST_F(DumpPlatformTest, AnnouncesAnAdapterWhosePortNamesAreCut) {
  EXPECT_EQ(
      announced("desktop-2013-wide-cut.txt"),
      (Posts{{"Corvane2Appeared", "20:00:00:10:9B:12:34:56"}, {"Corvane2Appeared_10GE", "163"}}));
}

TEST_F(DumpPlatformTest, AnnouncesAnAdapterWhoseDriversIdentifierIsCut) {
  EXPECT_EQ(announced("desktop-2013-cut.txt"), (Posts{{"Corvane2Appeared_10GE", "163"}}));
}

TEST_F(DumpPlatformTest, AnnouncesAdaptersOfTheOlderDriver) {
  EXPECT_EQ(announced("laptop-2012.txt"), (Posts{{"Corvane2Appeared", "20:00:00:10:9B:00:00:01"}}));
}

TEST_F(DumpPlatformTest, AnnouncesNothingWithoutAdapters) {
  EXPECT_EQ(announced("apple-silicon.txt"), Posts{});
  EXPECT_EQ(announced("nothing-matched.txt"), Posts{});
}

TEST_F(DumpPlatformTest, FindsThePlacesOnTheChain) {
  DumpPlatform dump = opened("desktop-2013.txt");
  DeviceMonitorCORVANE2 device(dump.platform());
  DeviceMonitorCORVANE2_10GE device_10GE(dump.platform());
  device.start();
  device_10GE.start();
  dispatch.advance(std::chrono::seconds(60));
  const auto fibreChannel = device.getDevice("20:00:00:10:9B:12:34:56");
  const auto ethernet = device_10GE.getDevice("163");
  ASSERT_TRUE(fibreChannel && ethernet);
  Registry& registry = dump.platform().registry;
  const ChainPosition first = findChainPosition(registry, fibreChannel->port1()->portService());
  EXPECT_EQ(first.port, "A");
  EXPECT_EQ(first.sequence, 1);
  EXPECT_EQ(fibreChannel->port1()->procudtTpe(), "Corvane2 16G FC");
  const ChainPosition second = findChainPosition(registry, ethernet->port1()->portService());
  EXPECT_EQ(second.port, "A");
  EXPECT_EQ(second.sequence, 2);
  EXPECT_EQ(ethernet->port1()->procudtTpe(), "Corvane2 10G SFP+");
  EXPECT_EQ(*ethernet->port1()->macAddr(), "00:1B:21:AA:BB:CC");
}

TEST_F(DumpPlatformTest, LeavesNoReferenceBehind) {
  DumpPlatform dump = opened("desktop-2013.txt");
  {
    DeviceMonitorCORVANE2 device(dump.platform());
    DeviceMonitorCORVANE2_10GE device_10GE(dump.platform());
    device.start();
    device_10GE.start();
    dispatch.advance(std::chrono::seconds(60));
    device.stop();
    device_10GE.stop();
  }
  EXPECT_EQ(static_cast<DumpRegistry&>(dump.platform().registry).referenceCount(), 0u);
}

TEST_F(DumpPlatformTest, KnowsTheDriverThatRan) {
  DumpPlatform desktop = opened("desktop-2013.txt");
  Bundles& bundles = desktop.platform().bundles;
  EXPECT_TRUE(bundles.exists("/Library/Extensions/Corvane2-FC.kext"));
  EXPECT_TRUE(bundles.exists("/System/Library/Extensions/Corvane2-10GE.kext/"));
  EXPECT_FALSE(bundles.exists("/Library/Extensions/Corvane-FC.kext"));
  EXPECT_FALSE(bundles.exists("/Library/Extensions/Other.kext"));
  EXPECT_FALSE(bundles.infoValue("/Library/Extensions/Corvane2-FC.kext", "CFBundleVersion"));
  DumpPlatform laptop = opened("laptop-2012.txt");
  EXPECT_TRUE(laptop.platform().bundles.exists("/Library/Extensions/Corvane-FC.kext"));
  EXPECT_FALSE(laptop.platform().bundles.exists("/Library/Extensions/Corvane2-FC.kext"));
}

TEST_F(DumpPlatformTest, KnowsTheVersionsOfACollection) {
  DumpPlatform dump = opened("20151104-093000");
  const Platform platform = dump.platform();
  EXPECT_EQ(platform.systemVersion.productVersion(), "10.10.5");
  EXPECT_EQ(platform.bundles.infoValue("/Library/Extensions/Corvane2-FC.kext", "CFBundleVersion"),
            PropertyValue("1.0.46"));
  EXPECT_FALSE(platform.bundles.infoValue("/Library/Extensions/Corvane2-FC.kext", "Other"));
}

TEST_F(DumpPlatformTest, AsksTheProgramForItsOwnInformation) {
  fakes.bundles.mainInfo["CFBundleShortVersionString"] = PropertyValue("1.2.3.4");
  fakes.bundles.resources["UpdateEngine.plist"] = {{"plistURL", PropertyValue("http://x")}};
  DumpPlatform dump = opened("desktop-2013.txt");
  Bundles& bundles = dump.platform().bundles;
  EXPECT_EQ(bundles.mainInfoValue("CFBundleShortVersionString"), PropertyValue("1.2.3.4"));
  EXPECT_FALSE(bundles.resourcePropertyList("UpdateEngine", "plist"));
}

TEST_F(DumpPlatformTest, RefusesEverythingElse) {
  DumpPlatform dump = opened("desktop-2013.txt");
  const Platform platform = dump.platform();
  UserClientConnection connection = 5;
  EXPECT_NE(platform.userClient.open(1, 0, connection), statusSuccess);
  EXPECT_EQ(connection, 0u);
  EXPECT_NE(platform.shell.run("true"), 0);
  EXPECT_NE(platform.shell.runWithin("true", std::chrono::seconds(1)), 0);
  const ScriptResult script = platform.scripts.run("do shell script \"true\"");
  EXPECT_FALSE(script.succeeded);
  EXPECT_NE(script.errorMessage, "User canceled.");
  EXPECT_FALSE(platform.authorization.authorize());
  EXPECT_FALSE(platform.authorization.isAuthorized());
  EXPECT_EQ(platform.transfer.createHandle(), nullptr);
  const auto session = platform.diskArbitration.createSession();
  ASSERT_TRUE(session);
  EXPECT_EQ(session->createDisk("disk4"), nullptr);
  EXPECT_TRUE(fakes.shell.lines().empty());
}

TEST_F(DumpPlatformTest, PrintsNothingOfADriverThatDidNotAnswer) {
  DumpPlatform dump = opened("20151104-093000");
  Log& log = dump.platform().log;
  log.standardOutput("No SFP connect \n");
  EXPECT_EQ(fakes.log.outputText(), "");
  log.system("Monitor stopped");
  log.standardError("it broke\n");
  EXPECT_EQ(fakes.log.count("Monitor stopped"), 1);
  EXPECT_EQ(fakes.log.errorText(), "it broke\n");
  EXPECT_THROW(log.assertionFailed("a", "b", "c", 1), FakeAssertionFailure);
}

TEST_F(DumpPlatformTest, ReadsNothingBackFromTheComputerAtHand) {
  DumpPlatform dump = opened("desktop-2013.txt");
  std::ifstream scratch(dump.platform().paths.scratchFile);
  ASSERT_TRUE(scratch.is_open());
  EXPECT_EQ(scratch.get(), std::ifstream::traits_type::eof());
}

}  // namespace
