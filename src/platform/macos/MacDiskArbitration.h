#pragma once

#include "platform/DiskArbitration.h"

namespace corvane::macos {

/// The platform's disk arbitration.
class MacDiskArbitration final : public DiskArbitration {
 public:
  std::unique_ptr<DiskSession> createSession() override;
};

}  // namespace corvane::macos
