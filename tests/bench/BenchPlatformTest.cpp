#include "platform/bench/BenchPlatform.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "bench/BenchMachineFixture.h"
#include "fakes/FakePrompts.h"
#include "platform/bench/file/BenchEdits.h"
#include "platform/bench/file/BenchFolder.h"
#include "platform/posix/PlainMainQueue.h"

using namespace corvane;

namespace {

class BenchTestDelegate final : public AuthorizationDelegate {
 public:
  void authorizationViewDidAuthorize() override { events += "open "; }
  void authorizationViewDidDeauthorize() override { events += "closed "; }
  std::string events;
};

class BenchPlatformTest : public BenchMachineFixture {
 protected:
  const Platform& begin(const BenchState& state, const std::string& toolsFolder = "") {
    file().create(state);
    BenchPlatformOptions options;
    options.toolsFolder = toolsFolder;
    options.watchInterval = std::chrono::milliseconds(1);
    bench_ = std::make_unique<BenchPlatform>(path(), queue_, prompts_, log_, options);
    return bench_->platform();
  }

  void TearDown() override {
    bench_.reset();
    BenchMachineFixture::TearDown();
  }

  static std::string textOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  }

  static BenchState withDisks() {
    BenchState state;
    state.drivers = {{"Corvane2-FC", "2.0.10"}};
    plugAdapter(state, "Corvane2 8G FC", 1, 1, "20:00:00:10:9B:12:34:56");
    BenchDisk onAdapter;
    onAdapter.name = "disk4";
    onAdapter.port = "21:00:00:10:9B:12:34:56";
    onAdapter.partitions = {{"disk4s1", true}};
    BenchDisk inside;
    inside.name = "disk0";
    state.disks = {onAdapter, inside};
    return state;
  }

  PlainMainQueue queue_;
  FakePrompts prompts_;
  std::unique_ptr<BenchPlatform> bench_;
};

/// Follows disks on a thread of its own.
class BenchTestDiskWatcher {
 public:
  explicit BenchTestDiskWatcher(const Platform& platform) : platform_(platform) {
    thread_ = std::thread([this] { run(); });
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return loop_ != nullptr; });
  }

  ~BenchTestDiskWatcher() {
    loop_->stop();
    thread_.join();
  }

  std::vector<std::string> events() {
    const std::lock_guard guard(mutex_);
    return events_;
  }

  void request(bool mounted, const std::string& name) {
    const auto disk = session_->createDisk(name);
    if (mounted) {
      session_->mount(*disk, &onAnswer, this);
    } else {
      session_->unmount(*disk, &onAnswer, this);
    }
  }

 private:
  void run() {
    session_ = platform_.diskArbitration.createSession();
    session_->registerAppeared(
        [](Disk& disk, void* context) { note(context, "+" + *disk.bsdName()); }, this);
    session_->registerDisappeared(
        [](Disk& disk, void* context) { note(context, "-" + *disk.bsdName()); }, this);
    const auto loop = platform_.runLoops.current();
    session_->schedule(*loop);
    {
      const std::lock_guard guard(mutex_);
      loop_ = loop;
    }
    changed_.notify_all();
    platform_.runLoops.run();
    session_->unschedule(*loop);
    session_.reset();
  }

  static void onAnswer(Disk& disk, bool refused, void* context) {
    note(context, (refused ? "refused " : "done ") + *disk.bsdName());
  }

  static void note(void* context, const std::string& event) {
    auto* watcher = static_cast<BenchTestDiskWatcher*>(context);
    const std::lock_guard guard(watcher->mutex_);
    watcher->events_.push_back(event);
  }

  const Platform& platform_;
  std::unique_ptr<DiskSession> session_;
  std::thread thread_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::shared_ptr<RunLoop> loop_;
  std::vector<std::string> events_;
};

}  // namespace

TEST_F(BenchPlatformTest, DisksAreReportedAndFollowed) {
  BenchTestDiskWatcher watcher(begin(withDisks()));
  ASSERT_TRUE(eventually([&] { return watcher.events().size() == 3; }));
  EXPECT_EQ(watcher.events(), (std::vector<std::string>{"+disk0", "+disk4", "+disk4s1"}));
  change([](BenchState& state) { unplugAdapter(state.adapters[0]); });
  ASSERT_TRUE(eventually([&] { return watcher.events().size() == 5; }));
  EXPECT_EQ(watcher.events()[3], "-disk4");
  EXPECT_EQ(watcher.events()[4], "-disk4s1");
  change([](BenchState& state) { plugAdapter(state, "Corvane2 8G FC", 1, 1, {}); });
  ASSERT_TRUE(eventually([&] { return watcher.events().size() == 7; }));
  EXPECT_EQ(watcher.events()[5], "+disk4");
}

