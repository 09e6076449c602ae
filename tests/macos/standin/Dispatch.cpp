#include <dispatch/dispatch.h>

#include <chrono>
#include <condition_variable>

#include "macos/standin/SystemState.h"

using namespace corvane;
using namespace corvane::standin;

struct DispatchObject : Object {
  using Object::Object;
};

struct DispatchQueueObject : DispatchObject {
  explicit DispatchQueueObject(QueuePriority thePriority)
      : DispatchObject("queue"), priority(thePriority) {}

  const QueuePriority priority;
};

struct DispatchGroupObject : DispatchObject {
  DispatchGroupObject() : DispatchObject("dispatch group") {}

  std::mutex mutex;  ///< guards members
  std::condition_variable changed;
  size_t members = 0;

  void enter() {
    const std::lock_guard lock(mutex);
    ++members;
  }

  void leave() {
    const std::lock_guard lock(mutex);
    --members;
    changed.notify_all();
  }
};

struct DispatchSemaphoreObject : DispatchObject {
  explicit DispatchSemaphoreObject(long theValue)
      : DispatchObject("semaphore"), first(theValue), value(theValue) {}

  const long first;
  std::mutex mutex;  ///< guards value
  std::condition_variable changed;
  long value;

  /// False when the time was up before the semaphore was signalled.
  bool wait(dispatch_time_t limit) {
    std::unique_lock lock(mutex);
    const auto isSignalled = [this] { return value > 0; };
    if (limit == DISPATCH_TIME_FOREVER) {
      changed.wait(lock, isSignalled);
    } else {
      const std::chrono::nanoseconds moment(static_cast<int64_t>(limit));
      changed.wait_until(lock, std::chrono::steady_clock::time_point(moment), isSignalled);
    }
    if (value == 0) return false;
    --value;
    return true;
  }

 protected:
  void drop() override {
    if (value < first) noteMisuse("dispatch_release of a semaphore that is in use");
  }
};

dispatch_object_t::dispatch_object_t(dispatch_group_t group) : object(group) {}
dispatch_object_t::dispatch_object_t(dispatch_semaphore_t semaphore) : object(semaphore) {}

namespace {

/// One piece of work on a queue. The dispatch library runs everything that it was given, so what
/// the platform drops is run when it goes.
class QueuedWork {
 public:
  QueuedWork(dispatch_function_t work, void* context) : work_(work), context_(context) {}
  QueuedWork(const QueuedWork&) = delete;
  QueuedWork& operator=(const QueuedWork&) = delete;
  ~QueuedWork() { run(); }

  void run() {
    if (dispatch_function_t const work = std::exchange(work_, nullptr)) work(context_);
  }

 private:
  dispatch_function_t work_;
  void* const context_;
};

/// A member of a group for as long as it lives.
class Membership {
 public:
  explicit Membership(dispatch_group_t group) : group_(group) {
    group_->retain();
    group_->enter();
  }
  Membership(const Membership&) = delete;
  Membership& operator=(const Membership&) = delete;
  ~Membership() {
    group_->leave();
    releaseObject(group_, "a group's work");
  }

 private:
  const dispatch_group_t group_;
};

struct MemberWork {
  MemberWork(dispatch_group_t group, dispatch_function_t work, void* context)
      : membership(group), queued(work, context) {}

  const Membership membership;
  QueuedWork queued;
};

}  // namespace

extern "C" {

void dispatch_release(dispatch_object_t object) {
  isToFail("dispatch_release");
  releaseObject(object.object, "dispatch_release");
}

dispatch_time_t dispatch_time(dispatch_time_t base, int64_t nanoseconds) {
  isToFail("dispatch_time");
  if (base != DISPATCH_TIME_NOW) noteMisuse("dispatch_time from another moment than now");
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  const auto scaled = static_cast<double>(nanoseconds) / macSystem().options.clockRate;
  return static_cast<dispatch_time_t>(std::chrono::nanoseconds(now).count()) +
         static_cast<dispatch_time_t>(scaled);
}

dispatch_queue_t dispatch_get_global_queue(long priority, unsigned long) {
  static DispatchQueueObject background(QueuePriority::Background);
  static DispatchQueueObject ordinary(QueuePriority::Default);
  isToFail("dispatch_get_global_queue");
  return priority == DISPATCH_QUEUE_PRIORITY_BACKGROUND ? &background : &ordinary;
}

void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work) {
  isToFail("dispatch_async_f");
  auto queued = std::make_shared<QueuedWork>(work, context);
  macSystem().platform.dispatch.asyncGlobal(queue->priority, [queued] { queued->run(); });
}

dispatch_group_t dispatch_group_create() {
  isToFail("dispatch_group_create");
  return makeObject<DispatchGroupObject>();
}

void dispatch_group_async_f(dispatch_group_t group, dispatch_queue_t queue, void* context,
                            dispatch_function_t work) {
  isToFail("dispatch_group_async_f");
  if (!isThere(group, "dispatch_group_async_f")) return;
  auto member = std::make_shared<MemberWork>(group, work, context);
  macSystem().platform.dispatch.asyncGlobal(queue->priority, [member] { member->queued.run(); });
}

long dispatch_group_wait(dispatch_group_t group, dispatch_time_t timeout) {
  isToFail("dispatch_group_wait");
  if (!isThere(group, "dispatch_group_wait")) return 1;
  if (timeout != DISPATCH_TIME_FOREVER) noteMisuse("dispatch_group_wait with a time limit");
  std::unique_lock lock(group->mutex);
  group->changed.wait(lock, [group] { return group->members == 0; });
  return 0;
}

dispatch_semaphore_t dispatch_semaphore_create(long value) {
  isToFail("dispatch_semaphore_create");
  return makeObject<DispatchSemaphoreObject>(value);
}

long dispatch_semaphore_signal(dispatch_semaphore_t semaphore) {
  isToFail("dispatch_semaphore_signal");
  if (!isThere(semaphore, "dispatch_semaphore_signal")) return 0;
  const std::lock_guard lock(semaphore->mutex);
  ++semaphore->value;
  semaphore->changed.notify_one();
  return 1;
}

long dispatch_semaphore_wait(dispatch_semaphore_t semaphore, dispatch_time_t timeout) {
  isToFail("dispatch_semaphore_wait");
  if (!isThere(semaphore, "dispatch_semaphore_wait")) return 1;
  if (semaphore->wait(timeout)) return 0;
  if (macSystem().options.clockRate > 1) macSystem().options.afterPause();
  return 1;
}

}  // extern "C"
