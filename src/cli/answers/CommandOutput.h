#pragma once

#include <cstdint>
#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
}

namespace corvane {

/// What a program of the command line tells the shell. Other people's scripts
/// read these numbers, so they are kept.
enum class ExitStatus {
  Done = 0,              ///< what was asked for was done
  Failed = 1,            ///< refused or failed; the reason is on standard error
  WrongCommandLine = 2,  ///< an option or argument is missing, unknown or malformed
  NotFound = 3,          ///< there is no such adapter, port or file
};

/// Where a command reads and prints, and how. `main` makes one for the process;
/// a test makes one of string streams. Used by one thread at a time.
struct CommandContext {
  std::string program;           ///< the name at the start of every error line
  std::istream& in;              ///< answers to questions
  std::ostream& out;             ///< the answer and nothing else
  std::ostream& err;             ///< errors, hints, progress
  bool inputIsTerminal = false;  ///< a question may be asked only then
  bool errorIsTerminal = false;  ///< progress is drawn only then
  bool json = false;             ///< set by the command's `--json`
};

/// Thrown by a command that cannot go on: WHAT was worked on, WHY it failed, and
/// a hint what to do about it (a whole sentence, or empty when there is none).
class CommandFailure : public std::runtime_error {
 public:
  CommandFailure(ExitStatus status, const std::string& subject, const std::string& reason,
                 std::string hint = {});

  /// As above, for a command whose JSON answer has keys of its own even when it
  /// fails: `answer` is an object, printed with the key `error` beside its keys.
  CommandFailure(ExitStatus status, const std::string& subject, const std::string& reason,
                 std::string hint, const nlohmann::ordered_json& answer);

  ExitStatus status() const noexcept { return status_; }
  const std::string& subject() const noexcept { return subject_; }
  const std::string& reason() const noexcept { return reason_; }
  const std::string& hint() const noexcept { return hint_; }

  /// The JSON text of the command's own keys, "{}" when it has none.
  const std::string& answer() const noexcept { return answer_; }

 private:
  ExitStatus status_;
  std::string subject_;
  std::string reason_;
  std::string hint_;
  std::string answer_;
};

/// Gives `command` the flag `--json`, which sets `context.json`.
void addJsonFlag(CLI::App& command, CommandContext& context);

/// A text in an answer; null when it is unset.
nlohmann::ordered_json textOrNothing(const std::optional<std::string>& text);

/// Prints a command's answer: the JSON document under `--json`, else the same
/// fields as text. Objects become "name: value" lines, arrays of objects become
/// tables with the field names as heading, null becomes "-". Bytes that are not
/// UTF-8 are replaced in JSON; control characters are escaped in text, so that
/// a text from outside cannot drive the terminal, and its line feeds are blanks.
void printAnswer(CommandContext& context, const nlohmann::ordered_json& answer);

/// Prints a failure: `PROGRAM: WHAT: WHY` and the hint on standard error, or
/// under `--json` one document with the key `error` on standard output.
void printFailure(CommandContext& context, const CommandFailure& failure);

/// Prints `PROGRAM: TEXT` on standard error: something the user should know
/// although the command goes on.
void printNote(CommandContext& context, std::string_view text);

/// Asks on standard error whether to go on with what `lines` tell, and reads the answer. Anything
/// but "y", "Y" and "yes" is a no.
bool askToGoOn(CommandContext& context, const std::vector<std::string>& lines);

/// Parses `arguments` (without the program's name), runs the command that they
/// name and prints whatever fails. Returns the exit status for the shell.
int runCommandLine(CLI::App& app, CommandContext& context,
                   const std::vector<std::string>& arguments);

/// A progress bar on standard error, drawn only when that is a terminal and only
/// as often as the eye needs. It never goes backwards and is wiped when it ends.
class ProgressBar {
 public:
  ProgressBar(CommandContext& context, const std::string& label);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// Shows that `done` of `total` units are done. A total of 0 counts as done.
  void show(std::uint64_t done, std::uint64_t total);

 private:
  CommandContext& context_;
  std::string label_;
  int shownPercent_ = -1;
};

}  // namespace corvane
