#include <DiskArbitration/DiskArbitration.h>

#include <deque>
#include <optional>

#include "macos/standin/CoreFoundationObjects.h"

using namespace corvane;
using namespace corvane::standin;

struct DADissenterObject {};

namespace {

struct DiskTarget {
  DASessionRef session;
  DADiskAppearedCallback callback;
  void* context;
};

struct RequestTarget {
  DASessionRef session;
  DADiskUnmountCallback callback;
  void* context;
};

}  // namespace

struct DASessionObject : CFObject {
  explicit DASessionObject(std::unique_ptr<DiskSession> theSession)
      : CFObject(sessionTypeId, "disk session"), session(std::move(theSession)) {}

  std::unique_ptr<DiskSession> session;
  std::mutex mutex;  ///< guards everything below
  std::deque<DiskTarget> targets;
  std::deque<RequestTarget> requests;

 protected:
  void drop() override { session.reset(); }
};

struct DADiskObject : CFObject {
  DADiskObject(DASessionRef theSession, std::unique_ptr<Disk> theDisk)
      : CFObject(diskTypeId, "disk"),
        session(theSession),
        disk(std::move(theDisk)),
        name(disk->bsdName()) {
    CFRetain(session);
  }

  const DASessionRef session;
  const std::unique_ptr<Disk> disk;
  const std::optional<std::string> name;

 protected:
  void drop() override { CFRelease(session); }
};

namespace {

DADiskRef newDisk(DASessionRef session, const Disk& disk) {
  auto own = session->session->createDisk(disk.bsdName().value_or("?"));
  return makeObject<DADiskObject>(session, std::move(own));
}

void tellOfDisk(Disk& disk, void* context) {
  const auto& target = *static_cast<const DiskTarget*>(context);
  DADiskRef shown = newDisk(target.session, disk);
  target.callback(shown, target.context);
  CFRelease(shown);
}

void tellOfAnswer(Disk& disk, bool refused, void* context) {
  static const DADissenterObject dissenter;
  const auto& target = *static_cast<const RequestTarget*>(context);
  DADiskRef shown = newDisk(target.session, disk);
  target.callback(shown, refused ? &dissenter : nullptr, target.context);
  CFRelease(shown);
}

void* keptTarget(DASessionRef session, DADiskAppearedCallback callback, void* context) {
  const std::lock_guard lock(session->mutex);
  session->targets.push_back({session, callback, context});
  return &session->targets.back();
}

void* keptRequest(DASessionRef session, DADiskUnmountCallback callback, void* context) {
  const std::lock_guard lock(session->mutex);
  session->requests.push_back({session, callback, context});
  return &session->requests.back();
}

bool isInDefaultMode(CFStringRef mode, const char* call) {
  if (mode == kCFRunLoopDefaultMode) return true;
  noteMisuse(std::string(call) + " in a mode that nobody runs");
  return false;
}

}  // namespace

extern "C" {

DASessionRef DASessionCreate(CFAllocatorRef) {
  if (isToFail("DASessionCreate")) return nullptr;
  auto session = macSystem().platform.diskArbitration.createSession();
  return session ? makeObject<DASessionObject>(std::move(session)) : nullptr;
}

void DASessionScheduleWithRunLoop(DASessionRef session, CFRunLoopRef loop, CFStringRef mode) {
  isToFail("DASessionScheduleWithRunLoop");
  if (!isThere(session, "DASessionScheduleWithRunLoop") ||
      !isThere(loop, "DASessionScheduleWithRunLoop") ||
      !isInDefaultMode(mode, "DASessionScheduleWithRunLoop")) {
    return;
  }
  session->session->schedule(*loop->loop);
}

void DASessionUnscheduleFromRunLoop(DASessionRef session, CFRunLoopRef loop, CFStringRef mode) {
  isToFail("DASessionUnscheduleFromRunLoop");
  if (!isThere(session, "DASessionUnscheduleFromRunLoop") ||
      !isThere(loop, "DASessionUnscheduleFromRunLoop") ||
      !isInDefaultMode(mode, "DASessionUnscheduleFromRunLoop")) {
    return;
  }
  session->session->unschedule(*loop->loop);
}

void DARegisterDiskAppearedCallback(DASessionRef session, CFDictionaryRef,
                                    DADiskAppearedCallback callback, void* context) {
  isToFail("DARegisterDiskAppearedCallback");
  if (!isThere(session, "DARegisterDiskAppearedCallback")) return;
  session->session->registerAppeared(tellOfDisk, keptTarget(session, callback, context));
}

void DARegisterDiskDisappearedCallback(DASessionRef session, CFDictionaryRef,
                                       DADiskDisappearedCallback callback, void* context) {
  isToFail("DARegisterDiskDisappearedCallback");
  if (!isThere(session, "DARegisterDiskDisappearedCallback")) return;
  session->session->registerDisappeared(tellOfDisk, keptTarget(session, callback, context));
}

DADiskRef DADiskCreateFromBSDName(CFAllocatorRef, DASessionRef session, const char* name) {
  if (isToFail("DADiskCreateFromBSDName")) return nullptr;
  if (!isThere(session, "DADiskCreateFromBSDName")) return nullptr;
  auto disk = session->session->createDisk(name);
  return disk ? makeObject<DADiskObject>(session, std::move(disk)) : nullptr;
}

const char* DADiskGetBSDName(DADiskRef disk) {
  if (isToFail("DADiskGetBSDName") || !isThere(disk, "DADiskGetBSDName")) return nullptr;
  return disk->name ? disk->name->c_str() : nullptr;
}

void DADiskUnmount(DADiskRef disk, DADiskUnmountOptions, DADiskUnmountCallback callback,
                   void* context) {
  isToFail("DADiskUnmount");
  if (!isThere(disk, "DADiskUnmount")) return;
  const DASessionRef session = disk->session;
  session->session->unmount(*disk->disk, tellOfAnswer, keptRequest(session, callback, context));
}

void DADiskMount(DADiskRef disk, CFURLRef, DADiskMountOptions, DADiskMountCallback callback,
                 void* context) {
  isToFail("DADiskMount");
  if (!isThere(disk, "DADiskMount")) return;
  const DASessionRef session = disk->session;
  session->session->mount(*disk->disk, tellOfAnswer, keptRequest(session, callback, context));
}

}  // extern "C"
