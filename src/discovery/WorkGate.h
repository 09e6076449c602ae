#pragma once

#include <mutex>

namespace corvane {

/// Lets work of other threads use an object only as long as the object lives: the work passes the
/// gate, the object's owner closes it and waits until it is idle. Share it with the work; it
/// outlives the object.
class WorkGate {
 public:
  /// Does `work`, unless the gate is closed.
  template <typename Work>
  void pass(Work&& work) {
    if (!enter()) return;
    const Leaving leaving{*this};
    work();
  }

  void close() {
    std::lock_guard guard(mutex_);
    closed_ = true;
  }

  /// Whether no work is inside.
  bool isIdle() const {
    std::lock_guard guard(mutex_);
    return inside_ == 0;
  }

 private:
  struct Leaving {
    WorkGate& gate;
    ~Leaving() {
      std::lock_guard guard(gate.mutex_);
      --gate.inside_;
    }
  };

  bool enter() {
    std::lock_guard guard(mutex_);
    if (closed_) return false;
    ++inside_;
    return true;
  }

  mutable std::mutex mutex_;  ///< guards everything below
  bool closed_ = false;
  int inside_ = 0;
};

}  // namespace corvane
