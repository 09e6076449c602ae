#pragma once

#include <chrono>
#include <string>

namespace corvane {

/// What Shell::runWithin answers when the time was up; no wait status has this value.
inline constexpr int shellTimedOut = -2;

/// The system shell.
class Shell {
 public:
  virtual ~Shell() = default;

  /// system(): runs one command line and waits for it. Returns the wait status as system() does: 0
  /// when the command ended with exit status 0. Blocks the caller; any thread may call.
  virtual int run(const std::string& line) = 0;

  /// The same for a command that must not hold up its caller: once `limit` of real time has passed,
  /// the shell and everything it started are killed, and the answer is shellTimedOut.
  virtual int runWithin(const std::string& line, std::chrono::milliseconds limit) = 0;
};

/// What a script answered.
struct ScriptResult {
  bool succeeded = false;
  /// The error's "NSAppleScriptErrorMessage"; empty after success.
  std::string errorMessage;
};

/// Runs scripts of the platform's scripting language (NSAppleScript), which may ask the user for an
/// administrator's password. Blocks the caller.
class ScriptRunner {
 public:
  virtual ~ScriptRunner() = default;

  virtual ScriptResult run(const std::string& script) = 0;

  /// Whether a script with administrator rights brings up a password dialog of the system's own.
  /// Any thread may ask.
  virtual bool asksForPassword() const = 0;
};

/// `word` as the shell takes it as one word: as it stands when it consists of letters, digits, ".",
/// "_" and "-" alone, else quoted, whatever it holds.
std::string shellWord(const std::string& word);

/// The same for a path, in which "/" is plain as well.
std::string shellPath(const std::string& path);

}  // namespace corvane
