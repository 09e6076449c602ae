// The pages on a whole simulated computer: real discovery, the real shell, the bench's tools. What
// was run is read from the journal.

#include <gmock/gmock.h>

#include <atomic>
#include <nlohmann/json.hpp>

#include "AppDelegate.h"
#include "CLIParser/ScriptedShell.h"
#include "discovery/Products.h"
#include "fakes/FakeLog.h"
#include "fakes/FakePrompts.h"
#include "fakes/PlatformWithShell.h"
#include "platform/bench/BenchPlatform.h"
#include "platform/bench/file/BenchFolder.h"
#include "platform/journal/JournalPlatform.h"
#include "platform/posix/PlainMainQueue.h"

namespace corvane {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

constexpr std::chrono::seconds patience{60};

/// While it is impatient, gives every command far less time than the utility does, so that a tool
/// that hangs is given up at once. A tool that works may need more on a busy computer.
class ImpatientShell final : public Shell {
 public:
  ImpatientShell(Shell& shell, const std::atomic<bool>& isImpatient)
      : shell_(shell), isImpatient_(isImpatient) {}
  int run(const std::string& line) override { return shell_.run(line); }
  int runWithin(const std::string& line, std::chrono::milliseconds limit) override {
    if (isImpatient_) limit = std::chrono::milliseconds(300);
    const int status = shell_.runWithin(line, limit);
    if (status == shellTimedOut) ++timeouts;
    return status;
  }

  std::atomic<int> timeouts = 0;

 private:
  Shell& shell_;
  const std::atomic<bool>& isImpatient_;
};

class BenchPagesTest : public testing::Test {
 protected:
  /// A Mac with one adapter of that product, on en5 and en6.
  static BenchState computerWith(std::string_view product) {
    BenchState state;
    state.clockRate = 100000;
    state.drivers["Corvane2-10GE"] = "1.4.0";
    BenchAdapter adapter;
    adapter.product = product;
    adapter.ethernetPorts = {port("en5", "00:1B:21:AA:BB:CC"), port("en6", "00:1B:21:AA:BB:CD")};
    state.adapters = {adapter};
    return state;
  }

  static BenchEthernetPort port(const std::string& interface, const std::string& mac) {
    BenchEthernetPort port;
    port.interface = interface;
    port.mac = mac;
    return port;
  }

  /// Switches the computer on and waits until the adapter's first page is shown.
  void launch(const BenchState& state) {
    file.create(state);
    BenchPlatformOptions options;
    options.toolsFolder = BENCH_TOOLS;
    bench = std::make_unique<BenchPlatform>(file.path(), mainQueue, prompts, log, options);
    impatientShell = std::make_unique<ImpatientShell>(bench->platform().shell, isImpatient);
    journal = std::make_unique<JournalPlatform>(
        platformWithShell(bench->platform(), *impatientShell), journalPath);
    application = std::make_unique<AppDelegate>(journal->platform());
    application->applicationDidFinishLaunching();
    ASSERT_TRUE(mainQueue.runUntil([this] { return controls().MTUvalue.text() != ""; }, patience));
    ASSERT_TRUE(application->administratorLock().authorize());
    forgetLines();
  }

  void TearDown() override {
    application.reset();
    if (bench) bench->end();
  }

  MainWindowControls& controls() { return application->controls(); }
  BenchEthernetPort portNow(const std::string& interface) {
    const BenchState state = file.load();
    return *state.findEthernetPort(interface);
  }

  /// The command lines since the last forgetLines(), each with the thread it was run on.
  std::vector<std::pair<std::string, std::string>> linesWithThreads() {
    std::vector<std::pair<std::string, std::string>> lines;
    std::ifstream stream(journalPath);
    for (std::string text; std::getline(stream, text);) {
      const auto happening = nlohmann::json::parse(text);
      if (happening.at("call") != "shell") continue;
      lines.emplace_back(happening.at("thread"), happening.at("line"));
    }
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(forgotten));
    return lines;
  }
  std::vector<std::string> lines() {
    std::vector<std::string> texts;
    for (const auto& [thread, line] : linesWithThreads()) texts.push_back(line);
    return texts;
  }
  void forgetLines() {
    forgotten = 0;
    forgotten = linesWithThreads().size();
  }

  std::string tool(const std::string& words) const { return paths.utilityTool + " " + words; }
  std::string read(const std::string& command) const { return command + " > " + paths.scratchFile; }
  std::vector<std::string> portPageLines(const std::string& interface, size_t moduleTries) const {
    std::vector<std::string> expected(moduleTries, read(tool(interface + " getSFPModule")));
    for (const char* title : {"RxIntrThrottle", "RxRingSize", "TxIntrThrottle", "TxRingSize",
                              "RxRingCount", "TCPipv4ChecksumEnable"}) {
      expected.push_back(read(tool(interface + " get" + title)));
    }
    expected.push_back(read(tool("all getRSCEnable")));
    expected.push_back(read(tool(interface + " getRSCEnable")));
    const auto link = linkLines(interface);
    expected.insert(expected.end(), link.begin(), link.end());
    return expected;
  }
  std::vector<std::string> linkLines(const std::string& interface) const {
    const std::string status = read("ifconfig " + interface + "|grep status");
    return {status, status, read("ifconfig " + interface) + "|grep media",
            read("ifconfig " + interface)};
  }

