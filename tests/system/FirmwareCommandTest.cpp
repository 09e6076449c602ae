#include <gmock/gmock.h>
#ifdef __APPLE__
#include <util.h>
#else
#include <pty.h>
#endif

#include <array>
#include <csignal>
#include <functional>
#include <iterator>
#include <set>

#include "ChangingCommandFixture.h"

using namespace corvane;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// `corvane firmware` on the demo bench, whose disk4 and disk5 lie behind A1 and disk6 behind B1.
class FirmwareCommandTest : public ChangingCommandFixture {
 protected:
  FirmwareCommandTest() : ChangingCommandFixture(10) {}

  nlohmann::ordered_json adapter(size_t index) { return state()["adapters"][index]; }

  /// The manifest of a package whose image takes a while to extract; no adapter takes it.
  std::string writeLargeManifest() const {
    constexpr size_t size = 5'000'000;
    std::ofstream(path("large.bin"), std::ios::binary) << std::string(size, 'x');
    const nlohmann::ordered_json manifest{{"id", "large"},
                                          {"version", "1.0"},
                                          {"files",
                                           {{{"id", "emulex.grp"},
                                             {"version", "1.0"},
                                             {"description", ""},
                                             {"name", "large"},
                                             {"path", "large.bin"}}}}};
    std::ofstream(path("large.json")) << manifest;
    return path("large.json").string();
  }

  /// What a program shows until it has shown `end`, or until it ends.
  static std::string readTerminal(int terminal, const std::string& end) {
    std::string shown;
    std::array<char, 4096> piece{};
    while (end.empty() || shown.find(end) == std::string::npos) {
      const ssize_t count = read(terminal, piece.data(), piece.size());
      if (count <= 0) break;
      shown.append(piece.data(), static_cast<size_t>(count));
    }
    return shown;
  }

  void unplug(size_t index) {
    auto document = state();
    document["adapters"][index]["attached"] = false;
    writeState(document);
  }

  void waitForPost(const std::string& name) {
    waitUntil([&] {
      const auto names = texts("post", "name");
      return std::find(names.begin(), names.end(), name) != names.end();
    });
  }

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
  // What is missing is told before the missing confirmation.
  EXPECT_EQ(command("firmware A1 " + package("none.pkg")).status, 3);
  EXPECT_EQ(command("firmware Z9 " + package("corvane2-11.4.204.pkg")).status, 3);
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

TEST_F(FirmwareCommandTest, PathThatNoSystemTakesIsNotFound) {
  const ProgramAnswer run = command("firmware A1 " + std::string(5000, 'a') + " --yes");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.errors, HasSubstr("there is no such file"));
}

// On this bench the three attempts at the image are over at once, while extracting it takes as long
// as it takes.
TEST_F(FirmwareCommandTest, LargeImageReachesTheAdapterHoweverFastTimePasses) {
  setClockRate(1'000'000);
  const std::string large = path("large.pkg").string();
  ASSERT_EQ(run("corvane", {"archive", "create", large, writeLargeManifest()}).status, 0);
  const ProgramAnswer run = command("firmware A1 " + large + " --yes");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.errors, HasSubstr("refused the image"));
  EXPECT_THAT(updateSteps(), testing::Contains("transfer"));
}

// The adapters behind it on the chain are shown once it has gone, and must not get its image.
TEST_F(FirmwareCommandTest, AdapterUnpluggedAtTheQuestionIsNotReplacedByAnother) {
  setClockRate(1000);
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  ASSERT_GE(child, 0);
  if (child == 0) {
    const std::string line =
        "exec " +
        commandLine("corvane", arguments("firmware A1 " + package("corvane2-11.4.204.pkg")));
    execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
    _exit(127);
  }
  std::string shown = readTerminal(terminal, "[y/N]");
  unplug(0);
  waitForPost("Corvane2Disppeared");
  ASSERT_EQ(write(terminal, "y\n", 2), 2);
  shown += readTerminal(terminal, "");
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  close(terminal);
  EXPECT_EQ(WEXITSTATUS(status), 1);
  EXPECT_THAT(shown, HasSubstr("the adapter has gone"));
  const auto bench = state();
  for (const auto& other : bench["adapters"]) EXPECT_FALSE(other.contains("pendingFirmware"));
}

/// Kills an update at some moment, as its journal tells it, and looks at what the next start finds.
class KilledUpdateTest : public FirmwareCommandTest {
 protected:
  static constexpr double whileKilling = 10;  ///< slow enough for the moment to be met
  static constexpr double afterwards = 1000;
  static constexpr const char* told = "may still be unmounted:";

  std::string updateWords() const {
    return "firmware A1 " + package("corvane2-11.4.204.pkg") + " --yes";
  }

  void killUpdateWhen(const std::function<bool()>& moment) {
    const int status = endUpdateWhen(moment, SIGKILL);
    EXPECT_TRUE(isDoneOrOvertaken(status, SIGKILL)) << status;
  }

  /// Sends the signal at that moment and returns how the update ended.
  int endUpdateWhen(const std::function<bool()>& moment, int signal) {
    const pid_t child = fork();
    EXPECT_GE(child, 0);
    if (child == 0) {
      const std::string line = "exec " + commandLine("corvane", arguments(updateWords())) +
                               " >/dev/null 2>&1 </dev/null";
      execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
      _exit(127);
    }
    waitUntil(moment);
    kill(child, signal);
    int status = 0;
    waitpid(child, &status, 0);
    return status;
  }

