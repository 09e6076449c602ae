#include "platform/journal/JournalPlatform.h"

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <system_error>
#include <thread>

#include "TemporaryFolder.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

using namespace corvane;
using namespace std::chrono_literals;
using nlohmann::ordered_json;

namespace {

class JournalPlatformTest : public testing::Test {
 protected:
  void SetUp() override {
    journal_.emplace(fake_.platform(), path_);
    platform_.emplace(journal_->platform());
  }

  std::vector<ordered_json> linesWithTime() const {
    std::vector<ordered_json> lines;
    std::ifstream file(path_);
    for (std::string line; std::getline(file, line);) lines.push_back(ordered_json::parse(line));
    return lines;
  }

  /// The lines as texts without their time.
  std::vector<std::string> lines() const {
    std::vector<std::string> texts;
    for (ordered_json line : linesWithTime()) {
      line.erase("t");
      texts.push_back(line.dump());
    }
    return texts;
  }

  std::string onlyLine() const {
    const auto all = lines();
    EXPECT_EQ(all.size(), 1u);
    return all.empty() ? std::string() : all.front();
  }

  ManualDispatch dispatch_;
  FakePlatform fake_{dispatch_};
  const TemporaryFolder folder_;
  const std::string path_ = folder_.file("journal.jsonl");
  std::optional<JournalPlatform> journal_;
  std::optional<Platform> platform_;
};

TEST_F(JournalPlatformTest, ADriverCallStandsBetweenOpenAndRelease) {
  fake_.userClient.answer = [](RegistryHandle, uint32_t, std::span<const uint8_t>,
                               std::span<uint8_t> output) {
    output[0] = 0xAB;
    output[1] = 0x0C;
    return statusSuccess;
  };
  UserClientConnection connection = 0;
  ASSERT_EQ(platform_->userClient.open(77, 0, connection), statusSuccess);
  const std::vector<uint8_t> input = {0x00, 0x7F, 0xFF};
  std::vector<uint8_t> output(3);
  size_t outputSize = output.size();
  platform_->userClient.callStructMethod(connection, 2, input, output, outputSize);
  platform_->userClient.release(connection);
  EXPECT_THAT(
      lines(),
      testing::ElementsAre(
          R"({"thread":"main","call":"open","service":77,"result":0})",
          R"({"thread":"main","call":"userClient","service":77,"selector":2,"input":"007fff","output":"ab0c00","result":0})",
          R"({"thread":"main","call":"release","service":77,"result":0})"));
  EXPECT_THAT(output, testing::ElementsAre(0xAB, 0x0C, 0x00));
  EXPECT_EQ(fake_.userClient.openConnections(), 0u);
}

TEST_F(JournalPlatformTest, ARefusedOpenIsWrittenWithItsResult) {
  fake_.userClient.openStatus = statusNoDevice;
  UserClientConnection connection = 0;
  EXPECT_EQ(platform_->userClient.open(5, 0, connection), statusFailure);
  EXPECT_EQ(onlyLine(), R"({"thread":"main","call":"open","service":5,"result":)" +
                            std::to_string(statusFailure) + "}");
}

TEST_F(JournalPlatformTest, CommandLinesStandAsTheShellGotThem) {
  fake_.shell.answer = [](const std::string& line) { return line == "false" ? 256 : 0; };
  platform_->shell.run("echo \"a\tb\" > '/tmp/ü x'");
  platform_->shell.runWithin("false", 1s);
  EXPECT_THAT(
      lines(),
      testing::ElementsAre(
          R"({"thread":"main","call":"shell","line":"echo \"a\tb\" > '/tmp/ü x'","status":0})",
          R"({"thread":"main","call":"shell","line":"false","status":256})"));
}

TEST_F(JournalPlatformTest, BytesThatAreNoTextDoNotBreakTheLine) {
  platform_->shell.run("echo \xFF\nnext");
  ASSERT_EQ(linesWithTime().size(), 1u);
  EXPECT_EQ(linesWithTime().front()["line"], "echo \xEF\xBF\xBD\nnext");
}