TEST_F(BenchPlatformTest, UnmountAndMountAreKeptInTheBench) {
  BenchTestDiskWatcher watcher(begin(withDisks()));
  const auto isMounted = [this] { return file().load().disks[0].partitions[0].mounted; };
  watcher.request(false, "disk4s1");
  ASSERT_TRUE(eventually([&] { return watcher.events().size() == 4; }));
  EXPECT_EQ(watcher.events().back(), "done disk4s1");
  EXPECT_FALSE(isMounted());
  watcher.request(true, "disk4s1");
  ASSERT_TRUE(eventually([&] { return watcher.events().size() == 5; }));
  EXPECT_TRUE(isMounted());
  watcher.request(false, "disk9");
  ASSERT_TRUE(eventually([&] { return watcher.events().size() == 6; }));
  EXPECT_EQ(watcher.events().back(), "refused disk9");
  change([](BenchState& state) { state.faults = {"unmount-refused"}; });
  watcher.request(false, "disk4s1");
  ASSERT_TRUE(eventually([&] { return watcher.events().size() == 7; }));
  EXPECT_EQ(watcher.events().back(), "refused disk4s1");
  EXPECT_TRUE(isMounted());
}

TEST_F(BenchPlatformTest, ASessionThatIsNotScheduledAsksAllTheSame) {
  const Platform& platform = begin(withDisks());
  const auto session = platform.diskArbitration.createSession();
  const auto disk = session->createDisk("disk4s1");
  session->unmount(
      *disk, [](Disk&, bool, void*) { FAIL() << "heard an answer"; }, nullptr);
  EXPECT_FALSE(file().load().disks[0].partitions[0].mounted);
}

TEST_F(BenchPlatformTest, DriverBundlesAreInTheFolderOfTheRelease) {
  BenchState state;
  state.drivers = {{"Corvane-FC", "1.1.0"}, {"Corvane2-10GE", "1.4.7"}};
  const Platform& platform = begin(state);
  const std::string local = platform.paths.localExtensions;
  const std::string system = platform.paths.systemExtensions;
  EXPECT_TRUE(platform.bundles.exists(local + "Corvane-FC.kext"));
  EXPECT_FALSE(platform.bundles.exists(local + "Corvane2-FC.kext"));
  EXPECT_FALSE(platform.bundles.exists(system + "Corvane-FC.kext"));
  EXPECT_EQ(platform.bundles.infoValue(local + "Corvane2-10GE.kext", "CFBundleVersion"),
            PropertyValue("1.4.7"));
  EXPECT_EQ(platform.bundles.infoValue(local + "Corvane-FC.kext", "CFBundleIdentifier"),
            PropertyValue("com.velmar.Corvane-FC"));
  EXPECT_EQ(platform.bundles.infoValue(local + "Corvane-FC.kext", "Nothing"), std::nullopt);
  EXPECT_EQ(platform.bundles.infoValue(local + "Corvane2-FC.kext", "CFBundleVersion"),
            std::nullopt);
  change([](BenchState& changed) { changed.computer.osVersion = "10.8.5"; });
  EXPECT_TRUE(platform.bundles.exists(system + "Corvane-FC.kext"));
  EXPECT_FALSE(platform.bundles.exists(local + "Corvane-FC.kext"));
  EXPECT_EQ(platform.systemVersion.productVersion(), "10.8.5");
}

TEST_F(BenchPlatformTest, TheApplicationsOwnBundleIsTheBenchs) {
  BenchState state;
  state.application = {"2.3.4.5", "Copyright", "http://127.0.0.1:1/"};
  const Platform& platform = begin(state);
  EXPECT_EQ(platform.bundles.mainInfoValue("CFBundleShortVersionString"), PropertyValue("2.3.4.5"));
  EXPECT_EQ(platform.bundles.mainInfoValue("NSHumanReadableCopyright"), PropertyValue("Copyright"));
  EXPECT_EQ(platform.bundles.mainInfoValue("Nothing"), std::nullopt);
  EXPECT_EQ(
      propertyText(*platform.bundles.resourcePropertyList("UpdateEngine", "plist"), "plistURL"),
      "http://127.0.0.1:1/");
  EXPECT_EQ(platform.bundles.resourcePropertyList("Other", "plist"), std::nullopt);
}

