#include "fakes/ManualDispatch.h"

#include <string>
#include <vector>

using namespace corvane;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

/// What happened, in order. Only one thread moves at a time, so it needs no lock.
using Story = std::vector<std::string>;

TEST(ManualDispatch, StartsAtZeroOnTheMainThread) {
  ManualDispatch dispatch;
  EXPECT_EQ(dispatch.now(), 0ms);
  EXPECT_TRUE(dispatch.isMain());
}

TEST(ManualDispatch, RunsNothingBeforeItIsTold) {
  ManualDispatch dispatch;
  Story story;
  dispatch.asyncMain([&] { story.push_back("main"); });
  dispatch.asyncGlobal(QueuePriority::Default, [&] { story.push_back("global"); });
  EXPECT_TRUE(story.empty());
  dispatch.runUntilIdle();
  EXPECT_THAT(story, ElementsAre("main", "global"));
}

TEST(ManualDispatch, KnowsTheMainThreadFromTheOthers) {
  ManualDispatch dispatch;
  bool onMain = false;
  bool onGlobal = true;
  dispatch.asyncMain([&] { onMain = dispatch.isMain(); });
  dispatch.asyncGlobal(QueuePriority::Background, [&] { onGlobal = dispatch.isMain(); });
  dispatch.runUntilIdle();
  EXPECT_TRUE(onMain);
  EXPECT_FALSE(onGlobal);
}

TEST(ManualDispatch, SleepersWaitForTheClock) {
  ManualDispatch dispatch;
  Story story;
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    story.push_back("before");
    dispatch.sleep(3s);
    story.push_back("after");
  });
  dispatch.runUntilIdle();
  EXPECT_THAT(story, ElementsAre("before"));
  EXPECT_EQ(dispatch.unfinished(), 1u);
  dispatch.advance(2999ms);
  EXPECT_THAT(story, ElementsAre("before"));
  dispatch.advance(1ms);
  EXPECT_THAT(story, ElementsAre("before", "after"));
  EXPECT_EQ(dispatch.now(), 3s);
  EXPECT_EQ(dispatch.unfinished(), 0u);
}

TEST(ManualDispatch, TwoThreefoldRefreshesInterleaveByTheClock) {
  ManualDispatch dispatch;
  Story story;
  const auto refresh = [&](const std::string& name) {
    for (int round = 1; round <= 3; ++round) {
      dispatch.sleep(3s);
      dispatch.asyncMain([&story, &dispatch, name, round] {
        story.push_back(name + std::to_string(round) + "@" +
                        std::to_string(dispatch.now().count()));
      });
    }
  };
  dispatch.asyncGlobal(QueuePriority::Background, [&] { refresh("a"); });
  dispatch.advance(1s);
  dispatch.asyncGlobal(QueuePriority::Background, [&] { refresh("b"); });
  dispatch.advance(20s);
  EXPECT_THAT(story,
              ElementsAre("a1@3000", "b1@4000", "a2@6000", "b2@7000", "a3@9000", "b3@10000"));
}

TEST(ManualDispatch, SleepersOfTheSameTimeGoOnInTheOrderInWhichTheyFellAsleep) {
  ManualDispatch dispatch;
  Story story;
  for (const char* const name : {"first", "second", "third"}) {
    dispatch.asyncGlobal(QueuePriority::Default, [&dispatch, &story, name] {
      dispatch.sleep(1s);
      story.push_back(name);
    });
  }
  dispatch.advance(1s);
  EXPECT_THAT(story, ElementsAre("first", "second", "third"));
}

TEST(ManualDispatch, AdvanceStopsAtEachSleeperOnTheWay) {
  ManualDispatch dispatch;
  std::vector<std::chrono::milliseconds> seen;
  for (const auto duration : {5s, 2s}) {
    dispatch.asyncGlobal(QueuePriority::Default, [&dispatch, &seen, duration] {
      dispatch.sleep(duration);
      seen.push_back(dispatch.now());
    });
  }
  dispatch.advance(10s);
  EXPECT_THAT(seen, ElementsAre(2s, 5s));
  EXPECT_EQ(dispatch.now(), 10s);
}

TEST(ManualDispatch, SyncMainFromGlobalWorkWaitsForTheMainQueue) {
  ManualDispatch dispatch;
  Story story;
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    dispatch.syncMain([&] { story.push_back(dispatch.isMain() ? "on main" : "elsewhere"); });
    story.push_back("returned");
  });
  dispatch.runUntilIdle();
  EXPECT_THAT(story, ElementsAre("on main", "returned"));
}

