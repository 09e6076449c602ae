#include "platform/macos/MacRegistry.h"

#include <condition_variable>
#include <stdexcept>
#include <thread>

#include "macos/MacOverBenchFixture.h"
#include "platform/macos/MacRunLoops.h"
#include "platform/macos/MacUserClient.h"

using namespace corvane;
using namespace corvane::macos;

namespace {

constexpr const char* driver = "com.velmar.Corvane2-FC";

SharedDictionary driverMatching(Registry& registry) {
  SharedDictionary matching = registry.createMutableDictionary();
  (*matching)["IOPropertyMatch"] = PropertyValue::Dictionary{{"CFBundleIdentifier", driver}};
  return matching;
}

class MacRegistryTest : public MacOverBenchFixture {
 protected:
  RegistryObject driverService() {
    return {registry_, registry_.matchingService(driverMatching(registry_))};
  }

  MacRegistry registry_;
};

TEST_F(MacRegistryTest, WalksFromAServiceToTheRoot) {
  RegistryObject entry = driverService();
  ASSERT_TRUE(entry);
  std::vector<std::string> names;
  for (RegistryHandle parent = 0;
       registry_.parentEntry(entry.get(), servicePlane, parent) == statusSuccess;
       entry = RegistryObject(registry_, parent)) {
    std::string name;
    ASSERT_EQ(registry_.name(parent, name), statusSuccess);
    names.push_back(name);
  }
  EXPECT_THAT(names, testing::Contains("DSB1"));
  EXPECT_EQ(names.back(), "Root");
}

TEST_F(MacRegistryTest, AnswersLikeTheRegistryBehindTheSystem) {
  const RegistryObject entry = driverService();
  RegistryHandle above = 0;
  ASSERT_EQ(registry_.parentEntry(entry.get(), servicePlane, above), statusSuccess);
  const RegistryObject parent(registry_, above);
  RegistryHandle child = 0;
  ASSERT_EQ(registry_.childEntry(parent.get(), servicePlane, child), statusSuccess);
  const RegistryObject owned(registry_, child);
  std::string path;
  std::string expectedPath;
  ASSERT_EQ(registry_.path(child, servicePlane, path), statusSuccess);
  ASSERT_EQ(bench().registry.path(child, servicePlane, expectedPath), statusSuccess);
  EXPECT_EQ(path, expectedPath);
  PropertyValue::Dictionary properties;
  PropertyValue::Dictionary expected;
  ASSERT_EQ(registry_.properties(child, properties), statusSuccess);
  ASSERT_EQ(bench().registry.properties(child, expected), statusSuccess);
  EXPECT_EQ(properties, expected);
  EXPECT_FALSE(properties.empty());
}

TEST_F(MacRegistryTest, AnotherPlaneHasNoPath) {
  const RegistryObject entry = driverService();
  std::string path = "untouched";
  EXPECT_NE(registry_.path(entry.get(), "IODeviceTree", path), statusSuccess);
  EXPECT_EQ(path, "untouched");
}

TEST_F(MacRegistryTest, FailuresGiveNothingOut) {
  const RegistryObject entry = driverService();
  for (const char* call :
       {"IORegistryEntryGetParentEntry", "IORegistryEntryGetChildEntry", "IORegistryEntryGetName",
        "IORegistryEntryCreateCFProperties", "IOServiceGetMatchingService", "CFNumberCreate",
        "IONotificationPortCreate", "IOIteratorNext"}) {
    system().fail(call);
  }
  RegistryHandle handle = 5;
  EXPECT_NE(registry_.parentEntry(entry.get(), servicePlane, handle), statusSuccess);
  EXPECT_EQ(handle, RegistryHandle{0});
  EXPECT_NE(registry_.childEntry(entry.get(), servicePlane, handle), statusSuccess);
  std::string name = "untouched";
  EXPECT_NE(registry_.name(entry.get(), name), statusSuccess);
  EXPECT_EQ(name, "untouched");
  PropertyValue::Dictionary properties{{"kept", 1}};
  EXPECT_NE(registry_.properties(entry.get(), properties), statusSuccess);
  EXPECT_EQ(properties.size(), size_t{1});
  EXPECT_EQ(registry_.matchingService(driverMatching(registry_)), RegistryHandle{0});
  EXPECT_EQ(registry_.createNumber(1), std::nullopt);
  EXPECT_EQ(registry_.createNotificationPort(), nullptr);
  EXPECT_EQ(registry_.next(entry.get()), RegistryHandle{0});
}

TEST_F(MacRegistryTest, AFailedRegistrationConsumesItsDictionaryAsWell) {
  const auto port = registry_.createNotificationPort();
  system().fail("IOServiceAddMatchingNotification");
  RegistryHandle iterator = 5;
  EXPECT_NE(registry_.addMatchingNotification(
                *port, firstMatchNotification, driverMatching(registry_),
                [](void*, RegistryHandle) {}, nullptr, iterator),
            statusSuccess);
  EXPECT_EQ(iterator, RegistryHandle{0});
}

TEST_F(MacRegistryTest, APortWithoutASourceHasNone) {
  const auto port = registry_.createNotificationPort();
  system().fail("IONotificationPortGetRunLoopSource");
  EXPECT_EQ(port->runLoopSource(), nullptr);
}

TEST_F(MacRegistryTest, NumbersHaveTheirSign) {
  EXPECT_EQ(registry_.createNumber(-2), PropertyValue(-2));
  EXPECT_EQ(registry_.createNumber(127), PropertyValue(127));
}

TEST_F(MacRegistryTest, RetainingAddsAReference) {
  const RegistryHandle service = registry_.matchingService(driverMatching(registry_));
  registry_.retain(service);
  registry_.release(service);
  std::string name;
  EXPECT_EQ(registry_.name(service, name), statusSuccess);
  registry_.release(service);
}

/// Watches arrivals on a thread and a run loop of its own.
class ArrivalWatcher {
 public:
  enum class Draining { Always, Never };