TEST_F(BenchPlatformTest, CommandsStayInTheBenchsFolder) {
  const std::string tools = folder_ + "/tools";
  std::filesystem::create_directory(tools);
  std::ofstream(tools + "/corvaneutil") << "#!/bin/sh\necho \"$CORVANE_BENCH\"\n";
  std::filesystem::permissions(tools + "/corvaneutil", std::filesystem::perms::owner_all);
  const Platform& platform = begin({}, tools);
  EXPECT_EQ(platform.shell.run("corvaneutil > ~/Desktop/seen"), 0);
  EXPECT_EQ(textOf(platform.paths.home + "/Desktop/seen"), bench_->file().path() + "\n");
  EXPECT_EQ(platform.shell.run(platform.paths.utilityTool + " > " + platform.paths.scratchFile), 0);
  EXPECT_EQ(platform.paths.home.rfind(folder_, 0), 0U);
}

TEST_F(BenchPlatformTest, TheToolCanBeMissingAndTheScratchFileUnwritable) {
  const std::string tools = folder_ + "/tools";
  std::filesystem::create_directory(tools);
  std::ofstream(tools + "/corvaneutil") << "#!/bin/sh\n";
  std::filesystem::permissions(tools + "/corvaneutil", std::filesystem::perms::owner_all);
  const Platform& platform = begin({}, tools);
  const auto runs = [&](const std::string& line) { return platform.shell.run(line) == 0; };
  EXPECT_TRUE(runs(platform.paths.utilityTool));
  change([](BenchState& state) { state.faults = {"tool-missing", "scratch-unwritable"}; });
  EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(platform.paths.utilityTool); }));
  EXPECT_TRUE(
      eventually([&] { return std::filesystem::is_directory(platform.paths.scratchFile); }));
  EXPECT_FALSE(runs("true 2> /dev/null > " + platform.paths.scratchFile));
  change([](BenchState& state) { state.faults.clear(); });
  EXPECT_TRUE(eventually([&] { return std::filesystem::exists(platform.paths.utilityTool); }));
  EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(platform.paths.scratchFile); }));
}

TEST_F(BenchPlatformTest, ScriptsArePlayed) {
  const Platform& platform = begin({});
  const std::string setUp = "do shell script \"touch ~/ran\" with administrator privileges";
  EXPECT_TRUE(platform.scripts.run(setUp).succeeded);
  EXPECT_FALSE(std::filesystem::exists(platform.paths.home + "/ran"));
  EXPECT_FALSE(platform.scripts.run("do shell script \"true\"").succeeded);
  change([](BenchState& state) { state.faults = {"password-cancelled"}; });
  const ScriptResult cancelled = platform.scripts.run(setUp);
  EXPECT_FALSE(cancelled.succeeded);
  EXPECT_EQ(cancelled.errorMessage, "User canceled.");
}

TEST_F(BenchPlatformTest, TheLogCollectionOfAScriptIsDoneByTheBenchsTool) {
  const std::string tools = folder_ + "/tools";
  std::filesystem::create_directory(tools);
  std::ofstream(tools + "/log") << "#!/bin/sh\necho \"$@\" > ~/collected\n";
  std::filesystem::permissions(tools + "/log", std::filesystem::perms::owner_all);
  const Platform& platform = begin({}, tools);
  EXPECT_TRUE(platform.scripts
                  .run("do shell script \"log collect --output there/\" with administrator "
                       "privileges")
                  .succeeded);
  EXPECT_EQ(textOf(platform.paths.home + "/collected"), "collect --output there/\n");
  EXPECT_TRUE(platform.scripts
                  .run("do shell script \"log collect --output 'a \\\"b\\\" \\\\'\" with "
                       "administrator privileges")
                  .succeeded);
  EXPECT_EQ(textOf(platform.paths.home + "/collected"), "collect --output a \"b\" \\\n");
  std::filesystem::remove(tools + "/log");
  EXPECT_FALSE(platform.scripts
                   .run("do shell script \"log collect 2>/dev/null\" with administrator privileges")
                   .succeeded);
}

