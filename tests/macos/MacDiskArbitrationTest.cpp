#include "platform/macos/MacDiskArbitration.h"

#include <thread>

#include "macos/MacOverBenchFixture.h"
#include "platform/macos/MacRunLoops.h"

using namespace corvane;
using namespace corvane::macos;

namespace {

class MacDiskArbitrationTest : public MacOverBenchFixture {
 protected:
  BenchState firstState() const override {
    BenchState state = MacOverBenchFixture::firstState();
    BenchDisk disk;
    disk.name = "disk4";
    disk.port = "21:00:00:10:9B:12:34:56";
    disk.partitions = {{"disk4s1", true}};
    state.disks = {disk};
    return state;
  }

  /// Schedules the session with the loop of another thread, does `meanwhile` and serves that loop
  /// until so many events have been noted.
  void serve(
      DiskSession& session, size_t events, const std::function<void()>& meanwhile = [] {}) {
    std::shared_ptr<RunLoop> loop;
    std::atomic<bool> scheduled{false};
    std::atomic<bool> served{false};
    std::thread server([&] {
      loop = loops_.current();
      session.schedule(*loop);
      scheduled = true;
      loops_.run();
      session.unschedule(*loop);
      served = true;
    });
    EXPECT_TRUE(eventually([&] { return scheduled.load(); }));
    meanwhile();
    EXPECT_TRUE(eventually([&] { return noted_.count >= events; }));
    while (!served) loop->stop();
    server.join();
  }

  struct EventLog {
    std::vector<std::string> events;
    std::atomic<size_t> count{0};  ///< of the events, for another thread
  };

  static void note(void* context, const std::string& event) {
    auto& log = *static_cast<EventLog*>(context);
    log.events.push_back(event);
    ++log.count;
  }

  static void appeared(Disk& disk, void* context) { note(context, "+" + *disk.bsdName()); }
  static void disappeared(Disk& disk, void* context) { note(context, "-" + *disk.bsdName()); }
  static void answered(Disk& disk, bool refused, void* context) {
    note(context, (refused ? "refused " : "done ") + *disk.bsdName());
  }

  MacDiskArbitration disks_;
  MacRunLoops loops_;
  EventLog noted_;
};

TEST_F(MacDiskArbitrationTest, ASessionTellsOfTheDisksThatAreThereOnceItIsScheduled) {
  const auto session = disks_.createSession();
  session->registerAppeared(appeared, &noted_);
  session->registerDisappeared(disappeared, &noted_);
  EXPECT_TRUE(noted_.events.empty());
  serve(*session, 2);
  EXPECT_THAT(noted_.events, testing::ElementsAre("+disk4", "+disk4s1"));
}

TEST_F(MacDiskArbitrationTest, ASessionThatIsNotScheduledHearsNothing) {
  const auto session = disks_.createSession();
  session->registerAppeared(appeared, &noted_);
  const auto disk = session->createDisk("disk4s1");
  session->unmount(*disk, answered, &noted_);
  EXPECT_TRUE(eventually([this] { return !file().load().disks[0].partitions[0].mounted; }));
  loops_.run();
  EXPECT_TRUE(noted_.events.empty());
}

TEST_F(MacDiskArbitrationTest, UnmountingAndMountingAreAnswered) {
  const auto session = disks_.createSession();
  const auto disk = session->createDisk("disk4s1");
  serve(*session, 1, [&] { session->unmount(*disk, answered, &noted_); });
  EXPECT_THAT(noted_.events, testing::ElementsAre("done disk4s1"));
  EXPECT_FALSE(file().load().disks[0].partitions[0].mounted);
}

TEST_F(MacDiskArbitrationTest, MountingGoesTheOtherWay) {
  change([](BenchState& state) { state.disks[0].partitions[0].mounted = false; });
  const auto session = disks_.createSession();
  const auto disk = session->createDisk("disk4s1");
  serve(*session, 1, [&] { session->mount(*disk, answered, &noted_); });
  EXPECT_THAT(noted_.events, testing::ElementsAre("done disk4s1"));
  EXPECT_TRUE(file().load().disks[0].partitions[0].mounted);
}

TEST_F(MacDiskArbitrationTest, ARefusalIsTold) {
  const auto session = disks_.createSession();
  const auto disk = session->createDisk("disk9");
  serve(*session, 1, [&] { session->unmount(*disk, answered, &noted_); });
  EXPECT_THAT(noted_.events, testing::ElementsAre("refused disk9"));
}

TEST_F(MacDiskArbitrationTest, FailuresGiveNothingOut) {
  const auto session = disks_.createSession();
  const auto disk = session->createDisk("disk4");
  system().fail("DADiskGetBSDName");
  EXPECT_EQ(disk->bsdName(), std::nullopt);
  system().fail("DADiskCreateFromBSDName");
  EXPECT_EQ(session->createDisk("disk4"), nullptr);
  system().fail("DASessionCreate");
  EXPECT_EQ(disks_.createSession(), nullptr);
}

TEST_F(MacDiskArbitrationTest, ADiskOutlivesItsSession) {
  auto session = disks_.createSession();
  const auto disk = session->createDisk("disk4");
  session.reset();
  EXPECT_EQ(disk->bsdName(), "disk4");
}

}  // namespace
