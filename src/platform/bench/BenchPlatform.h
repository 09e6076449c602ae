#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include <unistd.h>

#include "platform/Platform.h"
#include "platform/bench/BenchMachine.h"
#include "platform/bench/file/BenchFile.h"
#include "platform/posix/MainQueue.h"

namespace corvane {

struct BenchPlatformOptions {
  /// Where the programs are that the bench's shell finds as "corvaneutil", "ifconfig" and the like;
  /// empty for none.
  std::string toolsFolder;
  /// Where the sample benches are; an update address without a scheme that names no folder beside
  /// the bench file is one there.
  std::string samplesFolder;
  /// The descriptor to which commands of the shell write their output.
  int standardOutput = STDOUT_FILENO;
  /// How often the bench file is looked at.
  std::chrono::milliseconds watchInterval{25};
  BenchClock clock = systemClockMilliseconds;
};

/// A whole platform on a simulated computer. Nothing outside the bench file and its folder is
/// touched: home, temporary folder and the fixed paths are the bench's own, commands are run by the
/// real shell but find the bench's tools first, and scripts with administrator rights are played.
class BenchPlatform {
 public:
  /// Reads the bench at `path` and switches the computer on. The references outlive the object;
  /// main thread. Throws BenchFileError.
  BenchPlatform(const std::string& path, MainQueue& mainQueue, UserPrompts& prompts, Log& log,
                const BenchPlatformOptions& options = {});
  BenchPlatform(const BenchPlatform&) = delete;
  BenchPlatform& operator=(const BenchPlatform&) = delete;

  /// Ends the work as end() does.
  ~BenchPlatform();

  const Platform& platform() const;

  const BenchFile& file() const;

  /// How the lock view asks for the administrator's password: `ask` waits and returns whether one
  /// was given. Without it the right is granted. Main thread.
  void setPasswordPrompt(std::function<bool()> ask);

  /// Stops following the file, every run loop and all global work. Main thread.
  void end();

 private:
  struct Parts;
  const std::unique_ptr<Parts> parts_;
};

}  // namespace corvane
