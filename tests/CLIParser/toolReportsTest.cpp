#include "CLIParser/toolReports.h"

#include <gtest/gtest.h>

#include <limits>

namespace corvane {
namespace {

const std::string eightBlanks(8, ' ');

std::string tableLine(const std::string& name, const std::string& count) {
  return name + eightBlanks + "RxRingCount" + eightBlanks + count;
}

TEST(SettingValueTest, KeepsTheLineEnd) {
  EXPECT_EQ(settingValue("RxRingSize=512\n"), "512\n");
}

TEST(SettingValueTest, EndsAtTheSecondEqualSign) {
  EXPECT_EQ(settingValue("a=b=c"), "b");
  EXPECT_EQ(settingValue("a==c"), "");
  EXPECT_EQ(settingValue("first=1\nsecond=2\n"), "1\nsecond");
}

TEST(SettingValueTest, IsEmptyBehindALastEqualSign) {
  EXPECT_EQ(settingValue("RxRingSize="), "");
}

TEST(SettingValueTest, IsNothingWithoutAnEqualSign) {
  EXPECT_EQ(settingValue(""), std::nullopt);
  EXPECT_EQ(settingValue("unknown setting\n"), std::nullopt);
}

TEST(ReceiveRingCountTest, IsTheThirdColumn) {
  EXPECT_EQ(receiveRingCount("Interface" + eightBlanks + "Setting" + eightBlanks + "Value\n" +
                                 tableLine("en5", "8") + "\n",
                             "en5"),
            8);
}

TEST(ReceiveRingCountTest, LastMatchingLineWins) {
  EXPECT_EQ(receiveRingCount(tableLine("en5", "8") + "\n" + tableLine("en5", "1") + "\n", "en5"),
            1);
}

TEST(ReceiveRingCountTest, ANameMatchesAnywhereInALine) {
  EXPECT_EQ(receiveRingCount(tableLine("en50", "4"), "en5"), 4);
  EXPECT_EQ(receiveRingCount("x" + eightBlanks + "y" + eightBlanks + "2 en5", "en5"), 2);
}

TEST(ReceiveRingCountTest, ALineWithFewerThanThreeColumnsKeepsTheValueSoFar) {
  EXPECT_EQ(receiveRingCount(tableLine("en5", "8") + "\nen5\nen5" + eightBlanks + "1\n", "en5"), 8);
  EXPECT_EQ(receiveRingCount("en5", "en5"), 0);
}

TEST(ReceiveRingCountTest, OnlyRunsOfExactlyEightBlanksPartColumns) {
  const std::string seven(7, ' ');
  const std::string nine(9, ' ');
  EXPECT_EQ(receiveRingCount("en5" + seven + "x" + seven + "8", "en5"), 0);
  EXPECT_EQ(receiveRingCount("en5" + nine + "x" + eightBlanks + "8", "en5"), 0);
  EXPECT_EQ(receiveRingCount("en5" + nine + "x" + eightBlanks + "8" + eightBlanks + "2", "en5"), 2);
}

TEST(ReceiveRingCountTest, FurtherColumnsAreNotLookedAt) {
  EXPECT_EQ(receiveRingCount(tableLine("en5", "8") + eightBlanks + "1", "en5"), 8);
}

TEST(ReceiveRingCountTest, AMatchingLineWhoseThirdColumnIsNoNumberCounts) {
  EXPECT_EQ(receiveRingCount(tableLine("en5", "8") + "\n" + tableLine("en5", "auto"), "en5"), 0);
}

TEST(ReceiveRingCountTest, IsZeroWithoutAMatchingLine) {
  EXPECT_EQ(receiveRingCount("", "en5"), 0);
  EXPECT_EQ(receiveRingCount(tableLine("en6", "8"), "en5"), 0);
  EXPECT_EQ(receiveRingCount(tableLine("en6", "8"), ""), 0);
}

struct ModuleCase {
  const char* report;
  int64_t moduleClass;
};

class ClassifyModuleTest : public testing::TestWithParam<ModuleCase> {};

TEST_P(ClassifyModuleTest, TellsTheClass) {
  EXPECT_EQ(classifyModule(GetParam().report).moduleClass, GetParam().moduleClass)
      << GetParam().report;
}

INSTANTIATE_TEST_SUITE_P(
    Reports, ClassifyModuleTest,
    testing::Values(ModuleCase{"SFPModule: Unknown\n", 1}, ModuleCase{"SFPModule: srlr\n", 2},
                    ModuleCase{"SFPModule: da_cu\n", 3}, ModuleCase{"SFPModule: da_act_lmt\n", 4},
                    ModuleCase{"SFPModule: 1g_sx\n", 5}, ModuleCase{"SFPModule: 1g_lx\n", 6},
                    ModuleCase{"SFPModule: 1g_cu\n", 7}, ModuleCase{"SFPModule: 10g_1g_c\n", 8},
                    ModuleCase{"SFPModule: 10g_1g_er\n", 9}, ModuleCase{"SFPModule: er_c\n", 10},
                    ModuleCase{"SFPModule:srlr", 2}, ModuleCase{"SFPModule: srlr Unknown", 1},
                    ModuleCase{"SFPModule: 10g_1g_er 10g_1g_c", 8},
                    ModuleCase{"SFPModule: 10g_1g_x er_c", 0},
                    ModuleCase{"SFPModule: er_c srlr", 2}, ModuleCase{"SFPModule: SRLR", 0},
                    ModuleCase{"SFPModule: none", 0}, ModuleCase{"SFPModule:", 0},
                    ModuleCase{"srlr", 0}, ModuleCase{"srlr: none", 0},
                    ModuleCase{"SFPModule: none: srlr", 0},
                    ModuleCase{"SFPModule: srlr: Unknown", 2}, ModuleCase{"", 0}));

TEST(ClassifyModuleReportTest, KeepsTheTextBetweenTheFirstTwoColons) {
  EXPECT_EQ(classifyModule("SFPModule: srlr\n").code, " srlr\n");
  EXPECT_EQ(classifyModule("a:b:c").code, "b");
  EXPECT_EQ(classifyModule("no report").code, std::nullopt);
}

TEST(ModuleClassNameTest, NamesTheNineUsableKinds) {
  EXPECT_EQ(moduleClassName(2), "10G Optical");
  EXPECT_EQ(moduleClassName(3), "10G Copper Passive");
  EXPECT_EQ(moduleClassName(4), "10G Copper Active");
  EXPECT_EQ(moduleClassName(5), "1G Optical SX Short Reach");
  EXPECT_EQ(moduleClassName(6), "1G Optical LX Long Reach");
  EXPECT_EQ(moduleClassName(7), "1G Copper Passive");
  EXPECT_EQ(moduleClassName(8), "1G/10G Optical");
  EXPECT_EQ(moduleClassName(9), "1G/10G Optical ER Extended Reach");
  EXPECT_EQ(moduleClassName(10), "10G Optical ER Extended Reach");
}

TEST(ModuleClassNameTest, OtherClassesHaveNone) {
  EXPECT_EQ(moduleClassName(0), "");
  EXPECT_EQ(moduleClassName(1), "");
  EXPECT_EQ(moduleClassName(11), "");
}

TEST(LinkStateTest, OnlyTheExactLinesCount) {
  EXPECT_EQ(linkState("\tstatus: inactive\n"), LinkState::NoLink);
  EXPECT_EQ(linkState("\tstatus: active\n"), LinkState::Link);
}

TEST(LinkStateTest, AnythingElseIsUnknown) {
  for (const char* text :
       {"", "\n", "status: active\n", "\tstatus: active", "\tstatus: active \n",
        "\tstatus: active\n\tstatus: active\n", "\tstatus: Active\n", "\tstatus: no carrier\n"}) {
    EXPECT_EQ(linkState(text), LinkState::Unknown) << '"' << text << '"';
  }
}

TEST(InterfaceMTUTest, IsTheNumberBehindTheFirstMtu) {
  EXPECT_EQ(interfaceMTU("en6: flags=8863<UP> mtu 1500\n\tether 00:1b:21:aa:bb:cc\n"), 1500);
  EXPECT_EQ(interfaceMTU("en6: mtu 9000\nen7: mtu 1500\n"), 9000);
  EXPECT_EQ(interfaceMTU("mtu \t 9000 \t"), 9000);
  EXPECT_EQ(interfaceMTU("mtu1500x"), 1500);
}

TEST(InterfaceMTUTest, IsZeroWithoutANumberOnThatLine) {
  EXPECT_EQ(interfaceMTU(""), 0);
  EXPECT_EQ(interfaceMTU("MTU 1500"), 0);
  EXPECT_EQ(interfaceMTU("mtu"), 0);
  EXPECT_EQ(interfaceMTU("mtu \n1500"), 0);
  EXPECT_EQ(interfaceMTU("mtu none\nmtu 1500"), 0);
}

struct MediumCase {
  const char* media;
  const char* shown;
};

class InterfaceMediumTest : public testing::TestWithParam<MediumCase> {};

TEST_P(InterfaceMediumTest, TellsTheMedium) {
  EXPECT_EQ(interfaceMedium(GetParam().media), GetParam().shown) << GetParam().media;
}

INSTANTIATE_TEST_SUITE_P(
    Media, InterfaceMediumTest,
    testing::Values(
        MediumCase{"\tmedia: autoselect (100baseTX <full-duplex>)", "100baseTX"},
        MediumCase{"\tmedia: 100base-TX", "100baseTX"},
        MediumCase{"\tmedia: autoselect (1000baseT <full-duplex,flow-control>)", "1000BaseT"},
        MediumCase{"\tmedia: 1000base-T", "1000BaseT"}, MediumCase{"\tmedia: 10GbaseT", "10GbaseT"},
        MediumCase{"\tmedia: autoselect (10Gbase-T <full-duplex,flow-control>)", "10GbaseT"},
        MediumCase{"\tmedia: 1000baseLX", "1000baseLX"},
        MediumCase{"\tmedia: 1000base-LX", "1000baseLX"},
        MediumCase{"\tmedia: 10GbaseSR", "10GbaseSR"},
        MediumCase{"\tmedia: 10Gbase-SR", "10GbaseSR"}, MediumCase{"\tmedia: autoselect", "Unknow"},
        MediumCase{"\tmedia: none", "Unknow"}, MediumCase{"\tmedia: 10gbase-t", "Unknow"},
        MediumCase{"", "Unknow"}));

INSTANTIATE_TEST_SUITE_P(SearchOrder, InterfaceMediumTest,
                         testing::Values(MediumCase{"10GbaseT 1000baseT", "1000BaseT"},
                                         MediumCase{"1000baseT 100baseTX", "100baseTX"},
                                         MediumCase{"1000baseLX 10GbaseT", "10GbaseT"},
                                         MediumCase{"10GbaseSR 1000baseLX", "1000baseLX"}));

}  // namespace
}  // namespace corvane
