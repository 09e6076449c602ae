// The monitors on real threads: what the thread sanitizer looks at.

#include <atomic>
#include <functional>
#include <thread>

#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "fakes/FakeAdapters.h"
#include "fakes/FakePlatform.h"
#include "platform/posix/PlainMainQueue.h"
#include "platform/posix/ThreadDispatch.h"

using namespace corvane;

namespace {

constexpr double veryFast = 1e6;

class MonitorThreadsTest : public ::testing::Test {
 protected:
  MonitorThreadsTest() {
    fake.bundles.install("/Library/Extensions/Corvane2-FC.kext", "2.0.8");
    fake.runLoops.loop->blocking = true;
  }

  /// Starts the monitor and waits until it has registered.
  template <typename Monitor>
  void start(Monitor& monitor) {
    std::atomic<bool> started{false};
    monitor.whenStarted([&started](int32_t) { started = true; });
    monitor.start();
    while (!started) std::this_thread::yield();
  }

  void waitForPosts(size_t count) const {
    while (fake.notifications.posts().size() < count) std::this_thread::yield();
  }

  /// Plugs the ports in and out again and again while another thread looks.
  void plugWhile(const std::function<void()>& look, const std::vector<RegistryHandle>& ports,
                 size_t cycles) {
    std::atomic<bool> done{false};
    std::thread reader([&] {
      while (!done) look();
    });
    for (size_t cycle = 0; cycle < cycles; ++cycle) {
      fake.registry.publish(ports);
      waitForPosts(2 * cycle + 1);
      fake.registry.terminate(ports);
      waitForPosts(2 * cycle + 2);
    }
    done = true;
    reader.join();
  }

  PlainMainQueue mainQueue;
  ThreadDispatch dispatch{mainQueue, veryFast};
  FakePlatform fake{dispatch};
};

}  // namespace

TEST_F(MonitorThreadsTest, FibreChannelAdaptersComeAndGoWhileOthersLook) {
  const auto ports = addFibreChannelAdapter(fake.registry, {});
  {
    DeviceMonitorCORVANE2 monitor(fake.platform());
    start(monitor);
    const auto look = [&] {
      if (const auto device = monitor.getDevice("20:00:00:10:9B:12:34:56")) {
        const auto port = device->port1();
        if (port) {
          EXPECT_LE(port->retainedService().get(), ports[1]);
        }
        device->isEmpty();
      }
      monitor.getBSDVolumeList();
    };
    plugWhile(look, ports, 200);
  }
  EXPECT_EQ(fake.registry.references(), 0);
  EXPECT_EQ(fake.registry.overReleases, 0);
}

// A departure that waits for its adapter must not hold the list meanwhile: whoever has the adapter
// may ask the list.
TEST_F(MonitorThreadsTest, TheAdaptersLockComesBeforeTheLists) {
  const auto ports = addFibreChannelAdapter(fake.registry, {});
  DeviceMonitorCORVANE2 monitor(fake.platform());
  start(monitor);
  fake.registry.publish(ports);
  waitForPosts(1);
  const auto device = monitor.getDevice("20:00:00:10:9B:12:34:56");
  ASSERT_NE(device, nullptr);
  {
    const auto held = device->lock();
    fake.registry.terminate(ports);
    for (int look = 0; look < 10000; ++look) {
      ASSERT_EQ(monitor.getDevice("20:00:00:10:9B:12:34:56"), device);
      std::this_thread::yield();
    }
    EXPECT_EQ(device->port1()->portService(), ports[0]);
  }
  waitForPosts(2);
  EXPECT_EQ(monitor.getDevice("20:00:00:10:9B:12:34:56"), nullptr);
}

TEST_F(MonitorThreadsTest, TenGigabitAdaptersComeAndGoWhileOthersLook) {
  const auto ports = addTenGigabitAdapter(fake.registry, {});
  {
    DeviceMonitorCORVANE2_10GE monitor(fake.platform());
    start(monitor);
    const auto look = [&] {
      if (const auto device = monitor.getDevice("12")) {
        const auto port = device->port2();
        if (port && port->macAddr()) {
          EXPECT_EQ(port->macAddr()->size(), 17U);
        }
        device->sortDeviceSequence(fake.registry, ports[0]);
      }
    };
    plugWhile(look, ports, 50);
  }
  EXPECT_EQ(fake.registry.references(), 0);
}

TEST_F(MonitorThreadsTest, AMonitorCanBeStoppedAtAnyMoment) {
  const auto ports = addFibreChannelAdapter(fake.registry, {});
  fake.registry.publish(ports);
  for (int round = 0; round < 200; ++round) {
    fake.runLoops.loop = std::make_shared<FakeRunLoop>();
    fake.runLoops.loop->blocking = true;
    DeviceMonitorCORVANE2 monitor(fake.platform());
    monitor.start();
    if (round % 2 == 0) std::this_thread::yield();
    monitor.stop();
    ASSERT_EQ(fake.registry.references(), 0) << round;
  }
}

TEST_F(MonitorThreadsTest, StopEndsTheWaitingForAName) {
  const auto service =
      fake.registry.add(fake.registry.root, "port",
                        {{"CFBundleIdentifier", PropertyValue("com.velmar.driver.Corvane2-10GE")}});
  fake.registry.add(service, "IOEthernetInterface");
  fake.registry.publish({service});
  DeviceMonitorCORVANE2_10GE monitor(fake.platform());
  monitor.start();
  while (fake.registry.references() < 3) std::this_thread::yield();
  monitor.stop();
  EXPECT_EQ(fake.registry.references(), 0);
}
