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
/// A tool that hangs is killed when its time is up. Within the same turn no further line is run
/// then: every later answer reads as the empty text, so that the caller is held up once only.
class CommandTurn {
 public:
  CommandTurn();
  CommandTurn(const CommandTurn&) = delete;
  CommandTurn& operator=(const CommandTurn&) = delete;
  ~CommandTurn();

  /// Whether a line of this turn ran out of time.
  bool timedOut() const;
  void setTimedOut();

 private:
  std::unique_lock<std::recursive_mutex> lock_;
};

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

 private:
  Shell& shell_;
  const Paths& paths_;
};

}  // namespace corvane
