#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "DeviceMonitorCORVANE2_8FC/callbackRef.h"
#include "discovery/ServiceNotifications.h"
#include "platform/Platform.h"

namespace corvane {

/// Watches the registry for the ports of the maker's Fibre Channel driver, pairs them into adapters
/// and posts a notification, whose object is the adapter's node name, when one is complete or gone:
/// "Corvane2Appeared" or "Corvane3Appeared" by its generation, on the monitor's thread, and
/// "Corvane2Disppeared" for either generation, from a global queue. It also keeps the set of the
/// disks behind the adapters.
///
/// start() and stop() belong to the thread that owns the monitor; any thread may ask.
class DeviceMonitorCORVANE2 {
 public:
  /// What the platform refers to outlives the monitor.
  explicit DeviceMonitorCORVANE2(const Platform& platform);

  /// Stops the monitor if it was not stopped yet.
  ~DeviceMonitorCORVANE2();

  DeviceMonitorCORVANE2(const DeviceMonitorCORVANE2&) = delete;
  DeviceMonitorCORVANE2& operator=(const DeviceMonitorCORVANE2&) = delete;

  /// `started` is called on the monitor's thread once the registration has succeeded (0) or failed
  /// (4096), be it by an exception; by then the ports present have been reported. Set it before
  /// start().
  void whenStarted(std::function<void(int32_t status)> started);

  /// Runs the monitor on a thread of the default-priority global queue and returns at once.
  void start();

  /// Registers and serves the current thread's run loop until stop(). Returns 0, or 4096 when a
  /// registration failed and no adapter will ever be reported; log lines tell which step it was.
  int32_t startMonitorRunLoop();

  /// The monitor's registrations with the registry and with disk arbitration, on its thread. Each
  /// returns 0 or 4096.
  int32_t registCorvane2Event();
  int32_t registDiskEvent();

  /// Watches for adapters whose children sleep. Nothing follows from their coming and going.
  int32_t registCorvane2ChildEvent();

  /// The bundle identifier of the installed driver; empty, which no service has, when there is
  /// none.
  std::string _getDriverAddress() const;

  /// The adapter with that node name, or null.
  std::shared_ptr<Corvane2Device> getDevice(const std::string& nodeWWN) const;

  /// The BSD names of the disks and partitions behind the adapters, in no particular order.
  std::vector<std::string> getBSDVolumeList() const;

  /// Ends the run loop, waits for the monitor's thread and drops every adapter. Nothing is posted
  /// after it; a stopped monitor stays stopped. Never call it from a notification's observer.
  void stop();

 private:
  void endRunLoop();
  void unscheduleSession();
  void tearDown();
  void dropDevices();

  const Platform platform_;
  std::unique_ptr<callbackRef> callbackRef_;
  std::function<void(int32_t)> started_;
  bool stopped_ = false;

  // The monitor thread's, and after it has ended the owner's.
  SharedDictionary ioPropertyMatchDic_;
  SharedDictionary ioPropertyMatchSubDic_;
  SharedDictionary ioPropertyChildDic_;
  SharedDictionary ioPropertyChildSubDic_;
  ServiceNotifications notifications_;
  RegistryObject ioDeviceAppeared_;
  RegistryObject ioDeviceDisappeared_;
  RegistryObject ioChildAppeared_;
  RegistryObject ioChildDisappeared_;

  std::mutex mutex_;  ///< guards session_
  std::unique_ptr<DiskSession> session_;
};

// The callbacks; the context is the monitor's callbackRef.
void corvane2Appeared(void* context, RegistryHandle iterator);
void corvane2Disappeared(void* context, RegistryHandle iterator);
void corvane2ChildAppeared(void* context, RegistryHandle iterator);
void corvane2ChildDisappeared(void* context, RegistryHandle iterator);
void hello_disk(Disk& disk, void* context);
void goodbye_disk(Disk& disk, void* context);

}  // namespace corvane
