#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/RunLoop.h"

namespace corvane {

/// A disk or partition as disk arbitration knows it (DADiskRef).
class Disk {
 public:
  virtual ~Disk() = default;

  /// DADiskGetBSDName; nothing when the disk has none.
  virtual std::optional<std::string> bsdName() const = 0;
};

/// Called on the run loop's thread.
using DiskCallback = void (*)(Disk& disk, void* context);

/// Called when a request has ended. `refused` says whether a dissenter was given.
using DiskRequestCallback = void (*)(Disk& disk, bool refused, void* context);

/// A disk arbitration session (DASessionRef). Released with the object.
class DiskSession {
 public:
  virtual ~DiskSession() = default;

  /// DARegisterDiskAppearedCallback and DARegisterDiskDisappearedCallback for all disks. Disks that
  /// are present already are reported as appearing once the session is scheduled.
  virtual void registerAppeared(DiskCallback callback, void* context) = 0;
  virtual void registerDisappeared(DiskCallback callback, void* context) = 0;

  /// DASessionScheduleWithRunLoop and DASessionUnscheduleFromRunLoop, default mode.
  virtual void schedule(RunLoop& runLoop) = 0;
  virtual void unschedule(RunLoop& runLoop) = 0;

  /// DADiskCreateFromBSDName; null when there can be no such object.
  virtual std::unique_ptr<Disk> createDisk(const std::string& bsdName) = 0;

  /// DADiskUnmount and DADiskMount with default options and no mount path. They ask and return; a
  /// session that is not scheduled never hears the answer.
  virtual void unmount(Disk& disk, DiskRequestCallback callback, void* context) = 0;
  virtual void mount(Disk& disk, DiskRequestCallback callback, void* context) = 0;
};

class DiskArbitration {
 public:
  virtual ~DiskArbitration() = default;

  /// DASessionCreate with the default allocator; null on failure.
  virtual std::unique_ptr<DiskSession> createSession() = 0;
};

}  // namespace corvane