  std::set<std::string> mountedVolumes() const {
    std::set<std::string> names;
    const auto bench = state();
    for (const auto& disk : bench["disks"]) {
      if (disk.value("mounted", false)) names.insert(disk["name"]);
      if (!disk.contains("partitions")) continue;
      for (const auto& partition : disk["partitions"]) {
        if (partition.value("mounted", true)) names.insert(partition["name"]);
      }
    }
    return names;
  }

  /// The volumes that the last run's journal says were mounted again.
  std::set<std::string> mountedAgain() const {
    std::set<std::string> names;
    for (const std::string& step : updateSteps()) {
      if (step.starts_with("mount ")) names.insert(step.substr(std::string("mount ").size()));
    }
    return names;
  }

  /// The bench without what an update changes.
  nlohmann::ordered_json stateBesideTheUpdate() const {
    auto document = state();
    document.erase("disks");
    document.erase("clockRate");
    document["adapters"][0].erase("pendingFirmware");
    return document;
  }

  static std::set<std::string> toldVolumes(const ProgramAnswer& run) {
    const size_t found = run.errors.find(told);
    if (found == std::string::npos) return {};
    std::istringstream line(run.errors.substr(found + std::string(told).size()));
    std::string names;
    std::getline(line, names);
    std::istringstream words(names);
    return {std::istream_iterator<std::string>(words), {}};
  }

  /// Kills an update at that moment; whatever it was, the next start has to find all in order.
  void expectConsistencyAfterKilling(const std::function<bool()>& moment) {
    setClockRate(whileKilling);
    writeOutInFull();
    const auto before = stateBesideTheUpdate();
    const std::set<std::string> mountedBefore = mountedVolumes();
    killUpdateWhen(moment);
    const std::set<std::string> again = mountedAgain();
    const std::set<std::string> mountedNow = mountedVolumes();
    setClockRate(afterwards);

    const ProgramAnswer next = command("list --json");
    EXPECT_EQ(next.status, 0) << next.errors;
    EXPECT_EQ(next.json().size(), 6U);
    EXPECT_EQ(stateBesideTheUpdate(), before);
    EXPECT_EQ(adapter(0).value("pendingFirmware", "11.4.204"), "11.4.204");

    const std::set<std::string> volumes = toldVolumes(next);
    for (const std::string& name : mountedBefore) {
      EXPECT_TRUE(mountedNow.count(name) > 0 || volumes.count(name) > 0) << name;
    }
    // It may have been killed between mounting a volume and noting it, no more than that.
    EXPECT_LE(std::count_if(volumes.begin(), volumes.end(),
                            [&](const std::string& name) { return again.count(name) > 0; }),
              1);
    const auto logged = texts("log", "line");
    EXPECT_EQ(std::any_of(logged.begin(), logged.end(),
                          [](const auto& line) { return line.find(told) != std::string::npos; }),
              !volumes.empty());

    EXPECT_THAT(toldVolumes(command("list")), IsEmpty());
    EXPECT_EQ(command(updateWords()).status, 0);
    EXPECT_EQ(adapter(0)["pendingFirmware"], "11.4.204");
    EXPECT_THAT(toldVolumes(command("list")), IsEmpty());
  }
};

TEST_F(KilledUpdateTest, WhileItTellsToWait) {
  expectConsistencyAfterKilling([this] {
    const auto messages = texts("alert", "message");
    return std::find(messages.begin(), messages.end(), "Wait") != messages.end();
  });
}

// The demo's adapters have six volumes: six steps, the transfer, and six steps again.
TEST_F(KilledUpdateTest, AtEachStep) {
  for (const size_t steps : {1U, 3U, 6U, 7U, 8U, 10U, 12U, 13U}) {
    SCOPED_TRACE(steps);
    expectConsistencyAfterKilling([&] { return updateSteps().size() >= steps; });
  }
}

TEST_F(KilledUpdateTest, DuringTheTransferEveryVolumeIsTold) {
  setClockRate(1);
  killUpdateWhen([this] { return updateSteps().size() >= 6; });
  ASSERT_EQ(updateSteps().size(), 6U);
  setClockRate(10);
  const ProgramAnswer next = command("list");
  EXPECT_THAT(toldVolumes(next), testing::UnorderedElementsAre("disk4", "disk4s1", "disk4s2",
                                                               "disk5", "disk6", "disk6s2"));
  EXPECT_FALSE(adapter(0).contains("pendingFirmware"));
}

TEST_F(KilledUpdateTest, AnInterruptLetsItComeToItsEnd) {
  setClockRate(whileKilling);
  writeOutInFull();
  const std::set<std::string> mountedBefore = mountedVolumes();
  const int status = endUpdateWhen([this] { return !updateSteps().empty(); }, SIGINT);
  EXPECT_TRUE(isDoneOrOvertaken(status, SIGINT)) << status;
  EXPECT_EQ(adapter(0)["pendingFirmware"], "11.4.204");
  EXPECT_THAT(mountedVolumes(), testing::IsSupersetOf(mountedBefore));
}

}  // namespace
