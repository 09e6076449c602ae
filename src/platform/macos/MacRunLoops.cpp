#include "platform/macos/MacRunLoops.h"

#include <utility>

namespace corvane::macos {

namespace {

thread_local std::exception_ptr thrownByCallback;

}  // namespace

MacRunLoopSource::MacRunLoopSource(CFRunLoopSourceRef source)
    : source_(CoreFoundationReference<CFRunLoopSourceRef>::retaining(source)) {}

MacRunLoop::MacRunLoop(CFRunLoopRef runLoop)
    : runLoop_(CoreFoundationReference<CFRunLoopRef>::retaining(runLoop)) {}

void MacRunLoop::addSource(std::shared_ptr<RunLoopSource> source) {
  CFRunLoopAddSource(runLoop_.get(), static_cast<MacRunLoopSource&>(*source).get(),
                     kCFRunLoopDefaultMode);
}

void MacRunLoop::stop() {
  CFRunLoopStop(runLoop_.get());
}

std::shared_ptr<RunLoop> MacRunLoops::current() {
  return std::make_shared<MacRunLoop>(CFRunLoopGetCurrent());
}

/// Lists the calling thread's loop as running while it lives.
class MacRunLoops::Running {
 public:
  explicit Running(MacRunLoops& loops) : loops_(loops), loop_(CFRunLoopGetCurrent()) {
    const std::lock_guard lock(loops_.mutex_);
    loops_.running_.push_back(loop_);
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() {
    const std::lock_guard lock(loops_.mutex_);
    std::erase(loops_.running_, loop_);
  }

  bool isWanted() const {
    const std::lock_guard lock(loops_.mutex_);
    return !loops_.stopped_;
  }

 private:
  MacRunLoops& loops_;
  const CFRunLoopRef loop_;
};

void MacRunLoops::run() {
  const Running running(*this);
  if (running.isWanted()) CFRunLoopRun();
  if (thrownByCallback) std::rethrow_exception(std::exchange(thrownByCallback, nullptr));
}

void MacRunLoops::stopAll() {
  const std::lock_guard lock(mutex_);
  stopped_ = true;
  for (const CFRunLoopRef loop : running_) CFRunLoopStop(loop);
}

void keepThrown(std::exception_ptr thrown) noexcept {
  thrownByCallback = std::move(thrown);
  CFRunLoopStop(CFRunLoopGetCurrent());
}

}  // namespace corvane::macos
