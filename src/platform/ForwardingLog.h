#pragma once

#include <cstdlib>

#include "platform/Log.h"

namespace corvane {

/// Passes every line on to another log, which outlives it. A log that changes some of them derives
/// from it and overrides what it changes.
class ForwardingLog : public Log {
 public:
  explicit ForwardingLog(Log& next) : next_(next) {}

  void system(std::string_view line) override { next_.system(line); }
  void standardOutput(std::string_view text) override { next_.standardOutput(text); }
  void standardError(std::string_view text) override { next_.standardError(text); }
  [[noreturn]] void assertionFailed(std::string_view condition, std::string_view method,
                                    std::string_view file, int line) override {
    next_.assertionFailed(condition, method, file, line);
    std::abort();  // never reached, but the compiler does not take a virtual call's word for it
  }

 private:
  Log& next_;
};

}  // namespace corvane
