#pragma once

#include <functional>
#include <memory>
#include <string>

#include "launch/LaunchFailure.h"
#include "platform/Platform.h"
#include "platform/posix/MainQueue.h"

namespace corvane {

/// On what a program runs, as its options say. Empty texts are options that were not given.
struct LaunchOptions {
  std::string bench;    ///< a bench file; else what CORVANE_BENCH names
  std::string dump;     ///< a registry dump or a collected log folder, shown read-only
  std::string journal;  ///< where to append what crosses the platform boundary
  /// Standard output is for the answer alone: what the system or its commands print there goes to
  /// standard error.
  bool answerOnly = false;
  /// Ends the program in order at a failed assertion by throwing; without it the program is
  /// aborted.
  std::function<void(const std::string& assertion)> stopProgram = {};
};

/// The one place that chooses the platform: a dump, a bench, this computer itself where it has
/// adapters' drivers (a Mac), else the user's own bench, which is made as a copy of the demo
/// bench at first use. Main thread only.
class Launch {
 public:
  /// The queue and the prompts outlive this object. Throws LaunchFailure.
  Launch(const LaunchOptions& options, MainQueue& mainQueue, UserPrompts& prompts);
  Launch(const Launch&) = delete;
  Launch& operator=(const Launch&) = delete;
  ~Launch();

  /// Valid as long as this object lives.
  const Platform& platform() const;

  /// What the program runs on, for a window's title: the path of the bench or dump; empty for this
  /// computer itself.
  const std::string& source() const;

  /// Whether nothing can be changed.
  bool isReadOnly() const;

  /// What of a dump could not be read, in one sentence; empty for nothing.
  std::string remark() const;

  /// How a bench's lock view asks for the administrator's password: `ask` waits and returns whether
  /// one was given. Without it the right is granted.
  void setPasswordPrompt(const std::function<bool()>& ask);

  /// Ends what goes on in the background, before the objects that it works on go away.
  void end();

 private:
  struct Parts;
  const std::unique_ptr<Parts> parts_;
};

}  // namespace corvane
