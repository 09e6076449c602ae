#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "TemporaryFolder.h"
#include "platform/Paths.h"
#include "platform/Shell.h"

namespace corvane {

/// A shell that runs nothing: it keeps the command lines and writes what the test gave for the
/// command before the redirection into the scratch file, as the redirection would.
class ScriptedShell : public Shell {
 public:
  explicit ScriptedShell(const Paths& paths) : paths_(paths) {}

  /// What the command prints that stands before the redirection, such as "TOOL en5 getRxRingSize".
  void answer(const std::string& command, const std::string& output) { answers_[command] = output; }
  void forget(const std::string& command) { answers_.erase(command); }

  /// Makes the command hang until its time is up.
  void hang(const std::string& command) { hanging_ = command; }

  /// Makes commands that begin with `command` fail.
  void fail(const std::string& command) { failing_ = command; }

  int run(const std::string& line) override {
    lines.push_back(line);
    const size_t redirection = line.find(" > ");
    if (redirection != std::string::npos) {
      std::ofstream(paths_.scratchFile, std::ios::binary) << output(line.substr(0, redirection));
    }
    return failing_ && line.starts_with(*failing_) ? failedStatus : 0;
  }

  int runWithin(const std::string& line, std::chrono::milliseconds limit) override {
    limits.push_back(limit);
    const int status = run(line);
    return hanging_ && line.starts_with(*hanging_) ? shellTimedOut : status;
  }

  std::vector<std::string> lines;
  std::vector<std::chrono::milliseconds> limits;

 private:
  /// The wait status of a process that ended with exit status 1.
  static constexpr int failedStatus = 1 << 8;

  std::string output(const std::string& command) const {
    const auto found = answers_.find(command);
    return found == answers_.end() ? "" : found->second;
  }

  const Paths& paths_;
  std::map<std::string, std::string> answers_;
  std::optional<std::string> hanging_;
  std::optional<std::string> failing_;
};

/// The paths of a Mac, save for the scratch file, which lies in `folder`.
inline Paths pathsWithScratchFileIn(const std::filesystem::path& folder) {
  Paths paths;
  paths.utilityTool = "/usr/local/bin/corvaneutil";
  paths.scratchFile = (folder / "corvaneOutput.txt").string();
  return paths;
}

}  // namespace corvane
