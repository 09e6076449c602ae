// How long a whole 10GbE port page takes on a bench, as a ratio to the same number of runs of
// `sh -c true` in the same program. Both take turns, so that a busy computer slows both alike; the
// medians are compared. Prints one JSON object.
//
// The bench lies on a memory file system where there is one: the shell empties the scratch file for
// each command, which some disk file systems answer with a write to the disk.

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "AppDelegate.h"
#include "fakes/FakeLog.h"
#include "fakes/FakePrompts.h"
#include "fakes/PlatformWithShell.h"
#include "platform/bench/BenchPlatform.h"
#include "platform/posix/PlainMainQueue.h"

namespace corvane {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int rounds = 40;
constexpr std::chrono::seconds patience{60};

/// Counts the command lines on their way to the shell.
class CountingShell final : public Shell {
 public:
  explicit CountingShell(Shell& shell) : shell_(shell) {}
  int run(const std::string& line) override { return ++lines, shell_.run(line); }
  int runWithin(const std::string& line, std::chrono::milliseconds limit) override {
    return ++lines, shell_.runWithin(line, limit);
  }

  int lines = 0;

 private:
  Shell& shell_;
};

std::filesystem::path temporaryFolder() {
  const bool hasMemoryFolder = access("/dev/shm", W_OK) == 0;
  std::string pattern = hasMemoryFolder
                            ? "/dev/shm/corvane-XXXXXX"
                            : (std::filesystem::temp_directory_path() / "corvane-XXXXXX").string();
  return mkdtemp(pattern.data());
}

/// A Mac with one adapter that holds a module of the usual kind.
BenchState computer() {
  BenchEthernetPort port1;
  port1.interface = "en5";
  port1.mac = "00:1B:21:AA:BB:CC";
  port1.module = "srlr";
  port1.media = "10GbaseSR <full-duplex>";
  BenchEthernetPort port2 = port1;
  port2.interface = "en6";
  port2.mac = "00:1B:21:AA:BB:CD";
  BenchAdapter adapter;
  adapter.product = "Corvane2 10G SFP+";
  adapter.ethernetPorts = {port1, port2};
  BenchState state;
  state.clockRate = 100000;
  state.drivers["Corvane2-10GE"] = "1.4.0";
  state.adapters = {adapter};
  return state;
}

template <typename Work>
double millisecondsOf(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return Milliseconds(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void measure(AppDelegate& application, CountingShell& shell) {
  std::vector<double> pages;
  std::vector<double> plain;
  int lines = 0;
  for (int round = 0; round < rounds; ++round) {
    shell.lines = 0;
    pages.push_back(millisecondsOf([&] { application.refreshInformation(); }));
    lines = shell.lines;
    plain.push_back(millisecondsOf([&] {
      for (int run = 0; run < lines; ++run) shell.runWithin("true", commandTimeLimit);
    }));
  }
  fmt::print(
      "{{\"commandLines\":{},\"pageMilliseconds\":{:.2f},\"shellMilliseconds\":{:.2f},"
      "\"ratio\":{:.2f}}}\n",
      lines, median(pages), median(plain), median(pages) / median(plain));
}

int measureIn(const std::filesystem::path& folder) {
  const BenchFile file((folder / "bench.json").string());
  file.create(computer());
  PlainMainQueue mainQueue;
  FakePrompts prompts;
  FakeLog log;
  BenchPlatformOptions options;
  options.toolsFolder = BENCH_TOOLS;
  BenchPlatform bench(file.path(), mainQueue, prompts, log, options);
  CountingShell shell(bench.platform().shell);
  AppDelegate application(platformWithShell(bench.platform(), shell));
  application.applicationDidFinishLaunching();
  const bool isShown =
      mainQueue.runUntil([&] { return !application.controls().MTUvalue.text().empty(); }, patience);
  if (!isShown) {
    std::fprintf(stderr, "ten_gigabit_page: the bench's adapter has not been found\n");
    return EXIT_FAILURE;
  }
  measure(application, shell);
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace corvane

int main() {
  const std::filesystem::path folder = corvane::temporaryFolder();
  const int status = corvane::measureIn(folder);
  std::filesystem::remove_all(folder);
  return status;
}
