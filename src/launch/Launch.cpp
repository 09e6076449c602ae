#include "launch/Launch.h"

#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <system_error>
#include <utility>

#include "launch/LaunchedComputer.h"
#include "launch/UserBench.h"
#include "platform/journal/JournalPlatform.h"
#include "platform/posix/StandardLog.h"

namespace corvane {

namespace {

constexpr const char* benchVariable = "CORVANE_BENCH";

StandardLogOptions logOptions(const LaunchOptions& options) {
  StandardLogOptions log;
  log.usesSystemLog = true;
  if (options.answerOnly) log.standardOutput = stderr;
  log.stopProgram = options.stopProgram;
  return log;
}

std::string namedBench(const LaunchOptions& options) {
  if (!options.bench.empty()) return options.bench;
  const char* const named = std::getenv(benchVariable);
  return named == nullptr ? "" : named;
}

}  // namespace

struct Launch::Parts {
  Parts(const LaunchOptions& options, MainQueue& mainQueue, UserPrompts& prompts)
      : log(logOptions(options)) {
    if (!options.bench.empty() && !options.dump.empty()) {
      throw LaunchFailure(LaunchExitStatus::WrongOptions, "--bench", "cannot stand beside --dump",
                          "Name either a bench to run on or a dump to look at.");
    }
    open(options, {mainQueue, prompts, log, STDERR_FILENO});
    platform.emplace(computer->platform());
    if (!options.journal.empty()) record(options.journal);
  }

  void open(const LaunchOptions& options, const LaunchHost& host) {
    source = options.dump;
    if (!source.empty()) {
      computer = openDump(source, host);
      return;
    }
    source = namedBench(options);
    if (source.empty()) computer = openThisComputer(host);
    if (computer) return;
    if (source.empty()) source = userBench();
    computer = openBench(source, host);
  }

  void record(const std::string& path) {
    try {
      journal.emplace(*platform, path);
    } catch (const std::system_error& error) {
      throw LaunchFailure(LaunchExitStatus::Failed, path,
                          "the journal cannot be opened: " + error.code().message(),
                          "Name a file in a folder that can be written.");
    }
    platform.emplace(journal->platform());
  }

  StandardLog log;
  std::string source;
  std::unique_ptr<LaunchedComputer> computer;
  std::optional<JournalPlatform> journal;
  std::optional<Platform> platform;
};

Launch::Launch(const LaunchOptions& options, MainQueue& mainQueue, UserPrompts& prompts)
    : parts_(std::make_unique<Parts>(options, mainQueue, prompts)) {}

Launch::~Launch() {
  end();
}

const Platform& Launch::platform() const {
  return *parts_->platform;
}

const std::string& Launch::source() const {
  return parts_->source;
}

bool Launch::isReadOnly() const {
  return parts_->computer->isReadOnly();
}

std::string Launch::remark() const {
  return parts_->computer->remark();
}

void Launch::setPasswordPrompt(const std::function<bool()>& ask) {
  parts_->computer->setPasswordPrompt(ask);
}

void Launch::end() {
  parts_->computer->end();
}

}  // namespace corvane
