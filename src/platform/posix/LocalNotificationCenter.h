#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "platform/NotificationCenter.h"

namespace corvane {

/// Notifications within the process. Observing, posting and ending an observation may happen on any
/// thread at once, and inside an observer.
///
/// Ending an observation waits for a call of its observer that is running on another thread, so
/// that nothing the observer refers to is used afterwards.
class LocalNotificationCenter final : public NotificationCenter {
 public:
  LocalNotificationCenter();
  ~LocalNotificationCenter() override;

  void post(const std::string& name, const std::string& object) override;
  [[nodiscard]] std::unique_ptr<Observation> observe(
      const std::string& name, std::function<void(const Notification&)> observer) override;

 private:
  class Observer;
  class RegisteredObservation;
  struct Registry;

  const std::shared_ptr<Registry> registry_;  ///< shared with the observations
};

}  // namespace corvane
