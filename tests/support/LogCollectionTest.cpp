#include "support/LogCollection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

using namespace corvane;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// 2011-03-04 05:06:07 local time, wherever the test runs.
std::time_t momentOfTest() {
  std::tm parts{};
  parts.tm_year = 111;
  parts.tm_mon = 2;
  parts.tm_mday = 4;
  parts.tm_hour = 5;
  parts.tm_min = 6;
  parts.tm_sec = 7;
  parts.tm_isdst = -1;
  return std::mktime(&parts);
}

class LogCollectionTest : public testing::Test {
 protected:
  LogCollectionTest() {
    collection.whenFinished(
        [this](const LogCollectionResult& result) { results.push_back(result); });
  }

  void collect() {
    controls.downloadLogs.click();
    dispatch.runUntilIdle();
  }

  ManualDispatch dispatch;
  FakePlatform fakes{dispatch};
  MainWindowControls controls{dispatch};
  LogCollection collection{fakes.platform(), controls, momentOfTest};
  std::vector<LogCollectionResult> results;
};

TEST(LogStampText, IsTheLocalTime) {
  EXPECT_EQ(logStamp(momentOfTest()), "20110304-050607");
}

TEST_F(LogCollectionTest, RunsItsCommandsInOrder) {
  collect();
  EXPECT_THAT(
      fakes.shell.lines(),
      ElementsAre("mkdir -pv ~/Desktop/AllLogs/20110304-050607/systemLog",
                  "/bin/cp /var/log/system.log* ~/Desktop/AllLogs/20110304-050607/systemLog/",
                  "ioreg  -l > ~/Desktop/AllLogs/20110304-050607/ioreg.txt",
                  "system_profiler -xml > ~/Desktop/AllLogs/20110304-050607/profiler.spx",
                  "open ~/Desktop/AllLogs/"));
  EXPECT_THAT(fakes.scripts.scripts, IsEmpty());
  ASSERT_EQ(results.size(), 1u);
  EXPECT_EQ(results[0].folder, "~/Desktop/AllLogs/20110304-050607");
  EXPECT_FALSE(results[0].cancelled);
  EXPECT_THAT(results[0].failedLines, IsEmpty());
}

class ReleaseWithoutUnifiedLog : public LogCollectionTest,
                                 public testing::WithParamInterface<const char*> {};

TEST_P(ReleaseWithoutUnifiedLog, IsAskedForNoScript) {
  fakes.systemVersion.version = GetParam();
  collect();
  EXPECT_THAT(fakes.scripts.scripts, IsEmpty());
  EXPECT_EQ(fakes.shell.lines().size(), 5u);
}

INSTANTIATE_TEST_SUITE_P(Releases, ReleaseWithoutUnifiedLog,
                         testing::Values("10.8.5", "10.11.6", "10.12", "10.13.6", "10.1.2", "14.3",
                                         ""));

TEST_F(LogCollectionTest, CollectsTheUnifiedLogFirstOnTheReleasesThatNeedIt) {
  fakes.systemVersion.version = "10.12.6";
  size_t linesBefore = 0;
  fakes.scripts.onRun = [&] {
    EXPECT_TRUE(dispatch.isMain());
    linesBefore = fakes.shell.lines().size();
  };
  collect();
  EXPECT_THAT(fakes.scripts.scripts,
              ElementsAre("do shell script \"log collect --output "
                          "~/Desktop/AllLogs/20110304-050607/systemLog/\" with administrator "
                          "privileges"));
  EXPECT_EQ(linesBefore, 1u) << "the folder is there, nothing is copied yet";
  EXPECT_EQ(fakes.shell.lines().size(), 5u);
  EXPECT_FALSE(results.at(0).cancelled);
}

