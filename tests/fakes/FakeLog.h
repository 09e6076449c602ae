#pragma once

#include <algorithm>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/Log.h"

namespace corvane {

/// What a failed assertion throws in a test, in place of stopping the program.
class FakeAssertionFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Collects the lines.
class FakeLog : public Log {
 public:
  std::vector<std::string> lines() const {
    std::lock_guard guard(mutex_);
    return lines_;
  }
  std::string outputText() const {
    std::lock_guard guard(mutex_);
    return output_;
  }
  std::string errorText() const {
    std::lock_guard guard(mutex_);
    return error_;
  }
  int64_t count(const std::string& line) const {
    std::lock_guard guard(mutex_);
    return std::count(lines_.begin(), lines_.end(), line);
  }
  void clear() {
    std::lock_guard guard(mutex_);
    lines_.clear();
    output_.clear();
    error_.clear();
  }

  void system(std::string_view line) override {
    std::lock_guard guard(mutex_);
    lines_.emplace_back(line);
  }
  void standardOutput(std::string_view text) override {
    std::lock_guard guard(mutex_);
    output_ += text;
  }
  void standardError(std::string_view text) override {
    std::lock_guard guard(mutex_);
    error_ += text;
  }
  [[noreturn]] void assertionFailed(std::string_view condition, std::string_view method,
                                    std::string_view file, int line) override {
    throw FakeAssertionFailure(std::string(condition) + " " + std::string(method) + " " +
                               std::string(file) + ":" + std::to_string(line));
  }

 private:
  mutable std::mutex mutex_;  ///< guards everything below
  std::vector<std::string> lines_;
  std::string output_;
  std::string error_;
};

}  // namespace corvane
