#include "cli/bench-tools/AdapterUtility.h"

#include <gmock/gmock.h>

#include "CLIParser/toolReports.h"
#include "cli/bench-tools/ToolBench.h"

namespace corvane {
namespace {

using testing::HasSubstr;

class AdapterUtilityTest : public ToolBench {
 protected:
  ToolAnswer call(const ToolArguments& arguments) { return adapterUtility(bench, arguments); }
  std::string output(const ToolArguments& arguments) { return call(arguments).output; }

  void expectRefused(const ToolArguments& arguments, const std::string& reason) {
    const BenchState before = bench.load();
    const ToolAnswer answer = call(arguments);
    EXPECT_NE(answer.status, 0);
    EXPECT_EQ(answer.output, "");
    EXPECT_THAT(answer.error, HasSubstr(reason));
    EXPECT_EQ(bench.load(), before);
  }
};

TEST_F(AdapterUtilityTest, GetPrintsASettingInDecimal) {
  EXPECT_EQ(output({"en5", "getRxIntrThrottle"}), "RxIntrThrottle=8000\n");
  EXPECT_EQ(output({"en5", "getRxRingSize"}), "RxRingSize=512\n");
  EXPECT_EQ(output({"en5", "getTxIntrThrottle"}), "TxIntrThrottle=16000\n");
  EXPECT_EQ(output({"en5", "getTxRingSize"}), "TxRingSize=1024\n");
  EXPECT_EQ(output({"en5", "getTCPipv4ChecksumEnable"}), "TCPipv4ChecksumEnable=2\n");
}

TEST_F(AdapterUtilityTest, CoalescingIsPrintedAsEightHexadecimalDigits) {
  EXPECT_EQ(output({"en5", "getRSCEnable"}), "RSCEnable=0x00000001\n");
  changePort("en5", [](BenchEthernetPort& port) { port.settings["RSCEnable"] = 0; });
  EXPECT_EQ(output({"en5", "getRSCEnable"}), "RSCEnable=0x00000000\n");
}

TEST_F(AdapterUtilityTest, RingCountIsPrintedAsATable) {
  changePort("en5", [](BenchEthernetPort& port) { port.settings["RxRingCount"] = 8; });
  EXPECT_EQ(output({"en5", "getRxRingCount"}),
            "en5        Setting        Value\nen5        RxRingCount        8\n");
  EXPECT_EQ(receiveRingCount(output({"en5", "getRxRingCount"}), "en5"), 8);
}

TEST_F(AdapterUtilityTest, ModuleReportNamesTheCodeWord) {
  EXPECT_EQ(output({"en5", "getSFPModule"}), "");
  changePort("en5", [](BenchEthernetPort& port) { port.module = "srlr"; });
  EXPECT_EQ(output({"en5", "getSFPModule"}), "SFPModule: srlr\n");
}

TEST_F(AdapterUtilityTest, ASettingThatTheDriverDoesNotKnowPrintsNothingAtAll) {
  changePort("en5", [](BenchEthernetPort& port) { port.settings.erase("RSCEnable"); });
  const ToolAnswer answer = call({"en5", "getRSCEnable"});
  EXPECT_EQ(answer.output, "");
  EXPECT_EQ(answer.error, "");
  EXPECT_EQ(answer.status, 1);
}

TEST_F(AdapterUtilityTest, AllPrintsTheSettingOfEveryInterfaceThatKnowsIt) {
  EXPECT_EQ(output({"all", "getRSCEnable"}), "RSCEnable=0x00000001\nRSCEnable=0x00000001\n");
  changePort("en5", [](BenchEthernetPort& port) { port.settings.erase("RSCEnable"); });
  EXPECT_EQ(output({"all", "getRSCEnable"}), "RSCEnable=0x00000001\n");
  changePort("en6", [](BenchEthernetPort& port) { port.settings.erase("RSCEnable"); });
  EXPECT_EQ(output({"all", "getRSCEnable"}), "");
}

TEST_F(AdapterUtilityTest, SetChangesOnePortQuietly) {
  const ToolAnswer answer = call({"en5", "setRxRingSize", "1024"});
  EXPECT_EQ(answer.status, 0);
  EXPECT_EQ(answer.output, "");
  EXPECT_EQ(answer.error, "");
  EXPECT_EQ(output({"en5", "getRxRingSize"}), "RxRingSize=1024\n");
  EXPECT_EQ(output({"en6", "getRxRingSize"}), "RxRingSize=512\n");
}

TEST_F(AdapterUtilityTest, SettingsAreKeptForGoodOnlyOnceSaved) {
  call({"en5", "setRxRingSize", "1024"});
  EXPECT_EQ(portNow("en5").savedSettings.at("RxRingSize"), 512);
  EXPECT_EQ(call({"en5", "saveConfig"}).status, 0);
  EXPECT_EQ(portNow("en5").savedSettings.at("RxRingSize"), 1024);
  EXPECT_EQ(portNow("en6").savedSettings.at("RxRingSize"), 512);
}

TEST_F(AdapterUtilityTest, TheDriverRoundsDownToWhatItHasRoomFor) {
  call({"en5", "setRxRingSize", "1001"});
  EXPECT_EQ(output({"en5", "getRxRingSize"}), "RxRingSize=1000\n");
  call({"en5", "setRxRingCount", "7"});
  EXPECT_EQ(portNow("en5").settings.at("RxRingCount"), 4);
}

TEST_F(AdapterUtilityTest, TheDriverRefusesWhatIsOutOfRange) {
  expectRefused({"en5", "setRxRingSize", "63"}, "64 to 4096");
  expectRefused({"en5", "setRxRingSize", "4097"}, "64 to 4096");
  expectRefused({"en5", "setRxRingCount", "0"}, "1 to 8");
  expectRefused({"en5", "setTCPipv4ChecksumEnable", "0"}, "1 to 2");
  expectRefused({"en5", "setRSCEnable", "2"}, "0 to 1");
}

TEST_F(AdapterUtilityTest, TheDriverRefusesWhatIsNoNumber) {
  for (const char* value : {"", "many", "512x", " 512", "0x200"}) {
    expectRefused({"en5", "setRxRingSize", value}, "is no value for RxRingSize");
  }
}

TEST_F(AdapterUtilityTest, RefusesASettingThatTheDriverDoesNotHave) {
  expectRefused({"en5", "setColour", "1"}, "no setting Colour");
  expectRefused({"en5", "setSFPModule", "srlr"}, "no setting SFPModule");
  changePort("en5", [](BenchEthernetPort& port) { port.settings.erase("RSCEnable"); });
  expectRefused({"en5", "setRSCEnable", "1"}, "no setting RSCEnable");
}

TEST_F(AdapterUtilityTest, RefusesAnInterfaceThatTheDriverDoesNotRun) {
  expectRefused({"en9", "getRxRingSize"}, "no such interface: en9");
  expectRefused({"en9", "setRxRingSize", "512"}, "no such interface: en9");
  expectRefused({"en9", "saveConfig"}, "no such interface: en9");
  changePort("en5", [](BenchEthernetPort& port) { port.enabled = false; });
  expectRefused({"en5", "getRxRingSize"}, "no such interface: en5");
}

TEST_F(AdapterUtilityTest, WithoutADriverOrAPluggedInAdapterThereIsNoInterface) {
  bench.update([](BenchState& state) { state.adapters[0].attached = false; });
  expectRefused({"en5", "getRxRingSize"}, "no such interface");
  bench.update([](BenchState& state) {
    state.adapters[0].attached = true;
    state.drivers.clear();
  });
  expectRefused({"en5", "getRxRingSize"}, "no such interface");
}

TEST_F(AdapterUtilityTest, AWrongCommandLineGetsTheUsage) {
  for (const ToolArguments& arguments :
       {ToolArguments{}, ToolArguments{"en5"}, ToolArguments{"en5", "list"},
        ToolArguments{"en5", "setRxRingSize"}, ToolArguments{"en5", "getRxRingSize", "512"},
        ToolArguments{"en5", "saveConfig", "now"}, ToolArguments{"en5", ""}}) {
    const ToolAnswer answer = call(arguments);
    EXPECT_EQ(answer.status, 2);
    EXPECT_THAT(answer.error, HasSubstr("usage: corvaneutil"));
  }
}

TEST_F(AdapterUtilityTest, AMissingToolAnswersAsTheShellWould) {
  setFault("tool-missing");
  const ToolAnswer answer = call({"en5", "getRxRingSize"});
  EXPECT_EQ(answer.status, 127);
  EXPECT_EQ(answer.output, "");
}

TEST_F(AdapterUtilityTest, AHangingToolPrintsNothing) {
  setFault("tool-hangs");
  const ToolAnswer answer = call({"en5", "getRxRingSize"});
  EXPECT_TRUE(answer.hangs);
  EXPECT_EQ(answer.output, "");
}

TEST_F(AdapterUtilityTest, RubbishIsNoReportOfAnything) {
  setFault("tool-rubbish");
  const std::string text = output({"en5", "getRxRingSize"});
  EXPECT_THAT(text, HasSubstr(std::string(1, '\0')));
  EXPECT_GT(text.size(), 10000U);
  EXPECT_EQ(leadingInteger(settingValue(text).value_or("")), 0);
}

}  // namespace
}  // namespace corvane
