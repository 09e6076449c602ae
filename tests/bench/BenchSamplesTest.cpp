#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <numeric>
#include <set>

#include "platform/bench/file/BenchDemo.h"
#include "platform/bench/file/BenchFile.h"
#include "platform/bench/file/BenchProducts.h"
#include "platform/bench/tree/RegistryMatching.h"

using namespace corvane;

namespace {

const std::filesystem::path sampleFolder = std::filesystem::path(CORVANE_SOURCE_DIR) / "bench";

std::vector<std::filesystem::path> sampleFiles(const std::string& extension) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(sampleFolder)) {
    const bool isSchema = entry.path().filename() == "schema.json";
    if (entry.path().extension() == extension && !isSchema) files.push_back(entry.path());
  }
  return files;
}

BenchState sample(const std::string& name) {
  return BenchFile((sampleFolder / name).string()).load();
}

std::vector<uint8_t> dumpBytes(const std::string& name) {
  std::ifstream file(sampleFolder / "transceivers" / (name + ".bin"), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool hasRightChecksum(const std::vector<uint8_t>& bytes, size_t first, size_t last) {
  const unsigned sum = std::accumulate(bytes.begin() + static_cast<std::ptrdiff_t>(first),
                                       bytes.begin() + static_cast<std::ptrdiff_t>(last), 0U);
  return (sum & 0xFFU) == bytes[last];
}

}  // namespace

TEST(BenchSamples, EveryShippedBenchFits) {
  const auto files = sampleFiles(".json");
  EXPECT_GE(files.size(), 13U);
  for (const auto& file : files) EXPECT_NO_THROW(BenchFile(file.string()).load()) << file;
}

TEST(BenchSamples, TheDemoIsTheOneBuiltIn) {
  EXPECT_EQ(demoBench(), sample("demo.json"));
}

TEST(BenchSamples, TheDemoShowsWhatThereIs) {
  const BenchState demo = demoBench();
  std::set<int64_t> fibreChannelBridges;
  std::set<std::string> ethernetProducts;
  bool hasLinkDown = false;
  bool hasDisabledPort = false;
  for (const BenchAdapter& adapter : demo.adapters) {
    if (!adapter.fibreChannelPorts.empty()) fibreChannelBridges.insert(adapter.bridge);
    if (!adapter.ethernetPorts.empty()) ethernetProducts.insert(adapter.product);
    for (const auto& port : adapter.fibreChannelPorts) hasLinkDown |= !port.link;
    for (const auto& port : adapter.ethernetPorts) hasDisabledPort |= !port.enabled;
  }
  EXPECT_GE(fibreChannelBridges.size(), 2U);
  EXPECT_EQ(ethernetProducts, (std::set<std::string>{"Corvane2 10G SFP+", "Corvane3 10G Base-T"}));
  EXPECT_TRUE(hasLinkDown);
  EXPECT_TRUE(hasDisabledPort);
  EXPECT_EQ(demo.clockRate, 1);
}

TEST(BenchSamples, EveryProductHasABenchOfItsOwn) {
  std::set<std::string> products;
  for (const auto& file : sampleFiles(".json")) {
    if (file.parent_path().filename() != "products") continue;
    const BenchState state = BenchFile(file.string()).load();
    ASSERT_EQ(state.adapters.size(), 1U) << file;
    products.insert(state.adapters[0].product);
  }
  EXPECT_EQ(products.size(), benchProducts().size());
}

TEST(BenchSamples, TheOthersAreAsLargeAsTheirNames) {
  EXPECT_TRUE(sample("empty.json").adapters.empty());
  const BenchState chain = sample("chain-of-six.json");
  std::set<int64_t> hops;
  for (const BenchAdapter& adapter : chain.adapters) hops.insert(adapter.hop);
  EXPECT_EQ(hops.size(), 6U);
  EXPECT_EQ(sample("sixty-four.json").adapters.size(), 64U);
}

TEST(BenchSamples, EveryDiskHasAPathThatFits) {
  constexpr size_t pathCapacity = 512;
  for (const auto& file : sampleFiles(".json")) {
    const auto root = buildRegistryTree(BenchFile(file.string()).load());
    for (const RegistryTreeEntry* entry : inTreeOrder(*root)) {
      EXPECT_LT(entry->path().size(), pathCapacity) << entry->path();
    }
  }
}

TEST(BenchSamples, TheDumpsCarryTheirRateAndTheirChecksums) {
  const std::map<std::string, int> rates = {{"2g-sw", 21}, {"4g-sw", 43},   {"8g-sw", 85},
                                            {"8g-lw", 85}, {"16g-sw", 140}, {"10g-sr", 103},
                                            {"copper", 85}};
  for (const auto& [name, rate] : rates) {
    const auto bytes = dumpBytes(name);
    ASSERT_GE(bytes.size(), 96U) << name;
    EXPECT_EQ(bytes[12], rate) << name;
    EXPECT_TRUE(hasRightChecksum(bytes, 0, 63)) << name;
    EXPECT_TRUE(hasRightChecksum(bytes, 64, 95)) << name;
  }
}

TEST(BenchSamples, TheGarbageHasNoTerminatorAndNoChecksum) {
  const auto bytes = dumpBytes("garbage");
  ASSERT_GE(bytes.size(), 96U);
  for (const auto& [first, last] :
       std::map<size_t, size_t>{{20, 36}, {40, 56}, {56, 60}, {68, 84}}) {
    EXPECT_EQ(std::count(bytes.begin() + static_cast<std::ptrdiff_t>(first),
                         bytes.begin() + static_cast<std::ptrdiff_t>(last), 0),
              0);
  }
  EXPECT_FALSE(hasRightChecksum(bytes, 0, 63));
}
