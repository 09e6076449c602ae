#include "platform/macos/MacRunLoops.h"

namespace corvane::macos {

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

void MacRunLoops::run() {
  CFRunLoopRun();
}

}  // namespace corvane::macos
