#include "platform/macos/MacDispatch.h"

#include <dispatch/dispatch.h>

#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <set>
#include <utility>

namespace corvane::macos {

namespace {

/// How often work that blocks is told to end.
constexpr std::chrono::milliseconds tellInterval{10};

/// Whether the calling thread runs work of a dispatch now; only such work can be unwound.
thread_local bool runsGlobalWork = false;

class GlobalWorkScope {
 public:
  GlobalWorkScope() { runsGlobalWork = true; }
  GlobalWorkScope(const GlobalWorkScope&) = delete;
  GlobalWorkScope& operator=(const GlobalWorkScope&) = delete;
  ~GlobalWorkScope() { runsGlobalWork = false; }
};

dispatch_queue_t globalQueue(QueuePriority priority) {
  return dispatch_get_global_queue(priority == QueuePriority::Background
                                       ? DISPATCH_QUEUE_PRIORITY_BACKGROUND
                                       : DISPATCH_QUEUE_PRIORITY_DEFAULT,
                                   0);
}

}  // namespace

struct MacDispatch::State {
  std::mutex mutex;  ///< guards everything below
  std::condition_variable changed;
  /// What has not begun. The system's queues hold numbers only, since they cannot be emptied.
  std::map<uint64_t, std::function<void()>> waiting;
  uint64_t next = 0;
  size_t running = 0;
  std::set<dispatch_semaphore_t> sleepers;
  bool ended = false;

  /// The work of that number, counted as running; empty when it was dropped.
  std::function<void()> begin(uint64_t number) {
    const std::lock_guard lock(mutex);
    const auto found = waiting.find(number);
    if (found == waiting.end()) return {};
    std::function<void()> work = std::move(found->second);
    waiting.erase(found);
    ++running;
    return work;
  }

  void finish() {
    const std::lock_guard lock(mutex);
    --running;
    changed.notify_all();
  }

  bool waitUntilIdle(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, limit, [this] { return running == 0; });
  }
};

/// What stands on a queue of the system's for one piece of work.
struct MacDispatch::Ticket {
  std::shared_ptr<State> state;
  uint64_t number;
};

/// What a sleeping thread waits on; signalled when the dispatch ends.
class MacDispatch::Sleeper {
 public:
  explicit Sleeper(State& state) : state_(state) {
    const std::lock_guard lock(state_.mutex);
    if (state_.ended && runsGlobalWork) {
      dispatch_semaphore_signal(semaphore_);
    } else if (runsGlobalWork) {
      state_.sleepers.insert(semaphore_);
    }
  }
  Sleeper(const Sleeper&) = delete;
  Sleeper& operator=(const Sleeper&) = delete;
  ~Sleeper() {
    {
      const std::lock_guard lock(state_.mutex);
      state_.sleepers.erase(semaphore_);
    }
    dispatch_release(semaphore_);
  }

  void sleep(std::chrono::nanoseconds duration) {
    dispatch_semaphore_wait(semaphore_, dispatch_time(DISPATCH_TIME_NOW, duration.count()));
  }

 private:
  State& state_;
  const dispatch_semaphore_t semaphore_ = dispatch_semaphore_create(0);
};

class MacDispatch::Group final : public DispatchGroup {
 public:
  explicit Group(MacDispatch& dispatch) : dispatch_(dispatch), state_(dispatch.state_) {}
  Group(const Group&) = delete;
  Group& operator=(const Group&) = delete;
  ~Group() override { dispatch_release(group_); }

  void async(QueuePriority priority, std::function<void()> work) override {
    Ticket* const ticket = dispatch_.ticket(std::move(work));
    if (ticket != nullptr) dispatch_group_async_f(group_, globalQueue(priority), ticket, run);
  }

  // Dropped and unwound members leave the group as well, so it empties once the dispatch ends.
  void wait() override {
    dispatch_group_wait(group_, DISPATCH_TIME_FOREVER);
    unwindIfEnded(*state_);
  }

 private:
  MacDispatch& dispatch_;
  const std::shared_ptr<State> state_;
  const dispatch_group_t group_ = dispatch_group_create();
};

MacDispatch::MacDispatch(MainQueue& mainQueue)
    : mainQueue_(mainQueue), state_(std::make_shared<State>()), mainWork_(mainQueue) {}

MacDispatch::~MacDispatch() {
  end();
}

void MacDispatch::end(const std::function<void()>& tellToEnd) {
  std::map<uint64_t, std::function<void()>> dropped;
  {
    const std::lock_guard lock(state_->mutex);
    state_->ended = true;
    dropped.swap(state_->waiting);
    for (const dispatch_semaphore_t sleeper : state_->sleepers) dispatch_semaphore_signal(sleeper);
  }
  dropped.clear();
  mainWork_.end();
  do {
    tellToEnd();
  } while (!state_->waitUntilIdle(tellInterval));
}

MacDispatch::Ticket* MacDispatch::ticket(std::function<void()> work) {
  const std::lock_guard lock(state_->mutex);
  if (state_->ended) return nullptr;
  const uint64_t number = state_->next++;
  state_->waiting.emplace(number, std::move(work));
  return new Ticket{state_, number};
}

void MacDispatch::run(void* ticket) noexcept {
  const std::unique_ptr<Ticket> owned(static_cast<Ticket*>(ticket));
  std::function<void()> work = owned->state->begin(owned->number);
  if (!work) return;
  const GlobalWorkScope scope;
  try {
    work();
  } catch (const Ended&) {
    // The dispatch has ended; the work was unwound from where it waited.
  }
  work = nullptr;
  owned->state->finish();
}

/// While a stack is unwound already, its destructors go on without waiting.
void MacDispatch::unwindIfEnded(State& state) {
  if (!runsGlobalWork || std::uncaught_exceptions() > 0) return;
  const std::lock_guard lock(state.mutex);
  if (state.ended) throw Ended();
}

void MacDispatch::asyncMain(std::function<void()> work) {
  mainWork_.async(std::move(work));
}

void MacDispatch::syncMain(std::function<void()> work) {
  if (!mainWork_.sync(work)) unwindIfEnded(*state_);
}

void MacDispatch::asyncGlobal(QueuePriority priority, std::function<void()> work) {
  Ticket* const waiting = ticket(std::move(work));
  if (waiting != nullptr) dispatch_async_f(globalQueue(priority), waiting, run);
}

std::unique_ptr<DispatchGroup> MacDispatch::createGroup() {
  return std::make_unique<Group>(*this);
}

void MacDispatch::sleep(std::chrono::milliseconds duration) {
  Sleeper(*state_).sleep(duration);
  unwindIfEnded(*state_);
}

bool MacDispatch::isMain() const {
  return mainQueue_.isMain();
}

}  // namespace corvane::macos
