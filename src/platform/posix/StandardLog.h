#pragma once

#include <cstdio>
#include <functional>
#include <mutex>
#include <string>

#include "platform/Log.h"

namespace corvane {

/// Where the lines of a program that runs in a terminal go.
struct StandardLogOptions {
  std::FILE* standardOutput = stdout;  ///< stderr when standard output is for the answer alone
  std::FILE* standardError = stderr;
  bool usesSystemLog =
      false;  ///< system lines go to the system's log daemon, else to standardError
  /// How the program stops at a failed assertion: throws what ends it in order, with the text of
  /// the assertion. Without it the program is aborted.
  std::function<void(const std::string& assertion)> stopProgram = {};
};

/// Diagnostic lines of a program that runs in a terminal. Lines for the system log carry a prefix
/// there, and control characters in them, which may come from a device, print as "?".
class StandardLog final : public Log {
 public:
  explicit StandardLog(StandardLogOptions options = {});

  void system(std::string_view line) override;
  void standardOutput(std::string_view text) override;
  void standardError(std::string_view text) override;
  [[noreturn]] void assertionFailed(std::string_view condition, std::string_view method,
                                    std::string_view file, int line) override;

 private:
  void write(std::FILE* stream, std::string_view text);

  const StandardLogOptions options_;
  std::mutex mutex_;  ///< keeps lines whole when both streams are one
};

}  // namespace corvane
