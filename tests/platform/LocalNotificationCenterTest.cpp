#include "platform/posix/LocalNotificationCenter.h"

#include <atomic>
#include <latch>
#include <thread>

using namespace corvane;
using testing::ElementsAre;

namespace {

TEST(LocalNotificationCenter, CallsTheObserversOfTheNameInTheOrderOfRegistration) {
  LocalNotificationCenter center;
  std::vector<std::string> heard;
  const auto hear = [&heard](const std::string& who) {
    return [&heard, who](const Notification& notification) {
      heard.push_back(who + ":" + notification.name + ":" + notification.object);
    };
  };
  const auto first = center.observe("Corvane2Appeared", hear("first"));
  const auto second = center.observe("Corvane2Appeared", hear("second"));
  const auto otherName = center.observe("corvane2appeared", hear("other"));
  center.post("Corvane2Appeared", "20:00");
  EXPECT_THAT(heard, ElementsAre("first:Corvane2Appeared:20:00", "second:Corvane2Appeared:20:00"));
}

TEST(LocalNotificationCenter, AnObservationEndsWithItsObject) {
  LocalNotificationCenter center;
  int heard = 0;
  auto observation = center.observe("name", [&](const Notification&) { ++heard; });
  center.post("name", "");
  observation.reset();
  center.post("name", "");
  EXPECT_EQ(heard, 1);
}

TEST(LocalNotificationCenter, CallsOnThePostingThread) {
  LocalNotificationCenter center;
  std::thread::id calledOn;
  const auto observation =
      center.observe("name", [&](const Notification&) { calledOn = std::this_thread::get_id(); });
  std::thread poster([&] { center.post("name", ""); });
  const auto posterId = poster.get_id();
  poster.join();
  EXPECT_EQ(calledOn, posterId);
}

TEST(LocalNotificationCenter, AnObserverMayEndItselfAndTheNextOne) {
  LocalNotificationCenter center;
  std::vector<std::string> heard;
  std::unique_ptr<Observation> first;
  std::unique_ptr<Observation> second;
  first = center.observe("name", [&](const Notification&) {
    heard.push_back("first");
    second.reset();
    first.reset();
  });
  second = center.observe("name", [&](const Notification&) { heard.push_back("second"); });
  center.post("name", "");
  center.post("name", "");
  EXPECT_THAT(heard, ElementsAre("first"));
}

TEST(LocalNotificationCenter, AnObserverMayPostAndObserve) {
  LocalNotificationCenter center;
  std::vector<std::string> heard;
  std::vector<std::unique_ptr<Observation>> later;
  const auto outer = center.observe("outer", [&](const Notification&) {
    later.push_back(center.observe(
        "inner", [&](const Notification& notification) { heard.push_back(notification.object); }));
    center.post("inner", "nested");
  });
  center.post("outer", "");
  EXPECT_THAT(heard, ElementsAre("nested"));
}

TEST(LocalNotificationCenter, EndingAnObservationWaitsForItsObserver) {
  LocalNotificationCenter center;
  std::latch inside(1);
  std::atomic<bool> finished{false};
  auto observation = center.observe("name", [&](const Notification&) {
    inside.count_down();
    std::this_thread::yield();
    finished = true;
  });
  std::thread poster([&] { center.post("name", ""); });
  inside.wait();
  observation.reset();
  EXPECT_TRUE(finished);
  poster.join();
}

TEST(LocalNotificationCenter, PostingWhileOthersComeAndGo) {
  LocalNotificationCenter center;
  std::atomic<bool> stop{false};
  std::atomic<int> heard{0};
  std::vector<std::thread> posters;
  for (int poster = 0; poster < 2; ++poster) {
    posters.emplace_back([&] {
      while (!stop) center.post("name", "object");
    });
  }
  while (heard < 100) {
    const auto observation = center.observe("name", [&](const Notification&) { ++heard; });
    std::this_thread::yield();
  }
  stop = true;
  for (std::thread& poster : posters) poster.join();
}

TEST(LocalNotificationCenter, AnObservationMayOutliveTheCenter) {
  std::unique_ptr<Observation> observation;
  {
    LocalNotificationCenter center;
    observation = center.observe("name", [](const Notification&) {});
  }
  observation.reset();
}

}  // namespace
