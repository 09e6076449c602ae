#pragma once

#include <cstdint>

#include "platform/Platform.h"

namespace corvane {

/// Tells which of the maker's two Fibre Channel drivers is installed on which release of the
/// operating system. Each question looks anew; any thread may ask.
class FCDriver {
 public:
  /// What the platform refers to outlives the object.
  explicit FCDriver(const Platform& platform) : platform_(platform) {}

  /// Whether the release is 10.8, which keeps drivers in the system's own folder.
  bool getMacVer() const;

  /// 3 when "Corvane-FC.kext", the first-generation driver, is installed, else 2 when
  /// "Corvane2-FC.kext" is, else 1.
  int64_t getDriverVer() const;

 private:
  const Platform platform_;
};

}  // namespace corvane
