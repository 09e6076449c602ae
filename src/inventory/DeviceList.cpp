#include "inventory/DeviceList.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"

namespace corvane {

namespace {

void sortByLabel(std::vector<DeviceListEntry>& entries) {
  std::stable_sort(entries.begin(), entries.end(), [](const auto& left, const auto& right) {
    return left.Sequence < right.Sequence;
  });
}

/// Whether the adapter is still attached. An adapter that was plugged in again before the departure
/// of its former self was handled has a record of its own.
bool isPresent(const DeviceListEntry& entry) {
  return std::visit([](const auto& device) { return device && !device->isEmpty(); }, entry.obj);
}

/// A driver that refuses to tell the name leaves the registry's.
bool hasNodeName(const DeviceListEntry& entry, const std::string& wwn) {
  if (entry.WWN == wwn) return true;
  const auto* device = std::get_if<std::shared_ptr<Corvane2Device>>(&entry.obj);
  return device != nullptr && *device && (*device)->nodeWWN() == wwn;
}

}  // namespace

void DeviceList::add(DeviceListEntry entry) {
  std::lock_guard guard(mutex_);
  entries_.push_back(std::move(entry));
  sortByLabel(entries_);
}

void DeviceList::sort() {
  std::lock_guard guard(mutex_);
  sortByLabel(entries_);
}

template <typename Condition>
std::vector<DeviceListEntry> DeviceList::removeDeparted(Condition condition) {
  std::lock_guard guard(mutex_);
  const auto kept = std::stable_partition(
      entries_.begin(), entries_.end(),
      [&condition](const auto& entry) { return isPresent(entry) || !condition(entry); });
  std::vector<DeviceListEntry> removed(std::make_move_iterator(kept),
                                       std::make_move_iterator(entries_.end()));
  entries_.erase(kept, entries_.end());
  return removed;
}

std::vector<DeviceListEntry> DeviceList::removeWWN(const std::string& wwn) {
  return removeDeparted([&wwn](const auto& entry) { return hasNodeName(entry, wwn); });
}

std::vector<DeviceListEntry> DeviceList::removePcidebug(const std::string& pcidebug) {
  return removeDeparted([&pcidebug](const auto& entry) { return entry.pcidebug == pcidebug; });
}

size_t DeviceList::count() const {
  std::lock_guard guard(mutex_);
  return entries_.size();
}

std::vector<DeviceListEntry> DeviceList::entries() const {
  std::lock_guard guard(mutex_);
  return entries_;
}

std::optional<DeviceListEntry> DeviceList::entry(int64_t row) const {
  std::lock_guard guard(mutex_);
  if (row < 0 || static_cast<size_t>(row) >= entries_.size()) return std::nullopt;
  return entries_[static_cast<size_t>(row)];
}

}  // namespace corvane
