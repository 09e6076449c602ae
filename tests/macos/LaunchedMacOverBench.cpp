#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>

#include "launch/BenchOpening.h"
#include "macos/standin/MacSystem.h"
#include "platform/macos/MacPlatform.h"

// Takes the place of the way in which the programs run a bench: through the Mac layer, which makes
// the system's calls, which the bench answers.
namespace corvane {

namespace {

/// Passes work on and knows what of it has not ended.
class WatchedMainQueue final : public MainQueue {
 public:
  explicit WatchedMainQueue(MainQueue& queue) : queue_(queue) {}

  void post(std::function<void()> work) override {
    {
      const std::lock_guard lock(counts_->mutex);
      ++counts_->posted;
    }
    queue_.post([counts = counts_, work = std::move(work)] {
      work();
      const std::lock_guard lock(counts->mutex);
      ++counts->done;
      counts->changed.notify_all();
    });
  }

  bool isMain() const override { return queue_.isMain(); }

  /// Waits, not for long, until what was posted before has ended.
  void waitForPosted() {
    constexpr std::chrono::seconds limit{2};
    if (isMain()) return;
    std::unique_lock lock(counts_->mutex);
    const uint64_t posted = counts_->posted;
    counts_->changed.wait_for(lock, limit, [&] { return counts_->done >= posted; });
  }

 private:
  struct Counts {
    std::mutex mutex;  ///< guards everything below
    std::condition_variable changed;
    uint64_t posted = 0;
    uint64_t done = 0;
  };

  MainQueue& queue_;
  const std::shared_ptr<Counts> counts_ = std::make_shared<Counts>();
};

class LaunchedMacOverBench final : public LaunchedComputer {
 public:
  LaunchedMacOverBench(const std::string& path, const LaunchHost& host)
      : bench_(path, host.mainQueue, host.prompts, host.log, benchOptions(host)),
        mainQueue_(host.mainQueue),
        system_(bench_.platform(), systemOptions()),
        mac_(std::make_unique<macos::MacPlatform>(mainQueue_, host.prompts, host.log,
                                                  host.commandOutput)) {}
  LaunchedMacOverBench(const LaunchedMacOverBench&) = delete;
  LaunchedMacOverBench& operator=(const LaunchedMacOverBench&) = delete;

  ~LaunchedMacOverBench() override {
    LaunchedMacOverBench::end();
    mac_.reset();
    requireOrder();
  }

  /// What a Mac has only once, its files and its network, is the bench's own.
  Platform platform() override {
    const Platform mac = mac_->platform();
    const Platform& bench = bench_.platform();
    return {mac.registry, mac.userClient,    mac.diskArbitration, mac.runLoops,
            mac.dispatch, mac.notifications, bench.shell,         bench.scripts,
            mac.bundles,  mac.systemVersion, mac.authorization,   bench.transfer,
            bench.log,    bench.prompts,     bench.paths};
  }

  void setPasswordPrompt(const std::function<bool()>& ask) override {
    bench_.setPasswordPrompt(ask);
  }

  void end() override {
    mac_->end();
    bench_.end();
  }

 private:
  standin::MacSystemOptions systemOptions() {
    return {bench_.file().load().clockRate, [this] { mainQueue_.waitForPosted(); }};
  }

  /// Ends the program with a status of its own when something was not given back, or was used in a
  /// way that the system does not allow.
  void requireOrder() const {
    const std::string held = system_.held();
    const std::vector<std::string> misuses = system_.misuses();
    if (held.empty() && misuses.empty()) return;
    constexpr int disorder = 99;
    if (!held.empty()) std::fprintf(stderr, "not given back: %s\n", held.c_str());
    for (const std::string& misuse : misuses) std::fprintf(stderr, "%s\n", misuse.c_str());
    std::_Exit(disorder);
  }

  BenchPlatform bench_;
  WatchedMainQueue mainQueue_;
  standin::MacSystem system_;
  std::unique_ptr<macos::MacPlatform> mac_;
};

}  // namespace

std::unique_ptr<LaunchedComputer> openBench(const std::string& path, const LaunchHost& host) {
  try {
    return std::make_unique<LaunchedMacOverBench>(path, host);
  } catch (const BenchFileError& error) {
    throw benchRefusal(path, error);
  }
}

}  // namespace corvane
