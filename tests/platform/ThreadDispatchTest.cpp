#include "platform/posix/ThreadDispatch.h"

#include <atomic>
#include <barrier>
#include <latch>
#include <thread>

#include "platform/posix/PlainMainQueue.h"

using namespace corvane;
using namespace std::chrono_literals;

namespace {

class ThreadDispatchTest : public testing::Test {
 protected:
  /// Serves the main queue until `done` was set by work on it.
  void serveUntil(const bool& done) {
    ASSERT_TRUE(mainQueue_.runUntil([&done] { return done; }, 20s));
  }

  PlainMainQueue mainQueue_;
};

TEST_F(ThreadDispatchTest, MainWorkRunsOnTheMainThread) {
  ThreadDispatch dispatch(mainQueue_);
  bool wasMain = false;
  bool done = false;
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    dispatch.asyncMain([&] {
      wasMain = dispatch.isMain();
      done = true;
    });
  });
  serveUntil(done);
  EXPECT_TRUE(wasMain);
}

TEST_F(ThreadDispatchTest, GlobalWorkOfBothPrioritiesRunsElsewhere) {
  ThreadDispatch dispatch(mainQueue_);
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

TEST_F(ThreadDispatchTest, ManyPiecesThatBlockOnEachOtherAllRun) {
  ThreadDispatch dispatch(mainQueue_);
  constexpr int pieces = 100;
  std::barrier meeting(pieces + 1);
  for (int piece = 0; piece < pieces; ++piece) {
    dispatch.asyncGlobal(QueuePriority::Background, [&] { meeting.arrive_and_wait(); });
  }
  meeting.arrive_and_wait();
}

TEST_F(ThreadDispatchTest, SyncMainReturnsAfterTheWorkOnTheMainThread) {
  ThreadDispatch dispatch(mainQueue_);
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

TEST_F(ThreadDispatchTest, SyncMainOnTheMainThreadRunsAtOnce) {
  ThreadDispatch dispatch(mainQueue_);
  bool ran = false;
  dispatch.syncMain([&] { ran = true; });
  EXPECT_TRUE(ran);
}

TEST_F(ThreadDispatchTest, AGroupIsDoneWhenAllOfItsWorkIs) {
  ThreadDispatch dispatch(mainQueue_);
  std::atomic<int> finished{0};
  const auto group = dispatch.createGroup();
  for (int piece = 0; piece < 20; ++piece) {
    group->async(QueuePriority::Default, [&] { ++finished; });
  }
  group->wait();
  EXPECT_EQ(finished, 20);
}

TEST_F(ThreadDispatchTest, TheClockRateDividesSleep) {
  ThreadDispatch dispatch(mainQueue_, 1'000'000);
  const auto before = std::chrono::steady_clock::now();
  dispatch.sleep(1h);
  EXPECT_LT(std::chrono::steady_clock::now() - before, 1min);
}

TEST_F(ThreadDispatchTest, SleepBesideMainLastsUntilTheMainQueueHasDoneWhatItWasGiven) {
  ThreadDispatch dispatch(mainQueue_, 1'000'000);
  bool givenBeforeHasRun = false;
  std::atomic<bool> sawIt{false};
  bool done = false;
  dispatch.asyncMain([&] { givenBeforeHasRun = true; });
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    dispatch.sleepBesideMain(1h);
    sawIt = givenBeforeHasRun;
    dispatch.asyncMain([&] { done = true; });
  });
  // A clock this fast is over with the hour before the main queue is served.
  std::this_thread::sleep_for(20ms);
  serveUntil(done);
  EXPECT_TRUE(sawIt);
}

TEST_F(ThreadDispatchTest, SleepBesideMainDoesNotWaitForWhatIsGivenLater) {
  ThreadDispatch dispatch(mainQueue_, 1'000'000);
  std::latch over(1);
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    dispatch.sleepBesideMain(1h);
    over.count_down();
  });
  over.wait();
}

