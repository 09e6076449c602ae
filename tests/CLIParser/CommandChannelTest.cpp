#include "CLIParser/CommandChannel.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "CLIParser/ScriptedShell.h"
#include "CLIParser/commandAPI.h"

namespace corvane {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

class CommandChannelTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  Paths paths = pathsWithScratchFileIn(folder.path());
  ScriptedShell shell{paths};
  CommandChannel channel{shell, paths};
};

TEST_F(CommandChannelTest, EveryLineHasATimeLimit) {
  channel.run("one");
  channel.runAndReadBack("two > " + paths.scratchFile);
  EXPECT_THAT(shell.limits, ElementsAre(commandTimeLimit, commandTimeLimit));
}

TEST_F(CommandChannelTest, AfterALineThatHangsTheTurnRunsNoOtherOfThatTool) {
  shell.hang("tool");
  {
    const CommandTurn page;
    channel.run("tool one");
    EXPECT_EQ(channel.runAndReadBack("tool two > " + paths.scratchFile), "");
    channel.run("tool three");
  }
  EXPECT_THAT(shell.lines, ElementsAre("tool one"));
}

TEST_F(CommandChannelTest, AToolThatHangsHoldsUpOnlyItsOwnLines) {
  shell.hang("tool");
  shell.answer("ifconfig en5", "mtu 9000\n");
  const CommandTurn page;
  channel.run("tool one");
  EXPECT_EQ(channel.runAndReadBack("ifconfig en5 > " + paths.scratchFile), "mtu 9000\n");
  EXPECT_TRUE(channel.lastOutcome().wasRun());
}

TEST_F(CommandChannelTest, TheOutcomeTellsALineThatRanFromOneThatHung) {
  shell.answer("tool one", "answer\n");
  const CommandTurn page;
  channel.runAndReadBack("tool one > " + paths.scratchFile);
  EXPECT_TRUE(channel.lastOutcome().wasRun());
  EXPECT_EQ(channel.lastOutcome().text, "answer\n");
  EXPECT_EQ(reasonNotRun(channel.lastOutcome()), "");
  shell.hang("tool two");
  channel.runAndReadBack("tool two > " + paths.scratchFile);
  EXPECT_TRUE(channel.lastOutcome().ranOutOfTime);
  EXPECT_EQ(reasonNotRun(channel.lastOutcome()), "the command did not end within 10 seconds");
  channel.run("tool three");
  EXPECT_TRUE(channel.lastOutcome().skipped);
  EXPECT_EQ(reasonNotRun(channel.lastOutcome()), "the tool did not answer an earlier command");
}

TEST_F(CommandChannelTest, TheOutcomeKeepsTheExitStatus) {
  shell.fail("tool");
  channel.run("tool");
  EXPECT_NE(channel.lastOutcome().exitStatus, 0);
  EXPECT_TRUE(channel.lastOutcome().wasRun());
}

TEST_F(CommandChannelTest, WithoutAScratchFileTheOutcomeSaysSo) {
  std::filesystem::create_directory(paths.scratchFile);
  channel.runAndReadBack("tool > " + paths.scratchFile);
  EXPECT_FALSE(channel.lastOutcome().scratchFileUsable);
  EXPECT_FALSE(channel.lastOutcome().scratchFileBusy);
  EXPECT_EQ(reasonNotRun(channel.lastOutcome()),
            "the file for the command's output cannot be used");
}

TEST_F(CommandChannelTest, AScratchFileThatAnotherProgramHasIsWaitedForOnceInATurn) {
  const int other = open(paths.scratchFile.c_str(), O_RDWR | O_CREAT, 0600);
  ASSERT_EQ(flock(other, LOCK_EX), 0);
  CommandTurn page;
  page.setScratchFileBusy();
  EXPECT_EQ(channel.runAndReadBack("tool > " + paths.scratchFile), std::nullopt);
  EXPECT_TRUE(channel.lastOutcome().scratchFileBusy);
  EXPECT_EQ(reasonNotRun(channel.lastOutcome()),
            "another program of this utility is running a command");
  close(other);
  EXPECT_EQ(channel.runAndReadBack("tool > " + paths.scratchFile), "");
}

TEST_F(CommandChannelTest, TheNextTurnTriesAgain) {
  shell.hang("tool");
  channel.run("tool");
  channel.run("other");
  EXPECT_THAT(shell.lines, ElementsAre("tool", "other"));
}

/// A shell that tells whether two of its commands ever overlapped, and in which turn each ran.
class OverlapShell : public Shell {
 public:
  int run(const std::string& line) override {
    if (inside_.exchange(true)) overlaps = true;
    lines.push_back(line);
    const size_t redirection = line.find(" > ");
    if (redirection != std::string::npos) {
      std::ofstream(line.substr(redirection + 3)) << "echo=" << line.substr(0, redirection);
    }
    std::this_thread::yield();
    inside_ = false;
    return 0;
  }
  int runWithin(const std::string& line, std::chrono::milliseconds) override { return run(line); }

  std::atomic<bool> overlaps = false;
  std::vector<std::string> lines;  ///< unguarded: one command at a time is what the test is about

 private:
  std::atomic<bool> inside_ = false;
};

TEST(CommandTurnThreadsTest, NoThreadReadsTheOutputOfAnother) {
  TemporaryFolder folder;
  const Paths paths = pathsWithScratchFileIn(folder.path());
  OverlapShell shell;
  std::atomic<int> foreign = 0;
  const auto read = [&](const std::string& name) {
    commandBody command(shell, paths);
    command.setNicName(name);
    command.setCommandTittle("RxRingSize");
    for (int round = 0; round < 50; ++round) {
      const std::string own = paths.utilityTool + " " + name + " getRxRingSize";
      if (command.getCommand(command) != own) ++foreign;
    }
  };
  std::vector<std::thread> threads;
  for (const char* name : {"en1", "en2", "en3", "en4"}) threads.emplace_back(read, name);
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(foreign, 0);
  EXPECT_FALSE(shell.overlaps);
  EXPECT_THAT(shell.lines, SizeIs(200));
}

TEST(CommandTurnThreadsTest, NothingComesBetweenTheCommandsOfAPreset) {
  TemporaryFolder folder;
  const Paths paths = pathsWithScratchFileIn(folder.path());
  OverlapShell shell;
  const auto apply = [&](const std::string& name) {
    commandAPI presets(shell, paths);
    for (int round = 0; round < 10; ++round) presets.setServerMode(name);
  };
  std::thread first(apply, "en1");
  std::thread second(apply, "en2");
  first.join();
  second.join();
  constexpr size_t linesOfAPreset = 10;
  ASSERT_THAT(shell.lines, SizeIs(20 * linesOfAPreset));
  for (size_t start = 0; start < shell.lines.size(); start += linesOfAPreset) {
    const std::string name =
        shell.lines[start].find(" en1 ") != std::string::npos ? " en1 " : " en2 ";
    const std::vector preset(
        shell.lines.begin() + static_cast<std::ptrdiff_t>(start),
        shell.lines.begin() + static_cast<std::ptrdiff_t>(start + linesOfAPreset));
    EXPECT_THAT(preset, Each(testing::HasSubstr(name))) << "from line " << start;
  }
}

}  // namespace
}  // namespace corvane
