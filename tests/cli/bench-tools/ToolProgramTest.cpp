// The programs themselves, started by the shell as the utility starts them.

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>

#include "CLIParser/commandAPI.h"
#include "cli/bench-tools/ToolBench.h"

namespace corvane {
namespace {

/// Runs lines with the system's shell on the bench that the test names.
class BenchLineShell : public Shell {
 public:
  explicit BenchLineShell(std::string environment) : environment_(std::move(environment)) {}
  int run(const std::string& line) override { return std::system((environment_ + line).c_str()); }
  int runWithin(const std::string& line, std::chrono::milliseconds) override { return run(line); }

 private:
  std::string environment_;
};

class ToolProgramTest : public ToolBench {
 protected:
  ToolProgramTest() {
    paths.utilityTool = BENCH_TOOLS "/corvaneutil";
    command.setNicName("en5");
  }

  Paths paths = pathsWithScratchFileIn(folder.path());
  BenchLineShell shell{"export CORVANE_BENCH=" + shellPath(bench.path()) +
                       "; PATH=" + shellPath(BENCH_TOOLS) + ":$PATH; "};
  commandBody command{shell, paths};
  commandAPI presets{shell, paths};
};

TEST_F(ToolProgramTest, EveryPresetIsAppliedSavedAndRecognised) {
  presets.setLowLatencyMode("en5");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 1);
  presets.setBalancedMode("en5");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 2);
  presets.setHighThroughputMode("en5");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 3);
  presets.setServerMode("en5");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 4);
  EXPECT_EQ(portNow("en5").savedSettings, portNow("en5").settings);
  EXPECT_EQ(presets.returnCurrentMode("en6"), 2);
}

TEST_F(ToolProgramTest, ASetIsConfirmedUnlessTheDriverRoundsOrRefuses) {
  command.setCommandTittle("RxRingSize");
  command.setSetValue("1024");
  EXPECT_TRUE(command.setCommand(command));
  command.setSetValue("1001");
  EXPECT_FALSE(command.setCommand(command));
  EXPECT_EQ(command.returnValue(), "1000");
  command.setSetValue("5");
  EXPECT_FALSE(command.setCommand(command));
  EXPECT_EQ(command.returnValue(), "1000");
}

TEST_F(ToolProgramTest, AnOldDriverDoesNotKnowCoalescing) {
  command.setCommandTittle("RSCEnable");
  EXPECT_FALSE(command.checkCommand(command));
  for (const char* interface : {"en5", "en6"}) {
    changePort(interface, [](BenchEthernetPort& port) { port.settings.erase("RSCEnable"); });
  }
  EXPECT_TRUE(command.checkCommand(command));
}

TEST_F(ToolProgramTest, TheInterfaceIsReadThroughThePipe) {
  EXPECT_EQ(command.getNICstatus(command), 1);
  EXPECT_EQ(command.getMTU(command), 1500);
  EXPECT_EQ(command.getCurrendSpeed(command), "10GbaseT");
  changePort("en5", [](BenchEthernetPort& port) { port.link = false; });
  EXPECT_EQ(command.getNICstatus(command), 0);
  command.setNicName("en0");
  EXPECT_EQ(command.getNICstatus(command), 2);
  EXPECT_EQ(command.getMTU(command), 0);
}

TEST_F(ToolProgramTest, RubbishIsReadWithoutHarm) {
  setFault("tool-rubbish");
  EXPECT_EQ(presets.returnCurrentMode("en5"), 5);
  command.setCommandTittle("SFPModule");
  EXPECT_EQ(command.getSFPinfo(command), 0);
}

TEST_F(ToolProgramTest, AMissingToolReadsAsEmpty) {
  setFault("tool-missing");
  command.setCommandTittle("RSCEnable");
  EXPECT_TRUE(command.checkCommand(command));
  EXPECT_EQ(command.getCommand(command), std::nullopt);
}

TEST_F(ToolProgramTest, WithoutABenchTheToolSaysSo) {
  BenchLineShell bare("unset CORVANE_BENCH; ");
  EXPECT_EQ(WEXITSTATUS(bare.run(paths.utilityTool + " en5 getRxRingSize 2>" + paths.scratchFile)),
            2);
  std::ifstream stream(paths.scratchFile);
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  EXPECT_THAT(text, testing::HasSubstr("CORVANE_BENCH is not set"));
}

TEST_F(ToolProgramTest, ABenchThatIsNoBenchIsRefused) {
  std::ofstream(bench.path()) << "{";
  EXPECT_EQ(WEXITSTATUS(shell.run(paths.utilityTool + " en5 getRxRingSize 2>/dev/null")), 2);
}

}  // namespace
}  // namespace corvane
