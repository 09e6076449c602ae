#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "AppDelegate.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"
#include "pages/DumpPages.h"
#include "platform/dump/DumpPlatform.h"

using namespace corvane;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* whyReadOnly = "A dump cannot be changed.";

/// The application on the dump of a desktop with a Fibre Channel and a 10GbE adapter.
class DumpedApplicationTest : public testing::Test {
 protected:
  DumpedApplicationTest() {
    app.showAsDump(whyReadOnly);
    app.applicationDidFinishLaunching();
    dispatch.advance(std::chrono::minutes(1));
  }

  MainWindowControls& controls() { return app.controls(); }

  ManualDispatch dispatch;
  FakePlatform fakes{dispatch};
  DumpPlatform dump{
      std::move(*openSupportMaterial(CORVANE_TEST_DATA "/dumps/desktop-2013.txt").material),
      {fakes.runLoops, dispatch, fakes.notifications, fakes.bundles, fakes.log, fakes.prompts}};
  AppDelegate app{dump.platform()};
};

TEST_F(DumpedApplicationTest, ListsTheAdaptersByTheirRegistryNames) {
  const auto entries = app.state().CorvaneList.entries();
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].Sequence, "A - 1");
  EXPECT_EQ(entries[0].ProductType, "Corvane2 16G FC");
  EXPECT_EQ(entries[0].WWN, "20:00:00:10:9B:12:34:56");
  EXPECT_EQ(entries[1].Sequence, "A - 2");
  EXPECT_EQ(entries[1].ProductType, "Corvane2 10G SFP+");
  EXPECT_EQ(entries[1].WWN, "00:1B:21:AA:BB:CC");
}

TEST_F(DumpedApplicationTest, SaysWhatTheFibreChannelDriverDidNotTell) {
  EXPECT_EQ(controls().WWNN.text(), "21:00:00:10:9B:12:34:56");
  for (const TextField* field :
       {&controls().currentSpeed, &controls().currentTopology, &controls().hardALPA}) {
    EXPECT_EQ(field->text(), notInDump) << field->name();
  }
  EXPECT_EQ(controls().setSpeed.plainValue(), notInDump);
  EXPECT_FALSE(controls().SFPInfoButton.isEnabled());
  controls().port2Button.click();
  EXPECT_EQ(controls().WWNN.text(), "22:00:00:10:9B:12:34:56");
  controls().deviceButton.click();
  EXPECT_EQ(controls().deviceWWN.text(), "20:00:00:10:9B:12:34:56");
  EXPECT_EQ(controls().fwVer.text(), notInDump);
  EXPECT_EQ(controls().drvVer_8G.text(), notInDump);
  EXPECT_EQ(controls().setQueueDepth.plainValue(), notInDump);
}

TEST_F(DumpedApplicationTest, SaysWhatTheAdapterUtilityDidNotTell) {
  app.selectRow(1);
  EXPECT_EQ(controls().macAddress.text(), "00:1B:21:AA:BB:CC");
  EXPECT_EQ(controls().enName.text(), "en12");
  EXPECT_EQ(controls().enStatus.text(), notInDump);
  EXPECT_EQ(controls().MTUvalue.text(), notInDump);
  EXPECT_EQ(controls().settingMode.plainValue(), notInDump);
  EXPECT_TRUE(controls().SFPerrrorMessage10G.isHidden());
  controls().deviceButton.click();
  EXPECT_EQ(controls().productType10G.text(), "Corvane2 10G SFP+");
  EXPECT_EQ(controls().drvVer_10GE.text(), notInDump);
}

TEST_F(DumpedApplicationTest, LetsNothingBeChanged) {
  for (const Control* control : {static_cast<const Control*>(&controls().setSpeed),
                                 static_cast<const Control*>(&controls().setTopology),
                                 static_cast<const Control*>(&controls().setQueueDepth),
                                 static_cast<const Control*>(&controls().updateFW),
                                 static_cast<const Control*>(&controls().checkUpdate),
                                 static_cast<const Control*>(&controls().settingMode),
                                 static_cast<const Control*>(&controls().enableTCPipv4),
                                 static_cast<const Control*>(&controls().enableRSC),
                                 static_cast<const Control*>(&controls().chooseALPA),
                                 static_cast<const Control*>(&controls().queueDepthButton),
                                 static_cast<const Control*>(&controls().downloadLogs),
                                 static_cast<const Control*>(&controls().authView)}) {
    EXPECT_FALSE(control->isEnabled()) << control->name();
    EXPECT_EQ(control->hint(), whyReadOnly) << control->name();
  }
  EXPECT_THAT(fakes.shell.lines(), IsEmpty());
  EXPECT_THAT(fakes.scripts.scripts, IsEmpty());
  EXPECT_THAT(fakes.prompts.alerts, IsEmpty());
}

}  // namespace