TEST_F(BenchPlatformTest, TheLockAsksThroughTheHook) {
  const Platform& platform = begin({});
  BenchTestDelegate delegate;
  platform.authorization.setRight("system.privilege.admin");
  platform.authorization.setString("TEST");
  platform.authorization.setDelegate(&delegate);
  platform.authorization.updateStatus();
  EXPECT_FALSE(platform.authorization.isAuthorized());
  int asked = 0;
  bool answer = false;
  bench_->setPasswordPrompt([&] {
    ++asked;
    return answer;
  });
  EXPECT_FALSE(platform.authorization.authorize());
  answer = true;
  EXPECT_TRUE(platform.authorization.authorize());
  EXPECT_TRUE(platform.authorization.authorize());
  EXPECT_EQ(asked, 2) << "a right that is held is not asked for";
  platform.authorization.deauthorize();
  platform.authorization.deauthorize();
  EXPECT_EQ(delegate.events, "open closed ");
  change([](BenchState& state) { state.faults = {"password-cancelled"}; });
  EXPECT_FALSE(platform.authorization.authorize());
  EXPECT_EQ(asked, 2);
}

TEST_F(BenchPlatformTest, WithoutAHookTheRightIsGranted) {
  EXPECT_TRUE(begin({}).authorization.authorize());
}

TEST_F(BenchPlatformTest, TransfersReadFilesAndFailWithoutANetwork) {
  const Platform& platform = begin({});
  std::ofstream(folder_ + "/catalogue") << "catalogue";
  const auto transfer = [&] {
    const auto handle = platform.transfer.createHandle();
    const std::string target = folder_ + "/got";
    std::FILE* stream = std::fopen(target.c_str(), "wb");
    handle->setUrl("file://" + folder_ + "/catalogue");
    handle->setWrite([](const void* buffer, size_t size, size_t count,
                        std::FILE* file) { return std::fwrite(buffer, size, count, file); },
                     stream);
    const int result = handle->perform();
    std::fclose(stream);
    return std::pair(result, handle->failureText());
  };
  EXPECT_EQ(transfer().first, 0);
  EXPECT_EQ(textOf(folder_ + "/got"), "catalogue");
  change([](BenchState& state) { state.faults = {"no-network"}; });
  EXPECT_EQ(transfer(), (std::pair<int, std::string>(7, "the bench has no network")));
}

TEST_F(BenchPlatformTest, SystemLogLinesAreKeptInTheBench) {
  const Platform& platform = begin({});
  platform.log.system("Monitor\nstopped");
  const std::string kept = textOf(platform.paths.systemLog);
  EXPECT_NE(kept.find("Corvane Utility: Monitor?stopped\n"), std::string::npos) << kept;
  EXPECT_NE(log_.text().find("Monitor\nstopped"), std::string::npos);
}

TEST_F(BenchPlatformTest, FirmwareOfAnAdapterDetachedByHandBecomesTheRunningOne) {
  BenchState state = withDisks();
  state.adapters[0].pendingFirmware = "9.9";
  begin(state);
  change([](BenchState& changed) { changed.adapters[0].attached = false; });
  EXPECT_TRUE(eventually([this] { return file().load().adapters[0].firmware == "9.9"; }));
}

TEST_F(BenchPlatformTest, ABenchThatDoesNotFitIsRefused) {
  std::ofstream(path()) << "{}";
  EXPECT_THROW(BenchPlatform(path(), queue_, prompts_, log_), BenchFileError);
  EXPECT_FALSE(std::filesystem::exists(folder_ + "/machine.files"));
}

TEST_F(BenchPlatformTest, ItEndsWhileAMonitorIsInItsRunLoop) {
  const Platform& platform = begin(withDisks());
  std::atomic<bool> isRunning{false};
  std::unique_ptr<NotificationPort> port = platform.registry.createNotificationPort();
  platform.dispatch.asyncGlobal(QueuePriority::Default, [&] {
    platform.runLoops.current()->addSource(port->runLoopSource());
    isRunning = true;
    platform.runLoops.run();
  });
  ASSERT_TRUE(eventually([&] { return isRunning.load(); }));
  bench_->end();
  port.reset();
}
