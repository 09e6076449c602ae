#include <algorithm>

#include "ten_gigabit/PageTest.h"

namespace corvane {
namespace {

using testing::ElementsAreArray;
using testing::SizeIs;

using Lines = std::vector<std::string>;

class PortPageTest : public PageTest {
 protected:
  Lines moduleLines(const std::string& interface, size_t tries) const {
    return Lines(tries, read(tool(interface + " getSFPModule")));
  }
  Lines settingLines(const std::string& interface) const {
    Lines lines;
    for (const char* title : {"RxIntrThrottle", "RxRingSize", "TxIntrThrottle", "TxRingSize",
                              "RxRingCount", "TCPipv4ChecksumEnable"}) {
      lines.push_back(read(tool(interface + " get" + title)));
    }
    return lines;
  }
  Lines coalescingLines(const std::string& interface) const {
    return {read(tool("all getRSCEnable")), read(tool(interface + " getRSCEnable"))};
  }
  Lines linkLines(const std::string& interface) const {
    const std::string status = read("ifconfig " + interface + "|grep status");
    return {status, status, readMedium(interface), read("ifconfig " + interface)};
  }
  static Lines together(std::initializer_list<Lines> pieces) {
    Lines all;
    for (const Lines& piece : pieces) all.insert(all.end(), piece.begin(), piece.end());
    return all;
  }

