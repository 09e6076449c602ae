#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CorvaneAPI.h"
#include "fibre_channel/FibreChannelPagesFixture.h"

using namespace corvane;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr const char* oldDriver = "/Library/Extensions/Corvane-FC.kext";

using FibreChannelPagesTest = FibreChannelPagesFixture;

// The device page.

TEST_F(FibreChannelPagesTest, NoAdapterLeavesThePagesAlone) {
  pages->show8GDeviceInfo();
  pages->show8GPortInfo(0);
  EXPECT_FALSE(pages->portOnShow());
  EXPECT_THAT(fake.userClient.order(), IsEmpty());
  EXPECT_EQ(state.selectPort, 0);
  EXPECT_EQ(controls.drvVer_8G.text(), "");
}

TEST_F(FibreChannelPagesTest, DevicePageShowsTheFirstPortAndTheDriver) {
  attachCorvane2With8G();
  ports[secondService].firmware = "other";
  pages->show8GDeviceInfo();
  EXPECT_THAT(sent(2), SizeIs(1));
  EXPECT_EQ(fake.userClient.calls()[0].service, firstService);
  EXPECT_EQ(controls.drvVer_8G.text(), "2.0.8");
  EXPECT_EQ(controls.fwVer.text(), "2.02X11");
  EXPECT_EQ(controls.deviceWWN.text(), "20:00:00:10:9B:12:34:56");
  EXPECT_EQ(controls.productType.text(), "Corvane2 8G FC");
  EXPECT_EQ(controls.setQueueDepth.selectedTag(), 512);
  EXPECT_EQ(state.driverVersion_8G, "2.0.8");
}

TEST_F(FibreChannelPagesTest, OlderGenerationOfTheDriverComesFirst) {
  attachCorvane2With8G();
  fake.bundles.install(oldDriver, "1.0.50");
  pages->show8GDeviceInfo();
  EXPECT_EQ(controls.drvVer_8G.text(), "1.0.50");
}

TEST_F(FibreChannelPagesTest, Release108KeepsDriversWithTheSystem) {
  attachCorvane2With8G();
  fake.systemVersion.version = "10.8.5";
  fake.bundles.install("/System/Library/Extensions/Corvane2-FC.kext", "2.0.3");
  pages->show8GDeviceInfo();
  EXPECT_EQ(controls.drvVer_8G.text(), "2.0.3");
  EXPECT_FALSE(offersTag(controls.setQueueDepth, 2048));
}

TEST_F(FibreChannelPagesTest, MissingDriverShowsAsNotAvailable) {
  attachCorvane2With8G();
  fake.bundles.bundles.clear();
  pages->show8GDeviceInfo();
  EXPECT_EQ(controls.drvVer_8G.text(), "N/A");
  EXPECT_EQ(state.driverVersion_8G, "0.0.0");
  EXPECT_FALSE(offersTag(controls.setQueueDepth, 2048));
}

TEST_F(FibreChannelPagesTest, LongDriverVersionIsCutTo15Characters) {
  attachCorvane2With8G();
  fake.bundles.install(newDriver, "2.0.8.1234567890123");
  pages->show8GDeviceInfo();
  EXPECT_EQ(controls.drvVer_8G.text(), "2.0.8.123456789");
  EXPECT_EQ(state.driverVersion_8G, "2.0.8.123456789");
}

TEST_F(FibreChannelPagesTest, LargeDepthsComeBackWithANewerDriver) {
  attachCorvane2With8G();
  fake.bundles.install(newDriver, "2.0.7");
  pages->show8GDeviceInfo();
  EXPECT_FALSE(offersTag(controls.setQueueDepth, 2048));
  fake.bundles.install(newDriver, "2.0.10");
  pages->show8GDeviceInfo();
  EXPECT_TRUE(offersTag(controls.setQueueDepth, 2048));
}

TEST_F(FibreChannelPagesTest, QueueDepthOutsideTheMenuIsShownPlainly) {
  attachCorvane2With8G();
  ports[firstService].queueDepth = 33;
  pages->show8GDeviceInfo();
  EXPECT_EQ(controls.setQueueDepth.plainValue(), "33");
}

// The queue depth.

