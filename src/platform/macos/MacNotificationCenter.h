#pragma once

#include "platform/NotificationCenter.h"

namespace corvane::macos {

/// The process's local notification centre.
class MacNotificationCenter final : public NotificationCenter {
 public:
  void post(const std::string& name, const std::string& object) override;
  std::unique_ptr<Observation> observe(const std::string& name,
                                       std::function<void(const Notification&)> observer) override;
};

}  // namespace corvane::macos