  bool isModuleBoxHidden() const {
    EXPECT_EQ(controls.SFPTypeLabel.isHidden(), controls.SFPInfoContent.isHidden());
    EXPECT_EQ(controls.SFPTypeLabel.isHidden(), controls.SFPInfoModule.isHidden());
    return controls.SFPTypeLabel.isHidden();
  }
};

TEST_F(PortPageTest, ShowsWhoThePortIs) {
  pages.show10GportInfo(0);
  EXPECT_EQ(controls.macAddress.text(), "00:1B:21:AA:BB:CC");
  EXPECT_EQ(controls.enName.text(), "en5");
  EXPECT_EQ(state.selectPort, 1);
  EXPECT_EQ(state.corvaneDevice_10GE, adapter);
  pages.show10GportInfo(1);
  EXPECT_EQ(controls.macAddress.text(), "00:1B:21:AA:BB:CD");
  EXPECT_EQ(controls.enName.text(), "en6");
  EXPECT_EQ(state.selectPort, 2);
}

TEST_F(PortPageTest, RunsItsCommandsInOrder) {
  setModule("en6", "da_cu");
  setBalanced("en6");
  setSetting("en6", "TCPipv4ChecksumEnable", "2");
  setCoalescing("en6", "0x00000001");
  setLink("en6", "active", "autoselect (10Gbase-T <full-duplex>)");
  pages.show10GportInfo(1);
  EXPECT_THAT(shell.lines, ElementsAreArray(together({moduleLines("en6", 3), settingLines("en6"),
                                                      coalescingLines("en6"), linkLines("en6")})));
}

TEST_F(PortPageTest, APortThatAnswersNothingIsReadToTheEnd) {
  pages.show10GportInfo(0);
  const std::string status = read("ifconfig en5|grep status");
  EXPECT_THAT(shell.lines, ElementsAreArray(together({moduleLines("en5", 10),
                                                      settingLines("en5"),
                                                      {read(tool("all getRSCEnable"))},
                                                      {status, status, read("ifconfig en5")}})));
  EXPECT_TRUE(isModuleBoxHidden());
  EXPECT_TRUE(controls.SFPerrrorMessage10G.isHidden());
  EXPECT_TRUE(controls.enableRSC.isHidden());
  EXPECT_EQ(controls.enStatus.text(), "Unknow");
  EXPECT_EQ(controls.MTUvalue.text(), "0");
}

TEST_F(PortPageTest, EveryUsableModuleHasItsName) {
  const std::vector<std::pair<std::string, std::string>> modules = {
      {"srlr", "10G Optical"},
      {"da_cu", "10G Copper Passive"},
      {"da_act_lmt", "10G Copper Active"},
      {"1g_sx", "1G Optical SX Short Reach"},
      {"1g_lx", "1G Optical LX Long Reach"},
      {"1g_cu", "1G Copper Passive"},
      {"10g_1g_c", "1G/10G Optical"},
      {"10g_1g_er", "1G/10G Optical ER Extended Reach"},
      {"er_c", "10G Optical ER Extended Reach"}};
  size_t tries = 2;
  for (const auto& [code, name] : modules) {
    shell.lines.clear();
    setModule("en5", code);
    pages.show10GportInfo(0);
    EXPECT_EQ(controls.SFPInfoModule.text(), name);
    EXPECT_FALSE(isModuleBoxHidden());
    EXPECT_TRUE(controls.SFPerrrorMessage10G.isHidden());
    EXPECT_EQ(std::count(shell.lines.begin(), shell.lines.end(), read(tool("en5 getSFPModule"))),
              tries++)
        << code;
  }
}

TEST_F(PortPageTest, AnUnusableModuleIsReplacedByTheWarning) {
  setModule("en5", "Unknown");
  pages.show10GportInfo(0);
  EXPECT_TRUE(isModuleBoxHidden());
  EXPECT_FALSE(controls.SFPerrrorMessage10G.isHidden());
  EXPECT_EQ(controls.SFPerrrorMessage10G.text(),
            "The inserted transceiver module is not the correct type for the \nCorvane2 SFP+. This "
            "deivce requires SFP+ transceiver modules that \nsupport 10G optical "
            "Ethernet.\nIMPORTANT: After inserting a 10G optical Ethernet transciever,\nit is "
            "necessary to perform a hardware reset for the Corvane2. To do \nthis, unplug the "
            "Thunderbolt cable, then plug it back in, with the \ndevice powered on. This will "
            "reset the PCIe interface so it will \nrecognize the compatible 10G optical Ethernet "
            "transciever module \nwhen it is inserted.");
}

TEST_F(PortPageTest, AnUnusableModuleIsJudgedByTheProductOfPort1AndAUsableOneByThePortsOwn) {
  select(corvane2_10G_SFP, corvane2_10G_BaseT);
  setModule("en6", "Unknown");
  pages.show10GportInfo(1);
  EXPECT_FALSE(controls.SFPerrrorMessage10G.isHidden());
  setModule("en6", "srlr");
  pages.show10GportInfo(1);
  EXPECT_TRUE(isModuleBoxHidden());
  select(corvane2_10G_BaseT, corvane2_10G_SFP);
  pages.show10GportInfo(1);
  EXPECT_FALSE(isModuleBoxHidden());
  setModule("en6", "Unknown");
  pages.show10GportInfo(1);
  EXPECT_TRUE(controls.SFPerrrorMessage10G.isHidden());
}

TEST_F(PortPageTest, TheWarningGoesWithTheModule) {
  setModule("en5", "Unknown");
  setModule("en6", "srlr");
  pages.show10GportInfo(0);
  pages.show10GportInfo(1);
  EXPECT_FALSE(isModuleBoxHidden());
  EXPECT_TRUE(controls.SFPerrrorMessage10G.isHidden());
  shell.forget(tool("en6 getSFPModule"));
  pages.show10GportInfo(1);
  EXPECT_TRUE(isModuleBoxHidden());
  EXPECT_TRUE(controls.SFPerrrorMessage10G.isHidden());
}

class OtherProductTest : public PortPageTest,
                         public testing::WithParamInterface<std::string_view> {};

TEST_P(OtherProductTest, AsksTenTimesAndHidesTheModuleWhateverIsReported) {
  select(GetParam());
  for (const char* code : {"srlr", "Unknown"}) {
    shell.lines.clear();
    setModule("en5", code);
    pages.show10GportInfo(0);
    EXPECT_TRUE(isModuleBoxHidden());
    EXPECT_TRUE(controls.SFPerrrorMessage10G.isHidden());
    const auto tries =
        std::count(shell.lines.begin(), shell.lines.end(), read(tool("en5 getSFPModule")));
    EXPECT_EQ(tries, 10);
  }
}

INSTANTIATE_TEST_SUITE_P(Products, OtherProductTest,
                         testing::Values(corvane2_10G_BaseT, corvane3_NBASE_T1, corvane3_10G_BaseT,
                                         corvane3_10G_SFP));

TEST_F(PortPageTest, TheMenuOffersTheFourPresets) {
  const std::vector<PopUpItem> items = {
      {1, "Low Latency"}, {2, "Balanced"}, {3, "High Throughput"}, {4, "Server"}};
  EXPECT_EQ(controls.settingMode.items(), items);
}

TEST_F(PortPageTest, TheCurrentPresetIsSelected) {
  setBalanced("en5");
  pages.show10GportInfo(0);
  EXPECT_EQ(controls.settingMode.selectedTag(), 2);
  EXPECT_EQ(controls.settingMode.plainValue(), "");
  shell.answer(tool("en5 getRxRingCount"), "en5" + gap + "RxRingCount" + gap + "8");
  pages.show10GportInfo(0);
  EXPECT_EQ(controls.settingMode.selectedTag(), 4);
}

TEST_F(PortPageTest, OtherSettingsShowAsCustomWhichCannotBeChosen) {
  setBalanced("en5");
  pages.show10GportInfo(0);
  setSetting("en5", "RxRingSize", "640");
  pages.show10GportInfo(0);
  EXPECT_EQ(controls.settingMode.selectedTag(), std::nullopt);
  EXPECT_EQ(controls.settingMode.plainValue(), "Custom");
  EXPECT_THAT(controls.settingMode.items(), SizeIs(4));
}

TEST_F(PortPageTest, ChecksumOffloadIsOffAtOneAndOnAtTwo) {
  setSetting("en5", "TCPipv4ChecksumEnable", "2");
  pages.show10GportInfo(0);
  EXPECT_TRUE(controls.enableTCPipv4.isOn());
  setSetting("en5", "TCPipv4ChecksumEnable", "1");
  pages.show10GportInfo(0);
  EXPECT_FALSE(controls.enableTCPipv4.isOn());
}

TEST_F(PortPageTest, AnyOtherChecksumValueLeavesTheBoxAsItWas) {
  for (const bool before : {true, false}) {
    for (const char* value : {"0", "3", "12", "many", ""}) {
      controls.enableTCPipv4.setOn(before);
      setSetting("en5", "TCPipv4ChecksumEnable", value);
      pages.show10GportInfo(0);
      EXPECT_EQ(controls.enableTCPipv4.isOn(), before) << value;
    }
  }
}

TEST_F(PortPageTest, CoalescingIsReadFromItsExactText) {
  setCoalescing("en5", "0x00000001");
  pages.show10GportInfo(0);
  EXPECT_TRUE(controls.enableRSC.isOn());
  setCoalescing("en5", "0x00000000");
  pages.show10GportInfo(0);
  EXPECT_FALSE(controls.enableRSC.isOn());
  EXPECT_TRUE(controls.enableRSC.isEnabled());
  EXPECT_FALSE(controls.enableRSC.isHidden());
}

TEST_F(PortPageTest, AnOddCoalescingValueDisablesTheBox) {
  setCoalescing("en5", "0x00000001");
  pages.show10GportInfo(0);
  setCoalescing("en5", "1");
  pages.show10GportInfo(0);
  EXPECT_FALSE(controls.enableRSC.isEnabled());
  EXPECT_FALSE(controls.enableRSC.isHidden());
  EXPECT_TRUE(controls.enableRSC.isOn());
}

TEST_F(PortPageTest, CoalescingUnknownToTheDriverHidesTheBoxUntilItIsKnown) {
  pages.show10GportInfo(0);
  EXPECT_TRUE(controls.enableRSC.isHidden());
  setCoalescing("en5", "0x00000000");
  pages.show10GportInfo(0);
  EXPECT_FALSE(controls.enableRSC.isHidden());
}

TEST_F(PortPageTest, ALinkShowsItsMediumAndMTU) {
  setLink("en5", "active", "autoselect (10Gbase-T <full-duplex>)");
  pages.show10GportInfo(0);
  EXPECT_EQ(controls.enStatus.text(), "10GbaseT");
  EXPECT_EQ(controls.MTUvalue.text(), "9000");
}

TEST_F(PortPageTest, WithoutALinkTheStatusIsReadOnce) {
  setLink("en5", "inactive", "autoselect (none)");
  pages.show10GportInfo(0);
  EXPECT_EQ(controls.enStatus.text(), "No Link");
  EXPECT_EQ(controls.MTUvalue.text(), "9000");
  const std::string status = read("ifconfig en5|grep status");
  EXPECT_EQ(std::count(shell.lines.begin(), shell.lines.end(), status), 1);
}

TEST_F(PortPageTest, AnOddStatusIsUnknown) {
  setLink("en5", "no carrier", "autoselect (10Gbase-T)");
  pages.show10GportInfo(0);
  EXPECT_EQ(controls.enStatus.text(), "Unknow");
}

class OldDriverTest : public PortPageTest {
 protected:
  OldDriverTest() { state.driverVersion_10G = oldDriver; }
};

TEST_F(OldDriverTest, ReadsTheLinkAlone) {
  setLink("en5", "active", "autoselect (1000baseT <full-duplex>)");
  pages.show10GportInfo(0);
  EXPECT_THAT(shell.lines, ElementsAreArray(linkLines("en5")));
  EXPECT_EQ(controls.enStatus.text(), "1000BaseT");
  EXPECT_EQ(controls.MTUvalue.text(), "9000");
}

TEST_F(OldDriverTest, ThePortsDifferInTheChecksumBox) {
  pages.show10GportInfo(0);
  EXPECT_FALSE(controls.settingMode.isEnabled());
  EXPECT_TRUE(controls.enableTCPipv4.isEnabled());
  controls.settingMode.setEnabled(true);
  pages.show10GportInfo(1);
  EXPECT_FALSE(controls.settingMode.isEnabled());
  EXPECT_FALSE(controls.enableTCPipv4.isEnabled());
}

TEST_F(PortPageTest, AToolThatHangsHoldsThePageUpOnce) {
  shell.hang(tool("en5"));
  computer.shell.answer = [this](const std::string& line) {
    return shell.runWithin(line, commandTimeLimit);
  };
  shell.answer("ifconfig en5|grep status", "\tstatus: inactive\n");
  pages.show10GportInfo(0);
  const auto asksTool = [this](const std::string& line) {
    return line.starts_with(computer.paths.utilityTool);
  };
  EXPECT_EQ(std::count_if(shell.lines.begin(), shell.lines.end(), asksTool), 1);
  EXPECT_EQ(controls.enStatus.text(), "No Link");
}

TEST_F(PortPageTest, WithoutA10GbEAdapterInTheRowNothingHappens) {
  DeviceListEntry entry;
  entry.Sequence = "0";
  entry.obj = std::shared_ptr<Corvane2Device>();
  state.CorvaneList.add(entry);
  state.intSelectRow = 1;
  pages.show10GportInfo(0);
  state.intSelectRow = 7;
  pages.show10GportInfo(0);
  EXPECT_THAT(shell.lines, SizeIs(0));
  EXPECT_EQ(controls.enName.text(), "");
  EXPECT_EQ(state.selectPort, 0);
}

TEST_F(PortPageTest, AnAdapterThatLosesItsPortsMeanwhileIsShownToTheEnd) {
  setModule("en6", "Unknown");
  computer.shell.answer = [this](const std::string& line) {
    adapter->clearAll();
    return shell.run(line);
  };
  pages.show10GportInfo(1);
  EXPECT_FALSE(controls.SFPerrrorMessage10G.isHidden());
  EXPECT_EQ(controls.enStatus.text(), "Unknow");
}

TEST_F(PortPageTest, AnAdapterThatHasLostItsPortsChangesNothing) {
  adapter->clearAll();
  pages.show10GportInfo(0);
  EXPECT_THAT(shell.lines, SizeIs(0));
}

}  // namespace
}  // namespace corvane
