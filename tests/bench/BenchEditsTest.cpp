#include "platform/bench/file/BenchEdits.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/bench/file/BenchFile.h"
#include "platform/bench/file/BenchProducts.h"

using namespace corvane;

namespace {

std::vector<uint8_t> bytesOfHexadecimal(const std::string& digits) {
  std::vector<uint8_t> bytes;
  for (size_t place = 0; place + 1 < digits.size(); place += 2) {
    bytes.push_back(static_cast<uint8_t>(std::stoul(digits.substr(place, 2), nullptr, 16)));
  }
  return bytes;
}

uint8_t sumOf(const std::vector<uint8_t>& bytes, size_t first, size_t end) {
  unsigned sum = 0;
  for (size_t index = first; index < end; ++index) sum += bytes[index];
  return static_cast<uint8_t>(sum);
}

}  // namespace

TEST(BenchEditsTest, LabelsFollowBridgeAndHop) {
  BenchAdapter adapter;
  adapter.bridge = 2;
  adapter.hop = 3;
  EXPECT_EQ(benchLabel(adapter), "B - 3");
  adapter.bridge = 9;
  EXPECT_EQ(benchLabel(adapter), "I - 3");
  adapter.bridge = 10;
  EXPECT_EQ(benchLabel(adapter), "(null) - 3");
}

TEST(BenchEditsTest, EveryProductCanBePluggedInAndTheBenchStillFits) {
  BenchState state;
  int64_t bridge = 1;
  for (const BenchProduct& product : benchProducts()) {
    plugAdapter(state, std::string(product.name), bridge++, 1, {});
  }
  EXPECT_EQ(parseBench(benchText(state), "bench.json"), state);
  EXPECT_EQ(state.adapters.size(), benchProducts().size());
}

TEST(BenchEditsTest, AdaptersAreFoundByLabelNameOrAddress) {
  BenchState state;
  plugAdapter(state, "Corvane2 8G FC", 2, 1, "20:00:00:10:9B:12:34:56");
  plugAdapter(state, "Corvane3 NBASE-T1", 2, 2, "00:1B:21:AA:BB:CC");
  for (const std::string label : {"B - 1", "b1", "B1", "20:00:00:10:9b:12:34:56",
                                  "21000010 9b123456", "21:01:00:10:9B:12:34:56"}) {
    EXPECT_EQ(findAdapter(state, label), &state.adapters[0]) << label;
  }
  for (const std::string label : {"B - 2", "001b21aabbcc", "00:1B:21:AA:BB:CD"}) {
    EXPECT_EQ(findAdapter(state, label), &state.adapters[1]) << label;
  }
  for (const std::string label : {"", "-", "C1", "B", "00:1B"}) {
    EXPECT_EQ(findAdapter(state, label), nullptr) << label;
  }
  unplugAdapter(state.adapters[0]);
  EXPECT_EQ(findAdapter(state, "B1"), nullptr);
}

TEST(BenchEditsTest, ATakenPlaceAndATakenNameAreRefused) {
  BenchState state;
  plugAdapter(state, "Corvane2 8G FC", 1, 1, "20:00:00:10:9B:12:34:56");
  EXPECT_THROW(plugAdapter(state, "Corvane3 F2", 1, 1, {}), BenchEditError);
  EXPECT_THROW(plugAdapter(state, "Corvane3 F2", 1, 2, "20:00:00:10:9b:12:34:56"), BenchEditError);
  EXPECT_THROW(plugAdapter(state, "Corvane4", 1, 2, {}), BenchEditError);
  EXPECT_THROW(plugAdapter(state, "Corvane3 F2", 1, 2, "20:00"), BenchEditError);
  EXPECT_THROW(plugAdapter(state, "Corvane3 F2", 1, 2, "XX:00:00:10:9B:12:34:56"), BenchEditError);
  EXPECT_EQ(state.adapters.size(), 1U);
}

