#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/Dispatch.h"

namespace corvane {

/// Dispatch queues that a test runs by hand, with a clock that stands still unless it is advanced.
///
/// The thread that makes the object is the main thread: the test's code and the work of the main
/// queue run there. Work of the global queues runs on real threads of its own, yet only one thread
/// of all moves at any time, and the next one is chosen in a fixed order: the main queue first,
/// then global work in the order in which it became able to go on. A test sees the same order each
/// time.
///
/// Work that has not ended when the object is destroyed is unwound by an exception from the call in
/// which it waits.
class ManualDispatch final : public Dispatch {
 public:
  ManualDispatch();
  ManualDispatch(const ManualDispatch&) = delete;
  ManualDispatch& operator=(const ManualDispatch&) = delete;
  ~ManualDispatch() override;

  /// Runs everything that can go on without the clock moving. Main thread only.
  void runUntilIdle();

  /// Moves the clock, stopping at each sleeper's time on the way. Main thread only.
  void advance(std::chrono::milliseconds duration);

  /// What the clock shows; 0 at first.
  std::chrono::milliseconds now() const;

  /// Parks the calling thread until `ready` holds; the main thread runs global work meanwhile.
  /// `ready` is asked on the main thread while nothing else moves. For fakes that block.
  void parkUntil(std::function<bool()> ready);

  /// Pieces of global work that have not ended.
  size_t unfinished() const;

  /// The priority of each piece of global work submitted so far, those of groups included.
  std::vector<QueuePriority> priorities() const;

  void asyncMain(std::function<void()> work) override;
  void syncMain(std::function<void()> work) override;
  void asyncGlobal(QueuePriority priority, std::function<void()> work) override;
  std::unique_ptr<DispatchGroup> createGroup() override;
  void sleep(std::chrono::milliseconds duration) override;
  bool isMain() const override;

 private:
  class Group;
  struct Task;
  struct Abandoned {};

  void runTask(Task& task);
  void body(Task& task);
  void resume(Task& task);
  void park(Task& task, std::function<bool()> ready);
  bool runReadyTask();
  bool runMainWork();
  bool wakeNextSleeper(std::chrono::milliseconds limit);
  void runGlobalUntil(const std::function<bool()>& ready);
  std::shared_ptr<Task> takeReadyTask();
  Task* currentTask() const;

  const std::thread::id mainThread_ = std::this_thread::get_id();

  mutable std::mutex mutex_;  ///< guards everything below
  std::condition_variable handedOver_;
  Task* holder_ = nullptr;  ///< the one thread that moves; null for the main thread
  std::chrono::milliseconds now_{0};
  std::deque<std::function<void()>> mainQueue_;
  std::vector<QueuePriority> priorities_;
  std::vector<std::shared_ptr<Task>> waiting_;  ///< in the order in which they began to wait
};

}  // namespace corvane