  TemporaryFolder folder;
  const std::string journalPath = (folder.path() / "journal").string();
  BenchFile file{(folder.path() / "bench.json").string()};
  const Paths paths = BenchFolder(file).paths();
  PlainMainQueue mainQueue;
  FakePrompts prompts;
  FakeLog log;
  std::unique_ptr<BenchPlatform> bench;
  std::atomic<bool> isImpatient = false;
  std::unique_ptr<ImpatientShell> impatientShell;
  std::unique_ptr<JournalPlatform> journal;
  std::unique_ptr<AppDelegate> application;
  size_t forgotten = 0;
};

class EveryProductTest : public BenchPagesTest,
                         public testing::WithParamInterface<std::string_view> {};

TEST_P(EveryProductTest, ShowsBothPortPagesAndTheDevicePage) {
  launch(computerWith(GetParam()));
  controls().port2Button.click();
  EXPECT_THAT(lines(), ElementsAreArray(portPageLines("en6", 10)));
  EXPECT_EQ(controls().macAddress.text(), "00:1B:21:AA:BB:CD");
  EXPECT_EQ(controls().enName.text(), "en6");
  EXPECT_EQ(controls().enStatus.text(), "10GbaseT");
  EXPECT_EQ(controls().MTUvalue.text(), "1500");
  EXPECT_EQ(controls().settingMode.selectedTag(), 2);
  EXPECT_TRUE(controls().enableTCPipv4.isOn());
  EXPECT_TRUE(controls().enableRSC.isOn());
  EXPECT_TRUE(controls().SFPInfoModule.isHidden());
  controls().port1Button.click();
  EXPECT_EQ(controls().enName.text(), "en5");
  controls().deviceButton.click();
  EXPECT_EQ(controls().drvVer_10GE.text(), "1.4.0");
  EXPECT_EQ(controls().productType10G.text(), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Products, EveryProductTest,
                         testing::Values(corvane2_10G_BaseT, corvane2_10G_SFP, corvane3_NBASE_T1,
                                         corvane3_10G_BaseT, corvane3_10G_SFP));

TEST_F(BenchPagesTest, AModuleIsFoundAtItsTurn) {
  BenchState state = computerWith(corvane2_10G_SFP);
  state.adapters[0].ethernetPorts[0].module = "da_cu";
  state.adapters[0].ethernetPorts[1].module = "Unknown";
  launch(state);
  EXPECT_EQ(controls().SFPInfoModule.text(), "10G Copper Passive");
  controls().refreshButton.click();
  EXPECT_THAT(lines(), ElementsAreArray(portPageLines("en5", 3)));
  controls().port2Button.click();
  EXPECT_EQ(controls().SFPerrrorMessage10G.text(), wrongModuleWarning10G);
  EXPECT_TRUE(controls().SFPInfoModule.isHidden());
}

TEST_F(BenchPagesTest, APresetIsAppliedInTheBackgroundAndSaved) {
  launch(computerWith(corvane3_10G_SFP));
  controls().settingMode.choose(0);
  EXPECT_FALSE(controls().refreshButton.isEnabled());
  ASSERT_TRUE(
      mainQueue.runUntil([this] { return !controls().modeProgress.isRunning(); }, patience));
  EXPECT_THAT(lines(),
              ElementsAre(tool("en5 setRxIntrThrottle 4000"), read(tool("en5 getRxIntrThrottle")),
                          tool("en5 setRxRingSize 512"), read(tool("en5 getRxRingSize")),
                          tool("en5 setTxIntrThrottle 8000"), read(tool("en5 getTxIntrThrottle")),
                          tool("en5 setTxRingSize 1024"), read(tool("en5 getTxRingSize")),
                          tool("en5 setRxRingCount 1"), tool("en5 saveConfig")));
  EXPECT_THAT(linesWithThreads(), Each(Pair("background", testing::_)));
  EXPECT_EQ(portNow("en5").savedSettings.at("RxIntrThrottle"), 4000);
  EXPECT_EQ(portNow("en6").settings.at("RxIntrThrottle"), 8000);
  controls().refreshButton.click();
  EXPECT_EQ(controls().settingMode.selectedTag(), 1);
}

TEST_F(BenchPagesTest, TheBoxesWriteAndSave) {
  launch(computerWith(corvane3_10G_SFP));
  controls().enableTCPipv4.choose(false);
  controls().enableRSC.choose(false);
  EXPECT_THAT(lines(), ElementsAre(tool("en5 setTCPipv4ChecksumEnable 1"),
                                   read(tool("en5 getTCPipv4ChecksumEnable")),
                                   tool("en5 saveConfig"), tool("en5 setRSCEnable 0"),
                                   read(tool("en5 getRSCEnable")), tool("en5 saveConfig")));
  EXPECT_THAT(linesWithThreads(), Each(Pair("main", testing::_)));
  EXPECT_EQ(portNow("en5").savedSettings.at("TCPipv4ChecksumEnable"), 1);
  EXPECT_EQ(portNow("en5").savedSettings.at("RSCEnable"), 0);
  controls().refreshButton.click();
  EXPECT_FALSE(controls().enableTCPipv4.isOn());
  EXPECT_FALSE(controls().enableRSC.isOn());
}

TEST_F(BenchPagesTest, AnOldDriverIsAskedForTheLinkAlone) {
  BenchState state = computerWith(corvane2_10G_SFP);
  state.drivers["Corvane2-10GE"] = "1.3.5";
  launch(state);
  controls().refreshButton.click();
  EXPECT_THAT(lines(), ElementsAreArray(linkLines("en5")));
  EXPECT_FALSE(controls().settingMode.isEnabled());
}

TEST_F(BenchPagesTest, ADriverWithoutCoalescingHidesItsBox) {
  BenchState state = computerWith(corvane2_10G_SFP);
  for (auto& each : state.adapters[0].ethernetPorts) each.settings.erase("RSCEnable");
  launch(state);
  EXPECT_TRUE(controls().enableRSC.isHidden());
}

TEST_F(BenchPagesTest, WithoutALinkOrWithOtherSettingsThePageSaysSo) {
  BenchState state = computerWith(corvane2_10G_SFP);
  state.adapters[0].ethernetPorts[0].link = false;
  state.adapters[0].ethernetPorts[0].settings["RxRingSize"] = 640;
  launch(state);
  EXPECT_EQ(controls().enStatus.text(), "No Link");
  EXPECT_EQ(controls().settingMode.plainValue(), "Custom");
}

TEST_F(BenchPagesTest, AMissingToolLeavesAPageWithoutSettings) {
  BenchState state = computerWith(corvane2_10G_SFP);
  state.faults = {"tool-missing"};
  launch(state);
  EXPECT_EQ(controls().enStatus.text(), "10GbaseT");
  EXPECT_TRUE(controls().enableRSC.isHidden());
  EXPECT_EQ(controls().settingMode.plainValue(), "Not read");
}

TEST_F(BenchPagesTest, AToolThatHangsIsGivenUpOnceAPageAndTheWindowCanBeClosed) {
  BenchState state = computerWith(corvane2_10G_SFP);
  state.faults = {"tool-hangs"};
  isImpatient = true;
  launch(state);
  impatientShell->timeouts = 0;
  controls().refreshButton.click();
  EXPECT_EQ(impatientShell->timeouts, 1);
  EXPECT_EQ(lines().front(), read(tool("en5 getSFPModule"))) << "the tool is asked once";
  EXPECT_EQ(controls().enStatus.text(), "10GbaseT") << "ifconfig still answers";
  EXPECT_EQ(controls().MTUvalue.text(), "1500");
  EXPECT_TRUE(controls().SFPInfoModule.isHidden());
  application->mainWindow().requestClose();
  EXPECT_FALSE(application->mainWindow().isShown());
}

TEST_F(BenchPagesTest, APresetThatHangsGivesTheControlsBack) {
  launch(computerWith(corvane2_10G_SFP));
  file.update([](BenchState& state) { state.faults.insert("tool-hangs"); });
  isImpatient = true;
  controls().settingMode.choose(3);
  ASSERT_TRUE(
      mainQueue.runUntil([this] { return !controls().modeProgress.isRunning(); }, patience));
  EXPECT_EQ(impatientShell->timeouts, 1);
  EXPECT_TRUE(controls().refreshButton.isEnabled());
  isImpatient = false;
  file.update([](BenchState& state) { state.faults.clear(); });
  controls().refreshButton.click();
  EXPECT_EQ(controls().settingMode.selectedTag(), 2);
}

TEST_F(BenchPagesTest, RubbishFromTheToolIsShownAsNothing) {
  BenchState state = computerWith(corvane2_10G_SFP);
  state.faults = {"tool-rubbish"};
  launch(state);
  EXPECT_EQ(controls().enStatus.text(), "10GbaseT");
  EXPECT_FALSE(controls().enableRSC.isEnabled());
  EXPECT_EQ(controls().settingMode.plainValue(), "Not read");
}

TEST_F(BenchPagesTest, WithoutAScratchFileNothingIsRead) {
  BenchState state = computerWith(corvane2_10G_SFP);
  state.faults = {"scratch-unwritable"};
  launch(state);
  controls().refreshButton.click();
  EXPECT_THAT(lines(), IsEmpty());
  EXPECT_EQ(controls().enStatus.text(), "Unknow");
  EXPECT_EQ(controls().MTUvalue.text(), "0");
  controls().enableTCPipv4.choose(true);
  EXPECT_THAT(lines(), SizeIs(2));
}

}  // namespace
}  // namespace corvane
