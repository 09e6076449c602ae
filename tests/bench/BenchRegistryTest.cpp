#include "platform/bench/BenchRegistry.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <thread>

#include "bench/BenchMachineFixture.h"
#include "platform/bench/file/BenchEdits.h"
#include "platform/posix/ThreadRunLoops.h"

using namespace corvane;

namespace {

/// What a monitor does: a run loop on a thread of its own, and two notifications.
class BenchTestMonitor {
 public:
  BenchTestMonitor(BenchRegistry& registry, std::string identifier)
      : registry_(registry), identifier_(std::move(identifier)) {
    thread_ = std::thread([this] { run(); });
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isReady_; });
  }

  ~BenchTestMonitor() {
    loop_->stop();
    thread_.join();
    registry_.release(appeared_);
    registry_.release(departed_);
    port_.reset();
  }

  /// "+NAME" for each arrival, "-NAME" for each departure.
  std::vector<std::string> events() {
    const std::lock_guard guard(mutex_);
    return events_;
  }

 private:
  void run() {
    port_ = registry_.createNotificationPort();
    loop_ = runLoops_.current();
    loop_->addSource(port_->runLoopSource());
    EXPECT_EQ(registry_.addMatchingNotification(*port_, firstMatchNotification, matching(),
                                                &onArrival, this, appeared_),
              statusSuccess);
    onArrival(this, appeared_);
    EXPECT_EQ(registry_.addMatchingNotification(*port_, terminateNotification, matching(),
                                                &onDeparture, this, departed_),
              statusSuccess);
    onDeparture(this, departed_);
    {
      const std::lock_guard guard(mutex_);
      isReady_ = true;
    }
    changed_.notify_all();
    runLoops_.run();
  }

  SharedDictionary matching() {
    SharedDictionary dictionary = registry_.createMutableDictionary();
    (*dictionary)["IOPropertyMatch"] =
        PropertyValue::Dictionary{{"CFBundleIdentifier", identifier_}};
    return dictionary;
  }

  static void onArrival(void* context, RegistryHandle iterator) {
    static_cast<BenchTestMonitor*>(context)->drain(iterator, "+");
  }
  static void onDeparture(void* context, RegistryHandle iterator) {
    static_cast<BenchTestMonitor*>(context)->drain(iterator, "-");
  }

  void drain(RegistryHandle iterator, const std::string& sign) {
    while (const RegistryHandle service = registry_.next(iterator)) {
      const RegistryObject owned(registry_, service);
      PropertyValue::Dictionary properties;
      EXPECT_EQ(registry_.properties(service, properties), statusSuccess);
      const PropertyValue* mac = findProperty(properties, "IOMACAddress");
      const PropertyValue* characteristics = findProperty(properties, "Controller Characteristics");
      const std::string name =
          mac ? mac->description() : characteristics->find("Port World Wide Name")->description();
      RegistryHandle parent = 0;
      const Status status = registry_.parentEntry(service, servicePlane, parent);
      EXPECT_EQ(status == statusSuccess, sign == "+");
      const RegistryObject ownedParent(registry_, parent);
      const std::lock_guard guard(mutex_);
      events_.push_back(sign + name);
    }
  }

  BenchRegistry& registry_;
  const std::string identifier_;
  ThreadRunLoops runLoops_;
  std::unique_ptr<NotificationPort> port_;
  std::shared_ptr<RunLoop> loop_;
  RegistryHandle appeared_ = 0;
  RegistryHandle departed_ = 0;
  std::thread thread_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isReady_ = false;
  std::vector<std::string> events_;
};

class BenchRegistryTest : public BenchMachineFixture {
 protected:
  BenchRegistry& registryOf(const BenchState& state) {
    registry_ = std::make_unique<BenchRegistry>(switchOn(state));
    machine_->watch(std::chrono::milliseconds(1));
    return *registry_;
  }

  void TearDown() override {
    if (machine_) machine_->stopWatching();
    registry_.reset();
    BenchMachineFixture::TearDown();
  }

  static BenchState withDrivers() {
    BenchState state;
    state.drivers = {{"Corvane2-FC", "2.0.10"}, {"Corvane2-10GE", "1.4.7"}};
    return state;
  }

  static SharedDictionary named(BenchRegistry& registry, const std::string& name) {
    SharedDictionary matching = registry.createMutableDictionary();
    (*matching)["BSD Name"] = name;
    return matching;
  }

