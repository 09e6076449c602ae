#pragma once

#include <cstdint>

#include "window/ControllerState.h"

namespace corvane {

/// Tells whether the driver of the family on show is too old for the settings of its pages.
class DriverVersionComparison {
 public:
  /// The state outlives the object.
  explicit DriverVersionComparison(const ControllerState& state) : state_(state) {}

  /// 0 when the driver's version, as the device page last read it, suits the pages; 1 or 2 when it
  /// is too old or the family is not known. Main queue only.
  int64_t compareDriverVersion() const;

 private:
  const ControllerState& state_;
};

}  // namespace corvane
