#include <cstdlib>
#include <nlohmann/json.hpp>

#include "AppDelegate.h"
#include "TemporaryFolder.h"
#include "fakes/FakeLog.h"
#include "fakes/FakePrompts.h"
#include "platform/bench/BenchPlatform.h"
#include "platform/bench/file/BenchDemo.h"
#include "platform/bench/file/BenchFile.h"
#include "platform/journal/JournalPlatform.h"
#include "platform/posix/PlainMainQueue.h"

using namespace corvane;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr const char* eightGigabitName = "20:00:00:10:9B:00:00:10";

/// The whole utility on a copy of the demo bench, with the update folder that is shipped.
class OnlineUpdateBenchTest : public testing::Test {
 protected:
  void SetUp() override {
    BenchState bench = demoBench();
    bench.clockRate = 10'000;
    file_.create(bench);
  }

  void TearDown() override {
    app_.reset();
    if (computer_) computer_->end();
    journal_.reset();
    computer_.reset();
  }

  void launch() {
    BenchPlatformOptions options;
    options.toolsFolder = CORVANE_BINARY_DIR "/bin/bench-tools";
    options.samplesFolder = CORVANE_SOURCE_DIR "/bench";
    options.standardOutput = STDERR_FILENO;
    computer_.emplace(file_.path(), queue_, prompts_, log_, options);
    journal_.emplace(computer_->platform(), journalPath());
    app_.emplace(journal_->platform());
    bool discovered = false;
    app_->inventory().whenDiscovered([&discovered] { discovered = true; });
    app_->applicationDidFinishLaunching();
    ASSERT_TRUE(queue_.runUntil([&discovered] { return discovered; }, 60s));
    app_->inventory().whenDiscovered(nullptr);
    prompts_.alerts.clear();
  }

  std::string journalPath() const { return folder_.file("journal.jsonl"); }

  OnlineUpdate& update() { return app_->onlineUpdate(); }

  void installEverything() {
    for (int64_t row = 0; row < update().numberOfRowsInTableView(); ++row) {
      update().tableViewSetObjectValueForTableColumn(PropertyValue(1), "selected", row);
    }
    update().selectUpdate();
    ASSERT_TRUE(queue_.runUntil([this] { return !update().isInstalling(); }, 60s));
  }

  std::vector<std::string> candidates() {
    std::vector<std::string> names;
    for (const UpdateDevice& candidate : update().updateItem())
      names.push_back(candidate.updateName);
    return names;
  }

  /// What the journal holds of unmounting, transfers, mounting, downloads and alerts, in order.
  std::vector<std::string> steps() const {
    std::vector<std::string> steps;
    std::ifstream journal(journalPath());
    for (std::string text; std::getline(journal, text);) {
      const auto line = nlohmann::json::parse(text);
      const std::string call = line["call"];
      if (call == "unmount" || call == "mount") steps.push_back(call);
      if (call == "userClient" && line["selector"] == 3) {
        steps.push_back("transfer on " + line["thread"].get<std::string>());
      }
      if (call == "download") {
        steps.push_back("download " +
                        std::filesystem::path(line["path"].get<std::string>()).filename().string());
      }
      if (call == "alert") steps.push_back("alert " + line["message"].get<std::string>());
    }
    steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
    return steps;
  }

  const BenchAdapter adapter(const std::string& wwn) const {
    for (const BenchAdapter& adapter : file_.load().adapters) {
      if (adapter.nodeWWN == wwn) return adapter;
    }
    return {};
  }

  const TemporaryFolder folder_;
  const BenchFile file_{folder_.file("bench.json")};
  PlainMainQueue queue_;
  FakePrompts prompts_;
  FakeLog log_;
  std::optional<BenchPlatform> computer_;
  std::optional<JournalPlatform> journal_;
  std::optional<AppDelegate> app_;
};

TEST_F(OnlineUpdateBenchTest, FirmwareIsInstalledWithTheVolumesOffline) {
  launch();
  update().checkUpdate();
  EXPECT_THAT(candidates(), ElementsAre(HasSubstr("FW(8G) 20:00:00:10:9B:00:00:10(")));
  installEverything();
  EXPECT_THAT(steps(),
              ElementsAre("download ", "download Corvane2-FW-8G-11.4.204.pkg", "alert Wait",
                          "unmount", "alert Wait", "transfer on main", "alert Finish", "mount"));
  ASSERT_EQ(update().lastInstallation().adapters.size(), 1u);
  EXPECT_TRUE(update().lastInstallation().adapters[0].succeeded());
  EXPECT_EQ(adapter(eightGigabitName).pendingFirmware, "11.4.204");
}

TEST_F(OnlineUpdateBenchTest, SixteenGigabitFirmwareIsOfferedOnceEightGigabitRunsTheNew) {
  file_.update([](BenchState& bench) {
    for (BenchAdapter& adapter : bench.adapters) {
      if (adapter.nodeWWN == eightGigabitName) adapter.firmware = "11.4.204";
    }
  });
  launch();
  update().checkUpdate();
  EXPECT_THAT(candidates(), ElementsAre(HasSubstr("FW(16G) 20:00:00:10:9B:00:00:20(")));
  installEverything();
  EXPECT_EQ(adapter("20:00:00:10:9B:00:00:20").pendingFirmware, "11.4.204");
}

TEST_F(OnlineUpdateBenchTest, SoftwareIsDownloadedAndOpened) {
  file_.set("/application/version", "\"0.9.0.0\"");
  launch();
  update().checkUpdate();
  EXPECT_THAT(candidates(), ElementsAre("CORVANE Utility"));
  installEverything();
  EXPECT_EQ(prompts_.terminations, 1);
  std::ifstream opened(std::filesystem::path(file_.folder()) / "opened.txt");
  std::string line;
  std::getline(opened, line);
  EXPECT_THAT(line, testing::EndsWith("/CORVANE_Utility.dmg"));
  EXPECT_TRUE(std::filesystem::exists(line));
}

TEST_F(OnlineUpdateBenchTest, WithoutANetworkNothingIsFetched) {
  file_.update([](BenchState& bench) { bench.faults.insert("no-network"); });
  launch();
  update().checkUpdate();
  ASSERT_EQ(prompts_.alerts.size(), 1u);
  EXPECT_EQ(prompts_.alerts[0].content.message, "Waring");
  EXPECT_THAT(steps(), ElementsAre("alert Waring"));
}

TEST_F(OnlineUpdateBenchTest, ADriverThatRefusesTheImageLeavesTheAdapterAsItWas) {
  file_.update([](BenchState& bench) { bench.faults.insert("firmware-refused"); });
  launch();
  update().checkUpdate();
  installEverything();
  EXPECT_EQ(adapter(eightGigabitName).pendingFirmware, std::nullopt);
  EXPECT_EQ(prompts_.alerts.back().content.message, "Finish");
  EXPECT_FALSE(update().lastInstallation().adapters[0].succeeded());
}

}  // namespace
