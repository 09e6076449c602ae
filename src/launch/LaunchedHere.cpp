#include "launch/LaunchedComputer.h"

#ifdef __APPLE__
#include "platform/macos/MacPlatform.h"
#endif

namespace corvane {

#ifdef __APPLE__

namespace {

class LaunchedMac final : public LaunchedComputer {
 public:
  explicit LaunchedMac(const LaunchHost& host)
      : mac_(host.mainQueue, host.prompts, host.log, host.commandOutput) {}

  LaunchedMac(const LaunchedMac&) = delete;
  LaunchedMac& operator=(const LaunchedMac&) = delete;
  ~LaunchedMac() override { LaunchedMac::end(); }

  Platform platform() override { return mac_.platform(); }
  void end() override { mac_.end(); }

 private:
  macos::MacPlatform mac_;
};

}  // namespace

std::unique_ptr<LaunchedComputer> openThisComputer(const LaunchHost& host) {
  return std::make_unique<LaunchedMac>(host);
}

#else

std::unique_ptr<LaunchedComputer> openThisComputer(const LaunchHost&) {
  return nullptr;
}

#endif

}  // namespace corvane
