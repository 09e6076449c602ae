#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <nlohmann/json_fwd.hpp>
#include <string>

namespace corvane {

/// A file of JSON objects, one a line. Any thread may write; a line is appended whole, in one
/// write, so several programs may share the file.
class JournalFile {
 public:
  /// Told once, in words, when a line could not be written; the writing goes on being tried.
  using ProblemReport = std::function<void(const std::string& problem)>;

  /// Opens `path` for appending and makes it where there is none. Throws std::system_error.
  JournalFile(std::string path, ProblemReport report);
  JournalFile(const JournalFile&) = delete;
  JournalFile& operator=(const JournalFile&) = delete;
  ~JournalFile();

  /// Appends a line: the seconds since the file was opened as "t", `thread` as "thread", then the
  /// keys of `happening`.
  void write(const char* thread, const nlohmann::ordered_json& happening);

 private:
  bool append(const std::string& line) const;
  double secondsSinceOpening() const;

  const std::string path_;
  const ProblemReport report_;
  const int descriptor_;
  const std::chrono::steady_clock::time_point opened_ = std::chrono::steady_clock::now();
  std::mutex mutex_;  ///< keeps the times of the lines in order; guards reported_
  bool reported_ = false;
};

}  // namespace corvane
