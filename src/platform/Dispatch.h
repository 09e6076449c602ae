#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace corvane {

enum class QueuePriority { Default, Background };

/// Work that can be waited for as a whole (dispatch_group_t).
class DispatchGroup {
 public:
  virtual ~DispatchGroup() = default;

  /// dispatch_group_async on the global queue of that priority.
  virtual void async(QueuePriority priority, std::function<void()> work) = 0;

  /// dispatch_group_wait without time limit. Never call it on the main queue.
  virtual void wait() = 0;
};

/// The dispatch queues of the process and its clock.
///
/// The main queue runs its work one after another on the main thread. The global queues are
/// concurrent: work there runs on worker threads, side by side. Any thread may submit work.
class Dispatch {
 public:
  virtual ~Dispatch() = default;

  /// dispatch_async to the main queue.
  virtual void asyncMain(std::function<void()> work) = 0;

  /// dispatch_sync to the main queue. On the main thread itself it runs the work at once.
  virtual void syncMain(std::function<void()> work) = 0;

  /// dispatch_async to the global queue of that priority.
  virtual void asyncGlobal(QueuePriority priority, std::function<void()> work) = 0;

  virtual std::unique_ptr<DispatchGroup> createGroup() = 0;

  /// Puts the calling thread to sleep. A bench divides the time by its clock rate; a test's virtual
  /// clock does not wait at all.
  virtual void sleep(std::chrono::milliseconds duration) = 0;

  /// The same for a worker that leaves the main queue time for what it was given before. A bench
  /// whose clock runs ahead of what this computer can do does not end the pause before that work is
  /// done, or ten times the time is over by a real clock.
  virtual void sleepBesideMain(std::chrono::milliseconds duration) { sleep(duration); }

  /// Whether the caller runs on the main queue's thread.
  virtual bool isMain() const = 0;
};

}  // namespace corvane