TEST_F(FibreChannelPagesTest, DepthOfTheMenuGoesToTheFirstPortWhicheverIsOnShow) {
  attachCorvane2With8G();
  showPort(1);
  chooseTag(controls.setQueueDepth, 64);
  EXPECT_THAT(sent(15), ElementsAre(on(firstService, "<40000000>")));
}

TEST_F(FibreChannelPagesTest, DepthOfTheSheetGoesToThePortOnShow) {
  attachCorvane2With8G();
  showPort(1);
  pages->FinalEnterQueueDepth(*pages->portOnShow(), 33);
  showPort(0);
  pages->FinalEnterQueueDepth(*pages->portOnShow(), 34);
  EXPECT_THAT(sent(15),
              ElementsAre(on(secondService, "<21000000>"), on(firstService, "<22000000>")));
}

TEST_F(FibreChannelPagesTest, DepthOfTheSheetGoesNowhereBeforeAPortWasShown) {
  attachCorvane2With8G();
  pages->show8GDeviceInfo();
  EXPECT_FALSE(pages->portOnShow()) << "the sheet is not even opened";
  EXPECT_THAT(sent(15), IsEmpty());
}

TEST_F(FibreChannelPagesTest, DepthIsSetAtOnceAndNothingIsReadAgain) {
  attachCorvane2With8G();
  pages->show8GDeviceInfo();
  const size_t readings = sent(2).size();
  chooseTag(controls.setQueueDepth, 64);
  dispatch.advance(20s);
  EXPECT_THAT(sent(2), SizeIs(readings));
  EXPECT_EQ(dispatch.unfinished(), 0U);
}

TEST_F(FibreChannelPagesTest, DepthForAPortThatHasGoneIsDropped) {
  attachCorvane2With8G();
  pages->show8GDeviceInfo();
  device->port1()->clearService();
  fake.userClient.openStatus = statusFailure;
  EXPECT_NO_THROW(chooseTag(controls.setQueueDepth, 64));
}

// The port page.

TEST_F(FibreChannelPagesTest, PortPageShowsThePort) {
  attachCorvane2With8G();
  SimulatedPort& second = ports[secondService];
  second.portName = 0x100000109B123457;
  second.currentSpeed = 4000;
  second.currentTopology = 1;
  second.configuredSpeed = 4000;
  second.configuredTopology = 1;
  showPort(1);
  EXPECT_EQ(state.selectPort, 2);
  EXPECT_EQ(controls.WWNN.text(), "10:00:00:10:9B:12:34:57");
  EXPECT_EQ(controls.setSpeed.selectedTag(), 4000);
  EXPECT_EQ(controls.setTopology.selectedTag(), 1);
  expectLink("4 Gbps", "Arbitrated Loop");
}

TEST_F(FibreChannelPagesTest, AutomaticReportedAsOneShowsAsAutomatic) {
  attachCorvane2With16G();
  ports[firstService].currentSpeed = 1;
  ports[firstService].configuredSpeed = 1;
  showPort(0);
  expectLink("Automatic", "Point to Point");
  EXPECT_EQ(controls.setSpeed.selectedTag(), 0);
}

TEST_F(FibreChannelPagesTest, AnyLinkStateButZeroIsNoLink) {
  attachCorvane2With8G();
  for (const uint32_t linkState : {1U, 2U, 0x80000000U}) {
    ports[firstService].linkState = linkState;
    showPort(0);
    expectLink("No Link", "No Link");
  }
}

TEST_F(FibreChannelPagesTest, UnknownSpeedAndTopologyLeaveTheFieldsAsTheyWere) {
  attachCorvane2With8G();
  showPort(0);
  ports[firstService].currentSpeed = 3000;
  ports[firstService].currentTopology = 2;
  showPort(0);
  expectLink("8 Gbps", "Point to Point");
}

TEST_F(FibreChannelPagesTest, ThereIsNoThirdPort) {
  attachCorvane2With8G();
  pages->show8GPortInfo(2);
  pages->show8GPortInfo(-1);
  EXPECT_EQ(state.selectPort, 0);
  EXPECT_THAT(fake.userClient.order(), IsEmpty());
}

