#pragma once

#include <functional>

namespace corvane {

/// The main thread's queue. The window serves it with its event loop, the command line by hand.
class MainQueue {
 public:
  virtual ~MainQueue() = default;

  /// Has `work` run on the main thread, after what was posted before. Any thread may call.
  virtual void post(std::function<void()> work) = 0;

  /// Whether the caller is the main thread.
  virtual bool isMain() const = 0;
};

}  // namespace corvane
