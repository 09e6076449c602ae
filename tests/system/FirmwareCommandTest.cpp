#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "ChangingCommandFixture.h"

using namespace corvane;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

/// `corvane firmware` on the demo bench, whose disk4 and disk5 lie behind A1 and disk6 behind B1.
class FirmwareCommandTest : public ChangingCommandFixture {
 protected:
  FirmwareCommandTest() : ChangingCommandFixture(10) {}

  nlohmann::ordered_json adapter(size_t index) { return state()["adapters"][index]; }

  void expectNothingTouched() { EXPECT_THAT(updateSteps(), IsEmpty()); }
};

TEST_F(FirmwareCommandTest, UnmountsTransfersOnceAndMountsAgain) {
  const ProgramAnswer run =
      command("firmware A1 " + package("corvane2-11.4.204.pkg") + " --yes --json");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_EQ(run.json(), (nlohmann::ordered_json{{"status", 0}, {"version", "11.4.204"}}));
  const auto steps = updateSteps();
  const auto transfer = std::find(steps.begin(), steps.end(), "transfer");
  ASSERT_NE(transfer, steps.end());
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "transfer"), 1);
  const std::vector<std::string> before(steps.begin(), transfer);
  std::vector<std::string> after(transfer + 1, steps.end());
  EXPECT_THAT(before,
              testing::UnorderedElementsAre("unmount disk4", "unmount disk4s1", "unmount disk4s2",
                                            "unmount disk5", "unmount disk6", "unmount disk6s2"));
  ASSERT_EQ(after.size(), before.size());
  for (size_t index = 0; index < after.size(); ++index) {
    EXPECT_EQ("un" + after[index], before[index]);
  }
  EXPECT_EQ(adapter(0)["pendingFirmware"], "11.4.204");
  EXPECT_EQ(adapter(0)["firmware"], "2.02a1");
  EXPECT_FALSE(adapter(1).contains("pendingFirmware"));
}

TEST_F(FirmwareCommandTest, AlertsAndCommandLineAreThoseOfTheWindow) {
  ASSERT_EQ(command("firmware B1 " + package("corvane3-12.0.193.pkg") + " --yes").status, 0);
  EXPECT_THAT(texts("alert", "message"), ElementsAre("Note", "Wait", "Finish"));
  EXPECT_THAT(texts("shell", "line"),
              testing::Contains(testing::AllOf(testing::StartsWith("chmod 777 "),
                                               testing::HasSubstr("/tmp/emulex.grp"))));
}

TEST_F(FirmwareCommandTest, CheckPrintsTheVersionAndChangesNothing) {
  const ProgramAnswer run =
      command("firmware A1 " + package("corvane2-11.4.204.pkg") + " --check --json");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_EQ(run.json(), (nlohmann::ordered_json{{"status", 0}, {"version", "11.4.204"}}));
  expectNothingTouched();
}

TEST_F(FirmwareCommandTest, WithoutATerminalItHasToBeConfirmedBeforehand) {
  const ProgramAnswer run = command("firmware A1 " + package("corvane2-11.4.204.pkg"));
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.errors, HasSubstr("--yes"));
  expectNothingTouched();
}

TEST_F(FirmwareCommandTest, FaultyPackagesAreTurnedAway) {
  const std::vector<std::pair<std::string, int>> faulty{
      {"truncated.pkg", 0x13}, {"wrong-checksum.pkg", 0x13}, {"without-image.pkg", 0x11}};
  for (const auto& [name, status] : faulty) {
    const ProgramAnswer run = command("firmware A1 " + package(name) + " --yes --json");
    EXPECT_EQ(run.status, 1) << name;
    EXPECT_EQ(run.json()["status"], status) << name;
    expectNothingTouched();
  }
}

TEST_F(FirmwareCommandTest, MissingPackageAndAdapterAreNotFound) {
  EXPECT_EQ(command("firmware A1 " + package("none.pkg") + " --yes").status, 3);
  EXPECT_EQ(command("firmware Z9 " + package("corvane2-11.4.204.pkg") + " --yes").status, 3);
  EXPECT_EQ(command("firmware C1 " + package("corvane2-11.4.204.pkg") + " --yes").status, 1);
}

TEST_F(FirmwareCommandTest, RefusedImageIsAFailureAndVolumesComeBack) {
  for (const char* name : {"wrong-header.pkg", "corvane3-12.0.193.pkg"}) {
    const ProgramAnswer run = command("firmware A1 " + package(name) + " --yes");
    EXPECT_EQ(run.status, 1) << name;
    EXPECT_THAT(run.errors, HasSubstr("refused the image")) << name;
    EXPECT_EQ(updateSteps().back().substr(0, 6), "mount ") << name;
    EXPECT_FALSE(adapter(0).contains("pendingFirmware")) << name;
  }
}

TEST_F(FirmwareCommandTest, AdapterUnpluggedWhileFlashingIsAFailure) {
  switchFault("unplugged-while-flashing");
  const ProgramAnswer run = command("firmware A1 " + package("corvane2-11.4.204.pkg") + " --yes");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.errors, HasSubstr("the adapter has gone"));
  EXPECT_FALSE(adapter(0).contains("pendingFirmware"));
}

TEST_F(FirmwareCommandTest, KilledUpdateIsToldAtTheNextStartOnce) {
  setClockRate(1);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const std::string line =
        "exec " +
        commandLine("corvane",
                    arguments("firmware A1 " + package("corvane2-11.4.204.pkg") + " --yes")) +
        " >/dev/null 2>&1 </dev/null";
    execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
    _exit(127);
  }
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (updateSteps().size() < 6 && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  ASSERT_EQ(updateSteps().size(), 6U);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  setClockRate(10);

  const ProgramAnswer next = command("list --json");
  EXPECT_EQ(next.status, 0) << next.errors;
  EXPECT_THAT(next.errors, HasSubstr("may still be unmounted: disk4 disk4s1"));
  EXPECT_THAT(texts("log", "line"),
              testing::Contains(HasSubstr("may still be unmounted: disk4, disk4s1")));
  EXPECT_EQ(next.json().size(), 6U);
  EXPECT_FALSE(adapter(0).contains("pendingFirmware"));

  EXPECT_THAT(command("list").errors, Not(HasSubstr("may still be unmounted")));
  EXPECT_EQ(command("firmware A1 " + package("corvane2-11.4.204.pkg") + " --yes").status, 0);
}

}  // namespace
