#include "platform/posix/ThreadDispatch.h"

#include <exception>
#include <utility>

namespace corvane {

namespace {

/// Whether the calling thread belongs to the pool; only its work can be unwound.
thread_local bool threadOfPool = false;

}  // namespace

struct ThreadDispatch::State {
  std::mutex mutex;  ///< guards everything below
  std::condition_variable changed;
  std::deque<std::function<void()>> work;
  size_t idleThreads = 0;
  bool ended = false;
};

class ThreadDispatch::Group final : public DispatchGroup {
 public:
  explicit Group(ThreadDispatch& dispatch) : dispatch_(dispatch) {}

  void async(QueuePriority priority, std::function<void()> work) override {
    auto member = std::make_shared<Member>(dispatch_.state_, pending_);
    dispatch_.asyncGlobal(priority,
                          [work = std::move(work), member = std::move(member)] { work(); });
  }

  void wait() override {
    {
      std::unique_lock lock(dispatch_.state_->mutex);
      dispatch_.state_->changed.wait(
          lock, [this] { return *pending_ == 0 || (threadOfPool && dispatch_.state_->ended); });
    }
    dispatch_.unwindIfEnded();
  }

 private:
  /// Counts as pending as long as it lives: until the work has ended, or was dropped or unwound.
  class Member {
   public:
    Member(std::shared_ptr<State> state, std::shared_ptr<size_t> pending)
        : state_(std::move(state)), pending_(std::move(pending)) {
      const std::lock_guard lock(state_->mutex);
      ++*pending_;
    }
    Member(const Member&) = delete;
    Member& operator=(const Member&) = delete;
    ~Member() {
      const std::lock_guard lock(state_->mutex);
      --*pending_;
      state_->changed.notify_all();
    }

   private:
    std::shared_ptr<State> state_;
    std::shared_ptr<size_t> pending_;
  };

  ThreadDispatch& dispatch_;
  std::shared_ptr<size_t> pending_ = std::make_shared<size_t>(0);  ///< guarded by the state's mutex
};

ThreadDispatch::ThreadDispatch(MainQueue& mainQueue, double clockRate)
    : mainQueue_(mainQueue),
      clockRate_(clockRate),
      state_(std::make_shared<State>()),
      mainWork_(mainQueue) {}

ThreadDispatch::~ThreadDispatch() {
  end();
}

void ThreadDispatch::end() {
  std::deque<std::function<void()>> dropped;
  std::vector<std::thread> threads;
  {
    const std::lock_guard lock(state_->mutex);
    state_->ended = true;
    dropped.swap(state_->work);
    threads.swap(threads_);
    state_->changed.notify_all();
  }
  dropped.clear();
  mainWork_.end();
  for (std::thread& thread : threads) thread.join();
}

void ThreadDispatch::asyncMain(std::function<void()> work) {
  mainWork_.async(std::move(work));
}

void ThreadDispatch::syncMain(std::function<void()> work) {
  if (!mainWork_.sync(work)) unwindIfEnded();
}

void ThreadDispatch::asyncGlobal(QueuePriority, std::function<void()> work) {
  const std::lock_guard lock(state_->mutex);
  if (state_->ended) return;
  state_->work.push_back(std::move(work));
  if (state_->idleThreads < state_->work.size()) {
    threads_.emplace_back([this] { serve(); });
  }
  state_->changed.notify_all();
}

std::unique_ptr<DispatchGroup> ThreadDispatch::createGroup() {
  return std::make_unique<Group>(*this);
}

void ThreadDispatch::sleep(std::chrono::milliseconds duration) {
  const std::chrono::duration<double, std::milli> scaled(static_cast<double>(duration.count()) /
                                                         clockRate_);
  const auto limit = std::chrono::steady_clock::now() +
                     std::chrono::duration_cast<std::chrono::steady_clock::duration>(scaled);
  {
    std::unique_lock lock(state_->mutex);
    state_->changed.wait_until(lock, limit, [this] { return threadOfPool && state_->ended; });
  }
  unwindIfEnded();
}

void ThreadDispatch::sleepBesideMain(std::chrono::milliseconds duration) {
  const auto begin = std::chrono::steady_clock::now();
  const uint64_t givenLater = mainWork_.next();
  sleep(duration);
  if (isMain()) return;
  mainWork_.waitForWorkBefore(givenLater, begin + patience() * duration);
  unwindIfEnded();
}

/// How many times its length a pause beside the main queue may last: a raised clock rate is one
/// that this computer may be too slow for, and no reason for what takes part in a race to lose it.
int ThreadDispatch::patience() const {
  return clockRate_ > 1 ? 10 : 1;
}

bool ThreadDispatch::isMain() const {
  return mainQueue_.isMain();
}

void ThreadDispatch::serve() {
  threadOfPool = true;
  std::unique_lock lock(state_->mutex);
  while (true) {
    ++state_->idleThreads;
    state_->changed.wait(lock, [this] { return state_->ended || !state_->work.empty(); });
    --state_->idleThreads;
    if (state_->ended) return;
    {
      const std::function<void()> work = std::move(state_->work.front());
      state_->work.pop_front();
      lock.unlock();
      runWork(work);
    }
    lock.lock();
  }
}

void ThreadDispatch::runWork(const std::function<void()>& work) {
  try {
    work();
  } catch (const Ended&) {
    // The dispatch has ended; the work was unwound from where it waited.
  }
}

/// While a stack is unwound already, its destructors go on without waiting.
void ThreadDispatch::unwindIfEnded() {
  if (!threadOfPool || std::uncaught_exceptions() > 0) return;
  const std::lock_guard lock(state_->mutex);
  if (state_->ended) throw Ended();
}

}  // namespace corvane
