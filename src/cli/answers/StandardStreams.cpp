#include "cli/answers/StandardStreams.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <utility>

namespace corvane {

namespace {

/// What is read there ends at once, and what is written there fails, as it would where the
/// descriptor is closed. Descriptors are given out from the lowest one on.
void takeClosedDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) == -1) static_cast<void>(open("/dev/null", O_RDONLY));
  }
}

bool hasLostItsReader(int descriptor) {
  pollfd state{.fd = descriptor, .events = POLLOUT, .revents = 0};
  return poll(&state, 1, 0) == 1 && (state.revents & POLLERR) != 0;
}

/// Where an earlier piece could not be written, the cause is not known any more.
constexpr int unknownError = -1;

/// The error that kept standard output from being written; 0 for none.
int outputError(CommandContext& context) {
  errno = 0;
  context.out.flush();
  if (std::ferror(stdout) == 0 && context.out) return 0;
  if (hasLostItsReader(STDOUT_FILENO)) return EPIPE;
  return errno == 0 ? unknownError : errno;
}

int endByBrokenPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
  return static_cast<int>(ExitStatus::Failed);
}

}  // namespace

CommandContext standardContext(std::string program) {
  takeClosedDescriptors();
  std::signal(SIGPIPE, SIG_IGN);
  return CommandContext{.program = std::move(program),
                        .in = std::cin,
                        .out = std::cout,
                        .err = std::cerr,
                        .inputIsTerminal = isatty(STDIN_FILENO) == 1,
                        .errorIsTerminal = isatty(STDERR_FILENO) == 1};
}

int endStandardOutput(CommandContext& context, int status) {
  const int error = outputError(context);
  if (error == 0) return status;
  if (error == EPIPE) return endByBrokenPipe();
  const std::string cause = error == unknownError ? "" : std::string(": ") + std::strerror(error);
  printNote(context, "standard output: the answer cannot be written" + cause);
  if (status != static_cast<int>(ExitStatus::Done)) return status;
  context.err << "Is the disk full? A change that was asked for has been made.\n";
  return static_cast<int>(ExitStatus::Failed);
}

}  // namespace corvane
