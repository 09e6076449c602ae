#include "launch/BenchOpening.h"
#include "launch/LaunchedComputer.h"
#include "platform/bench/BenchPlatform.h"

namespace corvane {

namespace {

class LaunchedBench final : public LaunchedComputer {
 public:
  LaunchedBench(const std::string& path, const LaunchHost& host)
      : bench_(path, host.mainQueue, host.prompts, host.log, benchOptions(host)) {}

  Platform platform() override { return bench_.platform(); }
  void setPasswordPrompt(const std::function<bool()>& ask) override {
    bench_.setPasswordPrompt(ask);
  }
  void end() override { bench_.end(); }

 private:
  BenchPlatform bench_;
};

}  // namespace

std::unique_ptr<LaunchedComputer> openBench(const std::string& path, const LaunchHost& host) {
  try {
    return std::make_unique<LaunchedBench>(path, host);
  } catch (const BenchFileError& error) {
    throw benchRefusal(path, error);
  }
}

}  // namespace corvane
