#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace corvane {

/// A monitor's adapters by key. Any thread may use it. Where an adapter's own lock is needed as
/// well, it is taken first.
template <typename Device>
class DeviceTable {
 public:
  /// The adapter under that key, or null.
  std::shared_ptr<Device> find(const std::string& key) const {
    std::lock_guard guard(mutex_);
    const auto found = devices_.find(key);
    return found == devices_.end() ? nullptr : found->second;
  }

  void insert(const std::string& key, std::shared_ptr<Device> device) {
    std::lock_guard guard(mutex_);
    devices_[key] = std::move(device);
  }

  void remove(const std::string& key) {
    std::lock_guard guard(mutex_);
    devices_.erase(key);
  }

  /// The adapters that are in it now, in no particular order.
  std::vector<std::shared_ptr<Device>> all() const {
    std::lock_guard guard(mutex_);
    std::vector<std::shared_ptr<Device>> devices;
    for (const auto& [key, device] : devices_) devices.push_back(device);
    return devices;
  }

  /// Empties the table and hands out what was in it.
  std::vector<std::shared_ptr<Device>> takeAll() {
    std::lock_guard guard(mutex_);
    std::vector<std::shared_ptr<Device>> taken;
    for (auto& [key, device] : devices_) taken.push_back(std::move(device));
    devices_.clear();
    return taken;
  }

  size_t count() const {
    std::lock_guard guard(mutex_);
    return devices_.size();
  }

 private:
  mutable std::mutex mutex_;  ///< guards devices_
  std::map<std::string, std::shared_ptr<Device>> devices_;
};

}  // namespace corvane
