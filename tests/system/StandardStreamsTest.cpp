#include <gmock/gmock.h>

#include <array>
#include <csignal>

#include "ChangingCommandFixture.h"

using namespace corvane;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

/// Programs whose answer finds no way out.
class StandardStreamsTest : public ChangingCommandFixture {
 protected:
  StandardStreamsTest() : ChangingCommandFixture(1000) {}

  /// Runs a program with its standard output as the shell is told to redirect it.
  ProgramAnswer runInto(const std::string& redirection, const std::string& program,
                        const std::vector<std::string>& words) const {
    const std::string line = commandLine(program, words) + " 2>" + shellPath(path("err")) +
                             " </dev/null >" + redirection;
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, "", content(path("err"))};
  }

  /// Runs `corvane` with a standard output that nobody reads any more; returns how it ended.
  int commandWithoutReader(const std::string& words) const {
    const std::string line = "exec " + commandLine("corvane", arguments(words)) + " 2>" +
                             shellPath(path("err")) + " </dev/null";
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    close(ends[0]);
    const pid_t child = fork();
    EXPECT_GE(child, 0);
    if (child == 0) {
      dup2(ends[1], STDOUT_FILENO);
      execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
      _exit(127);
    }
    close(ends[1]);
    int status = 0;
    waitpid(child, &status, 0);
    return status;
  }

  void expectBrokenPipe(const std::string& words) const {
    const int status = commandWithoutReader(words);
    EXPECT_TRUE(WIFSIGNALED(status)) << words;
    EXPECT_EQ(WTERMSIG(status), SIGPIPE) << words;
    EXPECT_THAT(content(path("err")), Not(HasSubstr("standard output"))) << words;
  }

  ProgramAnswer commandInto(const std::string& redirection, const std::string& words) const {
    return runInto(redirection, "corvane", arguments(words));
  }
};

TEST_F(StandardStreamsTest, AFullDiskIsAFailure) {
  for (const char* words :
       {"list", "list --json", "show A1", "sfp " CORVANE_SOURCE_DIR "/bench/transceivers/8g-sw.bin",
        "list --help", "--version", "watch"}) {
    const ProgramAnswer run = commandInto("/dev/full", words);
    EXPECT_EQ(run.status, 1) << words;
    EXPECT_THAT(run.errors, HasSubstr("corvane: standard output: the answer cannot be written"))
        << words;
  }
  const ProgramAnswer bench = runInto("/dev/full", "corvane-bench", {benchPath(), "show"});
  EXPECT_EQ(bench.status, 1);
  EXPECT_THAT(bench.errors, HasSubstr("corvane-bench: standard output: "));
}

TEST_F(StandardStreamsTest, AFailureKeepsItsOwnStatus) {
  EXPECT_EQ(commandInto("/dev/full", "show Z9 --json").status, 3);
  EXPECT_EQ(commandInto("/dev/full", "frobnicate --json").status, 2);
}

// Otherwise the next file to be opened would take the descriptor, and the answer be written to it.
TEST_F(StandardStreamsTest, AClosedStandardOutputIsNoFileOfTheBench) {
  writeOutInFull();
  const auto before = state();
  EXPECT_EQ(commandInto("&-", "list").status, 1);
  EXPECT_EQ(state(), before);
  EXPECT_EQ(runInto("&-", "corvane-bench", {benchPath(), "os", "10.12.6", "--json"}).status, 1);
  EXPECT_EQ(state()["computer"]["osVersion"], "10.12.6");
}

TEST_F(StandardStreamsTest, AReaderThatHasGoneEndsItSilentlyOnceItIsDone) {
  expectBrokenPipe("set A1 --port 1 --speed 4");
  EXPECT_THAT(sent(6), ElementsAre("a00f000000000000"));
  expectBrokenPipe("firmware A1 " + package("corvane2-11.4.204.pkg") + " --yes");
  EXPECT_EQ(state()["adapters"][0]["pendingFirmware"], "11.4.204");
  EXPECT_EQ(updateSteps().back().substr(0, 6), "mount ");
  expectBrokenPipe("watch");
}

}  // namespace
