#pragma once

#include <functional>
#include <thread>

namespace corvane {

/// While it lives, an interrupt or a request to end the program (SIGINT, SIGTERM) calls a function
/// instead. One at a time in a process.
class Interruption {
 public:
  /// `interrupted` is called on a thread of its own, once at most. Throws std::system_error when
  /// the process has no descriptors left.
  explicit Interruption(std::function<void()> interrupted);
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

 private:
  std::thread waiter_;
};

}  // namespace corvane
