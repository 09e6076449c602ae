#include "ten_gigabit/PageTest.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

class SettingChangeTest : public PageTest {
 protected:
  void show(int64_t port) {
    setCoalescing("en5", "0x00000000");
    setCoalescing("en6", "0x00000000");
    pages.show10GportInfo(port - 1);
    shell.lines.clear();
  }

  std::vector<std::string> changeLines(const std::string& interface, const std::string& title,
                                       const std::string& value) const {
    return {tool(interface + " set" + title + " " + value), read(tool(interface + " get" + title)),
            tool(interface + " saveConfig")};
  }

  std::vector<Control*> heldControls() {
    return {&controls.settingMode, &controls.enableTCPipv4, &controls.enableRSC,
            &controls.port1Button, &controls.port2Button,   &controls.refreshButton,
            &controls.deviceTable, &controls.authView};
  }
  void expectHeld(bool held) {
    for (const Control* control : heldControls()) {
      EXPECT_EQ(control->isEnabled(), !held) << control->name();
    }
    EXPECT_EQ(controls.modeProgress.isRunning(), held);
  }
};

TEST_F(SettingChangeTest, ChecksumOffloadIsWrittenAsOneOrTwoAndSaved) {
  show(1);
  controls.enableTCPipv4.choose(true);
  EXPECT_THAT(shell.lines, ElementsAreArray(changeLines("en5", "TCPipv4ChecksumEnable", "2")));
  shell.lines.clear();
  controls.enableTCPipv4.choose(false);
  EXPECT_THAT(shell.lines, ElementsAreArray(changeLines("en5", "TCPipv4ChecksumEnable", "1")));
}

TEST_F(SettingChangeTest, CoalescingIsWrittenAsNoughtOrOneAndSaved) {
  show(2);
  controls.enableRSC.choose(true);
  EXPECT_THAT(shell.lines, ElementsAreArray(changeLines("en6", "RSCEnable", "1")));
  shell.lines.clear();
  controls.enableRSC.choose(false);
  EXPECT_THAT(shell.lines, ElementsAreArray(changeLines("en6", "RSCEnable", "0")));
}

TEST_F(SettingChangeTest, APortThatIsNoneOfTheTwoKeepsTheInterface) {
  show(2);
  state.selectPort = 3;
  controls.enableRSC.choose(true);
  EXPECT_THAT(shell.lines, ElementsAreArray(changeLines("en6", "RSCEnable", "1")));
}

TEST_F(SettingChangeTest, TheInterfaceIsThatOfTheAdapterOnShow) {
  show(1);
  pages.command().setNicName("en9");
  controls.enableTCPipv4.choose(true);
  EXPECT_THAT(shell.lines, ElementsAreArray(changeLines("en5", "TCPipv4ChecksumEnable", "2")));
}

TEST_F(SettingChangeTest, APresetRunsInTheBackground) {
  show(2);
  controls.settingMode.choose(3);
  EXPECT_THAT(shell.lines, IsEmpty());
  EXPECT_THAT(dispatch.priorities(), ElementsAre(QueuePriority::Background));
  dispatch.runUntilIdle();
  EXPECT_THAT(shell.lines,
              ElementsAre(tool("en6 setRxIntrThrottle 8000"), read(tool("en6 getRxIntrThrottle")),
                          tool("en6 setRxRingSize 512"), read(tool("en6 getRxRingSize")),
                          tool("en6 setTxIntrThrottle 16000"), read(tool("en6 getTxIntrThrottle")),
                          tool("en6 setTxRingSize 1024"), read(tool("en6 getTxRingSize")),
                          tool("en6 setRxRingCount 8"), tool("en6 saveConfig")));
}

TEST_F(SettingChangeTest, EachItemAppliesItsPreset) {
  show(1);
  const std::vector<std::string> firstValues = {"4000", "8000", "12000", "8000"};
  const std::vector<std::string> ringCounts = {"1", "1", "1", "8"};
  for (size_t index = 0; index < 4; ++index) {
    shell.lines.clear();
    controls.settingMode.choose(index);
    dispatch.runUntilIdle();
    ASSERT_THAT(shell.lines, SizeIs(10));
    EXPECT_EQ(shell.lines[0], tool("en5 setRxIntrThrottle " + firstValues[index]));
    EXPECT_EQ(shell.lines[8], tool("en5 setRxRingCount " + ringCounts[index]));
  }
}

TEST_F(SettingChangeTest, ThePageIsNotReadAgainAfterAPreset) {
  show(1);
  controls.settingMode.choose(0);
  dispatch.runUntilIdle();
  EXPECT_EQ(shell.lines.back(), tool("en5 saveConfig"));
  EXPECT_EQ(controls.settingMode.selectedTag(), 1);
}

TEST_F(SettingChangeTest, WhatWouldStartAnotherCommandIsHeldWhileAPresetRuns) {
  show(1);
  expectHeld(false);
  controls.settingMode.choose(0);
  expectHeld(true);
  controls.settingMode.choose(1);
  controls.enableRSC.choose(true);
  dispatch.runUntilIdle();
  expectHeld(false);
  EXPECT_THAT(shell.lines, SizeIs(10));
}

TEST_F(SettingChangeTest, WhatTheLockSaysMeanwhileHoldsAfterwards) {
  show(1);
  controls.settingMode.choose(0);
  controls.settingMode.setEnabled(false);
  controls.enableTCPipv4.setEnabled(false);
  dispatch.runUntilIdle();
  EXPECT_FALSE(controls.settingMode.isEnabled());
  EXPECT_FALSE(controls.enableTCPipv4.isEnabled());
  EXPECT_TRUE(controls.enableRSC.isEnabled());
}

TEST_F(SettingChangeTest, AMenuWithoutAPresetSelectedDoesNothing) {
  show(1);
  controls.settingMode.showPlainValue("Custom");
  pages.setUserMode(controls.settingMode);
  expectHeld(false);
  dispatch.runUntilIdle();
  EXPECT_THAT(shell.lines, IsEmpty());
}

TEST_F(SettingChangeTest, APresetGoesToThePortThatWasOnShowWhenItWasChosen) {
  show(1);
  controls.settingMode.choose(0);
  pages.command().setNicName("en6");
  dispatch.runUntilIdle();
  EXPECT_EQ(shell.lines.front(), tool("en5 setRxIntrThrottle 4000"));
}

using PagesLifeTest = PageTest;

TEST_F(PagesLifeTest, APresetOutlivesThePages) {
  size_t before = 0;
  {
    TenGigabitPages shortLived(platform, controls, state);
    shortLived.show10GportInfo(0);
    before = computer.shell.lines().size();
    controls.settingMode.choose(0);
  }
  dispatch.runUntilIdle();
  EXPECT_THAT(computer.shell.lines(), SizeIs(before + 10));
}

}  // namespace
}  // namespace corvane
