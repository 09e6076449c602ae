#include "platform/macos/MacDispatch.h"

#include <latch>

#include "macos/MacOverBenchFixture.h"
#include "platform/macos/MacPlatform.h"

using namespace corvane;
using namespace corvane::macos;
using namespace std::chrono_literals;

namespace {

class MacDispatchTest : public MacOverBenchFixture {
 protected:
  void serveUntil(const bool& done) {
    ASSERT_TRUE(queue_.runUntil([&done] { return done; }, 60s));
  }
};

TEST_F(MacDispatchTest, GlobalWorkOfBothPrioritiesRunsElsewhere) {
  MacDispatch dispatch(queue_);
  std::latch ran(2);
  std::atomic<int> onMain{0};
  for (const auto priority : {QueuePriority::Default, QueuePriority::Background}) {
    dispatch.asyncGlobal(priority, [&] {
      if (dispatch.isMain()) ++onMain;
      ran.count_down();
    });
  }
  ran.wait();
  EXPECT_EQ(onMain, 0);
}

TEST_F(MacDispatchTest, SyncMainReturnsAfterTheWorkOnTheMainThread) {
  MacDispatch dispatch(queue_);
  std::vector<std::string> story;
  bool done = false;
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    dispatch.syncMain([&] { story.push_back(dispatch.isMain() ? "main" : "elsewhere"); });
    story.push_back("returned");
    dispatch.asyncMain([&] { done = true; });
  });
  serveUntil(done);
  EXPECT_THAT(story, testing::ElementsAre("main", "returned"));
}

TEST_F(MacDispatchTest, SyncMainOnTheMainThreadRunsAtOnce) {
  MacDispatch dispatch(queue_);
  bool ran = false;
  dispatch.syncMain([&] { ran = true; });
  EXPECT_TRUE(ran);
}

TEST_F(MacDispatchTest, AGroupIsDoneWhenAllOfItsWorkIs) {
  MacDispatch dispatch(queue_);
  std::atomic<int> finished{0};
  const auto group = dispatch.createGroup();
  for (int piece = 0; piece < 20; ++piece) {
    group->async(QueuePriority::Background, [&] { ++finished; });
  }
  group->wait();
  EXPECT_EQ(finished, 20);
}

TEST_F(MacDispatchTest, ASleepLastsItsTime) {
  MacDispatch dispatch(queue_);
  const auto before = std::chrono::steady_clock::now();
  dispatch.sleep(50ms);
  EXPECT_GE(std::chrono::steady_clock::now() - before, 50ms);
}

TEST_F(MacDispatchTest, EndUnwindsWorkThatSleeps) {
  MacDispatch dispatch(queue_);
  std::latch begun(1);
  std::atomic<bool> wentOn{false};
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    begun.count_down();
    dispatch.sleep(24h);
    wentOn = true;
  });
  begun.wait();
  dispatch.end();
  EXPECT_FALSE(wentOn);
}

TEST_F(MacDispatchTest, EndUnwindsWorkThatWaitsForTheMainQueueAndNeverRunsIt) {
  std::atomic<bool> wentOn{false};
  bool ran = false;
  {
    MacDispatch dispatch(queue_);
    std::latch begun(1);
    dispatch.asyncGlobal(QueuePriority::Default, [&] {
      begun.count_down();
      dispatch.syncMain([&] { ran = true; });
      wentOn = true;
    });
    begun.wait();
  }
  queue_.runUntil([] { return false; }, 1ms);
  EXPECT_FALSE(wentOn);
  EXPECT_FALSE(ran);
}

TEST_F(MacDispatchTest, EndUnwindsAWaitForAGroup) {
  MacDispatch dispatch(queue_);
  std::latch begun(1);
  std::atomic<bool> wentOn{false};
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    const auto group = dispatch.createGroup();
    group->async(QueuePriority::Default, [&] {
      begun.count_down();
      dispatch.sleep(24h);
    });
    group->wait();
    wentOn = true;
  });
  begun.wait();
  dispatch.end();
  EXPECT_FALSE(wentOn);
}

TEST_F(MacDispatchTest, EndWaitsForWorkThatDoesSomething) {
  MacDispatch dispatch(queue_);
  std::latch begun(1);
  std::atomic<bool> mayEnd{false};
  std::atomic<bool> ended{false};
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    begun.count_down();
    while (!mayEnd) std::this_thread::sleep_for(1ms);
    ended = true;
  });
  begun.wait();
  int told = 0;
  dispatch.end([&] { mayEnd = ++told == 3; });
  EXPECT_TRUE(ended);
  EXPECT_GE(told, 3);
}

TEST_F(MacDispatchTest, DestructorsOfUnwoundWorkDoNotWait) {
  struct Sleeper {
    Dispatch& dispatch;
    std::atomic<bool>& destroyed;
    ~Sleeper() {
      dispatch.sleep(24h);
      destroyed = true;
    }
  };
  MacDispatch dispatch(queue_);
  std::atomic<bool> destroyed{false};
  std::latch begun(1);
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    const Sleeper sleeper{dispatch, destroyed};
    begun.count_down();
    dispatch.sleep(24h);
  });
  begun.wait();
  dispatch.end();
  EXPECT_TRUE(destroyed);
}

TEST_F(MacDispatchTest, WhatIsSubmittedAfterTheEndIsDropped) {
  MacDispatch dispatch(queue_);
  std::atomic<bool> ran{false};
  dispatch.asyncMain([&] { ran = true; });
  dispatch.end();
  dispatch.asyncGlobal(QueuePriority::Default, [&] { ran = true; });
  const auto group = dispatch.createGroup();
  group->async(QueuePriority::Default, [&] { ran = true; });
  group->wait();
  queue_.runUntil([] { return false; }, 1ms);
  EXPECT_FALSE(ran);
}

TEST_F(MacDispatchTest, DroppedWorkGoesWithTheEndAndNotLater) {
  struct Noted {
    std::atomic<int>& alive;
    explicit Noted(std::atomic<int>& count) : alive(count) { ++alive; }
    ~Noted() { --alive; }
  };
  MacDispatch dispatch(queue_);
  std::atomic<int> alive{0};
  dispatch.asyncMain([noted = std::make_shared<Noted>(alive)] {});
  ASSERT_EQ(alive, 1);
  dispatch.end();
  EXPECT_EQ(alive, 0);
}

TEST_F(MacDispatchTest, TheComputerEndsAMonitorThatIsInsideItsRunLoop) {
  MacPlatform mac(queue_, prompts_, log_, STDERR_FILENO);
  const Platform platform = mac.platform();
  std::latch begun(1);
  std::atomic<bool> ended{false};
  platform.dispatch.asyncGlobal(QueuePriority::Default, [&] {
    const auto port = platform.registry.createNotificationPort();
    platform.runLoops.current()->addSource(port->runLoopSource());
    begun.count_down();
    platform.runLoops.run();
    ended = true;
  });
  begun.wait();
  mac.end();
  EXPECT_TRUE(ended);
}

}  // namespace
