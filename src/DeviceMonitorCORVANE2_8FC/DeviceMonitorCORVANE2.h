#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "DeviceMonitorCORVANE2_8FC/callbackRef.h"
#include "discovery/AdapterMonitor.h"

namespace corvane {

/// Watches the registry for the ports of the maker's Fibre Channel driver, pairs them into adapters
/// and posts a notification, whose object is the adapter's node name, when one is complete or gone:
/// "Corvane2Appeared" or "Corvane3Appeared" by its generation, on the monitor's thread, and
/// "Corvane2Disppeared" for either generation, from a global queue. It also keeps the set of the
/// disks behind the adapters.
///
/// start() and stop() belong to the thread that owns the monitor; any thread may ask.
class DeviceMonitorCORVANE2 final : public AdapterMonitor {
 public:
  /// What the platform refers to outlives the monitor.
  explicit DeviceMonitorCORVANE2(const Platform& platform);

  /// Stops the monitor if it was not stopped yet.
  ~DeviceMonitorCORVANE2() override;

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

 private:
  int32_t registerEvents() override;
  void prepareToStop() override;
  void releaseOwn() override;
  void dropDevices() override;

  callbackRef callbackRef_;

  // The monitor thread's, and after it has ended the owner's.
  SharedDictionary ioPropertyChildDic_;
  SharedDictionary ioPropertyChildSubDic_;
  RegistryObject ioChildAppeared_;
  RegistryObject ioChildDisappeared_;

  std::mutex mutex_;  ///< guards session_
  std::unique_ptr<DiskSession> session_;
};

/// Drops the ports on record that have left untold. On the monitor's thread.
void forgetDeparted(callbackRef& reference);

// The callbacks; the context is the monitor's callbackRef.
void corvane2Appeared(void* context, RegistryHandle iterator);
void corvane2Disappeared(void* context, RegistryHandle iterator);
void corvane2ChildAppeared(void* context, RegistryHandle iterator);
void corvane2ChildDisappeared(void* context, RegistryHandle iterator);
void hello_disk(Disk& disk, void* context);
void goodbye_disk(Disk& disk, void* context);

}  // namespace corvane
