#include "launch/LaunchFailure.h"
#include "launch/LaunchedComputer.h"
#include "launch/ShippedFiles.h"
#include "platform/bench/BenchPlatform.h"

namespace corvane {

namespace {

class LaunchedBench final : public LaunchedComputer {
 public:
  LaunchedBench(const std::string& path, const LaunchHost& host)
      : bench_(path, host.mainQueue, host.prompts, host.log, options(host)) {}

  Platform platform() override { return bench_.platform(); }
  void setPasswordPrompt(const std::function<bool()>& ask) override {
    bench_.setPasswordPrompt(ask);
  }
  void end() override { bench_.end(); }

 private:
  static BenchPlatformOptions options(const LaunchHost& host) {
    BenchPlatformOptions options;
    const ShippedFiles shipped = ShippedFiles::ofThisProgram();
    options.toolsFolder = shipped.benchToolsFolder().value_or("").string();
    options.samplesFolder = shipped.benchFolder().value_or("").string();
    options.standardOutput = host.commandOutput;
    return options;
  }

  BenchPlatform bench_;
};

/// The error without the file's name, which stands before it.
std::string reasonOf(const BenchFileError& error) {
  std::string reason;
  if (error.line() != 0) reason += "line " + std::to_string(error.line()) + ": ";
  if (!error.field().empty()) reason += error.field() + " ";
  return reason + error.reason();
}

LaunchFailure refusal(const std::string& path, const BenchFileError& error) {
  switch (error.kind()) {
    case BenchFileError::Kind::Missing:
      return {LaunchExitStatus::NotFound, path, "there is no such bench",
              "Write one with \"corvane-bench new " + path + "\"."};
    case BenchFileError::Kind::Misfit:
      return {LaunchExitStatus::Failed, path, reasonOf(error),
              "Correct the file at that place; it has not been changed."};
    case BenchFileError::Kind::Unreadable:
      break;
  }
  return {LaunchExitStatus::Failed, path, reasonOf(error),
          "Check that the file and its folder can be read and written."};
}

}  // namespace

std::unique_ptr<LaunchedComputer> openBench(const std::string& path, const LaunchHost& host) {
  try {
    return std::make_unique<LaunchedBench>(path, host);
  } catch (const BenchFileError& error) {
    throw refusal(path, error);
  }
}

}  // namespace corvane
