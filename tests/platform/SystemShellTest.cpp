#include "platform/posix/SystemShell.h"

#include <fcntl.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdlib>
#include <thread>

#include "TemporaryFolder.h"

using namespace corvane;
using namespace std::chrono_literals;

namespace {

class SystemShellTest : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return folder_.file(name); }

  std::string contents(const std::string& name) const {
    std::ifstream file(path(name));
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  const TemporaryFolder folder_;
};

/// Whether the process still does something; one that only waits to be collected does not.
bool isAlive(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  return kill(process, 0) == 0 && text.find(") Z") == std::string::npos;
}

TEST_F(SystemShellTest, AnswersTheWaitStatusOfTheCommand) {
  SystemShell shell;
  EXPECT_EQ(shell.run("true"), 0);
  const int failed = shell.run("exit 3");
  ASSERT_TRUE(WIFEXITED(failed));
  EXPECT_EQ(WEXITSTATUS(failed), 3);
  const int missing = shell.run("no-such-command-anywhere 2>/dev/null");
  ASSERT_TRUE(WIFEXITED(missing));
  EXPECT_EQ(WEXITSTATUS(missing), 127);
  const int killed = shell.run("kill -KILL $$");
  ASSERT_TRUE(WIFSIGNALED(killed));
  EXPECT_EQ(WTERMSIG(killed), SIGKILL);
}

TEST_F(SystemShellTest, TheLineIsTheShellsOwn) {
  SystemShell shell;
  EXPECT_EQ(shell.run("printf 'a b' | tr a-z A-Z > " + path("out")), 0);
  EXPECT_EQ(contents("out"), "A B");
}

TEST_F(SystemShellTest, OverridesReplaceAndAddVariables) {
  setenv("CORVANE_SHELL_TEST", "from the process", 1);
  SystemShell shell({{"CORVANE_SHELL_TEST", "overridden"}, {"CORVANE_SHELL_EXTRA", "added=1"}});
  shell.run("echo \"$CORVANE_SHELL_TEST $CORVANE_SHELL_EXTRA\" > " + path("out"));
  EXPECT_EQ(contents("out"), "overridden added=1\n");
  SystemShell plain;
  plain.run("echo \"$CORVANE_SHELL_TEST$CORVANE_SHELL_EXTRA\" > " + path("out"));
  EXPECT_EQ(contents("out"), "from the process\n");
  unsetenv("CORVANE_SHELL_TEST");
}

TEST_F(SystemShellTest, ThePathOfTheOverridesFindsPrograms) {
  std::ofstream(path("corvane-shell-tool")) << "#!/bin/sh\necho found > " << path("out") << "\n";
  std::filesystem::permissions(path("corvane-shell-tool"), std::filesystem::perms::owner_all);
  SystemShell shell({{"PATH", path("") + ":/usr/bin:/bin"}});
  EXPECT_EQ(shell.run("corvane-shell-tool"), 0);
  EXPECT_EQ(contents("out"), "found\n");
}

TEST_F(SystemShellTest, OutputCanBeSentToAnotherDescriptor) {
  const int descriptor = open(path("out").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  SystemShell shell({}, descriptor);
  EXPECT_EQ(shell.run("echo elsewhere"), 0);
  close(descriptor);
  EXPECT_EQ(contents("out"), "elsewhere\n");
}

TEST_F(SystemShellTest, LeavesTheSignalsOfTheProcessAlone) {
  struct sigaction before = {};
  struct sigaction after = {};
  for (const int signal : {SIGCHLD, SIGINT, SIGQUIT}) {
    sigaction(signal, nullptr, &before);
    SystemShell().run("true");
    sigaction(signal, nullptr, &after);
    EXPECT_EQ(before.sa_handler, after.sa_handler) << signal;
  }
  sigset_t blocked;
  pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
  EXPECT_EQ(sigismember(&blocked, SIGCHLD), 0);
}

TEST_F(SystemShellTest, CommandsGetSignalsAsAFreshProgramDoes) {
  sigset_t blocked;
  sigset_t before;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &blocked, &before);
  const int status = SystemShell().run("kill -TERM $$; exit 0");
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGTERM);
}

TEST_F(SystemShellTest, ManyThreadsRunCommandsAtOnceAndEachGetsItsOwnStatus) {
  SystemShell shell;
  std::vector<int> statuses(8);
  std::vector<std::thread> threads;
  for (size_t thread = 0; thread < statuses.size(); ++thread) {
    threads.emplace_back([&shell, &statuses, thread] {
      statuses[thread] = shell.run("exit " + std::to_string(thread));
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (size_t thread = 0; thread < statuses.size(); ++thread) {
    EXPECT_EQ(WEXITSTATUS(statuses[thread]), static_cast<int>(thread));
  }
}

TEST_F(SystemShellTest, RunWithinAnswersLikeRunWhenTheCommandEndsInTime) {
  SystemShell shell;
  EXPECT_EQ(shell.runWithin("true", 1min), 0);
  EXPECT_EQ(WEXITSTATUS(shell.runWithin("exit 5", 1min)), 5);
}

TEST_F(SystemShellTest, RunWithinKillsEverythingThatTheCommandStarted) {
  SystemShell shell;
  const std::string line =
      "(sleep 1000; echo late > " + path("late") + ") & echo $! > " + path("child") + "; wait";
  // On a busy computer the first limits may be up before the command has begun.
  for (auto limit = 300ms; contents("child").empty() && limit < 1min; limit *= 2) {
    EXPECT_EQ(shell.runWithin(line, limit), shellTimedOut);
  }
  const pid_t child = static_cast<pid_t>(std::stol(contents("child")));
  for (int tries = 0; isAlive(child) && tries < 60'000; ++tries) std::this_thread::sleep_for(1ms);
  EXPECT_FALSE(isAlive(child));
}

TEST_F(SystemShellTest, RunWithinGivesTheCommandNoInput) {
  SystemShell shell;
  EXPECT_EQ(shell.runWithin("cat > " + path("out"), 1min), 0);
  EXPECT_EQ(contents("out"), "");
}

}  // namespace
