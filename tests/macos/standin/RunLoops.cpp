#include "macos/standin/CoreFoundationObjects.h"

using namespace corvane::standin;

namespace {

const CFStringObject& defaultMode() {
  static CFStringObject mode(u"kCFRunLoopDefaultMode");
  mode.becomeTheSystemsOwn();
  return mode;
}

/// The calling thread's run loop in one system.
struct LoopOfThread {
  uint64_t system = 0;
  CFRunLoopObject* loop = nullptr;
};

}  // namespace

const CFRunLoopMode kCFRunLoopDefaultMode = &defaultMode();

extern "C" {

CFRunLoopRef CFRunLoopGetCurrent() {
  thread_local LoopOfThread own;
  isToFail("CFRunLoopGetCurrent");
  if (own.system != macSystem().number) {
    own = {macSystem().number,
           makeObject<CFRunLoopObject>(macSystem().platform.runLoops.current())};
  }
  return own.loop;
}

void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode) {
  isToFail("CFRunLoopAddSource");
  if (!isThere(loop, "CFRunLoopAddSource") || !isThere(source, "CFRunLoopAddSource")) return;
  if (mode != kCFRunLoopDefaultMode) noteMisuse("CFRunLoopAddSource in a mode that nobody runs");
  loop->loop->addSource(source->source);
}

void CFRunLoopRun() {
  CFRunLoopObject* const loop = CFRunLoopGetCurrent();
  isToFail("CFRunLoopRun");
  loop->isRunning = true;
  macSystem().platform.runLoops.run();
  loop->isRunning = false;
}

// A loop that does not run yet does not remember that it was stopped.
void CFRunLoopStop(CFRunLoopRef loop) {
  isToFail("CFRunLoopStop");
  if (isThere(loop, "CFRunLoopStop") && loop->isRunning) loop->loop->stop();
}

}  // extern "C"
