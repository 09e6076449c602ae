#include "platform/posix/StandardLog.h"

#include <syslog.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

namespace corvane {

namespace {

constexpr std::string_view systemLinePrefix = "corvane log: ";

std::string withoutControlCharacters(std::string_view line) {
  std::string text(line);
  std::replace_if(
      text.begin(), text.end(),
      [](unsigned char character) { return character < 0x20 || character == 0x7F; }, '?');
  return text;
}

}  // namespace

StandardLog::StandardLog(StandardLogOptions options) : options_(std::move(options)) {}

void StandardLog::system(std::string_view line) {
  const std::string text = withoutControlCharacters(line);
  if (options_.usesSystemLog) {
    syslog(LOG_NOTICE, "%s", text.c_str());
  } else {
    write(options_.standardError, std::string(systemLinePrefix) + text + "\n");
  }
}

void StandardLog::standardOutput(std::string_view text) {
  write(options_.standardOutput, text);
}

void StandardLog::standardError(std::string_view text) {
  write(options_.standardError, text);
}

void StandardLog::assertionFailed(std::string_view condition, std::string_view method,
                                  std::string_view file, int line) {
  const std::string text = "Assertion failure in " + std::string(method) + ", " +
                           std::string(file) + ":" + std::to_string(line) + ": " +
                           std::string(condition);
  system(text);
  if (options_.stopProgram) options_.stopProgram(text);
  if (options_.usesSystemLog) standardError(text + "\n");
  std::abort();
}

void StandardLog::write(std::FILE* stream, std::string_view text) {
  const std::lock_guard lock(mutex_);
  std::fwrite(text.data(), 1, text.size(), stream);
  std::fflush(stream);
}

}  // namespace corvane
