#include "cli/answers/Interruption.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

namespace corvane {

namespace {

constexpr char signalArrived = 1;
constexpr char noLongerWanted = 0;

// All that a signal's handler may touch is the writing end of a pipe.
std::array<int, 2> signalPipe{-1, -1};
std::array<struct sigaction, 2> formerActions;
constexpr std::array<int, 2> signals{SIGINT, SIGTERM};

void send(char message) {
  const int savedError = errno;
  while (write(signalPipe[1], &message, 1) < 0 && errno == EINTR) {
  }
  errno = savedError;
}

extern "C" void corvaneSignalArrived(int) {
  send(signalArrived);
}

char receive() {
  char message = noLongerWanted;
  while (read(signalPipe[0], &message, 1) < 0 && errno == EINTR) {
  }
  return message;
}

}  // namespace

Interruption::Interruption() {
  if (pipe(signalPipe.data()) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  for (const int end : signalPipe) fcntl(end, F_SETFD, FD_CLOEXEC);
  struct sigaction action {};
  action.sa_handler = corvaneSignalArrived;
  // What the program is reading or waiting for meanwhile goes on.
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (size_t each = 0; each < signals.size(); ++each)
    sigaction(signals[each], &action, &formerActions[each]);
}

Interruption::~Interruption() {
  for (size_t each = 0; each < signals.size(); ++each)
    sigaction(signals[each], &formerActions[each], nullptr);
  for (int& end : signalPipe) close(std::exchange(end, -1));
}

InterruptionAnswer::InterruptionAnswer(const Interruption&, std::function<void()> interrupted)
    : waiter_([interrupted = std::move(interrupted)] {
        if (receive() == signalArrived) interrupted();
      }) {}

InterruptionAnswer::~InterruptionAnswer() {
  send(noLongerWanted);
  waiter_.join();
}

KeptInterruption::KeptInterruption(std::function<void()> arrived)
    : answer_(interruption_, [this, arrived = std::move(arrived)] {
        hasArrived_ = true;
        arrived();
      }) {}

}  // namespace corvane
