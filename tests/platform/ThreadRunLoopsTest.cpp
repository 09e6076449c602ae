#include "platform/posix/ThreadRunLoops.h"

#include <atomic>
#include <latch>
#include <thread>

using namespace corvane;

namespace {

TEST(ThreadRunLoops, EachThreadHasItsOwnLoop) {
  ThreadRunLoops loops;
  const auto own = loops.current();
  EXPECT_EQ(loops.current(), own);
  std::shared_ptr<RunLoop> others;
  std::thread([&] { others = loops.current(); }).join();
  EXPECT_NE(others, own);
}

TEST(ThreadRunLoops, RunWithoutASourceReturnsAtOnce) {
  ThreadRunLoops loops;
  std::thread([&] { loops.run(); }).join();
}

TEST(ThreadRunLoops, RunsCallbacksInOrderOnTheLoopsThread) {
  ThreadRunLoops loops;
  const auto source = std::make_shared<QueuedRunLoopSource>();
  std::vector<int> order;
  std::thread::id servedBy;
  source->post([&] { order.push_back(1); });
  std::thread server([&] {
    const auto loop = loops.current();
    loop->addSource(source);
    loops.run();
  });
  source->post([&] { order.push_back(2); });
  source->post([&] {
    servedBy = std::this_thread::get_id();
    loops.current()->stop();
  });
  const auto serverId = server.get_id();
  server.join();
  EXPECT_THAT(order, testing::ElementsAre(1, 2));
  EXPECT_EQ(servedBy, serverId);
}

TEST(ThreadRunLoops, AStopBeforeTheRunEndsIt) {
  ThreadRunLoops loops;
  std::thread([&] {
    loops.current()->addSource(std::make_shared<QueuedRunLoopSource>());
    loops.current()->stop();
    loops.run();
  }).join();
}

TEST(ThreadRunLoops, AStopOfALoopWithoutSourcesIsForgotten) {
  ThreadRunLoops loops;
  int served = 0;
  std::thread([&] {
    loops.current()->stop();
    const auto source = std::make_shared<QueuedRunLoopSource>();
    loops.current()->addSource(source);
    source->post([&] {
      ++served;
      source->invalidate();
    });
    loops.run();
  }).join();
  EXPECT_EQ(served, 1);
}

TEST(ThreadRunLoops, TheLoopEndsWithItsLastSource) {
  ThreadRunLoops loops;
  const auto first = std::make_shared<QueuedRunLoopSource>();
  const auto second = std::make_shared<QueuedRunLoopSource>();
  std::latch serving(1);
  std::thread server([&] {
    loops.current()->addSource(first);
    loops.current()->addSource(second);
    loops.run();
  });
  first->post([&] { serving.count_down(); });
  serving.wait();
  first->invalidate();
  second->invalidate();
  server.join();
  EXPECT_FALSE(first->isValid());
}

TEST(ThreadRunLoops, InvalidateWaitsForTheCallbackThatRuns) {
  ThreadRunLoops loops;
  const auto source = std::make_shared<QueuedRunLoopSource>();
  std::latch inside(1);
  std::atomic<bool> finished{false};
  std::thread server([&] {
    loops.current()->addSource(source);
    loops.run();
  });
  source->post([&] {
    inside.count_down();
    std::this_thread::yield();
    finished = true;
  });
  inside.wait();
  source->invalidate();
  EXPECT_TRUE(finished);
  server.join();
}

TEST(ThreadRunLoops, NothingRunsAfterInvalidate) {
  ThreadRunLoops loops;
  const auto source = std::make_shared<QueuedRunLoopSource>();
  std::atomic<bool> ran{false};
  source->post([&] { ran = true; });
  source->invalidate();
  source->post([&] { ran = true; });
  std::thread([&] {
    loops.current()->addSource(source);
    loops.run();
  }).join();
  EXPECT_FALSE(ran);
}

TEST(ThreadRunLoops, StopAllStopsTheLoopsThatRun) {
  ThreadRunLoops loops;
  std::latch running(3);
  std::vector<std::thread> servers;
  for (int server = 0; server < 3; ++server) {
    servers.emplace_back([&] {
      const auto source = std::make_shared<QueuedRunLoopSource>();
      source->post([&] { running.count_down(); });
      loops.current()->addSource(source);
      loops.run();
    });
  }
  running.wait();
  loops.stopAll();
  for (std::thread& server : servers) server.join();
}

TEST(ThreadRunLoops, SourcesOfAnotherKindAreNotTaken) {
  class ForeignSource final : public RunLoopSource {};
  ThreadRunLoops loops;
  std::thread([&] {
    loops.current()->addSource(std::make_shared<ForeignSource>());
    loops.run();
  }).join();
}

}  // namespace
