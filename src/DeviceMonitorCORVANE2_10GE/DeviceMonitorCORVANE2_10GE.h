#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "DeviceMonitorCORVANE2_10GE/callbackRef_10GE.h"
#include "discovery/ServiceNotifications.h"
#include "platform/Platform.h"

namespace corvane {

/// Watches the registry for the ports of the maker's 10GbE driver, pairs them into adapters by
/// their PCI bus and posts a notification, whose object is the adapter's bus number, when one is
/// complete or gone: "Corvane2Appeared_10GE" or "Corvane3Appeared_10GE" by its generation, on the
/// monitor's thread, and "Corvane2Disppeared_10GE" for either generation, from a global queue.
///
/// start() and stop() belong to the thread that owns the monitor; any thread may ask.
class DeviceMonitorCORVANE2_10GE {
 public:
  /// What the platform refers to outlives the monitor. Empties the process's small tree.
  explicit DeviceMonitorCORVANE2_10GE(const Platform& platform);

  /// Stops the monitor if it was not stopped yet.
  ~DeviceMonitorCORVANE2_10GE();

  DeviceMonitorCORVANE2_10GE(const DeviceMonitorCORVANE2_10GE&) = delete;
  DeviceMonitorCORVANE2_10GE& operator=(const DeviceMonitorCORVANE2_10GE&) = delete;

  /// `started` is called on the monitor's thread once the registration has succeeded (0) or failed
  /// (4096), be it by an exception; by then the ports present have been reported. Set it before
  /// start().
  void whenStarted(std::function<void(int32_t status)> started);

  /// Runs the monitor on a thread of the default-priority global queue and returns at once.
  void start();

  /// Registers and serves the current thread's run loop until stop(). Returns 0, or 4096 when the
  /// registration failed and no adapter will ever be reported; log lines tell which step it was.
  int32_t startMonitorRunLoop();

  /// The monitor's registration with the registry, on its thread. Returns 0 or 4096.
  int32_t registCorvane2Event_10GE();

  /// The adapter on that PCI bus, or null.
  std::shared_ptr<Corvane2Device_10GE> getDevice(const std::string& key) const;

  /// Ends the run loop and any waiting for an interface's name, waits for the monitor's thread and
  /// drops every adapter. Nothing is posted after it; a stopped monitor stays stopped. Never call
  /// it from a notification's observer.
  void stop();

 private:
  void endRunLoop();
  void tearDown();
  void dropDevices();

  const Platform platform_;
  StopSource stopping_;
  std::unique_ptr<callbackRef_10GE> callbackRef_;
  std::function<void(int32_t)> started_;
  bool stopped_ = false;

  // The monitor thread's, and after it has ended the owner's.
  SharedDictionary ioPropertyMatchDic_;
  SharedDictionary ioPropertyMatchSubDic_;
  ServiceNotifications notifications_;
  RegistryObject ioDeviceAppeared_;
  RegistryObject ioDeviceDisappeared_;
};

// The callbacks; the context is the monitor's callbackRef_10GE.
void corvane2Appeared_10GE(void* context, RegistryHandle iterator);
void corvane2Disappeared_10GE(void* context, RegistryHandle iterator);
void corvane2ChildAppeared_10GE(void* context, RegistryHandle iterator);

}  // namespace corvane
