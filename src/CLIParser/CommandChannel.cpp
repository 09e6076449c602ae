#include "CLIParser/CommandChannel.h"

#include "CLIParser/ScratchFile.h"

namespace corvane {

namespace {

/// What the threads of the process take turns for.
struct TurnState {
  std::recursive_mutex mutex;  ///< held by the thread whose turn it is; guards the rest
  int depth = 0;
  bool timedOut = false;
};

TurnState& turnState() {
  static TurnState state;
  return state;
}

}  // namespace

CommandTurn::CommandTurn() : lock_(turnState().mutex) {
  TurnState& state = turnState();
  if (state.depth++ == 0) state.timedOut = false;
}

CommandTurn::~CommandTurn() {
  --turnState().depth;
}

bool CommandTurn::timedOut() const {
  return turnState().timedOut;
}

void CommandTurn::setTimedOut() {
  turnState().timedOut = true;
}

void CommandChannel::run(const std::string& line) {
  CommandTurn turn;
  if (turn.timedOut()) return;
  if (shell_.runWithin(line, commandTimeLimit) == shellTimedOut) turn.setTimedOut();
}

std::optional<std::string> CommandChannel::runAndReadBack(const std::string& line) {
  const CommandTurn turn;
  const ScratchFile scratchFile(paths_.scratchFile);
  if (!scratchFile.isOpen()) return std::nullopt;
  run(line);
  return scratchFile.contents();
}

}  // namespace corvane