TEST_F(FibreChannelPagesTest, MenusAreTrimmedByModel) {
  attachCorvane2With8G();
  showPort(0);
  EXPECT_TRUE(offersTag(controls.setSpeed, 2000));
  EXPECT_FALSE(offersTag(controls.setSpeed, 16000));
  EXPECT_TRUE(offersTag(controls.setTopology, 1));
  EXPECT_FALSE(controls.chooseALPA.isHidden());
  attachCorvane2With16G();
  showPort(1);
  EXPECT_TRUE(offersTag(controls.setSpeed, 2000));
  EXPECT_TRUE(offersTag(controls.setSpeed, 16000));
  EXPECT_FALSE(offersTag(controls.setTopology, 1));
  EXPECT_TRUE(controls.chooseALPA.isHidden());
  attachCorvane3With8G();
  showPort(0);
  EXPECT_TRUE(offersTag(controls.setSpeed, 2000));
  EXPECT_FALSE(offersTag(controls.setSpeed, 16000));
  EXPECT_TRUE(offersTag(controls.setTopology, 1));
  EXPECT_FALSE(controls.chooseALPA.isHidden());
  attachCorvane3F2();
  showPort(0);
  EXPECT_FALSE(offersTag(controls.setSpeed, 2000));
  EXPECT_TRUE(offersTag(controls.setSpeed, 16000));
  EXPECT_FALSE(offersTag(controls.setTopology, 1));
  EXPECT_TRUE(controls.chooseALPA.isHidden());
}

TEST_F(FibreChannelPagesTest, HardAddressIsShownWhenOneIsInUse) {
  attachCorvane2With8G();
  showPort(0);
  EXPECT_EQ(controls.hardALPA.text(), "None");
  EXPECT_EQ(state.corvaneInfo->port1Info.hardAPLA_check, 0U);
  ports[firstService].hardAlpa = 0xEF;
  showPort(0);
  EXPECT_EQ(controls.hardALPA.text(), "EF");
  EXPECT_EQ(state.corvaneInfo->port1Info.hardAPLA_check, 1U);
}

// The transceiver on the port page.

TEST_F(FibreChannelPagesTest, UsableModuleIsReadTwiceAndCanBeShown) {
  attachCorvane2With8G();
  ports[secondService].module = true;
  showPort(1);
  EXPECT_THAT(sent(13), SizeIs(2));
  for (const auto& call : fake.userClient.calls()) {
    if (call.selector != 13) continue;
    EXPECT_EQ(call.service, secondService);
    EXPECT_EQ(call.input[100], 1);
  }
  EXPECT_TRUE(controls.SFPInfoButton.isEnabled());
  EXPECT_EQ(controls.SFPErrorMessage.text(), "");
  controls.SFPInfoButton.click();
  EXPECT_EQ(sfp.VendorNameInfo.text(), "VELMAR OPTICS   ");
}

TEST_F(FibreChannelPagesTest, EmptyCageIsReadOnce) {
  attachCorvane2With8G();
  showPort(0);
  EXPECT_THAT(sent(13), ElementsAre(on(firstService, dataText(std::vector<uint8_t>(104)))));
  EXPECT_FALSE(controls.SFPInfoButton.isEnabled());
  EXPECT_EQ(controls.SFPErrorMessage.text(), "");
}

TEST_F(FibreChannelPagesTest, WrongModuleGivesTheSameMessageOnEveryModel) {
  attachCorvane2With16G();
  ports[firstService].module = true;
  ports[firstService].bitRate = 103;
  showPort(0);
  EXPECT_EQ(controls.SFPErrorMessage.text(),
            "The inserted transceiver module is not the correct type for \nthe Corvane2 8G FC. "
            "Please make sure to only use \ntransceiver modules that support 8G Fibre Channel.");
  EXPECT_FALSE(controls.SFPInfoButton.isEnabled());
  ports[firstService].module = false;
  showPort(0);
  EXPECT_EQ(controls.SFPErrorMessage.text(), "");
}