TEST_F(JournalPlatformTest, ScriptsSayOkOrWhatTheyFailedOf) {
  platform_->scripts.run("do shell script");
  fake_.scripts.result = {false, "User canceled."};
  platform_->scripts.run("again");
  EXPECT_THAT(
      lines(),
      testing::ElementsAre(
          R"({"thread":"main","call":"script","script":"do shell script","result":"ok"})",
          R"({"thread":"main","call":"script","script":"again","result":"User canceled."})"));
}

TEST_F(JournalPlatformTest, UnmountAndMountNameTheDisk) {
  const auto session = platform_->diskArbitration.createSession();
  const auto disk = session->createDisk("disk4s1");
  session->unmount(*disk, nullptr, nullptr);
  session->mount(*disk, nullptr, nullptr);
  EXPECT_THAT(lines(),
              testing::ElementsAre(R"({"thread":"main","call":"unmount","disk":"disk4s1"})",
                                   R"({"thread":"main","call":"mount","disk":"disk4s1"})"));
  EXPECT_THAT(fake_.diskArbitration.order(),
              testing::ElementsAre("create", "unmount disk4s1", "mount disk4s1"));
}

TEST_F(JournalPlatformTest, ASessionThatCannotBeMadeStaysNull) {
  fake_.diskArbitration.failCreate = true;
  EXPECT_EQ(platform_->diskArbitration.createSession(), nullptr);
}