TEST(ManualDispatch, SyncMainOnTheMainThreadRunsAtOnce) {
  ManualDispatch dispatch;
  bool ran = false;
  dispatch.syncMain([&] { ran = true; });
  EXPECT_TRUE(ran);
}

TEST(ManualDispatch, AGroupIsWaitedForFromGlobalWork) {
  ManualDispatch dispatch;
  Story story;
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    const auto group = dispatch.createGroup();
    group->async(QueuePriority::Default, [&] {
      dispatch.sleep(2s);
      story.push_back("slow");
    });
    group->async(QueuePriority::Default,
                 [&] { dispatch.syncMain([&] { story.push_back("quick"); }); });
    group->wait();
    story.push_back("waited");
  });
  dispatch.runUntilIdle();
  EXPECT_THAT(story, ElementsAre("quick"));
  dispatch.advance(2s);
  EXPECT_THAT(story, ElementsAre("quick", "slow", "waited"));
}

TEST(ManualDispatch, AnEmptyGroupIsDoneAtOnce) {
  ManualDispatch dispatch;
  dispatch.createGroup()->wait();
  EXPECT_EQ(dispatch.now(), 0ms);
}

TEST(ManualDispatch, TheMainThreadMayWaitForAGroupWhileTheClockMoves) {
  ManualDispatch dispatch;
  const auto group = dispatch.createGroup();
  group->async(QueuePriority::Default, [&] { dispatch.sleep(4s); });
  group->wait();
  EXPECT_EQ(dispatch.now(), 4s);
}

TEST(ManualDispatch, AWaitOfTheMainThreadThatCannotEndIsAnError) {
  ManualDispatch dispatch;
  EXPECT_THROW(dispatch.parkUntil([] { return false; }), std::logic_error);
}

TEST(ManualDispatch, SleepOnTheMainThreadLetsGlobalWorkRunButNoMainWork) {
  ManualDispatch dispatch;
  Story story;
  dispatch.asyncMain([&] { story.push_back("main"); });
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    dispatch.sleep(1s);
    story.push_back("global");
  });
  dispatch.sleep(2s);
  EXPECT_THAT(story, ElementsAre("global"));
  EXPECT_EQ(dispatch.now(), 2s);
  dispatch.runUntilIdle();
  EXPECT_THAT(story, ElementsAre("global", "main"));
}

TEST(ManualDispatch, ParkedWorkGoesOnOnceItsConditionHolds) {
  ManualDispatch dispatch;
  bool signalled = false;
  bool wentOn = false;
  dispatch.asyncGlobal(QueuePriority::Default, [&] {
    dispatch.parkUntil([&] { return signalled; });
    wentOn = true;
  });
  dispatch.advance(1h);
  EXPECT_FALSE(wentOn);
  signalled = true;
  dispatch.runUntilIdle();
  EXPECT_TRUE(wentOn);
}

TEST(ManualDispatch, WorkThatIsLeftOverIsUnwound) {
  struct Witness {
    Story& story;
    ManualDispatch& dispatch;
    ~Witness() {
      dispatch.sleep(1s);
      story.push_back("unwound");
    }
  };
  Story story;
  {
    ManualDispatch dispatch;
    dispatch.asyncGlobal(QueuePriority::Default, [&] {
      const Witness witness{story, dispatch};
      dispatch.sleep(1h);
      story.push_back("never");
    });
    dispatch.asyncGlobal(QueuePriority::Default, [&] {
      dispatch.parkUntil([] { return false; });
      story.push_back("never");
    });
    dispatch.runUntilIdle();
    dispatch.asyncGlobal(QueuePriority::Default, [&] { story.push_back("never"); });
  }
  EXPECT_THAT(story, ElementsAre("unwound"));
}

TEST(ManualDispatch, TakesWorkFromThreadsOfOthers) {
  ManualDispatch dispatch;
  int ran = 0;
  std::thread other([&] {
    dispatch.asyncMain([&] { ++ran; });
    dispatch.asyncGlobal(QueuePriority::Default, [&] { ++ran; });
  });
  other.join();
  dispatch.runUntilIdle();
  EXPECT_EQ(ran, 2);
}

}  // namespace