  std::unique_ptr<BenchRegistry> registry_;
};

}  // namespace

TEST_F(BenchRegistryTest, APluggedAdapterIsToldOfOnTheRunLoopAndAgainWhenItGoes) {
  BenchState state = withDrivers();
  plugAdapter(state, "Corvane2 8G FC", 1, 1, "20:00:00:10:9B:00:00:01");
  BenchRegistry& registry = registryOf(state);
  BenchTestMonitor monitor(registry, "com.velmar.Corvane2-FC");
  EXPECT_EQ(monitor.events(),
            (std::vector<std::string>{"+<21000010 9b000001>", "+<21010010 9b000001>"}));
  change([](BenchState& changed) {
    plugAdapter(changed, "Corvane3 F2", 1, 2, "20:00:00:10:9B:00:00:07");
  });
  ASSERT_TRUE(eventually([&] { return monitor.events().size() == 4; }));
  EXPECT_EQ(monitor.events()[3], "+<21010010 9b000007>");
  change([](BenchState& changed) { unplugAdapter(changed.adapters[0]); });
  ASSERT_TRUE(eventually([&] { return monitor.events().size() == 6; }));
  EXPECT_EQ(monitor.events()[4], "-<21000010 9b000001>");
  EXPECT_EQ(monitor.events()[5], "-<21010010 9b000001>");
}

TEST_F(BenchRegistryTest, AnUnplugAndAPlugBetweenTwoLooksAreBothTold) {
  BenchState state = withDrivers();
  plugAdapter(state, "Corvane3 NBASE-T1", 1, 1, "00:1B:21:AA:BB:CC");
  BenchRegistry& registry = registryOf(state);
  BenchTestMonitor monitor(registry, "com.velmar.driver.Corvane2-10GE");
  change([](BenchState& changed) {
    unplugAdapter(changed.adapters[0]);
    plugAdapter(changed, "Corvane3 NBASE-T1", 1, 1, {});
  });
  ASSERT_TRUE(eventually([&] { return monitor.events().size() == 6; }));
  const auto events = monitor.events();
  EXPECT_EQ(std::count(events.begin(), events.end(), "-<001b21aa bbcc>"), 1);
  EXPECT_EQ(std::count(events.begin(), events.end(), "+<001b21aa bbcc>"), 2);
}

TEST_F(BenchRegistryTest, ANotificationThatIsNotDrainedKeepsQuietAndLosesNothing) {
  BenchRegistry& registry = registryOf(withDrivers());
  auto port = registry.createNotificationPort();
  SharedDictionary matching = registry.createMutableDictionary();
  (*matching)["IOPropertyMatch"] =
      PropertyValue::Dictionary{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}};
  RegistryHandle iterator = 0;
  int calls = 0;
  const auto callback = [](void* context, RegistryHandle) { ++*static_cast<int*>(context); };
  ASSERT_EQ(registry.addMatchingNotification(*port, firstMatchNotification, matching, callback,
                                             &calls, iterator),
            statusSuccess);
  change([](BenchState& changed) { plugAdapter(changed, "Corvane2 8G FC", 1, 1, {}); });
  ASSERT_TRUE(eventually([&] { return registry.referenceCount() == 3; }));
  EXPECT_EQ(calls, 0);
  for (int count = 0; count < 2; ++count) {
    const RegistryHandle service = registry.next(iterator);
    EXPECT_NE(service, 0U);
    registry.release(service);
  }
  EXPECT_EQ(registry.next(iterator), 0U);
  registry.release(iterator);
  EXPECT_EQ(registry.referenceCount(), 0U);
}

TEST_F(BenchRegistryTest, ADestroyedPortAndAReleasedIteratorHearNothingMore) {
  BenchState state = withDrivers();
  BenchRegistry& registry = registryOf(state);
  { const BenchTestMonitor monitor(registry, "com.velmar.Corvane2-FC"); }
  EXPECT_EQ(registry.referenceCount(), 0U);
  change([](BenchState& changed) { plugAdapter(changed, "Corvane2 8G FC", 1, 1, {}); });
  RegistryHandle found = 0;
  ASSERT_TRUE(eventually([&] {
    SharedDictionary matching = registry.createMutableDictionary();
    (*matching)["IOPropertyMatch"] =
        PropertyValue::Dictionary{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}};
    found = registry.matchingService(matching);
    return found != 0;
  }));
  registry.release(found);
  EXPECT_EQ(registry.referenceCount(), 0U);
}