TEST_F(FibreChannelPagesTest, ModuleThatAnswersLateIsJudgedByItsSecondReading) {
  attachCorvane2With8G();
  ports[firstService].module = true;
  ports[firstService].bitRate = 103;
  int readings = 0;
  const auto driver = fake.userClient.answer;
  fake.userClient.answer = [&](RegistryHandle service, uint32_t selector,
                               std::span<const uint8_t> input, std::span<uint8_t> output) {
    if (selector == 13 && ++readings == 2) ports[service].bitRate = 85;
    return driver(service, selector, input, output);
  };
  showPort(0);
  EXPECT_TRUE(controls.SFPInfoButton.isEnabled());
  EXPECT_EQ(controls.SFPErrorMessage.text(), "");
}

TEST_F(FibreChannelPagesTest, OnlyAWrongModuleIsTurnedAwayAtTheSecondReading) {
  attachCorvane2With8G();
  ports[firstService].module = true;
  int readings = 0;
  const auto driver = fake.userClient.answer;
  fake.userClient.answer = [&](RegistryHandle service, uint32_t selector,
                               std::span<const uint8_t> input, std::span<uint8_t> output) {
    if (selector == 13 && ++readings == 2) ports[service].module = false;
    return driver(service, selector, input, output);
  };
  showPort(0);
  EXPECT_EQ(readings, 2);
  EXPECT_TRUE(controls.SFPInfoButton.isEnabled());
  EXPECT_EQ(controls.SFPErrorMessage.text(), "");
}

TEST_F(FibreChannelPagesTest, DriverTooOldForModulesIsNotAsked) {
  attachCorvane2With8G();
  ports[firstService].module = true;
  controls.SFPErrorMessage.setText("as it was");
  fake.bundles.install(newDriver, "1.0.44");
  showPort(0);
  EXPECT_THAT(sent(13), IsEmpty());
  EXPECT_FALSE(controls.SFPInfoButton.isEnabled());
  EXPECT_EQ(controls.SFPErrorMessage.text(), "as it was");
  fake.bundles.install(newDriver, "1.0.45");
  showPort(0);
  EXPECT_THAT(sent(13), SizeIs(2));
  EXPECT_TRUE(controls.SFPInfoButton.isEnabled());
}

TEST_F(FibreChannelPagesTest, TransceiverSheetShowsTheTextsInTheirFields) {
  attachCorvane2With8G();
  CorvaneAPI& port = state.corvaneInfo->port2Info;
  port.Transceiver = "a";
  port.TransceiverCode = "b";
  port.Connector = "c";
  port.SerialEncoding = "d";
  port.Bitrate = "e";
  port.VendorName = "f";
  port.VendorOUI = "g";
  port.VendorPN = "h";
  port.VendorRev = "i";
  port.VendorSN = "j";
  port.ManuData = "k";
  sfp.setSFPwindowItem(*state.corvaneInfo, 2);
  sfp.setSFPwindowItem(*state.corvaneInfo, 0);
  sfp.setSFPwindowItem(*state.corvaneInfo, 3);
  sfp.showSFPInfo();
  EXPECT_EQ(sfp.SFPWindow.name(), "SFPController");
  EXPECT_TRUE(sfp.SFPWindow.isShown());
  EXPECT_EQ(sfp.TransceiverInfo.text(), "a");
  EXPECT_EQ(sfp.TransceiverCodeInfo.text(), "b");
  EXPECT_EQ(sfp.ConnectorInfo.text(), "c");
  EXPECT_EQ(sfp.SerialEncodingInfo.text(), "d");
  EXPECT_EQ(sfp.BitrateInfo.text(), "e");
  EXPECT_EQ(sfp.VendorNameInfo.text(), "f");
  EXPECT_EQ(sfp.VendorOUIInfo.text(), "g");
  EXPECT_EQ(sfp.VendorPNInfo.text(), "h");
  EXPECT_EQ(sfp.VendorRevInfo.text(), "i");
  EXPECT_EQ(sfp.VendorSNInfo.text(), "j");
  EXPECT_EQ(sfp.ManuDataInfo.text(), "k");
  sfp.setSFPwindowItem(*state.corvaneInfo, 1);
  sfp.showSFPInfo();
  EXPECT_EQ(sfp.TransceiverInfo.text(), "");
  sfp.cancelWindow();
  EXPECT_FALSE(sfp.SFPWindow.isLoaded());
}

