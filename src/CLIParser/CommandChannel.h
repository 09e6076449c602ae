#pragma once

#include <chrono>
#include <mutex>
#include <optional>
#include <string>

#include "platform/Paths.h"
#include "platform/Shell.h"

namespace corvane {

/// How long one command line may take. The slowest command, a write that makes the driver set its
/// rings up anew, takes a second or two.
inline constexpr std::chrono::seconds commandTimeLimit{10};

/// The right to run command lines. All commands of the process share one scratch file, so they run
/// one at a time: a turn waits until no other thread has one. A thread may take further turns while
/// it has one; what must not be interrupted, a whole preset say, takes one turn around it all.
///
/// A tool that hangs is killed when its time is up. Within the same turn no further line of that
/// tool is run then: every later answer of it reads as the empty text, so that the caller is held
/// up once only. Lines of other tools are run as ever.
class CommandTurn {
 public:
  CommandTurn();
  CommandTurn(const CommandTurn&) = delete;
  CommandTurn& operator=(const CommandTurn&) = delete;
  ~CommandTurn();

  /// Whether a line of this turn that began with the word `program` ran out of time.
  bool timedOut(const std::string& program) const;
  void setTimedOut(const std::string& program);

  /// Whether this turn has waited in vain for the scratch file. It is tried again, but not waited
  /// for.
  bool foundScratchFileBusy() const;
  void setScratchFileBusy();

 private:
  std::unique_lock<std::recursive_mutex> lock_;
};

/// What became of one command line.
struct CommandOutcome {
  /// Whether there was a scratch file to take the output; without one the line is not run. True for
  /// a line that needs none.
  bool scratchFileUsable = true;
  /// Whether there was none because another program of the utility had it all the time.
  bool scratchFileBusy = false;
  /// Whether the tool was killed because its time was up.
  bool ranOutOfTime = false;
  /// Whether the line was not run because an earlier line of the same tool ran out of time.
  bool skipped = false;
  /// The wait status of a line that was run, as Shell::run returns it; 0 when it was not.
  int exitStatus = 0;
  /// What was read back; empty for a line that reads nothing back.
  std::string text;

  /// Whether the line was run to its end.
  bool wasRun() const { return scratchFileUsable && !ranOutOfTime && !skipped; }
};

/// Why the line was not run to its end, for people; empty when it was.
std::string reasonNotRun(const CommandOutcome& outcome);

/// Runs command lines through the shell, one at a time in the whole process, and reads back what
/// they printed. Exit statuses are not looked at: a command that fails prints nothing. Calls block;
/// any thread may call.
class CommandChannel {
 public:
  CommandChannel(Shell& shell, const Paths& paths) : shell_(shell), paths_(paths) {}

  const Paths& paths() const { return paths_; }

  /// Runs a line whose output goes to the application's own standard output.
  void run(const std::string& line);

  /// Runs a line that redirects its output into the scratch file, and returns what the file holds
  /// then. Nothing when the file cannot be opened; the line is not run in that case.
  std::optional<std::string> runAndReadBack(const std::string& line);

  /// What became of the line that was run last. Hold the turn in which it was run while you look.
  const CommandOutcome& lastOutcome() const { return lastOutcome_; }

 private:
  CommandOutcome outcomeOf(const std::string& line);
  CommandOutcome withoutScratchFile(bool busy);

  Shell& shell_;
  const Paths& paths_;
  CommandOutcome lastOutcome_;
};

}  // namespace corvane
