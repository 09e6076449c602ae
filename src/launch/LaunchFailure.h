#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace corvane {

/// What a program that cannot start ends with.
enum class LaunchExitStatus { Failed = 1, WrongOptions = 2, NotFound = 3 };

/// Why a program cannot start: what was worked on, why that failed and a hint what to do about it.
class LaunchFailure : public std::runtime_error {
 public:
  LaunchFailure(LaunchExitStatus status, const std::string& subject, const std::string& reason,
                std::string hint)
      : std::runtime_error(subject + ": " + reason),
        status_(status),
        subject_(subject),
        reason_(reason),
        hint_(std::move(hint)) {}

  LaunchExitStatus status() const noexcept { return status_; }
  const std::string& subject() const noexcept { return subject_; }
  const std::string& reason() const noexcept { return reason_; }
  const std::string& hint() const noexcept { return hint_; }

 private:
  LaunchExitStatus status_;
  std::string subject_;
  std::string reason_;
  std::string hint_;
};

}  // namespace corvane
