#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "discovery/ServiceNotifications.h"
#include "discovery/WorkGate.h"
#include "platform/Platform.h"

namespace corvane {

/// The life of an adapter monitor: it registers on a thread of its own, serves that thread's run
/// loop, and is torn down by its owner. What it registers for and what it keeps are the derived
/// class's.
///
/// start() and stop() belong to the thread that owns the monitor.
class AdapterMonitor {
 public:
  AdapterMonitor(const AdapterMonitor&) = delete;
  AdapterMonitor& operator=(const AdapterMonitor&) = delete;

  /// A derived class's destructor calls stop().
  virtual ~AdapterMonitor() = default;

  /// `started` is called on the monitor's thread once the registration has succeeded (0) or failed
  /// (4096), be it by an exception; by then the ports present have been reported. Set it before
  /// start().
  void whenStarted(std::function<void(int32_t status)> started);

  /// Runs the monitor on a thread of the default-priority global queue and returns at once.
  void start();

  /// Registers and serves the current thread's run loop until stop(). Returns 0, or 4096 when a
  /// registration failed and no adapter will ever be reported; log lines tell which step it was.
  int32_t startMonitorRunLoop();

  /// Ends the run loop and whatever the monitor waits for, waits for its thread and drops every
  /// adapter. Nothing is posted after it; a stopped monitor stays stopped. Never call it from a
  /// notification's observer.
  void stop();

 protected:
  /// What the platform refers to outlives the monitor.
  explicit AdapterMonitor(const Platform& platform);

  /// Registers for everything that the monitor follows. On the monitor's thread; 0 or 4096.
  virtual int32_t registerEvents() = 0;

  /// Takes back what must not go on while the run loop is ended.
  virtual void prepareToStop() {}

  /// Release what is the derived class's alone, and its adapters. Nothing of the monitor's runs any
  /// more.
  virtual void releaseOwn() {}
  virtual void dropDevices() = 0;

  /// Registers for the services of the driver with that bundle identifier. Returns 0 or 4096.
  int32_t watchDriver(const std::string& bundleIdentifier, MatchingCallback appeared,
                      MatchingCallback disappeared, void* context);

  const Platform platform_;
  const std::shared_ptr<WorkGate> gate_ = std::make_shared<WorkGate>();

  // The monitor thread's, and after it has ended the owner's.
  ServiceNotifications notifications_;

 private:
  void endRunLoop();
  void tearDown();

  std::function<void(int32_t)> started_;
  bool stopped_ = false;

  SharedDictionary ioPropertyMatchDic_;
  SharedDictionary ioPropertyMatchSubDic_;
  RegistryObject ioDeviceAppeared_;
  RegistryObject ioDeviceDisappeared_;
};

}  // namespace corvane
