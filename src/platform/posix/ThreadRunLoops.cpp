#include "platform/posix/ThreadRunLoops.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

const std::shared_ptr<ThreadRunLoop>& loopOfThisThread() {
  thread_local const auto loop = std::make_shared<ThreadRunLoop>();
  return loop;
}

}  // namespace

void RunLoopSignal::raise() {
  const std::lock_guard lock(mutex_);
  raised_ = true;
  changed_.notify_one();
}

void RunLoopSignal::stop() {
  const std::lock_guard lock(mutex_);
  stopped_ = true;
  changed_.notify_one();
}

bool RunLoopSignal::wait() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return raised_ || stopped_; });
  raised_ = false;
  return std::exchange(stopped_, false);
}

/// Says on destruction that no callback runs any more, also when an exception has ended it.
class QueuedRunLoopSource::Serving {
 public:
  explicit Serving(QueuedRunLoopSource& source) : source_(source) {}
  Serving(const Serving&) = delete;
  Serving& operator=(const Serving&) = delete;
  ~Serving() {
    const std::lock_guard lock(source_.mutex_);
    source_.servingThread_ = std::thread::id();
    source_.served_.notify_all();
  }

 private:
  QueuedRunLoopSource& source_;
};

void QueuedRunLoopSource::post(std::function<void()> callback) {
  const std::lock_guard lock(mutex_);
  if (!valid_) return;
  callbacks_.push_back(std::move(callback));
  for (const auto& signal : signals_) signal->raise();
}

void QueuedRunLoopSource::invalidate() {
  std::deque<std::function<void()>> dropped;
  std::unique_lock lock(mutex_);
  valid_ = false;
  dropped.swap(callbacks_);
  for (const auto& signal : signals_) signal->raise();
  const auto nobody = std::thread::id();
  served_.wait(lock, [this, nobody] {
    return servingThread_ == nobody || servingThread_ == std::this_thread::get_id();
  });
}

bool QueuedRunLoopSource::isValid() const {
  const std::lock_guard lock(mutex_);
  return valid_;
}

void QueuedRunLoopSource::attach(std::shared_ptr<RunLoopSignal> signal) {
  const std::lock_guard lock(mutex_);
  signal->raise();
  signals_.push_back(std::move(signal));
}

/// Runs the oldest pending callback; false when there was none.
bool QueuedRunLoopSource::serveOne() {
  std::function<void()> callback;
  {
    const std::lock_guard lock(mutex_);
    if (callbacks_.empty()) return false;
    callback = std::move(callbacks_.front());
    callbacks_.pop_front();
    servingThread_ = std::this_thread::get_id();
  }
  const Serving serving(*this);
  callback();
  return true;
}

void ThreadRunLoop::addSource(std::shared_ptr<RunLoopSource> source) {
  auto queued = std::dynamic_pointer_cast<QueuedRunLoopSource>(std::move(source));
  if (!queued) return;
  queued->attach(signal_);
  const std::lock_guard lock(mutex_);
  sources_.push_back(std::move(queued));
}

void ThreadRunLoop::stop() {
  if (!validSources().empty()) signal_->stop();
}

void ThreadRunLoop::run() {
  for (auto sources = validSources(); !sources.empty(); sources = validSources()) {
    if (signal_->wait()) return;
    for (const auto& source : sources) {
      while (source->serveOne()) {
      }
    }
  }
}

std::vector<std::shared_ptr<QueuedRunLoopSource>> ThreadRunLoop::validSources() {
  const std::lock_guard lock(mutex_);
  std::erase_if(sources_, [](const auto& source) { return !source->isValid(); });
  return sources_;
}

/// Lists a loop as running while it lives.
class ThreadRunLoops::Running {
 public:
  Running(ThreadRunLoops& loops, const std::shared_ptr<ThreadRunLoop>& loop)
      : loops_(loops), loop_(loop) {
    const std::lock_guard lock(loops_.mutex_);
    loops_.running_.push_back(loop_);
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() {
    const std::lock_guard lock(loops_.mutex_);
    std::erase(loops_.running_, loop_);
  }

 private:
  ThreadRunLoops& loops_;
  const std::shared_ptr<ThreadRunLoop>& loop_;
};

std::shared_ptr<RunLoop> ThreadRunLoops::current() {
  return loopOfThisThread();
}

void ThreadRunLoops::run() {
  const std::shared_ptr<ThreadRunLoop>& loop = loopOfThisThread();
  const Running running(*this, loop);
  loop->run();
}

void ThreadRunLoops::stopAll() {
  const std::lock_guard lock(mutex_);
  for (const auto& loop : running_) loop->stop();
}

}  // namespace corvane
