// How long it takes until attached adapters are listed, and until one that is plugged in has its
// row, against the bare work: parsing the bench file and walking its registry tree once.
//
// Runs on a bench of 64 adapters on which the mandated waits take no time. Prints the best of
// several turns and the ratios.

#include <unistd.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>

#include "AppDelegate.h"
#include "launch/Launch.h"
#include "platform/bench/file/BenchFile.h"
#include "platform/bench/tree/RegistryTree.h"
#include "platform/posix/PlainMainQueue.h"

namespace {

using namespace corvane;
using Clock = std::chrono::steady_clock;

constexpr int turns = 9;
constexpr size_t adapters = 64;

/// Prompts that nobody sees.
class NoPrompts final : public UserPrompts {
 public:
  int showModalAlert(const AlertContent&) override { return alertFirstButton; }
  void showAlertSheet(AlertIdentity, const AlertContent&, SheetParent,
                      std::function<void(int)>) override {}
  void endAlertSheet(AlertIdentity) override {}
  void showAlertProgress(AlertIdentity, std::optional<double>) override {}
  void showOpenPanel(const OpenPanelRequest&,
                     std::function<void(std::vector<std::string>)>) override {}
  void beep() override {}
  void terminate() override {}
};

double milliseconds(const std::function<void()>& work) {
  const auto start = Clock::now();
  work();
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double bestOf(const std::function<double()>& turn) {
  double best = turn();
  for (int each = 1; each < turns; ++each) best = std::min(best, turn());
  return best;
}

size_t walk(const RegistryTreeEntry& entry) {
  const PropertyValue::Dictionary properties = entry.properties;
  size_t visited = properties.size() + entry.name.size();
  for (const auto& child : entry.children) visited += walk(*child);
  return visited;
}

double bareWork(const BenchFile& file) {
  size_t visited = 0;
  const double taken = milliseconds(
      [&] { visited = walk(*buildRegistryTree(parseBench(file.text(), file.path()))); });
  return visited == 0 ? 0 : taken;
}

/// The utility without a face on the bench.
struct Utility {
  explicit Utility(const std::string& path) : launch(options(path), mainQueue, prompts) {}

  static LaunchOptions options(const std::string& path) {
    LaunchOptions options;
    options.bench = path;
    options.answerOnly = true;
    return options;
  }

  void discover() {
    bool discovered = false;
    app.inventory().whenDiscovered([&discovered] { discovered = true; });
    app.applicationDidFinishLaunching();
    mainQueue.runUntil([&discovered] { return discovered; });
    app.inventory().whenDiscovered(nullptr);
  }

  PlainMainQueue mainQueue;
  NoPrompts prompts;
  Launch launch;
  AppDelegate app{launch.platform()};
};

double startToFullList(const std::string& path) {
  const auto start = Clock::now();
  Utility utility(path);
  utility.discover();
  const double taken = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
  const size_t listed = utility.app.state().CorvaneList.count();
  if (listed != adapters) std::fprintf(stderr, "%zu adapters listed\n", listed);
  return taken;
}

/// Unplugs the first adapter of a running utility's bench and plugs it in again.
double plugToRow(Utility& utility, const BenchFile& file) {
  bool changed = false;
  utility.app.whenAdaptersChange([&changed](const AdapterEvent&) { changed = true; });
  const auto edit = [&](bool attached) {
    changed = false;
    file.update([attached](BenchState& state) {
      auto& adapter = state.adapters.front();
      adapter.attached = attached;
      if (attached) ++adapter.timesPlugged;
    });
    utility.mainQueue.runUntil([&changed] { return changed; });
  };
  edit(false);
  const double taken = milliseconds([&edit] { edit(true); });
  utility.app.whenAdaptersChange(nullptr);
  return taken;
}

std::filesystem::path makeBench(const std::filesystem::path& folder) {
  const auto path = folder / "sixty-four.json";
  std::filesystem::copy_file(std::string(CORVANE_SOURCE_DIR) + "/bench/sixty-four.json", path);
  BenchFile(path.string()).update([](BenchState& state) { state.clockRate = 1e6; });
  return path;
}

}  // namespace

int main() {
  std::string pattern = (std::filesystem::temp_directory_path() / "corvane-XXXXXX").string();
  const std::filesystem::path folder = mkdtemp(pattern.data());
  const std::string path = makeBench(folder).string();
  const BenchFile file(path);

  const double bare = bestOf([&file] { return bareWork(file); });
  const double start = bestOf([&path] { return startToFullList(path); });
  Utility utility(path);
  utility.discover();
  const double plug = bestOf([&] { return plugToRow(utility, file); });

  std::printf("parse and walk once   %8.2f ms\n", bare);
  std::printf("start to full list    %8.2f ms  %6.1f times that\n", start, start / bare);
  std::printf("plug edit to row      %8.2f ms  %6.1f times that\n", plug, plug / bare);
  std::filesystem::remove_all(folder);
}