TEST_F(BenchRegistryTest, HandlesAreReleasedExactlyOnceOverManyCycles) {
  BenchState state = withDrivers();
  plugAdapter(state, "Corvane2 8G FC", 1, 1, "20:00:00:10:9B:00:00:01");
  BenchRegistry& registry = registryOf(state);
  {
    BenchTestMonitor monitor(registry, "com.velmar.Corvane2-FC");
    constexpr size_t cycles = 50;
    // An entry that arrived and went before its callback ran has no parent any more, so each change
    // is waited for.
    size_t eventsExpected = monitor.events().size();
    const auto seen = [&] { return monitor.events().size() >= eventsExpected; };
    for (size_t cycle = 1; cycle <= cycles; ++cycle) {
      change([](BenchState& changed) { unplugAdapter(changed.adapters[0]); });
      eventsExpected += 2;
      ASSERT_TRUE(eventually(seen));
      change([](BenchState& changed) { plugAdapter(changed, "Corvane2 8G FC", 1, 1, {}); });
      eventsExpected += 2;
      ASSERT_TRUE(eventually(seen));
    }
    ASSERT_TRUE(eventually([&] {
      const auto events = monitor.events();
      return std::count(events.begin(), events.end(), events.front()) > 1 &&
             registry.referenceCount() == 2;
    }));
  }
  EXPECT_EQ(registry.referenceCount(), 0U);
}

TEST_F(BenchRegistryTest, ATerminatedEntryStaysReadableUntilItsLastReferenceGoes) {
  BenchState state = withDrivers();
  plugAdapter(state, "Corvane3 NBASE-T1", 1, 1, "00:1B:21:AA:BB:CC");
  BenchRegistry& registry = registryOf(state);
  const RegistryHandle interface = registry.matchingService(named(registry, "en5"));
  ASSERT_NE(interface, 0U);
  RegistryHandle driver = 0;
  ASSERT_EQ(registry.parentEntry(interface, servicePlane, driver), statusSuccess);
  change([](BenchState& changed) { unplugAdapter(changed.adapters[0]); });
  RegistryHandle parent = 0;
  ASSERT_TRUE(eventually([&] {
    if (registry.parentEntry(driver, servicePlane, parent) != statusSuccess) return true;
    registry.release(parent);
    return false;
  }));
  EXPECT_EQ(parent, 0U);
  std::string text;
  EXPECT_EQ(registry.name(interface, text), statusSuccess);
  EXPECT_EQ(text, "en5");
  PropertyValue::Dictionary properties;
  EXPECT_EQ(registry.properties(driver, properties), statusSuccess);
  EXPECT_EQ(propertyText(properties, "IOMACAddress"), "<001b21aa bbcc>");
  EXPECT_EQ(registry.matchingService(named(registry, "en5")), 0U);
  registry.release(interface);
  EXPECT_NE(registry.name(interface, text), statusSuccess);
  registry.release(driver);
}

TEST_F(BenchRegistryTest, AnInterfaceGetsItsNameAMomentAfterItAppears) {
  BenchRegistry& registry = registryOf(withDrivers());
  BenchTestMonitor monitor(registry, "com.velmar.driver.Corvane2-10GE");
  change([](BenchState& changed) { plugAdapter(changed, "Corvane3 NBASE-T1", 1, 1, {}); });
  ASSERT_TRUE(eventually([&] { return monitor.events().size() == 2; }));
  EXPECT_EQ(registry.matchingService(named(registry, "en5")), 0U);
  clock_ += 599;
  EXPECT_EQ(registry.matchingService(named(registry, "en5")), 0U);
  clock_ += 1;
  const RegistryHandle interface = registry.matchingService(named(registry, "en5"));
  ASSERT_NE(interface, 0U);
  registry.release(interface);
}

