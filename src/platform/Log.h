#pragma once

#include <string_view>

namespace corvane {

/// Where diagnostic lines go. Free text, no levels. Any thread may call.
class Log {
 public:
  virtual ~Log() = default;

  /// One line to the system log.
  virtual void system(std::string_view line) = 0;

  /// Text to standard output as it stands, line end included.
  virtual void standardOutput(std::string_view text) = 0;

  /// Text to standard error as it stands.
  virtual void standardError(std::string_view text) = 0;

  /// Reports a failed assertion with the method, source file and line it stands for, and stops the
  /// program.
  [[noreturn]] virtual void assertionFailed(std::string_view condition, std::string_view method,
                                            std::string_view file, int line) = 0;
};

}  // namespace corvane
