#include "CLIParser/commandAPI.h"

#include <gmock/gmock.h>

#include "CLIParser/ScriptedShell.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class commandAPITest : public testing::Test {
 protected:
  std::string tool(const std::string& words) const { return paths.utilityTool + " en5 " + words; }
  std::string get(const std::string& title) const {
    return tool("get" + title) + " > " + paths.scratchFile;
  }

  void setSetting(const std::string& title, const std::string& value) {
    shell.answer(tool("get" + title), title + "=" + value + "\n");
  }

  void setSettings(const std::vector<std::string>& values, const std::string& ringCount) {
    setSetting("RxIntrThrottle", values[0]);
    setSetting("RxRingSize", values[1]);
    setSetting("TxIntrThrottle", values[2]);
    setSetting("TxRingSize", values[3]);
    const std::string gap(8, ' ');
    shell.answer(tool("getRxRingCount"), "en5" + gap + "RxRingCount" + gap + ringCount + "\n");
  }

  std::vector<std::string> presetLines(const std::vector<std::string>& values) const {
    return {tool("setRxIntrThrottle " + values[0]), get("RxIntrThrottle"),
            tool("setRxRingSize " + values[1]),     get("RxRingSize"),
            tool("setTxIntrThrottle " + values[2]), get("TxIntrThrottle"),
            tool("setTxRingSize " + values[3]),     get("TxRingSize"),
            tool("setRxRingCount " + values[4]),    tool("saveConfig")};
  }

  TemporaryFolder folder;
  Paths paths = pathsWithScratchFileIn(folder.path());
  ScriptedShell shell{paths};
  commandAPI presets{shell, paths};
};

TEST_F(commandAPITest, LowLatencyWritesItsFiveValuesAndSavesOnce) {
  EXPECT_EQ(presets.setLowLatencyMode("en5"), 0);
  EXPECT_THAT(shell.lines, ElementsAreArray(presetLines({"4000", "512", "8000", "1024", "1"})));
}

TEST_F(commandAPITest, BalancedWritesItsFiveValuesAndSavesOnce) {
  EXPECT_EQ(presets.setBalancedMode("en5"), 0);
  EXPECT_THAT(shell.lines, ElementsAreArray(presetLines({"8000", "512", "16000", "1024", "1"})));
}

TEST_F(commandAPITest, HighThroughputWritesItsFiveValuesAndSavesOnce) {
  EXPECT_EQ(presets.setHighThroughputMode("en5"), 0);
  EXPECT_THAT(shell.lines, ElementsAreArray(presetLines({"12000", "1024", "24000", "2048", "1"})));
}

TEST_F(commandAPITest, ServerWritesItsFiveValuesAndSavesOnce) {
  EXPECT_EQ(presets.setServerMode("en5"), 0);
  EXPECT_THAT(shell.lines, ElementsAreArray(presetLines({"8000", "512", "16000", "1024", "8"})));
}

TEST_F(commandAPITest, RecognitionReadsTheFiveSettingsInOrder) {
  presets.returnCurrentMode("en5");
  EXPECT_THAT(shell.lines,
              ElementsAre(get("RxIntrThrottle"), get("RxRingSize"), get("TxIntrThrottle"),
                          get("TxRingSize"), get("RxRingCount")));
}

TEST_F(commandAPITest, RecognisesEachPreset) {
  setSettings({"4000", "512", "8000", "1024"}, "1");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 1);
  setSettings({"8000", "512", "16000", "1024"}, "1");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 2);
  setSettings({"12000", "1024", "24000", "2048"}, "1");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 3);
  setSettings({"8000", "512", "16000", "1024"}, "8");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 4);
}

TEST_F(commandAPITest, EachSettingDecides) {
  const std::vector<std::string> balanced = {"8000", "512", "16000", "1024"};
  for (size_t index = 0; index < balanced.size(); ++index) {
    auto changed = balanced;
    changed[index] += "1";
    setSettings(changed, "1");
    EXPECT_EQ(presets.returnCurrentMode("en5"), 5) << index;
  }
  setSettings(balanced, "2");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 5);
}

TEST_F(commandAPITest, SettingsThatCannotBeReadCountAsZero) {
  setSettings({"8000", "512", "16000", "1024"}, "1");
  presets.returnCurrentMode("en5");
  shell.forget(tool("getRxRingSize"));
  shell.answer(tool("getTxRingSize"), "TxRingSize=many\n");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 5);
  EXPECT_EQ(presets.currentRxIntrThrottle(), 8000);
  EXPECT_EQ(presets.currentRxRingSize(), 0);
  EXPECT_EQ(presets.currentTxIntrThrottle(), 16000);
  EXPECT_EQ(presets.currentTxRingSize(), 0);
  EXPECT_EQ(presets.currentRxRingCount(), 1);
}

TEST_F(commandAPITest, APresetThatReadsBackIsMissingNothing) {
  setSettings({"8000", "512", "16000", "1024"}, "8");
  presets.setServerMode("en5");
  EXPECT_THAT(presets.missing(), ElementsAre());
}

TEST_F(commandAPITest, APresetNamesTheSettingThatWasNotTaken) {
  setSettings({"8000", "512", "9000", "1024"}, "8");
  presets.setServerMode("en5");
  EXPECT_THAT(presets.missing(), ElementsAre("TxIntrThrottle"));
}

TEST_F(commandAPITest, APresetWhoseToolHangsNamesAllThatIsMissing) {
  setSettings({"8000", "512", "16000", "1024"}, "8");
  shell.hang(tool("setTxIntrThrottle"));
  presets.setServerMode("en5");
  EXPECT_THAT(presets.missing(),
              ElementsAre("TxIntrThrottle", "TxRingSize", "RxRingCount", "saveConfig"));
}

TEST_F(commandAPITest, APresetThatIsNotSavedSaysSo) {
  setSettings({"8000", "512", "16000", "1024"}, "8");
  shell.fail(tool("saveConfig"));
  presets.setServerMode("en5");
  EXPECT_THAT(presets.missing(), ElementsAre("saveConfig"));
}

}  // namespace
}  // namespace corvane
