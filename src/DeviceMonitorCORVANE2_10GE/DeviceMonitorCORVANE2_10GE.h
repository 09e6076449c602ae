#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "DeviceMonitorCORVANE2_10GE/callbackRef_10GE.h"
#include "discovery/AdapterMonitor.h"

namespace corvane {

/// Watches the registry for the ports of the maker's 10GbE driver, pairs them into adapters by
/// their PCI bus and posts a notification, whose object is the adapter's bus number, when one is
/// complete or gone: "Corvane2Appeared_10GE" or "Corvane3Appeared_10GE" by its generation, on the
/// monitor's thread, and "Corvane2Disppeared_10GE" for either generation, from a global queue.
///
/// start() and stop() belong to the thread that owns the monitor; any thread may ask.
class DeviceMonitorCORVANE2_10GE final : public AdapterMonitor {
 public:
  /// What the platform refers to outlives the monitor.
  explicit DeviceMonitorCORVANE2_10GE(const Platform& platform);

  /// Stops the monitor if it was not stopped yet.
  ~DeviceMonitorCORVANE2_10GE() override;

  /// The monitor's registration with the registry, on its thread. Returns 0 or 4096.
  int32_t registCorvane2Event_10GE();

  /// The adapter on that PCI bus, or null.
  std::shared_ptr<Corvane2Device_10GE> getDevice(const std::string& key) const;

 private:
  int32_t registerEvents() override { return registCorvane2Event_10GE(); }
  void prepareToStop() override { stopping_.request_stop(); }
  void dropDevices() override { dropAdapters(*callbackRef_.deviceList); }

  StopSource stopping_;
  callbackRef_10GE callbackRef_;
};

/// Drops the ports on record that have left untold. On the monitor's thread.
void forgetDeparted(callbackRef_10GE& reference);

// The callbacks; the context is the monitor's callbackRef_10GE.
void corvane2Appeared_10GE(void* context, RegistryHandle iterator);
void corvane2Disappeared_10GE(void* context, RegistryHandle iterator);
void corvane2ChildAppeared_10GE(void* context, RegistryHandle iterator);

}  // namespace corvane
