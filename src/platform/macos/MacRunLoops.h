#pragma once

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
  void run() override;
};

}  // namespace corvane::macos
