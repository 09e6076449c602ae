// How fast and in how much memory a registry dump is read, against a bare pass over its bytes.
//
// The dump is made to the size of a large customer's: `dump_reading --benchmark_filter=...` as
// usual. The counter "peak_per_byte" is the most memory that was held at once, the dump's own bytes
// included, for each byte of the file.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/dump/RegistryDump.h"

namespace {

constexpr size_t largeDump = 32u << 20;

std::string sampleBytes(const char* name) {
  std::ifstream stream(std::string(CORVANE_TEST_DATA) + "/dumps/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Many computers' roots, one behind the other.
const std::string& largeText() {
  static const std::string text = [] {
    const std::string sample = sampleBytes("desktop-2013.txt") + "\n";
    std::string whole;
    while (whole.size() < largeDump) whole += sample;
    return whole;
  }();
  return text;
}

const std::string& largePropertyList() {
  static const std::string list = [] {
    const std::string sample = sampleBytes("desktop-2013.plist");
    const size_t begin = sample.find("<dict>");
    const std::string root = sample.substr(begin, sample.rfind("</plist>") - begin);
    std::string whole = "<plist version=\"1.0\"><array>";
    while (whole.size() < largeDump) whole += root;
    return whole + "</array></plist>";
  }();
  return list;
}

void setBytes(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

void barePass(benchmark::State& state) {
  const std::string& text = largeText();
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::count(text.begin(), text.end(), '\n'));
  }
  setBytes(state, text);
}
BENCHMARK(barePass);

void textTree(benchmark::State& state) {
  const std::string& text = largeText();
  for (auto _ : state) {
    benchmark::DoNotOptimize(corvane::readRegistryDump(text).dump->entryCount());
  }
  setBytes(state, text);
}
BENCHMARK(textTree);

void textTreeAndAdapters(benchmark::State& state) {
  const std::string& text = largeText();
  for (auto _ : state) {
    const auto reading = corvane::readRegistryDump(text);
    for (const char* driver : {"com.velmar.Corvane2-FC", "com.velmar.driver.Corvane2-10GE"}) {
      benchmark::DoNotOptimize(
          reading.dump->entriesWith({{"CFBundleIdentifier", corvane::PropertyValue(driver)}}));
    }
  }
  setBytes(state, text);
}
BENCHMARK(textTreeAndAdapters);

void textEveryProperty(benchmark::State& state) {
  const std::string& text = largeText();
  for (auto _ : state) {
    benchmark::DoNotOptimize(corvane::readRegistryDump(text).dump->problems());
  }
  setBytes(state, text);
}
BENCHMARK(textEveryProperty);

void propertyListTree(benchmark::State& state) {
  const std::string& list = largePropertyList();
  for (auto _ : state) {
    benchmark::DoNotOptimize(corvane::readRegistryDump(list).dump->entryCount());
  }
  setBytes(state, list);
}
BENCHMARK(propertyListTree);

/// A field of this process's status, in bytes.
size_t statusBytes(const std::string& field) {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word) {
    size_t kilobytes = 0;
    if (word == field && status >> kilobytes) return kilobytes << 10;
  }
  return 0;
}

void forgetPeak() {
  constexpr const char* resetPeak = "5";
  std::ofstream("/proc/self/clear_refs") << resetPeak;
}

/// The most memory that reading takes at once, the dump's own bytes included.
void peakMemory(benchmark::State& state, const std::string& (*bytes)()) {
  const std::string& source = bytes();
  double ratio = 0;
  for (auto _ : state) {
    malloc_trim(0);
    forgetPeak();
    const size_t before = statusBytes("VmRSS:");
    const auto reading = corvane::readRegistryDump(source);
    ratio =
        static_cast<double>(statusBytes("VmHWM:") - before) / static_cast<double>(source.size());
    benchmark::DoNotOptimize(reading.dump->entryCount());
  }
  state.counters["peak_per_byte"] = ratio;
}
BENCHMARK_CAPTURE(peakMemory, text, largeText)->Iterations(1);
BENCHMARK_CAPTURE(peakMemory, propertyList, largePropertyList)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