TEST_F(ThreadDispatchTest, SleepBesideMainGivesUpWaitingForTheMainQueue) {
  ThreadDispatch dispatch(mainQueue_, 1'000'000);
  dispatch.asyncMain([] {});
  std::latch over(1);
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    dispatch.sleepBesideMain(10ms);
    over.count_down();
  });
  over.wait();
}

TEST_F(ThreadDispatchTest, SleepBesideMainByARealClockIsASleep) {
  ThreadDispatch dispatch(mainQueue_);
  dispatch.asyncMain([] {});
  std::latch over(1);
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    dispatch.sleepBesideMain(10ms);
    over.count_down();
  });
  over.wait();
}

TEST_F(ThreadDispatchTest, SleepBesideMainOnTheMainThreadIsASleep) {
  ThreadDispatch dispatch(mainQueue_, 1'000'000);
  dispatch.asyncMain([] {});
  const auto before = std::chrono::steady_clock::now();
  dispatch.sleepBesideMain(1h);
  EXPECT_LT(std::chrono::steady_clock::now() - before, 1min);
}

TEST_F(ThreadDispatchTest, EndUnwindsASleepBesideMain) {
  ThreadDispatch dispatch(mainQueue_, 1'000'000);
  dispatch.asyncMain([] {});
  std::latch begun(1);
  bool wentOn = false;
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    begun.count_down();
    dispatch.sleepBesideMain(24h);
    wentOn = true;
  });
  begun.wait();
  dispatch.end();
  EXPECT_FALSE(wentOn);
}

TEST_F(ThreadDispatchTest, EndUnwindsWorkThatSleeps) {
  ThreadDispatch dispatch(mainQueue_);
  std::latch begun(1);
  bool wentOn = false;
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    begun.count_down();
    dispatch.sleep(24h);
    wentOn = true;
  });
  begun.wait();
  dispatch.end();
  EXPECT_FALSE(wentOn);
}

TEST_F(ThreadDispatchTest, EndUnwindsWorkThatWaitsForTheMainQueueAndNeverRunsIt) {
  bool wentOn = false;
  bool ran = false;
  {
    ThreadDispatch dispatch(mainQueue_);
    std::latch begun(1);
    dispatch.asyncGlobal(QueuePriority::Default, [&] {
      begun.count_down();
      dispatch.syncMain([&] { ran = true; });
      wentOn = true;
    });
    begun.wait();
  }
  mainQueue_.runUntil([] { return false; }, 1ms);
  EXPECT_FALSE(wentOn);
  EXPECT_FALSE(ran);
}

TEST_F(ThreadDispatchTest, EndUnwindsAWaitForAGroup) {
  ThreadDispatch dispatch(mainQueue_);
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

TEST_F(ThreadDispatchTest, DestructorsOfUnwoundWorkDoNotWait) {
  struct Sleeper {
    Dispatch& dispatch;
    std::atomic<bool>& destroyed;
    ~Sleeper() {
      dispatch.sleep(24h);
      destroyed = true;
    }
  };
  ThreadDispatch dispatch(mainQueue_);
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

TEST_F(ThreadDispatchTest, WhatIsSubmittedAfterTheEndIsDropped) {
  ThreadDispatch dispatch(mainQueue_);
  bool ran = false;
  dispatch.asyncMain([&] { ran = true; });
  dispatch.end();
  dispatch.asyncGlobal(QueuePriority::Default, [&] { ran = true; });
  dispatch.createGroup()->wait();
  mainQueue_.runUntil([] { return false; }, 1ms);
  EXPECT_FALSE(ran);
}

TEST_F(ThreadDispatchTest, AGroupWhoseWorkIsDroppedIsDone) {
  ThreadDispatch dispatch(mainQueue_);
  dispatch.end();
  const auto group = dispatch.createGroup();
  group->async(QueuePriority::Default, [] {});
  group->wait();
}

}  // namespace
