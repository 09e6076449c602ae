#include "platform/macos/MacLog.h"

#include <syslog.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace corvane::macos {

void MacLog::system(std::string_view line) {
  syslog(LOG_NOTICE, "%s", std::string(line).c_str());
}

void MacLog::standardOutput(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

void MacLog::standardError(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

void MacLog::assertionFailed(std::string_view condition, std::string_view method,
                             std::string_view file, int line) {
  const std::string text = "Assertion failure in " + std::string(method) + ", " +
                           std::string(file) + ":" + std::to_string(line) + ": " +
                           std::string(condition);
  system(text);
  standardError(text + "\n");
  std::abort();
}

}  // namespace corvane::macos
