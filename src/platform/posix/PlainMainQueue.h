#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/posix/MainQueue.h"

namespace corvane {

/// A main queue without an event loop, for the command line. The thread that makes it is the main
/// thread; it runs the posted work while it is inside run() or runUntil().
class PlainMainQueue final : public MainQueue {
 public:
  void post(std::function<void()> work) override;
  bool isMain() const override;

  /// Serves the queue until it is stopped. Main thread only.
  void run();

  /// Makes run() or runUntil() return once the work that runs now has ended; when neither is
  /// running, the next one returns at once. Any thread may call.
  void stop();

  /// Serves the queue until `done` holds, which is asked at first and after each piece of work.
  /// True when it holds; false when the queue was stopped or `limit` has passed. Main thread only.
  bool runUntil(const std::function<bool()>& done,
                std::optional<std::chrono::milliseconds> limit = std::nullopt);

 private:
  using Deadline = std::optional<std::chrono::steady_clock::time_point>;

  std::function<void()> takeWork(const Deadline& deadline);

  const std::thread::id mainThread_ = std::this_thread::get_id();
  std::mutex mutex_;  ///< guards everything below
  std::condition_variable changed_;
  std::deque<std::function<void()>> work_;
  bool stopped_ = false;
};

}  // namespace corvane
