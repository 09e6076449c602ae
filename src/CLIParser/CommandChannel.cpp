#include "CLIParser/CommandChannel.h"

#include <set>

#include <fmt/format.h>

#include "CLIParser/ScratchFile.h"

namespace corvane {

namespace {

/// What the threads of the process take turns for.
struct TurnState {
  std::recursive_mutex mutex;  ///< held by the thread whose turn it is; guards the rest
  int depth = 0;
  std::set<std::string> timedOutPrograms;
  bool scratchFileBusy = false;
};

TurnState& turnState() {
  static TurnState state;
  return state;
}

std::string programOf(const std::string& line) {
  return line.substr(0, line.find(' '));
}

}  // namespace

CommandTurn::CommandTurn() : lock_(turnState().mutex) {
  TurnState& state = turnState();
  if (state.depth++ > 0) return;
  state.timedOutPrograms.clear();
  state.scratchFileBusy = false;
}

CommandTurn::~CommandTurn() {
  --turnState().depth;
}

bool CommandTurn::timedOut(const std::string& program) const {
  return turnState().timedOutPrograms.contains(program);
}

void CommandTurn::setTimedOut(const std::string& program) {
  turnState().timedOutPrograms.insert(program);
}

bool CommandTurn::foundScratchFileBusy() const {
  return turnState().scratchFileBusy;
}

void CommandTurn::setScratchFileBusy() {
  turnState().scratchFileBusy = true;
}

std::string reasonNotRun(const CommandOutcome& outcome) {
  if (outcome.scratchFileBusy) return "another program of this utility is running a command";
  if (!outcome.scratchFileUsable) return "the file for the command's output cannot be used";
  if (outcome.ranOutOfTime) {
    return fmt::format("the command did not end within {} seconds", commandTimeLimit.count());
  }
  return outcome.skipped ? "the tool did not answer an earlier command" : "";
}

void CommandChannel::run(const std::string& line) {
  const CommandTurn turn;
  lastOutcome_ = outcomeOf(line);
}

std::optional<std::string> CommandChannel::runAndReadBack(const std::string& line) {
  const CommandTurn turn;
  const ScratchFile scratchFile(paths_.scratchFile, turn.foundScratchFileBusy()
                                                        ? std::chrono::milliseconds::zero()
                                                        : scratchFileWaitLimit);
  if (!scratchFile.isOpen()) {
    lastOutcome_ = withoutScratchFile(scratchFile.isBusy());
    return std::nullopt;
  }
  lastOutcome_ = outcomeOf(line);
  std::optional<std::string> text = scratchFile.contents();
  lastOutcome_.text = text.value_or("");
  return text;
}

CommandOutcome CommandChannel::outcomeOf(const std::string& line) {
  CommandTurn turn;
  const std::string program = programOf(line);
  CommandOutcome outcome;
  outcome.skipped = turn.timedOut(program);
  if (outcome.skipped) return outcome;
  outcome.exitStatus = shell_.runWithin(line, commandTimeLimit);
  outcome.ranOutOfTime = outcome.exitStatus == shellTimedOut;
  if (outcome.ranOutOfTime) turn.setTimedOut(program);
  return outcome;
}

CommandOutcome CommandChannel::withoutScratchFile(bool busy) {
  CommandTurn turn;
  if (busy) turn.setScratchFileBusy();
  CommandOutcome outcome;
  outcome.scratchFileUsable = false;
  outcome.scratchFileBusy = busy;
  return outcome;
}

}  // namespace corvane
