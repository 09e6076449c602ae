#include "platform/journal/JournalFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string_view>
#include <system_error>
#include <utility>

namespace corvane {

namespace {

constexpr mode_t readableByAll = 0644;

int openForAppending(const std::string& path) {
  const int descriptor =
      open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY, readableByAll);
  if (descriptor < 0) throw std::system_error(errno, std::generic_category(), path);
  return descriptor;
}

}  // namespace

JournalFile::JournalFile(std::string path, ProblemReport report)
    : path_(std::move(path)), report_(std::move(report)), descriptor_(openForAppending(path_)) {}

JournalFile::~JournalFile() {
  close(descriptor_);
}

void JournalFile::write(const char* thread, const nlohmann::ordered_json& happening) {
  const std::lock_guard lock(mutex_);
  nlohmann::ordered_json line = {{"t", secondsSinceOpening()}, {"thread", thread}};
  line.update(happening);
  constexpr int onOneLine = -1;
  const bool written = append(
      line.dump(onOneLine, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n");
  if (!written && !std::exchange(reported_, true)) {
    report_(path_ + ": the journal cannot be written: " + std::strerror(errno));
  }
}

bool JournalFile::append(const std::string& line) const {
  for (std::string_view rest = line; !rest.empty();) {
    const ssize_t written = ::write(descriptor_, rest.data(), rest.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    rest.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

/// Rounded to microseconds, which keeps the lines short.
double JournalFile::secondsSinceOpening() const {
  const std::chrono::duration<double, std::micro> passed =
      std::chrono::steady_clock::now() - opened_;
  return std::round(passed.count()) / 1e6;
}

}  // namespace corvane