TEST_F(JournalPlatformTest, DownloadsSayWhatCameWhereAndWithWhichResult) {
  fake_.transfer.answers["http://server/a.pkg"] = {0, "", ""};
  const auto handle = platform_->transfer.createHandle();
  handle->setUrl("http://server/a.pkg");
  handle->setDestination("/private/tmp/a.pkg");
  handle->perform();
  handle->setUrl("http://server/missing");
  handle->perform();
  EXPECT_THAT(
      lines(),
      testing::ElementsAre(
          R"({"thread":"main","call":"download","url":"http://server/a.pkg","path":"/private/tmp/a.pkg","result":0})",
          R"({"thread":"main","call":"download","url":"http://server/missing","path":"/private/tmp/a.pkg","result":6})"));
}

TEST_F(JournalPlatformTest, ANotificationIsWrittenBeforeAnybodyHearsOfIt) {
  size_t linesWhenHeard = 0;
  const auto observation = platform_->notifications.observe(
      "Corvane2Appeared", [&](const Notification&) { linesWhenHeard = lines().size(); });
  platform_->notifications.post("Corvane2Appeared", "20:00:00:10:9B:00:00:01");
  EXPECT_EQ(linesWhenHeard, 1u);
  EXPECT_EQ(
      onlyLine(),
      R"({"thread":"main","call":"post","name":"Corvane2Appeared","object":"20:00:00:10:9B:00:00:01"})");
}

TEST_F(JournalPlatformTest, AlertsAreWrittenWhenShownAndWhenChangedWithTheButtonsOnShow) {
  AlertContent content{"Wait", "text", {{"OK"}, {"Cancel", true, true}}, "loading7.gif"};
  int endedWith = 0;
  platform_->prompts.showAlertSheet(this, content, SheetParent::UpdateWindow,
                                    [&](int code) { endedWith = code; });
  content.buttons.front().hidden = true;
  content.icon = "corvane.icns";
  platform_->prompts.showAlertSheet(this, content, SheetParent::UpdateWindow, {});
  platform_->prompts.endAlertSheet(this);
  fake_.prompts.modalAnswer = alertFirstButton + 1;
  EXPECT_EQ(platform_->prompts.showModalAlert({"Error", "", {{"Ok"}}, "corvane_warning.icns"}),
            alertFirstButton + 1);
  EXPECT_THAT(
      lines(),
      testing::ElementsAre(
          R"({"thread":"main","call":"alert","message":"Wait","text":"text","buttons":["OK"],"icon":"loading7.gif"})",
          R"({"thread":"main","call":"alert","message":"Wait","text":"text","buttons":[],"icon":"corvane.icns"})",
          R"({"thread":"main","call":"alert","message":"Error","text":"","buttons":["Ok"],"icon":"corvane_warning.icns"})"));
  EXPECT_EQ(fake_.prompts.endedSheets, 1);
}

TEST_F(JournalPlatformTest, LinesToTheSystemLogAreWrittenAndPrintedOnesAreNot) {
  platform_->log.system("Monitor stopped");
  platform_->log.standardOutput("printed\n");
  platform_->log.standardError("told\n");
  EXPECT_EQ(onlyLine(), R"({"thread":"main","call":"log","line":"Monitor stopped"})");
  EXPECT_THAT(fake_.log.lines(), testing::ElementsAre("Monitor stopped"));
  EXPECT_EQ(fake_.log.outputText(), "printed\n");
  EXPECT_EQ(fake_.log.errorText(), "told\n");
}

TEST_F(JournalPlatformTest, AFailedAssertionStillStopsTheProgram) {
  EXPECT_THROW(platform_->log.assertionFailed("condition", "method", "file", 1),
               FakeAssertionFailure);
}

TEST_F(JournalPlatformTest, EverythingElseOfThePromptsPassesThrough) {
  platform_->prompts.beep();
  platform_->prompts.terminate();
  platform_->prompts.showAlertProgress(this, 0.5);
  std::vector<std::string> chosen;
  platform_->prompts.showOpenPanel({"Choose"},
                                   [&](std::vector<std::string> paths) { chosen = paths; });
  fake_.prompts.choosePaths({"/a"});
  EXPECT_EQ(fake_.prompts.beeps, 1);
  EXPECT_EQ(fake_.prompts.terminations, 1);
  EXPECT_THAT(fake_.prompts.progress, testing::ElementsAre(0.5));
  EXPECT_THAT(chosen, testing::ElementsAre("/a"));
  EXPECT_TRUE(lines().empty());
}

TEST_F(JournalPlatformTest, ThreadsAreNamedByWhatTheyDo) {
  dispatch_.asyncGlobal(QueuePriority::Default, [&] { platform_->shell.run("background"); });
  dispatch_.asyncGlobal(QueuePriority::Default, [&] {
    platform_->runLoops.current();
    platform_->shell.run("monitor");
    fake_.runLoops.onRun = [&] { platform_->shell.run("monitor"); };
    platform_->runLoops.run();
    platform_->shell.run("background");
  });
  dispatch_.asyncMain([&] { platform_->shell.run("main"); });
  dispatch_.runUntilIdle();
  const auto all = linesWithTime();
  EXPECT_EQ(all.size(), 5u);
  for (const auto& line : all) EXPECT_EQ(line["thread"], line["line"]);
}

TEST_F(JournalPlatformTest, TimesBeginWithTheJournalAndNeverGoBack) {
  for (int line = 0; line < 20; ++line) platform_->shell.run("true");
  double last = 0;
  for (const auto& line : linesWithTime()) {
    EXPECT_GE(line["t"].get<double>(), last);
    last = line["t"].get<double>();
  }
  EXPECT_LT(last, 60);
}

TEST_F(JournalPlatformTest, AppendsToWhatIsThere) {
  platform_->shell.run("first");
  JournalPlatform second(fake_.platform(), path_);
  second.platform().shell.run("second");
  EXPECT_EQ(lines().size(), 2u);
}

TEST_F(JournalPlatformTest, LinesOfManyThreadsStayWhole) {
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&] {
      for (int line = 0; line < 50; ++line) platform_->shell.run(std::string(500, 'x'));
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(lines().size(), 200u);
}

TEST_F(JournalPlatformTest, AFileThatCannotBeOpenedIsAnError) {
  EXPECT_THROW(JournalPlatform(fake_.platform(), "/no/such/folder/journal"), std::system_error);
}

TEST_F(JournalPlatformTest, ALineThatCannotBeWrittenIsReportedOnceAndTheCallIsDone) {
  JournalPlatform full(fake_.platform(), "/dev/full");
  EXPECT_EQ(full.platform().shell.run("true"), 0);
  full.platform().shell.run("true");
  EXPECT_EQ(fake_.log.errorText(),
            "corvane: /dev/full: the journal cannot be written: No space left on device\n");
}

}  // namespace
