#pragma once

#include <exception>
#include <mutex>
#include <vector>

#include "platform/RunLoop.h"
#include "platform/macos/CoreFoundationReference.h"

namespace corvane::macos {

class MacRunLoopSource final : public RunLoopSource {
 public:
  /// Adds a reference to `source`.
  explicit MacRunLoopSource(CFRunLoopSourceRef source);
  CFRunLoopSourceRef get() const { return source_.get(); }

 private:
  CoreFoundationReference<CFRunLoopSourceRef> source_;
};

class MacRunLoop final : public RunLoop {
 public:
  /// Adds a reference to `runLoop`.
  explicit MacRunLoop(CFRunLoopRef runLoop);
  void addSource(std::shared_ptr<RunLoopSource> source) override;
  void stop() override;
  CFRunLoopRef get() const { return runLoop_.get(); }

 private:
  CoreFoundationReference<CFRunLoopRef> runLoop_;
};

class MacRunLoops final : public RunLoops {
 public:
  std::shared_ptr<RunLoop> current() override;

  /// Throws on what a callback of a source has thrown.
  void run() override;

  /// Stops every loop that is inside run(); from then on run() returns at once. A loop that was
  /// just about to wait may miss it, so whoever waits for the loops calls again. Any thread may
  /// call.
  void stopAll();

 private:
  class Running;

  std::mutex mutex_;  ///< guards everything below
  std::vector<CFRunLoopRef> running_;
  bool stopped_ = false;
};

/// Keeps what a callback has thrown, which may not pass through the system's own frames, and stops
/// the calling thread's run loop, whose MacRunLoops::run() throws it on.
void keepThrown(std::exception_ptr thrown) noexcept;

/// Calls `callback` on behalf of a source of the calling thread's run loop.
template <typename Callback>
void callFromSource(const Callback& callback) noexcept {
  try {
    callback();
  } catch (...) {
    keepThrown(std::current_exception());
  }
}

}  // namespace corvane::macos
