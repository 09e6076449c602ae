#include "fakes/ManualDispatch.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <stdexcept>
#include <utility>

namespace corvane {

using std::chrono::milliseconds;

/// A piece of global work. It starts its thread when it is first chosen to run.
struct ManualDispatch::Task : std::enable_shared_from_this<Task> {
  std::function<void()> work;
  std::function<bool()> ready;           ///< whether it can go on
  std::optional<milliseconds> wakeTime;  ///< set while it sleeps
  bool ended = false;
  bool abandoned = false;
  std::thread thread;
};

namespace {

thread_local void* taskOfThisThread = nullptr;

}  // namespace

class ManualDispatch::Group final : public DispatchGroup {
 public:
  explicit Group(ManualDispatch& dispatch) : dispatch_(dispatch) {}

  void async(QueuePriority priority, std::function<void()> work) override {
    ++*pending_;
    dispatch_.asyncGlobal(priority, [work = std::move(work), pending = pending_] {
      work();
      --*pending;
    });
  }

  void wait() override {
    dispatch_.parkUntil([pending = pending_] { return *pending == 0; });
  }

 private:
  ManualDispatch& dispatch_;
  std::shared_ptr<std::atomic<size_t>> pending_ = std::make_shared<std::atomic<size_t>>(0);
};

ManualDispatch::ManualDispatch() = default;

ManualDispatch::~ManualDispatch() {
  while (true) {
    std::shared_ptr<Task> task;
    {
      const std::lock_guard lock(mutex_);
      if (waiting_.empty()) break;
      task = waiting_.front();
      waiting_.erase(waiting_.begin());
    }
    if (!task->thread.joinable()) continue;
    task->abandoned = true;
    resume(*task);
    task->thread.join();
  }
}

void ManualDispatch::runUntilIdle() {
  while (runMainWork() || runReadyTask()) {
  }
}

void ManualDispatch::advance(milliseconds duration) {
  const milliseconds target = now() + duration;
  do {
    runUntilIdle();
  } while (wakeNextSleeper(target));
  {
    const std::lock_guard lock(mutex_);
    now_ = std::max(now_, target);
  }
  runUntilIdle();
}

milliseconds ManualDispatch::now() const {
  const std::lock_guard lock(mutex_);
  return now_;
}

size_t ManualDispatch::unfinished() const {
  const std::lock_guard lock(mutex_);
  return waiting_.size();
}

std::vector<QueuePriority> ManualDispatch::priorities() const {
  const std::lock_guard lock(mutex_);
  return priorities_;
}

void ManualDispatch::asyncMain(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  mainQueue_.push_back(std::move(work));
}

void ManualDispatch::syncMain(std::function<void()> work) {
  if (isMain()) {
    work();
    return;
  }
  const auto done = std::make_shared<std::atomic<bool>>(false);
  asyncMain([work = std::move(work), done] {
    work();
    *done = true;
  });
  parkUntil([done] { return done->load(); });
}

void ManualDispatch::asyncGlobal(QueuePriority priority, std::function<void()> work) {
  auto task = std::make_shared<Task>();
  task->work = std::move(work);
  task->ready = [] { return true; };
  const std::lock_guard lock(mutex_);
  priorities_.push_back(priority);
  waiting_.push_back(std::move(task));
}

std::unique_ptr<DispatchGroup> ManualDispatch::createGroup() {
  return std::make_unique<Group>(*this);
}

void ManualDispatch::sleep(milliseconds duration) {
  const milliseconds wakeTime = now() + duration;
  if (isMain()) {
    runGlobalUntil([] { return false; });
    while (wakeNextSleeper(wakeTime)) runGlobalUntil([] { return false; });
    const std::lock_guard lock(mutex_);
    now_ = std::max(now_, wakeTime);
    return;
  }
  if (Task* const task = currentTask()) {
    task->wakeTime = wakeTime;
    park(*task, [this, wakeTime] { return now() >= wakeTime; });
    task->wakeTime.reset();
  }
}

bool ManualDispatch::isMain() const {
  return std::this_thread::get_id() == mainThread_;
}

void ManualDispatch::parkUntil(std::function<bool()> ready) {
  if (Task* const task = currentTask()) {
    park(*task, std::move(ready));
    return;
  }
  if (!isMain())
    throw std::logic_error("a thread that the dispatch did not start cannot be parked");
  runGlobalUntil(ready);
  while (!ready()) {
    if (!wakeNextSleeper(milliseconds::max())) {
      throw std::logic_error("the main thread waits for something that nothing will bring about");
    }
    runGlobalUntil(ready);
  }
}

ManualDispatch::Task* ManualDispatch::currentTask() const {
  return static_cast<Task*>(taskOfThisThread);
}

bool ManualDispatch::runMainWork() {
  std::function<void()> work;
  {
    const std::lock_guard lock(mutex_);
    if (mainQueue_.empty()) return false;
    work = std::move(mainQueue_.front());
    mainQueue_.pop_front();
  }
  work();
  return true;
}

void ManualDispatch::runGlobalUntil(const std::function<bool()>& ready) {
  while (!ready() && runReadyTask()) {
  }
}

bool ManualDispatch::runReadyTask() {
  const std::shared_ptr<Task> task = takeReadyTask();
  if (!task) return false;
  runTask(*task);
  if (task->ended) task->thread.join();
  return true;
}

/// The conditions are asked without the lock, since they may take it themselves. Only the thread
/// that asks may take tasks out, so the choice stays valid.
std::shared_ptr<ManualDispatch::Task> ManualDispatch::takeReadyTask() {
  std::vector<std::shared_ptr<Task>> candidates;
  {
    const std::lock_guard lock(mutex_);
    candidates = waiting_;
  }
  const auto chosen = std::find_if(candidates.begin(), candidates.end(),
                                   [](const auto& task) { return task->ready(); });
  if (chosen == candidates.end()) return nullptr;
  const std::lock_guard lock(mutex_);
  waiting_.erase(std::find(waiting_.begin(), waiting_.end(), *chosen));
  return *chosen;
}

/// Moves the clock to the next sleeper's time unless that lies beyond `limit`.
bool ManualDispatch::wakeNextSleeper(milliseconds limit) {
  const std::lock_guard lock(mutex_);
  std::optional<milliseconds> next;
  for (const auto& task : waiting_) {
    if (task->wakeTime && (!next || *task->wakeTime < *next)) next = task->wakeTime;
  }
  if (!next || *next > limit) return false;
  now_ = std::max(now_, *next);
  return true;
}

void ManualDispatch::runTask(Task& task) {
  if (task.thread.joinable()) {
    resume(task);
    return;
  }
  {
    const std::lock_guard lock(mutex_);
    holder_ = &task;
  }
  task.thread = std::thread([this, &task] { body(task); });
  std::unique_lock lock(mutex_);
  handedOver_.wait(lock, [this] { return holder_ == nullptr; });
}

void ManualDispatch::body(Task& task) {
  taskOfThisThread = &task;
  try {
    task.work();
  } catch (const Abandoned&) {
    // The dispatch is going away; the stack is unwound now.
  }
  task.work = nullptr;
  const std::lock_guard lock(mutex_);
  task.ended = true;
  holder_ = nullptr;
  handedOver_.notify_all();
}

void ManualDispatch::resume(Task& task) {
  std::unique_lock lock(mutex_);
  holder_ = &task;
  handedOver_.notify_all();
  handedOver_.wait(lock, [this] { return holder_ == nullptr; });
}

/// Waits on the task's own thread until the main thread chooses it again. While the stack of an
/// abandoned task is unwound, its destructors do not wait.
void ManualDispatch::park(Task& task, std::function<bool()> ready) {
  if (task.abandoned && std::uncaught_exceptions() > 0) return;
  if (!task.abandoned) {
    task.ready = std::move(ready);
    std::unique_lock lock(mutex_);
    waiting_.push_back(task.shared_from_this());
    holder_ = nullptr;
    handedOver_.notify_all();
    handedOver_.wait(lock, [this, &task] { return holder_ == &task; });
  }
  if (task.abandoned) throw Abandoned();
}

}  // namespace corvane
