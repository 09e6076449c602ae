#pragma once

#include <functional>
#include <memory>
#include <string>

namespace corvane {

/// A notification as its observers get it: its name and its object's text.
struct Notification {
  std::string name;
  std::string object;
};

/// Ends the observation when it is destroyed.
class Observation {
 public:
  virtual ~Observation() = default;
};

/// The default notification centre. Observers are called on the posting thread, in the order of
/// their registration, before post() returns.
class NotificationCenter {
 public:
  virtual ~NotificationCenter() = default;

  virtual void post(const std::string& name, const std::string& object) = 0;

  /// Names are compared exactly, case included.
  [[nodiscard]] virtual std::unique_ptr<Observation> observe(
      const std::string& name, std::function<void(const Notification&)> observer) = 0;
};

}  // namespace corvane