  ArrivalWatcher(MacRegistry& registry, MacRunLoops& loops, Draining draining)
      : registry_(registry), loops_(loops), draining_(draining) {
    thread_ = std::thread([this] { run(); });
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isReady_; });
  }
  ArrivalWatcher(const ArrivalWatcher&) = delete;
  ArrivalWatcher& operator=(const ArrivalWatcher&) = delete;
  ~ArrivalWatcher() {
    if (thread_.joinable()) end();
  }

  /// Returns once the thread has ended.
  void end() {
    loops_.stopAll();
    while (!hasEnded()) {
      loops_.stopAll();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    thread_.join();
  }

  void waitForEnd() { thread_.join(); }

  size_t arrivals() {
    const std::lock_guard lock(mutex_);
    return arrivals_;
  }

  size_t callbacks() {
    const std::lock_guard lock(mutex_);
    return callbacks_;
  }

  std::string thrown() {
    const std::lock_guard lock(mutex_);
    return thrown_;
  }

  void throwInCallbacks() {
    const std::lock_guard lock(mutex_);
    throws_ = true;
  }

 private:
  void run() {
    port_ = registry_.createNotificationPort();
    loops_.current()->addSource(port_->runLoopSource());
    RegistryHandle iterator = 0;
    EXPECT_EQ(registry_.addMatchingNotification(*port_, firstMatchNotification,
                                                driverMatching(registry_), arrived, this, iterator),
              statusSuccess);
    RegistryObject owned(registry_, iterator);
    drain(iterator);
    note(isReady_);
    try {
      loops_.run();
    } catch (const std::runtime_error& error) {
      const std::lock_guard lock(mutex_);
      thrown_ = error.what();
    }
    owned.reset();
    port_.reset();
    note(hasEnded_);
  }

  void note(bool& what) {
    const std::lock_guard lock(mutex_);
    what = true;
    changed_.notify_all();
  }

  bool hasEnded() {
    const std::lock_guard lock(mutex_);
    return hasEnded_;
  }

  static void arrived(void* context, RegistryHandle iterator) {
    auto& self = *static_cast<ArrivalWatcher*>(context);
    EXPECT_EQ(std::this_thread::get_id(), self.thread_.get_id());
    {
      const std::lock_guard lock(self.mutex_);
      ++self.callbacks_;
      if (self.throws_) throw std::runtime_error("from a callback");
    }
    if (self.draining_ == Draining::Always) self.drain(iterator);
  }

  void drain(RegistryHandle iterator) {
    while (const RegistryHandle service = registry_.next(iterator)) {
      registry_.release(service);
      const std::lock_guard lock(mutex_);
      ++arrivals_;
    }
  }

  MacRegistry& registry_;
  MacRunLoops& loops_;
  const Draining draining_;
  std::unique_ptr<NotificationPort> port_;
  std::thread thread_;
  std::mutex mutex_;  ///< guards everything below
  std::condition_variable changed_;
  size_t arrivals_ = 0;
  size_t callbacks_ = 0;
  std::string thrown_;
  bool isReady_ = false;
  bool hasEnded_ = false;
  bool throws_ = false;
};

class MacNotifierTest : public MacRegistryTest {
 protected:
  void plug(int64_t hop) const {
    change([hop](BenchState& state) { plugAdapter(state, "Corvane2 8G FC", 1, hop, {}); });
  }

  MacRunLoops loops_;
};

