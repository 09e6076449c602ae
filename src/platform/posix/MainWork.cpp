#include "platform/posix/MainWork.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <utility>

namespace corvane {

struct MainWork::State {
  std::mutex mutex;  ///< guards everything below
  std::condition_variable changed;
  std::map<uint64_t, std::function<void()>> waiting;
  std::set<uint64_t> unfinished;  ///< what waits on the queue or runs there
  uint64_t next = 0;
  bool ended = false;

  /// The work of that number; empty when it was dropped.
  std::function<void()> take(uint64_t number) {
    const std::lock_guard lock(mutex);
    const auto found = waiting.find(number);
    if (found == waiting.end()) return {};
    std::function<void()> taken = std::move(found->second);
    waiting.erase(found);
    return taken;
  }

  void run(uint64_t number) {
    const Unfinished ending{*this, number};
    if (const auto taken = take(number)) taken();
  }

 private:
  /// Counts the work as finished at the end of the scope, however that is left.
  struct Unfinished {
    State& state;
    uint64_t number;

    ~Unfinished() {
      const std::lock_guard lock(state.mutex);
      state.unfinished.erase(number);
      state.changed.notify_all();
    }
  };
};

MainWork::MainWork(MainQueue& queue) : queue_(queue), state_(std::make_shared<State>()) {}

void MainWork::async(std::function<void()> work) {
  uint64_t number = 0;
  {
    const std::lock_guard lock(state_->mutex);
    if (state_->ended) return;
    number = state_->next++;
    state_->waiting.emplace(number, std::move(work));
    state_->unfinished.insert(number);
  }
  queue_.post([state = state_, number] { state->run(number); });
}

bool MainWork::sync(const std::function<void()>& work) {
  if (queue_.isMain()) {
    work();
    return true;
  }
  enum class Stage { Posted, Running, Done, GivenUp };
  const auto stage = std::make_shared<Stage>(Stage::Posted);
  // The caller stays until the work has run or was given up, so the work can stay with the caller.
  queue_.post([state = state_, stage, &work] {
    {
      const std::lock_guard lock(state->mutex);
      if (*stage == Stage::GivenUp) return;
      *stage = Stage::Running;
    }
    work();
    const std::lock_guard lock(state->mutex);
    *stage = Stage::Done;
    state->changed.notify_all();
  });
  std::unique_lock lock(state_->mutex);
  state_->changed.wait(lock, [this, &stage] {
    return *stage == Stage::Done || (*stage == Stage::Posted && state_->ended);
  });
  if (*stage == Stage::Done) return true;
  *stage = Stage::GivenUp;
  return false;
}

void MainWork::end() {
  std::map<uint64_t, std::function<void()>> dropped;
  const std::lock_guard lock(state_->mutex);
  state_->ended = true;
  dropped.swap(state_->waiting);
  state_->changed.notify_all();
}

uint64_t MainWork::next() const {
  const std::lock_guard lock(state_->mutex);
  return state_->next;
}

void MainWork::waitForWorkBefore(uint64_t number, std::chrono::steady_clock::time_point limit) {
  std::unique_lock lock(state_->mutex);
  state_->changed.wait_until(lock, limit, [this, number] {
    const auto& unfinished = state_->unfinished;
    return state_->ended || unfinished.empty() || *unfinished.begin() >= number;
  });
}

}  // namespace corvane