TEST_F(FibreChannelPagesTest, HelpOpensAndCloses) {
  controls.SFPHelpButton.click();
  EXPECT_TRUE(pages->SFPHelp.isShown());
  EXPECT_NE(pages->SFPHelpContent.text(), "");
  controls.SFPHelpButton.click();
  EXPECT_FALSE(pages->SFPHelp.isLoaded());
}

// Changing a port's settings.

TEST_F(FibreChannelPagesTest, SpeedIsSetInTheBackgroundForThePortOnShow) {
  attachCorvane2With8G();
  showPort(1);
  chooseTag(controls.setSpeed, 8000);
  EXPECT_THAT(sent(6), IsEmpty());
  EXPECT_TRUE(controls.portProgress.isRunning());
  dispatch.runUntilIdle();
  EXPECT_THAT(sent(6), ElementsAre(on(secondService, "<401f0000 00000000>")));
}

TEST_F(FibreChannelPagesTest, SettingsAreMadeOnTheBackgroundQueueAndReadOnTheMainOne) {
  attachCorvane2With8G();
  showPort(0);
  std::vector<uint32_t> calledFromWorkers;
  const auto driver = fake.userClient.answer;
  fake.userClient.answer = [&](RegistryHandle service, uint32_t selector,
                               std::span<const uint8_t> input, std::span<uint8_t> output) {
    if (!dispatch.isMain()) calledFromWorkers.push_back(selector);
    return driver(service, selector, input, output);
  };
  chooseTag(controls.setSpeed, 4000);
  chooseTag(controls.setTopology, 1);
  pages->FinalChoosePortALPA(*pages->portOnShow(), 0xEF);
  dispatch.advance(10s);
  EXPECT_THAT(calledFromWorkers, ElementsAre(6U, 5U, 7U));
  EXPECT_THAT(
      dispatch.priorities(),
      ElementsAre(QueuePriority::Background, QueuePriority::Background, QueuePriority::Background));
}

TEST_F(FibreChannelPagesTest, AutomaticGoesAsOneOn16GAdaptersOnly) {
  attachCorvane2With16G();
  showPort(0);
  chooseTag(controls.setSpeed, 0);
  dispatch.advance(10s);
  attachCorvane3F2();
  const RegistryHandle f2 = firstService;
  showPort(0);
  chooseTag(controls.setSpeed, 0);
  dispatch.advance(10s);
  attachCorvane3With8G();
  showPort(0);
  chooseTag(controls.setSpeed, 0);
  dispatch.advance(10s);
  ASSERT_THAT(sent(6), SizeIs(3));
  EXPECT_EQ(sent(6)[1], on(f2, "<01000000 00000000>"));
  EXPECT_EQ(sent(6)[2], on(firstService, "<00000000 00000000>"));
}

TEST_F(FibreChannelPagesTest, TopologyIsSentAsItsTag) {
  attachCorvane2With8G();
  showPort(0);
  chooseTag(controls.setTopology, 1);
  dispatch.runUntilIdle();
  EXPECT_THAT(sent(5), ElementsAre(on(firstService, "<0001>")));
}

TEST_F(FibreChannelPagesTest, ConfirmedAddressIsSentToThePortOnShow) {
  attachCorvane2With8G();
  showPort(1);
  pages->FinalChoosePortALPA(*pages->portOnShow(), 0xEF);
  ports[secondService].hardAlpa = 0xEF;
  dispatch.advance(10s);
  EXPECT_THAT(sent(7), ElementsAre(on(secondService, "<ef000000>")));
  EXPECT_EQ(controls.hardALPA.text(), "EF");
}

TEST_F(FibreChannelPagesTest, NothingIsSetBeforeAPortWasShown) {
  attachCorvane2With8G();
  pages->show8GDeviceInfo();
  chooseTag(controls.setSpeed, 8000);
  chooseTag(controls.setTopology, 0);
  EXPECT_FALSE(pages->portOnShow()) << "the sheet is not even opened";
  dispatch.advance(20s);
  EXPECT_THAT(sent(5), IsEmpty());
  EXPECT_THAT(sent(6), IsEmpty());
  EXPECT_THAT(sent(7), IsEmpty());
  EXPECT_FALSE(controls.portProgress.isRunning());
}

}  // namespace
