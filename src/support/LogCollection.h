#pragma once

#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "platform/OwnedMainWork.h"
#include "platform/Platform.h"
#include "window/MainWindowControls.h"

namespace corvane {

/// How a collection ended.
struct LogCollectionResult {
  std::string folder;  ///< where the logs are, as the shell was told it
  bool cancelled = false;
  /// The command lines that did not end with exit status 0. None of them keeps the others from
  /// being run, and the window tells of none.
  std::vector<std::string> failedLines;
};

/// Gathers what support needs into a folder of its own: the system log, a dump of the device
/// registry and the system profile, all by commands of the shell, and shows the folder.
///
/// The commands are run one after another on a global queue, so that the window goes on while the
/// system profile takes its minute; the button says what is being done. Main thread only, save
/// where noted.
class LogCollection {
 public:
  /// `controls` and what the platform refers to outlive the object. `clock` tells the time that
  /// names the folder.
  LogCollection(
      const Platform& platform, MainWindowControls& controls,
      std::function<std::time_t()> clock = [] { return std::time(nullptr); });
  LogCollection(const LogCollection&) = delete;
  LogCollection& operator=(const LogCollection&) = delete;

  /// Collects below `folder` instead of "~/Desktop/AllLogs". An absolute path.
  void setFolder(const std::string& folder);

  /// Called on the main queue when a collection has ended.
  void whenFinished(std::function<void(const LogCollectionResult&)> finished);

  /// Makes a folder named by the time and collects into it. On the 10.12 releases the unified log
  /// comes first, for which the user is asked for an administrator's password; without it the
  /// folder is removed again. Does nothing while a collection is going on.
  void downloadLogs();

  /// The copying part, into the folder of that stamp: runs its commands before it returns. Any
  /// thread.
  void downloadLogsBefore1012(const std::string& stamp) const;

 private:
  void show(const std::string& step, double fraction);
  void finish(const LogCollectionResult& result);

  const Platform platform_;
  MainWindowControls& controls_;
  const std::function<std::time_t()> clock_;
  std::string folder_;  ///< as the shell takes it, "/" at its end
  std::string title_;   ///< the button's own
  bool isRunning_ = false;
  std::function<void(const LogCollectionResult&)> finished_;
  OwnedMainWork<LogCollection> mainWork_;
};

/// The time in the form that names a folder, "yyyyMMdd-HHmmss", local time.
std::string logStamp(std::time_t time);

}  // namespace corvane
