#pragma once

#include "platform/Log.h"

namespace corvane::macos {

/// The unified system log and the standard streams.
class MacLog final : public Log {
 public:
  void system(std::string_view line) override;
  void standardOutput(std::string_view text) override;
  void standardError(std::string_view text) override;
  [[noreturn]] void assertionFailed(std::string_view condition, std::string_view method,
                                    std::string_view file, int line) override;
};

}  // namespace corvane::macos
