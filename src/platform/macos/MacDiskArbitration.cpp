#include "platform/macos/MacDiskArbitration.h"

#include <DiskArbitration/DiskArbitration.h>

#include "platform/macos/CallbackTable.h"
#include "platform/macos/CoreFoundationReference.h"
#include "platform/macos/MacRunLoops.h"

namespace corvane::macos {

namespace {

class MacDisk final : public Disk {
 public:
  explicit MacDisk(CoreFoundationReference<DADiskRef> disk) : disk_(std::move(disk)) {}

  std::optional<std::string> bsdName() const override {
    const char* name = DADiskGetBSDName(disk_.get());
    if (name == nullptr) return std::nullopt;
    return name;
  }

  DADiskRef get() const { return disk_.get(); }

 private:
  CoreFoundationReference<DADiskRef> disk_;
};

using DiskCallbacks = CallbackTable<DiskCallback>;
using RequestCallbacks = CallbackTable<DiskRequestCallback>;

MacDisk borrowed(DADiskRef disk) {
  return MacDisk(CoreFoundationReference<DADiskRef>::retaining(disk));
}

void changed(DADiskRef disk, void* address) noexcept {
  const auto& target = DiskCallbacks::target(address);
  callFromSource([&] {
    MacDisk shown = borrowed(disk);
    target.callback(shown, target.context);
  });
}

void answered(DADiskRef disk, DADissenterRef dissenter, void* address) noexcept {
  const auto& target = RequestCallbacks::target(address);
  callFromSource([&] {
    MacDisk shown = borrowed(disk);
    target.callback(shown, dissenter != nullptr, target.context);
  });
}

class MacDiskSession final : public DiskSession {
 public:
  explicit MacDiskSession(CoreFoundationReference<DASessionRef> session)
      : session_(std::move(session)) {}

  void registerAppeared(DiskCallback callback, void* context) override {
    DARegisterDiskAppearedCallback(session_.get(), nullptr, changed,
                                   callbacks_.keep(callback, context));
  }

  void registerDisappeared(DiskCallback callback, void* context) override {
    DARegisterDiskDisappearedCallback(session_.get(), nullptr, changed,
                                      callbacks_.keep(callback, context));
  }

  void schedule(RunLoop& runLoop) override {
    DASessionScheduleWithRunLoop(session_.get(), static_cast<MacRunLoop&>(runLoop).get(),
                                 kCFRunLoopDefaultMode);
  }

  void unschedule(RunLoop& runLoop) override {
    DASessionUnscheduleFromRunLoop(session_.get(), static_cast<MacRunLoop&>(runLoop).get(),
                                   kCFRunLoopDefaultMode);
  }

  std::unique_ptr<Disk> createDisk(const std::string& bsdName) override {
    CoreFoundationReference<DADiskRef> disk(
        DADiskCreateFromBSDName(kCFAllocatorDefault, session_.get(), bsdName.c_str()));
    return disk ? std::make_unique<MacDisk>(std::move(disk)) : nullptr;
  }

  void unmount(Disk& disk, DiskRequestCallback callback, void* context) override {
    DADiskUnmount(static_cast<MacDisk&>(disk).get(), kDADiskUnmountOptionDefault, answered,
                  requests_.keep(callback, context));
  }

  void mount(Disk& disk, DiskRequestCallback callback, void* context) override {
    DADiskMount(static_cast<MacDisk&>(disk).get(), nullptr, kDADiskMountOptionDefault, answered,
                requests_.keep(callback, context));
  }

 private:
  // Declared before the session, so that it goes first and nothing calls into a table that is gone.
  DiskCallbacks callbacks_;
  RequestCallbacks requests_;
  CoreFoundationReference<DASessionRef> session_;
};

}  // namespace

std::unique_ptr<DiskSession> MacDiskArbitration::createSession() {
  CoreFoundationReference<DASessionRef> session(DASessionCreate(kCFAllocatorDefault));
  return session ? std::make_unique<MacDiskSession>(std::move(session)) : nullptr;
}

}  // namespace corvane::macos
