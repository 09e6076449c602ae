#pragma once

#include <memory>

namespace corvane {

/// Something that a run loop waits for and serves. Opaque: each platform has its own.
class RunLoopSource {
 public:
  virtual ~RunLoopSource() = default;
};

/// The run loop of one thread (CFRunLoopRef). Sources are added in the default mode.
class RunLoop {
 public:
  virtual ~RunLoop() = default;

  /// CFRunLoopAddSource. The run loop keeps the source until it is removed or the loop goes.
  virtual void addSource(std::shared_ptr<RunLoopSource> source) = 0;

  /// CFRunLoopStop: makes run() on the loop's thread return. Any thread may call it.
  virtual void stop() = 0;
};

/// The run loops of the process.
class RunLoops {
 public:
  virtual ~RunLoops() = default;

  /// CFRunLoopGetCurrent: the calling thread's own run loop, or null when there can be none.
  virtual std::shared_ptr<RunLoop> current() = 0;

  /// CFRunLoopRun: serves the calling thread's sources until its run loop is stopped or has no
  /// source left. Source callbacks run on the calling thread, inside this call.
  virtual void run() = 0;
};

}  // namespace corvane
