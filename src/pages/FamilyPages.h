#pragma once

#include <cstdint>

#include "window/MainWindowControls.h"

namespace corvane {

/// Which ports of the adapter on show have a page.
struct UsablePorts {
  bool port1 = true;
  bool port2 = true;
};

/// The pages of a family of adapters, whichever adapter of it is on show. Main queue only.
class FamilyPages {
 public:
  virtual ~FamilyPages() = default;

  /// Reads the port with that index, 0 or 1, and fills its page.
  virtual void showPort(int64_t portIndex) = 0;

  /// Reads the adapter and fills its page.
  virtual void showDevice() = 0;

  virtual UsablePorts usablePorts() const = 0;

  /// Which pages of the tab view they are.
  virtual Page portPage() const = 0;
  virtual Page devicePage() const = 0;

  /// Adapters came or went: what is open for one that has gone closes.
  virtual void letGoOfDeparted() = 0;
};

}  // namespace corvane
