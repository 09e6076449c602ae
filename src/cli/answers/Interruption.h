#pragma once

#include <atomic>
#include <functional>
#include <thread>

namespace corvane {

/// While it lives, an interrupt or a request to end the program (SIGINT, SIGTERM) does not end it
/// but is kept for an InterruptionAnswer; further ones change nothing. One at a time in a process.
class Interruption {
 public:
  /// Throws std::system_error when the process has no descriptors left.
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;
};

/// Calls a function when the program is interrupted, at once when it has been already.
class InterruptionAnswer {
 public:
  /// `interrupted` is called on a thread of its own, once at most. The interruption outlives the
  /// answer and has one at a time.
  InterruptionAnswer(const Interruption& interruption, std::function<void()> interrupted);
  ~InterruptionAnswer();
  InterruptionAnswer(const InterruptionAnswer&) = delete;
  InterruptionAnswer& operator=(const InterruptionAnswer&) = delete;

 private:
  std::thread waiter_;
};

/// Keeps an interrupt for work that has to be brought to its end, or to be left in order.
class KeptInterruption {
 public:
  /// `arrived` is called on a thread of its own when the interrupt arrives. Throws
  /// std::system_error when the process has no descriptors left.
  explicit KeptInterruption(std::function<void()> arrived = [] {});

  /// Any thread may call.
  bool hasArrived() const { return hasArrived_; }

 private:
  std::atomic<bool> hasArrived_{false};
  const Interruption interruption_;
  const InterruptionAnswer answer_;
};

}  // namespace corvane
