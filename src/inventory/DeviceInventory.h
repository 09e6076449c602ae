#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "inventory/DeviceList.h"
#include "platform/OwnedMainWork.h"
#include "platform/Platform.h"

namespace corvane {

class DeviceMonitorCORVANE2;
class DeviceMonitorCORVANE2_10GE;

/// An adapter that came or went, as the notification told it and as the list shows or showed it.
struct AdapterEvent {
  Notification notification;
  DeviceListEntry entry;
  bool hasArrived = true;
};

/// The adapters that are attached, followed as they come and go: the two monitors, and the device
/// list that their notifications keep. Knows nothing of what is on show.
///
/// Made, used and destroyed on the main thread, save for the notification handlers.
class DeviceInventory {
 public:
  /// What both refer to outlives the inventory.
  DeviceInventory(const Platform& platform, DeviceList& list);

  /// Stops both monitors and waits until nothing of theirs runs any more.
  ~DeviceInventory();

  DeviceInventory(const DeviceInventory&) = delete;
  DeviceInventory& operator=(const DeviceInventory&) = delete;

  DeviceList& list() { return list_; }
  DeviceMonitorCORVANE2& device() { return *device_; }
  DeviceMonitorCORVANE2_10GE& device_10GE() { return *device_10GE_; }

  /// For a registry dump, in which no driver tells an adapter's name: the registry does. Set it
  /// before observing.
  void expectNoDriver() { hasDriver_ = false; }

  /// `followed` is called on the main queue for the adapters that came or went at one time, after
  /// the list has changed. Set it before observing.
  void whenAdaptersChange(std::function<void(const std::vector<AdapterEvent>&)> followed);

  /// `discovered` is called on the main queue once both monitors have started or failed to, after
  /// the adapters that were attached by then have been listed. Set it before starting.
  void whenDiscovered(std::function<void()> discovered);

  /// Registers for the monitors' notifications.
  void observeMonitors();

  /// Starts both monitors, Fibre Channel first.
  void startMonitors();

  /// What the registration of a family's monitor gave: 0 or registrationFailed; nothing before it
  /// has ended. Main queue only.
  std::optional<int32_t> monitorStatus(AdapterFamily family) const;

  /// Whether a monitor could not start, so that adapters of its family are not followed. Main queue
  /// only.
  bool hasFailedMonitor() const;

  // The monitors' notifications, on the posting thread. The list changes at once; who follows it is
  // told on the main queue.

  void corvane2Appeared(const Notification& notification);
  void corvane2Disappeared(const Notification& notification);
  void corvane2Appeared_10GE(const Notification& notification);
  void corvane2Disappeared_10GE(const Notification& notification);

 private:
  using Handler = void (DeviceInventory::*)(const Notification&);

  void observe(const std::string& name, Handler handler);
  void arrived(const Notification& notification, std::optional<DeviceListEntry> entry);
  void departed(const Notification& notification, std::vector<DeviceListEntry> entries);
  void tell(std::vector<AdapterEvent> events);
  void noteMonitorStart(std::optional<int32_t>& status, int32_t given);

  const Platform platform_;
  DeviceList& list_;
  std::unique_ptr<DeviceMonitorCORVANE2> device_;
  std::unique_ptr<DeviceMonitorCORVANE2_10GE> device_10GE_;
  std::vector<std::unique_ptr<Observation>> observations_;
  std::function<void(const std::vector<AdapterEvent>&)> followed_;
  std::function<void()> discovered_;
  std::optional<int32_t> fibreChannelStatus_;
  std::optional<int32_t> tenGigabitStatus_;
  bool hasDriver_ = true;
  OwnedMainWork<DeviceInventory> mainWork_;
};

}  // namespace corvane
