#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/RunLoop.h"

namespace corvane {

/// Work for the run loop that the source was added to.
class FakeRunLoopSource : public RunLoopSource {
 public:
  /// Runs `work` on the loop's thread while the loop runs there, else at once on the caller's, yet
  /// never inside other work of the loop's: then that one's caller runs it afterwards.
  void signal(std::function<void()> work);

 private:
  friend class FakeRunLoop;
  std::weak_ptr<class FakeRunLoop> loop_;
};

/// A run loop that a test owns. By itself it returns from its run at once, so that a test on one
/// thread goes on and registry callbacks run inside the test's own calls. `blocking` makes it serve
/// its sources on the thread that runs it until it is stopped.
class FakeRunLoop : public RunLoop, public std::enable_shared_from_this<FakeRunLoop> {
 public:
  bool blocking = false;
  std::vector<std::shared_ptr<RunLoopSource>> sources;
  int runs = 0;
  int stops = 0;

  void addSource(std::shared_ptr<RunLoopSource> source) override {
    std::lock_guard guard(mutex_);
    if (auto* fake = dynamic_cast<FakeRunLoopSource*>(source.get())) fake->loop_ = weak_from_this();
    sources.push_back(std::move(source));
  }

  void stop() override {
    std::lock_guard guard(mutex_);
    ++stops;
    stopped_ = true;
    wake_.notify_all();
  }

  void run() {
    std::unique_lock lock(mutex_);
    ++runs;
    if (!blocking) return;
    running_ = true;
    while (!stopped_) {
      wake_.wait(lock, [this] { return stopped_ || !work_.empty(); });
      while (!stopped_ && !work_.empty()) serveOne(lock);
    }
    running_ = stopped_ = false;
  }

  /// Work for the loop's thread, or when the loop does not run, for the caller's.
  void serve(std::function<void()> work) {
    std::unique_lock lock(mutex_);
    work_.push_back(std::move(work));
    wake_.notify_all();
    if (serving_ || (blocking && (running_ || runs == 0))) return;
    while (!work_.empty()) serveOne(lock);
  }

 private:
  void serveOne(std::unique_lock<std::mutex>& lock) {
    auto work = std::move(work_.front());
    work_.pop_front();
    serving_ = true;
    lock.unlock();
    work();
    lock.lock();
    serving_ = false;
  }

  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<std::function<void()>> work_;
  bool running_ = false;
  bool serving_ = false;
  bool stopped_ = false;
};

inline void FakeRunLoopSource::signal(std::function<void()> work) {
  if (const auto loop = loop_.lock()) return loop->serve(std::move(work));
  work();
}

/// One run loop, whichever thread asks.
class FakeRunLoops : public RunLoops {
 public:
  std::shared_ptr<FakeRunLoop> loop = std::make_shared<FakeRunLoop>();

  /// Whether a thread can have a run loop.
  bool available = true;

  /// Called instead of running the loop, when set.
  std::function<void()> onRun;

  std::shared_ptr<RunLoop> current() override {
    return available ? std::shared_ptr<RunLoop>(loop) : nullptr;
  }

  void run() override {
    if (onRun) return onRun();
    loop->run();
  }
};

}  // namespace corvane