TEST_F(MacNotifierTest, TellsOfEachArrivalOnItsThread) {
  ArrivalWatcher watcher(registry_, loops_, ArrivalWatcher::Draining::Always);
  const size_t present = watcher.arrivals();
  EXPECT_GT(present, size_t{0});
  plug(2);
  EXPECT_TRUE(eventually([&] { return watcher.arrivals() == 2 * present; }));
  plug(3);
  EXPECT_TRUE(eventually([&] { return watcher.arrivals() == 3 * present; }));
}

TEST_F(MacNotifierTest, AnIteratorThatWasNotDrainedDoesNotFireAgain) {
  ArrivalWatcher watcher(registry_, loops_, ArrivalWatcher::Draining::Never);
  plug(2);
  ASSERT_TRUE(eventually([&] { return watcher.callbacks() == 1; }));
  ArrivalWatcher second(registry_, loops_, ArrivalWatcher::Draining::Always);
  const size_t present = second.arrivals();
  plug(3);
  EXPECT_TRUE(eventually([&] { return second.arrivals() > present; }));
  EXPECT_EQ(watcher.callbacks(), size_t{1});
}

TEST_F(MacNotifierTest, WhatACallbackThrowsComesOutOfTheRunLoop) {
  ArrivalWatcher watcher(registry_, loops_, ArrivalWatcher::Draining::Always);
  watcher.throwInCallbacks();
  plug(2);
  watcher.waitForEnd();
  EXPECT_EQ(watcher.thrown(), "from a callback");
}

TEST_F(MacNotifierTest, NothingIsToldOnceThePortHasGone) {
  size_t calls = 0;
  RegistryHandle iterator = 0;
  {
    const auto port = registry_.createNotificationPort();
    loops_.current()->addSource(port->runLoopSource());
    registry_.addMatchingNotification(
        *port, firstMatchNotification, driverMatching(registry_),
        [](void* context, RegistryHandle) { ++*static_cast<size_t*>(context); }, &calls, iterator);
    while (const RegistryHandle service = registry_.next(iterator)) registry_.release(service);
    plug(2);
  }
  loops_.run();
  registry_.release(iterator);
  EXPECT_EQ(calls, size_t{0});
}

TEST_F(MacNotifierTest, ALoopWithoutSourcesReturnsAtOnce) {
  loops_.run();
}

TEST_F(MacNotifierTest, ALoopIsNotRunOnceAllWereStopped) {
  const auto port = registry_.createNotificationPort();
  loops_.current()->addSource(port->runLoopSource());
  loops_.stopAll();
  loops_.run();
}

TEST_F(MacNotifierTest, ALoopStoppedBeforeItBeginsIsStoppedByTheNextCall) {
  std::atomic<bool> hasEnded{false};
  std::shared_ptr<RunLoop> loop;
  std::atomic<bool> isReady{false};
  std::thread thread([&] {
    const auto port = registry_.createNotificationPort();
    loop = loops_.current();
    loop->addSource(port->runLoopSource());
    loop->stop();
    isReady = true;
    loops_.run();
    hasEnded = true;
  });
  ASSERT_TRUE(eventually([&] { return isReady.load(); }));
  EXPECT_TRUE(eventually([&] {
    loop->stop();
    return hasEnded.load();
  }));
  thread.join();
}

class MacUserClientTest : public MacRegistryTest {
 protected:
  MacUserClient client_;
};

TEST_F(MacUserClientTest, OpensAndReleases) {
  const auto port = registry_.createNotificationPort();
  RegistryHandle iterator = 0;
  registry_.addMatchingNotification(
      *port, firstMatchNotification, driverMatching(registry_), [](void*, RegistryHandle) {},
      nullptr, iterator);
  size_t opened = 0;
  while (const RegistryHandle service = registry_.next(iterator)) {
    const RegistryObject owned(registry_, service);
    UserClientConnection connection = 7;
    if (client_.open(service, 0, connection) != statusSuccess) {
      EXPECT_EQ(connection, UserClientConnection{0});
      continue;
    }
    ++opened;
    EXPECT_EQ(system().held(), "1 registry handle, 1 iterator, 1 connection, 1 notification port");
    std::vector<uint8_t> output(4);
    size_t size = output.size();
    EXPECT_NE(client_.callStructMethod(connection, 99, {}, output, size), statusSuccess);
    EXPECT_EQ(client_.release(connection), statusSuccess);
  }
  registry_.release(iterator);
  EXPECT_EQ(opened, size_t{2});
}

TEST_F(MacUserClientTest, ARefusedOpeningGivesNoConnection) {
  const RegistryObject service = driverService();
  system().fail("IOServiceOpen");
  UserClientConnection connection = 7;
  EXPECT_NE(client_.open(service.get(), 0, connection), statusSuccess);
  EXPECT_EQ(connection, UserClientConnection{0});
}

}  // namespace