TEST(BenchEditsTest, AnUnpluggedAdapterComesBackAsItWas) {
  BenchState state;
  plugAdapter(state, "Corvane3 NBASE-T1", 1, 1, {});
  BenchEthernetPort& port = state.adapters[0].ethernetPorts[0];
  const std::string interface = *port.interface;
  port.settings["RxRingSize"] = 4096;
  port.savedSettings["RxRingSize"] = 2048;
  unplugAdapter(state.adapters[0]);
  EXPECT_FALSE(state.adapters[0].attached);
  EXPECT_EQ(plugAdapter(state, "Corvane3 NBASE-T1", 1, 1, {}), "A - 1");
  ASSERT_EQ(state.adapters.size(), 1U);
  EXPECT_EQ(state.adapters[0].timesPlugged, 2);
  EXPECT_EQ(state.adapters[0].ethernetPorts[0].interface, interface);
  EXPECT_EQ(state.adapters[0].ethernetPorts[0].settings.at("RxRingSize"), 2048)
      << "what was not saved is lost";
}

TEST(BenchEditsTest, AnUnpluggedAdapterCanMoveByItsName) {
  BenchState state;
  plugAdapter(state, "Corvane2 8G FC", 1, 1, "20:00:00:10:9B:12:34:56");
  state.adapters[0].pendingFirmware = "3.0";
  unplugAdapter(state.adapters[0]);
  EXPECT_EQ(plugAdapter(state, "Corvane2 8G FC", 3, 2, "20:00:00:10:9B:12:34:56"), "C - 2");
  EXPECT_EQ(state.adapters.size(), 1U);
  EXPECT_EQ(state.adapters[0].firmware, "3.0");
}

TEST(BenchEditsTest, LinksOfBothFamiliesGoDownAndUp) {
  BenchState state;
  plugAdapter(state, "Corvane2 8G FC", 1, 1, {});
  plugAdapter(state, "Corvane3 NBASE-T1", 1, 2, {});
  setLink(state.adapters[0], 2, false, {});
  EXPECT_FALSE(state.adapters[0].fibreChannelPorts[1].link);
  setLink(state.adapters[0], 2, true, 4000);
  EXPECT_TRUE(state.adapters[0].fibreChannelPorts[1].link);
  EXPECT_EQ(state.adapters[0].fibreChannelPorts[1].partner.speeds, std::vector<int64_t>{4000});
  setLink(state.adapters[1], 1, false, {});
  EXPECT_FALSE(state.adapters[1].ethernetPorts[0].link);
  EXPECT_THROW(setLink(state.adapters[1], 1, true, 1000), BenchEditError);
  EXPECT_THROW(setLink(state.adapters[1], 3, true, {}), BenchEditError);
  EXPECT_THROW(setLink(state.adapters[0], 0, true, {}), BenchEditError);
  EXPECT_THROW(fibreChannelPort(state.adapters[1], 1), BenchEditError);
}

TEST(BenchEditsTest, ANewAdapterHasAWholeModuleOfItsSpeedClass) {
  const std::map<std::string, std::pair<uint8_t, std::string>> modules = {
      {"Corvane2 8G FC", {85, "VSFP-8G-SW      "}}, {"Corvane3 F2", {140, "VSFP-16G-SW     "}}};
  for (const auto& [product, expected] : modules) {
    SCOPED_TRACE(product);
    BenchState state;
    plugAdapter(state, product, 1, 1, {});
    const std::vector<uint8_t> bytes =
        bytesOfHexadecimal(state.adapters[0].fibreChannelPorts[0].transceiver.hex);
    ASSERT_EQ(bytes.size(), 96U);
    EXPECT_EQ(bytes[12], expected.first) << "nominal bit rate in 100 MBd";
    EXPECT_EQ(std::string(bytes.begin() + 20, bytes.begin() + 36), "VELMAR          ");
    EXPECT_EQ(std::string(bytes.begin() + 40, bytes.begin() + 56), expected.second);
    EXPECT_EQ(bytes[63], sumOf(bytes, 0, 63)) << "CC_BASE";
    EXPECT_EQ(bytes[95], sumOf(bytes, 64, 95)) << "CC_EXT";
  }
}
