#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Platform.h"
#include "platform/posix/MainQueue.h"

namespace corvane {

/// A computer to run on, with everything that its platform is made of. Main thread only.
class LaunchedComputer {
 public:
  virtual ~LaunchedComputer() = default;

  /// Valid as long as this object lives.
  virtual Platform platform() = 0;

  /// Whether nothing can be changed.
  virtual bool isReadOnly() const { return false; }

  /// What could not be read of it, in one sentence; empty for nothing.
  virtual std::string remark() const { return {}; }

  /// How the lock view asks for the administrator's password, where the computer has no way of its
  /// own.
  virtual void setPasswordPrompt(const std::function<bool()>&) {}

  /// Ends what goes on in the background.
  virtual void end() {}
};

/// What every computer is given. The references outlive it.
struct LaunchHost {
  MainQueue& mainQueue;
  UserPrompts& prompts;
  Log& log;
  int commandOutput;  ///< the descriptor that commands of the shell print to
};

/// The bench in the file at `path`. Throws LaunchFailure.
std::unique_ptr<LaunchedComputer> openBench(const std::string& path, const LaunchHost& host);

/// The computer in a registry dump or a collected log folder. Throws LaunchFailure.
std::unique_ptr<LaunchedComputer> openDump(const std::string& path, const LaunchHost& host);

/// This computer itself; null where it can have no adapters.
std::unique_ptr<LaunchedComputer> openThisComputer(const LaunchHost& host);

}  // namespace corvane
