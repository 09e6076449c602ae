#include "platform/macos/MacPaths.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "CLIParser/commandBody.h"

using namespace corvane;
using testing::ElementsAre;

namespace {

class MacPathsTest : public testing::Test {
 protected:
  void TearDown() override { home_ ? setenv("HOME", home_->c_str(), 1) : unsetenv("HOME"); }

 private:
  static std::optional<std::string> home() {
    const char* const home = std::getenv("HOME");
    return home == nullptr ? std::nullopt : std::optional<std::string>(home);
  }

  const std::optional<std::string> home_ = home();
};

TEST_F(MacPathsTest, AreTheFixedPlaces) {
  setenv("HOME", "/Users/someone", 1);
  const Paths paths = macos::macPaths();
  EXPECT_EQ(paths.utilityTool, "/usr/local/bin/corvaneutil");
  EXPECT_EQ(paths.scratchFile, "/private/tmp/corvaneOutput.txt");
  EXPECT_EQ(paths.downloadFolder, "/private/tmp");
  EXPECT_EQ(paths.extractedImage, "/tmp/emulex.grp");
  EXPECT_EQ(paths.transferImage, "/private/tmp/emulex.grp");
  EXPECT_EQ(paths.systemLog, "/var/log/system.log");
  EXPECT_EQ(paths.systemExtensions, "/System/Library/Extensions/");
  EXPECT_EQ(paths.localExtensions, "/Library/Extensions/");
  EXPECT_EQ(paths.home, "/Users/someone");
}

TEST_F(MacPathsTest, WithoutAHomeInTheEnvironmentItIsTheUsersOwn) {
  unsetenv("HOME");
  EXPECT_EQ(macos::macPaths().home.substr(0, 1), "/");
}

class RecordingShell final : public Shell {
 public:
  int run(const std::string& line) override {
    lines.push_back(line);
    return 0;
  }
  int runWithin(const std::string& line, std::chrono::milliseconds) override { return run(line); }

  std::vector<std::string> lines;
};

TEST_F(MacPathsTest, StandInACommandLineAsTheyAre) {
  const Paths paths = macos::macPaths();
  RecordingShell shell;
  commandBody command(shell, paths);
  command.setNicName("en5");
  command.setCommandTittle("RxRingSize");
  command.setSetValue("512");
  command.setFuckSmallTreeRxring(command);
  command.saveCommand(command);
  EXPECT_THAT(shell.lines, ElementsAre("/usr/local/bin/corvaneutil en5 setRxRingSize 512",
                                       "/usr/local/bin/corvaneutil en5 saveConfig"));
  EXPECT_EQ(shellPath(paths.scratchFile), "/private/tmp/corvaneOutput.txt");
  EXPECT_EQ(shellPath(paths.downloadFolder + "/CORVANE_Utility.dmg"),
            "/private/tmp/CORVANE_Utility.dmg");
}

}  // namespace
