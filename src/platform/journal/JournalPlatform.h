#pragma once

#include <memory>
#include <string>

#include "platform/Platform.h"

namespace corvane {

/// A platform that passes everything on to another one and writes to a file what crosses it: driver
/// calls, command lines, scripts, mounting, downloads, notifications, alerts and system log lines,
/// one JSON object a line, in the order in which they happened. A call that answers is written once
/// it has answered; a notification, an alert or a log line before anybody hears of it.
class JournalPlatform {
 public:
  /// Appends to `path`. `wrapped` refers to what outlives this object. A line that cannot be
  /// written is reported once on the wrapped log's standard error. Throws std::system_error when
  /// the file cannot be opened.
  JournalPlatform(const Platform& wrapped, const std::string& path);
  JournalPlatform(const JournalPlatform&) = delete;
  JournalPlatform& operator=(const JournalPlatform&) = delete;
  ~JournalPlatform();

  /// Valid as long as this object lives.
  Platform platform();

 private:
  struct Parts;
  const std::unique_ptr<Parts> parts_;
};

}  // namespace corvane
