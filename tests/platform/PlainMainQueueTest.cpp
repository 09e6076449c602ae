#include "platform/posix/PlainMainQueue.h"

#include <atomic>

using namespace corvane;
using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

TEST(PlainMainQueue, RunsWorkInTheOrderOfPostingUntilStopped) {
  PlainMainQueue queue;
  std::vector<int> order;
  queue.post([&] { order.push_back(1); });
  queue.post([&] {
    order.push_back(2);
    queue.stop();
  });
  queue.post([&] { order.push_back(3); });
  queue.run();
  EXPECT_THAT(order, ElementsAre(1, 2));
  queue.post([&] { queue.stop(); });
  queue.run();
  EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST(PlainMainQueue, AStopBeforeTheRunEndsItAtOnce) {
  PlainMainQueue queue;
  bool ran = false;
  queue.post([&] { ran = true; });
  queue.stop();
  queue.run();
  EXPECT_FALSE(ran);
}

TEST(PlainMainQueue, RunUntilAsksBeforeAndAfterEachPieceOfWork) {
  PlainMainQueue queue;
  int ran = 0;
  for (int piece = 0; piece < 5; ++piece) queue.post([&] { ++ran; });
  EXPECT_TRUE(queue.runUntil([&] { return ran == 3; }));
  EXPECT_EQ(ran, 3);
  EXPECT_TRUE(queue.runUntil([&] { return ran == 3; }));
  EXPECT_EQ(ran, 3);
}

TEST(PlainMainQueue, RunUntilGivesUpWhenTheTimeIsUp) {
  PlainMainQueue queue;
  EXPECT_FALSE(queue.runUntil([] { return false; }, 1ms));
}

TEST(PlainMainQueue, RunUntilSaysWhenItWasStopped) {
  PlainMainQueue queue;
  queue.post([&] { queue.stop(); });
  EXPECT_FALSE(queue.runUntil([] { return false; }));
}

TEST(PlainMainQueue, TakesWorkFromOtherThreadsAndRunsItOnItsOwn) {
  PlainMainQueue queue;
  std::atomic<bool> otherIsMain{true};
  bool workIsMain = false;
  std::thread other([&] {
    otherIsMain = queue.isMain();
    queue.post([&] {
      workIsMain = queue.isMain();
      queue.stop();
    });
  });
  queue.run();
  other.join();
  EXPECT_FALSE(otherIsMain);
  EXPECT_TRUE(workIsMain);
}

}  // namespace
