#pragma once

#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace corvane {

/// The BSD names of the disks and partitions behind the adapters. Any thread may use it.
class VolumeSet {
 public:
  void insert(const std::string& bsdName) {
    std::lock_guard guard(mutex_);
    names_.insert(bsdName);
  }

  void remove(const std::string& bsdName) {
    std::lock_guard guard(mutex_);
    names_.erase(bsdName);
  }

  void clear() {
    std::lock_guard guard(mutex_);
    names_.clear();
  }

  /// A copy of the names, in no particular order.
  std::vector<std::string> names() const {
    std::lock_guard guard(mutex_);
    return {names_.begin(), names_.end()};
  }

 private:
  mutable std::mutex mutex_;  ///< guards names_
  std::set<std::string> names_;
};

}  // namespace corvane