TEST_F(LogCollectionTest, RemovesTheFolderWhenTheScriptFails) {
  fakes.systemVersion.version = "10.12.1";
  fakes.scripts.result = {false, "User canceled."};
  collect();
  EXPECT_THAT(fakes.shell.lines(),
              ElementsAre("mkdir -pv ~/Desktop/AllLogs/20110304-050607/systemLog",
                          "rm -fr ~/Desktop/AllLogs/20110304-050607"));
  EXPECT_TRUE(results.at(0).cancelled);
  EXPECT_THAT(fakes.prompts.alerts, IsEmpty()) << "no message";
}

TEST_F(LogCollectionTest, GoesOnAfterAStepThatFails) {
  fakes.shell.answer = [](const std::string& line) {
    return line.starts_with("ioreg") || line.starts_with("/bin/cp") ? 256 : 0;
  };
  collect();
  EXPECT_EQ(fakes.shell.lines().size(), 5u);
  EXPECT_EQ(results.at(0).failedLines.size(), 2u);
  EXPECT_THAT(fakes.prompts.alerts, IsEmpty());
}

TEST_F(LogCollectionTest, ShowsWhatIsBeingDoneAndLeavesTheWindowAlive) {
  std::vector<std::string> titles;
  controls.downloadLogs.setTitle("Collect Logs");
  fakes.shell.answer = [&](const std::string& line) {
    EXPECT_FALSE(dispatch.isMain()) << line;
    dispatch.syncMain([&] {
      titles.push_back(controls.downloadLogs.title());
      EXPECT_TRUE(controls.logProgress.isRunning());
      EXPECT_FALSE(controls.downloadLogs.isEnabled());
    });
    return 0;
  };
  collect();
  EXPECT_THAT(titles, ElementsAre("Making the folder…", "Copying the system log…",
                                  "Reading the device registry…", "Profiling the system…",
                                  "Showing the folder…"));
  EXPECT_EQ(controls.downloadLogs.title(), "Collect Logs");
  EXPECT_TRUE(controls.downloadLogs.isEnabled());
  EXPECT_FALSE(controls.logProgress.isRunning());
  EXPECT_EQ(controls.logProgress.fraction(), std::nullopt);
}

TEST_F(LogCollectionTest, RunsOnceAtATime) {
  collection.downloadLogs();
  collection.downloadLogs();
  dispatch.runUntilIdle();
  EXPECT_EQ(fakes.shell.lines().size(), 5u);
  collect();
  EXPECT_EQ(fakes.shell.lines().size(), 10u) << "into the same folder, within the same second";
}

TEST_F(LogCollectionTest, CopiesAloneWhenAsked) {
  collection.downloadLogsBefore1012("20200101-000000");
  const auto lines = fakes.shell.lines();
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "/bin/cp /var/log/system.log* ~/Desktop/AllLogs/20200101-000000/systemLog/");
  EXPECT_EQ(lines[3], "open ~/Desktop/AllLogs/");
}

TEST_F(LogCollectionTest, CollectsBelowAnotherFolder) {
  fakes.systemVersion.version = "10.12.6";
  collection.setFolder("/tmp/my \"logs\"");
  collect();
  EXPECT_EQ(fakes.shell.lines().at(0), "mkdir -pv '/tmp/my \"logs\"'/20110304-050607/systemLog");
  EXPECT_EQ(fakes.shell.lines().at(4), "open '/tmp/my \"logs\"'/");
  EXPECT_EQ(fakes.scripts.scripts.at(0),
            "do shell script \"log collect --output '/tmp/my \\\"logs\\\"'/20110304-050607/"
            "systemLog/\" with administrator privileges");
}

TEST(LogCollectionLife, MayEndBeforeItsWork) {
  ManualDispatch dispatch;
  FakePlatform fakes(dispatch);
  MainWindowControls controls(dispatch);
  bool finished = false;
  {
    LogCollection collection(fakes.platform(), controls, momentOfTest);
    collection.whenFinished([&](const LogCollectionResult&) { finished = true; });
    collection.downloadLogs();
  }
  dispatch.runUntilIdle();
  EXPECT_EQ(fakes.shell.lines().size(), 5u);
  EXPECT_FALSE(finished);
}

}  // namespace
