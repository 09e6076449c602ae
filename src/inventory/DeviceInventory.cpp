#include "inventory/DeviceInventory.h"

#include <utility>

#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "inventory/DeviceListEntries.h"

namespace corvane {

DeviceInventory::DeviceInventory(const Platform& platform, DeviceList& list)
    : platform_(platform),
      list_(list),
      device_(std::make_unique<DeviceMonitorCORVANE2>(platform)),
      device_10GE_(std::make_unique<DeviceMonitorCORVANE2_10GE>(platform)),
      mainWork_(platform.dispatch, *this) {}

DeviceInventory::~DeviceInventory() {
  device_->stop();
  device_10GE_->stop();
}

void DeviceInventory::whenAdaptersChange(
    std::function<void(const std::vector<AdapterEvent>&)> followed) {
  followed_ = std::move(followed);
}

void DeviceInventory::whenDiscovered(std::function<void()> discovered) {
  discovered_ = std::move(discovered);
}

void DeviceInventory::observeMonitors() {
  observe("Corvane2Appeared_10GE", &DeviceInventory::corvane2Appeared_10GE);
  observe("Corvane3Appeared_10GE", &DeviceInventory::corvane2Appeared_10GE);
  observe("Corvane2Disppeared_10GE", &DeviceInventory::corvane2Disappeared_10GE);
  observe("Corvane2Appeared", &DeviceInventory::corvane2Appeared);
  observe("Corvane3Appeared", &DeviceInventory::corvane2Appeared);
  observe("Corvane2Disppeared", &DeviceInventory::corvane2Disappeared);
}

void DeviceInventory::observe(const std::string& name, Handler handler) {
  observations_.push_back(platform_.notifications.observe(
      name, [this, handler](const Notification& notification) { (this->*handler)(notification); }));
}

void DeviceInventory::startMonitors() {
  const auto note = [way = mainWork_.way()](std::optional<int32_t> DeviceInventory::*status) {
    return [way, status](int32_t given) {
      way.async(
          [status, given](DeviceInventory& self) { self.noteMonitorStart(self.*status, given); });
    };
  };
  device_->whenStarted(note(&DeviceInventory::fibreChannelStatus_));
  device_10GE_->whenStarted(note(&DeviceInventory::tenGigabitStatus_));
  device_->start();
  device_10GE_->start();
}

void DeviceInventory::noteMonitorStart(std::optional<int32_t>& status, int32_t given) {
  status = given;
  if (fibreChannelStatus_ && tenGigabitStatus_ && discovered_) discovered_();
}

std::optional<int32_t> DeviceInventory::monitorStatus(AdapterFamily family) const {
  return family == AdapterFamily::FibreChannel ? fibreChannelStatus_ : tenGigabitStatus_;
}

bool DeviceInventory::hasFailedMonitor() const {
  return fibreChannelStatus_.value_or(0) != 0 || tenGigabitStatus_.value_or(0) != 0;
}

void DeviceInventory::corvane2Appeared(const Notification& notification) {
  const auto adapter = device_->getDevice(notification.object);
  if (!adapter) return;
  auto entry = makeEntry(platform_, adapter, iconOfNotification(notification.name));
  if (!hasDriver_ && entry) entry->WWN = adapter->nodeWWN().value_or("");
  arrived(notification, std::move(entry));
}

void DeviceInventory::corvane2Appeared_10GE(const Notification& notification) {
  const auto adapter = device_10GE_->getDevice(notification.object);
  if (!adapter) return;
  arrived(notification, makeEntry(platform_, adapter, iconOfNotification(notification.name)));
}

void DeviceInventory::arrived(const Notification& notification,
                              std::optional<DeviceListEntry> entry) {
  if (!entry) return;
  list_.add(*entry);
  tell({{notification, std::move(*entry), true}});
}

void DeviceInventory::corvane2Disappeared(const Notification& notification) {
  departed(notification, list_.removeWWN(notification.object));
}

void DeviceInventory::corvane2Disappeared_10GE(const Notification& notification) {
  departed(notification, list_.removePcidebug(notification.object));
}

void DeviceInventory::departed(const Notification& notification,
                               std::vector<DeviceListEntry> entries) {
  std::vector<AdapterEvent> events;
  events.reserve(entries.size());
  for (auto& entry : entries) events.push_back({notification, std::move(entry), false});
  tell(std::move(events));
}

void DeviceInventory::tell(std::vector<AdapterEvent> events) {
  mainWork_.async([events = std::move(events)](DeviceInventory& self) {
    if (self.followed_) self.followed_(events);
  });
}

}  // namespace corvane