TEST_F(BenchRegistryTest, AskingForAnEntryTwiceGivesOneHandleWithTwoReferences) {
  BenchState state = withDrivers();
  state.networkInterfaces = {{"", "en0", "00:3E:E1:00:00:01", "Ethernet", true, "", 1500}};
  BenchRegistry& registry = registryOf(state);
  const RegistryHandle first = registry.matchingService(named(registry, "en0"));
  const RegistryHandle second = registry.matchingService(named(registry, "en0"));
  EXPECT_EQ(first, second);
  EXPECT_EQ(registry.referenceCount(), 2U);
  registry.retain(first);
  for (int count = 0; count < 3; ++count) registry.release(first);
  EXPECT_EQ(registry.referenceCount(), 0U);
}

TEST_F(BenchRegistryTest, WrongQuestionsAreRefused) {
  BenchState state = withDrivers();
  state.networkInterfaces = {{"", "en0", "00:3E:E1:00:00:01", "Ethernet", true, "", 1500}};
  BenchRegistry& registry = registryOf(state);
  const RegistryHandle interface = registry.matchingService(named(registry, "en0"));
  RegistryHandle other = 7;
  std::string text;
  PropertyValue::Dictionary properties;
  EXPECT_NE(registry.parentEntry(interface, "IOUSB", other), statusSuccess);
  EXPECT_EQ(other, 0U);
  EXPECT_NE(registry.childEntry(interface, servicePlane, other), statusSuccess);
  EXPECT_NE(registry.path(interface, "IODeviceTree", text), statusSuccess);
  EXPECT_NE(registry.name(0, text), statusSuccess);
  EXPECT_NE(registry.properties(99, properties), statusSuccess);
  EXPECT_EQ(registry.matchingService(nullptr), 0U);
  EXPECT_EQ(registry.matchingService(registry.createMutableDictionary()), 0U);
  EXPECT_EQ(registry.next(interface), 0U);
  registry.release(interface);
  registry.release(interface);
}

TEST_F(BenchRegistryTest, TheWalkUpEndsAtTheRoot) {
  BenchState state = withDrivers();
  state.networkInterfaces = {{"", "en0", "00:3E:E1:00:00:01", "Ethernet", true, "", 1500}};
  BenchRegistry& registry = registryOf(state);
  RegistryHandle entry = registry.matchingService(named(registry, "en0"));
  std::string path;
  ASSERT_EQ(registry.path(entry, servicePlane, path), statusSuccess);
  EXPECT_EQ(path,
            "IOService:/MacPro6,1/AppleACPIPlatformExpert/PCI0@0/AppleACPIPCI/RP03@1C,2/IOPP/"
            "GIGE@0/BCM5701Enet/en0");
  RegistryHandle parent = 0;
  while (registry.parentEntry(entry, servicePlane, parent) == statusSuccess) {
    registry.release(entry);
    entry = parent;
  }
  std::string name;
  EXPECT_EQ(registry.name(entry, name), statusSuccess);
  EXPECT_EQ(name, "Root");
  registry.release(entry);
  EXPECT_EQ(registry.referenceCount(), 0U);
}

TEST_F(BenchRegistryTest, NotificationsCanBeRefused) {
  BenchState state = withDrivers();
  state.faults = {"notifications-refused"};
  BenchRegistry& registry = registryOf(state);
  auto port = registry.createNotificationPort();
  RegistryHandle iterator = 1;
  EXPECT_NE(registry.addMatchingNotification(
                *port, firstMatchNotification, registry.createMutableDictionary(),
                [](void*, RegistryHandle) {}, nullptr, iterator),
            statusSuccess);
  EXPECT_EQ(iterator, 0U);
}

TEST_F(BenchRegistryTest, AFileThatStopsFittingLeavesTheMachineAsItWas) {
  BenchState state = withDrivers();
  plugAdapter(state, "Corvane2 8G FC", 1, 1, {});
  BenchRegistry& registry = registryOf(state);
  BenchTestMonitor monitor(registry, "com.velmar.Corvane2-FC");
  const std::string fitting = file().text();
  std::ofstream(path()) << "{\"adapters\": [";
  ASSERT_TRUE(eventually([&] { return log_.text().find("is no JSON") != std::string::npos; }));
  EXPECT_EQ(monitor.events().size(), 2U);
  EXPECT_EQ(*machine_->state(), state);
  EXPECT_FALSE(machine_->update([](BenchState& changed) { changed.clockRate = 2; }));
  std::ofstream(path()) << fitting;
  change([](BenchState& changed) { unplugAdapter(changed.adapters[0]); });
  EXPECT_TRUE(eventually([&] { return monitor.events().size() == 4; }));
}
