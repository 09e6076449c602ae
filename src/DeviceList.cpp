#include "DeviceList.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

void sortByLabel(std::vector<DeviceListEntry>& entries) {
  std::stable_sort(entries.begin(), entries.end(), [](const auto& left, const auto& right) {
    return left.Sequence < right.Sequence;
  });
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

void DeviceList::removeWWN(const std::string& wwn) {
  std::lock_guard guard(mutex_);
  std::erase_if(entries_, [&wwn](const auto& entry) { return entry.WWN == wwn; });
}

void DeviceList::removePcidebug(const std::string& pcidebug) {
  std::lock_guard guard(mutex_);
  std::erase_if(entries_, [&pcidebug](const auto& entry) { return entry.pcidebug == pcidebug; });
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
