#include "platform/posix/SystemShell.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <future>
#include <string_view>
#include <utility>
#include <vector>

extern char** environ;  // NOLINT(readability-redundant-declaration): the Mac has no other

namespace corvane {

namespace {

constexpr const char* shellProgram = "/bin/sh";

/// The attributes of a process to start: signals as a fresh program expects them.
class SpawnAttributes {
 public:
  SpawnAttributes() {
    posix_spawnattr_init(&attributes_);
    sigset_t defaults;
    sigemptyset(&defaults);
    for (const int signal : {SIGINT, SIGQUIT, SIGPIPE, SIGCHLD, SIGTERM}) {
      sigaddset(&defaults, signal);
    }
    posix_spawnattr_setsigdefault(&attributes_, &defaults);
    sigset_t unblocked;
    sigemptyset(&unblocked);
    posix_spawnattr_setsigmask(&attributes_, &unblocked);
  }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }

  void setOwnGroup(bool own) {
    const int flags =
        POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | (own ? POSIX_SPAWN_SETPGROUP : 0);
    posix_spawnattr_setflags(&attributes_, static_cast<short>(flags));
    posix_spawnattr_setpgroup(&attributes_, 0);
  }

  const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_;
};

/// What is done to the descriptors of a process before it starts.
class SpawnActions {
 public:
  SpawnActions() { posix_spawn_file_actions_init(&actions_); }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;
  ~SpawnActions() { posix_spawn_file_actions_destroy(&actions_); }

  void sendOutputTo(int descriptor) {
    if (descriptor != STDOUT_FILENO) {
      posix_spawn_file_actions_adddup2(&actions_, descriptor, STDOUT_FILENO);
    }
  }

  void emptyInput() {
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  }

  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

std::vector<std::string> environmentWith(const SystemShell::Environment& overrides) {
  std::vector<std::string> entries;
  for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
    const std::string_view text(*entry);
    const std::string name(text.substr(0, text.find('=')));
    if (!overrides.contains(name)) entries.emplace_back(text);
  }
  for (const auto& [name, value] : overrides)
    entries.push_back(std::string(name).append("=").append(value));
  return entries;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

/// The wait status of a process that has ended or will; -1 when it cannot be learned.
int reap(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return status;
}

/// Waits for the end without collecting the process, so that its number cannot pass to another.
void awaitEnd(pid_t process) {
  siginfo_t information;
  while (waitid(P_PID, static_cast<id_t>(process), &information, WEXITED | WNOWAIT) < 0 &&
         errno == EINTR) {
  }
}

}  // namespace

SystemShell::SystemShell(Environment overrides, int standardOutput)
    : overrides_(std::move(overrides)), standardOutput_(standardOutput) {}

int SystemShell::run(const std::string& line) {
  const pid_t process = start(line, Grouping::WithCaller);
  return process < 0 ? -1 : reap(process);
}

int SystemShell::runWithin(const std::string& line, std::chrono::milliseconds limit) {
  const pid_t process = start(line, Grouping::Own);
  if (process < 0) return -1;
  const auto ended = std::async(std::launch::async, awaitEnd, process);
  if (ended.wait_for(limit) == std::future_status::ready) return reap(process);
  kill(-process, SIGKILL);
  reap(process);
  return shellTimedOut;
}

pid_t SystemShell::start(const std::string& line, Grouping grouping) const {
  std::vector<std::string> arguments = {"sh", "-c", line};
  std::vector<std::string> environment = environmentWith(overrides_);
  SpawnActions actions;
  actions.sendOutputTo(standardOutput_);
  SpawnAttributes attributes;
  attributes.setOwnGroup(grouping == Grouping::Own);
  if (grouping == Grouping::Own) actions.emptyInput();
  pid_t process = -1;
  const int error = posix_spawn(&process, shellProgram, actions.get(), attributes.get(),
                                pointersTo(arguments).data(), pointersTo(environment).data());
  return error == 0 ? process : -1;
}

}  // namespace corvane
