#pragma once

#include <deque>
#include <mutex>

namespace corvane::macos {

/// What a C callback is to call, with which context.
template <typename Callback>
struct CallbackTarget {
  Callback callback;
  void* context;
};

/// Keeps the targets that a C interface is given the addresses of. An address stays valid as long
/// as the table lives, so the table outlives the object that calls back. Any thread may use it.
template <typename Callback>
class CallbackTable {
 public:
  /// The address to hand to the C interface as its context.
  void* keep(Callback callback, void* context) {
    const std::lock_guard lock(mutex_);
    targets_.push_back({callback, context});
    return &targets_.back();
  }

  /// What keep() was given, from the address that it handed out.
  static const CallbackTarget<Callback>& target(const void* address) {
    return *static_cast<const CallbackTarget<Callback>*>(address);
  }

 private:
  std::mutex mutex_;                              ///< guards targets_
  std::deque<CallbackTarget<Callback>> targets_;  ///< a deque keeps addresses as it grows
};

}  // namespace corvane::macos
