#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/RunLoop.h"

namespace corvane {

/// Wakes one run loop. Shared between the loop and its sources, whichever goes first.
class RunLoopSignal {
 public:
  /// There is something to look at. Any thread may call.
  void raise();

  /// Makes the loop end. Any thread may call.
  void stop();

  /// Waits until it was raised or stopped. True when it was stopped; both are taken back.
  bool wait();

 private:
  std::mutex mutex_;  ///< guards everything below
  std::condition_variable changed_;
  bool raised_ = false;
  bool stopped_ = false;
};

/// A run loop source that runs functions on the thread of the run loop it was added to.
class QueuedRunLoopSource final : public RunLoopSource {
 public:
  /// Has `callback` run on the loop's thread, after what was posted before. Kept while the source
  /// is in no loop; dropped once it is invalid. Any thread may call.
  void post(std::function<void()> callback);

  /// Takes the source out of use: what is pending is dropped, and its loop forgets it. Waits for a
  /// callback that is running, except when called by that callback. Any thread may call.
  void invalidate();

  bool isValid() const;

 private:
  friend class ThreadRunLoop;
  class Serving;

  void attach(std::shared_ptr<RunLoopSignal> signal);
  bool serveOne();

  mutable std::mutex mutex_;  ///< guards everything below
  std::condition_variable served_;
  std::deque<std::function<void()>> callbacks_;
  std::vector<std::shared_ptr<RunLoopSignal>> signals_;
  std::thread::id servingThread_;  ///< no thread while no callback runs
  bool valid_ = true;
};

/// The run loop of one thread. It serves sources of the class QueuedRunLoopSource.
class ThreadRunLoop final : public RunLoop {
 public:
  void addSource(std::shared_ptr<RunLoopSource> source) override;

  /// Ends run(); before it has begun, makes it end at once, provided that the loop has a source.
  void stop() override;

  /// Serves the sources until stop() or until no valid source is left. The loop's thread only.
  void run();

 private:
  std::vector<std::shared_ptr<QueuedRunLoopSource>> validSources();

  const std::shared_ptr<RunLoopSignal> signal_ = std::make_shared<RunLoopSignal>();
  std::mutex mutex_;  ///< guards sources_
  std::vector<std::shared_ptr<QueuedRunLoopSource>> sources_;
};

/// Run loops that belong to the threads of the process, one for each that asks.
class ThreadRunLoops final : public RunLoops {
 public:
  std::shared_ptr<RunLoop> current() override;
  void run() override;

  /// Stops every run loop that is inside run(). Any thread may call.
  void stopAll();

 private:
  class Running;

  std::mutex mutex_;  ///< guards running_
  std::vector<std::shared_ptr<ThreadRunLoop>> running_;
};

}  // namespace corvane
