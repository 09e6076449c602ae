#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "AppDelegate.h"
#include "cli/bench-tools/RegistryLister.h"
#include "cli/bench-tools/RegistryPrinter.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"
#include "platform/bench/file/BenchFile.h"
#include "platform/dump/DumpPlatform.h"

using namespace corvane;
using testing::ElementsAre;

namespace {

BenchFile shippedBench(const std::string& name) {
  return BenchFile(std::string(CORVANE_SOURCE_DIR) + "/bench/" + name + ".json");
}

RegistryDump dumpOf(const BenchFile& bench, const ToolArguments& arguments) {
  DumpReading reading = readRegistryDump(registryListing(bench, arguments).output);
  EXPECT_TRUE(reading.dump.has_value()) << reading.problem;
  return std::move(*reading.dump);
}

/// What of an entry has to survive: everything, save that data printed as text loses the zero bytes
/// at its end.
PropertyValue::Dictionary withoutTrailingZeros(PropertyValue::Dictionary properties) {
  for (auto& [key, value] : properties) {
    if (!value.data() || value.data()->empty()) continue;
    PropertyValue::Data bytes = *value.data();
    while (!bytes.empty() && bytes.back() == 0) bytes.pop_back();
    value = bytes;
  }
  return properties;
}

void expectSameTree(const RegistryTreeEntry& entry, const RegistryDump& dump,
                    RegistryDump::Entry dumped, bool exactly) {
  EXPECT_EQ(dump.name(dumped), entry.name);
  EXPECT_EQ(dump.location(dumped), entry.location);
  EXPECT_EQ(dump.className(dumped), entry.className);
  const auto properties = dump.properties(dumped);
  if (exactly) {
    EXPECT_EQ(properties, entry.properties) << entry.path();
  } else {
    EXPECT_EQ(withoutTrailingZeros(properties), withoutTrailingZeros(entry.properties))
        << entry.path();
  }
  auto child = dump.firstChild(dumped);
  for (const auto& expected : entry.children) {
    ASSERT_TRUE(child.has_value()) << expected->path();
    expectSameTree(*expected, dump, *child, exactly);
    child = dump.nextSibling(*child);
  }
  EXPECT_FALSE(child.has_value()) << entry.path();
}

struct Listing {
  const char* name;
  ToolArguments arguments;
  bool exactly;
};

class PrintedRegistry : public testing::TestWithParam<std::tuple<const char*, Listing>> {};

TEST_P(PrintedRegistry, IsReadBackAsTheSameTree) {
  const auto& [benchName, listing] = GetParam();
  const BenchFile bench = shippedBench(benchName);
  const RegistryDump dump = dumpOf(bench, listing.arguments);
  const auto tree = buildRegistryTree(bench.load());
  ASSERT_GT(dump.entryCount(), 10u);
  expectSameTree(*tree, dump, 0, listing.exactly);
  EXPECT_EQ(dump.problems(), DumpProblems{});
}

INSTANTIATE_TEST_SUITE_P(Benches, PrintedRegistry,
                         testing::Combine(testing::Values("demo", "chain-of-six", "empty"),
                                          testing::Values(Listing{"text", {"-l"}, false},
                                                          Listing{"text -w0", {"-l", "-w0"}, false},
                                                          Listing{"hexadecimal", {"-lx"}, true},
                                                          Listing{"property list", {"-a"}, true})));

/// The rows of the device list, as a person tells them apart.
using Rows = std::vector<std::string>;

Rows listedIn(RegistryDump dump) {
  ManualDispatch dispatch;
  FakePlatform fakes(dispatch);
  DumpPlatform platform(
      {"ioreg.txt", std::move(dump), {}},
      {fakes.runLoops, dispatch, fakes.notifications, fakes.bundles, fakes.log, fakes.prompts});
  AppDelegate app(platform.platform());
  app.showAsDump("A dump cannot be changed.");
  app.applicationDidFinishLaunching();
  dispatch.advance(std::chrono::minutes(5));
  Rows rows;
  for (const auto& entry : app.state().CorvaneList.entries()) {
    rows.push_back(entry.Sequence + " " + entry.ProductType + " " + entry.WWN);
  }
  return rows;
}

/// The same of the adapters that the bench says are attached, in no order.
Rows attachedIn(const BenchState& state) {
  Rows rows;
  for (const BenchAdapter& adapter : state.adapters) {
    if (!adapter.attached) continue;
    const char letter = static_cast<char>('A' + adapter.bridge - 1);
    std::string name = adapter.nodeWWN;
    for (const BenchEthernetPort& port : adapter.ethernetPorts) {
      if (name.empty() || port.mac < name) name = port.mac;
    }
    rows.push_back(std::string(1, letter) + " - " + std::to_string(adapter.hop) + " " +
                   adapter.product + " " + name);
  }
  return rows;
}

class DumpedBench : public testing::TestWithParam<const char*> {};

TEST_P(DumpedBench, ListsTheAdaptersOfTheBench) {
  const BenchFile bench = shippedBench(GetParam());
  for (const ToolArguments& arguments : {ToolArguments{"-l"}, ToolArguments{"-a"}}) {
    EXPECT_THAT(listedIn(dumpOf(bench, arguments)),
                testing::UnorderedElementsAreArray(attachedIn(bench.load())));
  }
}

INSTANTIATE_TEST_SUITE_P(Benches, DumpedBench, testing::Values("demo", "chain-of-six", "empty"));

TEST(RegistryListing, BeginsAtTheEntriesNamed) {
  const BenchFile bench = shippedBench("chain-of-six");
  const ToolAnswer answer = registryListing(bench, {"-l", "-r", "-c", "IOEthernetInterface"});
  EXPECT_TRUE(answer.output.starts_with("+-o en"));
  const auto all = dumpOf(bench, {"-l"});
  const DumpReading some = readRegistryDump(answer.output);
  ASSERT_TRUE(some.dump.has_value());
  size_t interfaces = 0;
  for (RegistryDump::Entry entry = 0; entry < all.entryCount(); ++entry) {
    if (all.className(entry) == "IOEthernetInterface") ++interfaces;
  }
  ASSERT_GT(interfaces, 1u);
  EXPECT_EQ(some.dump->entryCount(), interfaces);
  EXPECT_FALSE(some.dump->parent(1).has_value());
}

TEST(RegistryListing, PrintsNothingWhenNothingMatches) {
  const BenchFile bench = shippedBench("demo");
  EXPECT_EQ(registryListing(bench, {"-a", "-r", "-n", "nobody"}).output, "");
  EXPECT_EQ(registryListing(bench, {"-l", "-r", "-n", "nobody"}).output, "");
}

TEST(RegistryListing, CutsLinesAtTheWidth) {
  const std::string output = registryListing(shippedBench("demo"), {"-l", "-w", "60"}).output;
  size_t cut = 0;
  for (size_t begin = 0; begin < output.size();) {
    const size_t end = output.find('\n', begin);
    ASSERT_LE(end - begin, 60u);
    if (end - begin == 60 && output[end - 1] == '$') ++cut;
    begin = end + 1;
  }
  EXPECT_GT(cut, 5u);
}

TEST(RegistryListing, LeavesThePropertiesOutUnlessAsked) {
  const std::string output = registryListing(shippedBench("demo"), {}).output;
  EXPECT_EQ(output.find(" = "), std::string::npos);
  EXPECT_NE(output.find("+-o Root  <class IORegistryEntry, id 0x"), std::string::npos);
}

TEST(RegistryListing, RefusesOtherArguments) {
  for (const ToolArguments& arguments :
       {ToolArguments{"-q"}, ToolArguments{"all"}, ToolArguments{"-r"}, ToolArguments{"-w"},
        ToolArguments{"-w", "wide"}, ToolArguments{"-n", "Root"}, ToolArguments{"-"}}) {
    const ToolAnswer answer = registryListing(shippedBench("demo"), arguments);
    EXPECT_NE(answer.status, 0);
    EXPECT_EQ(answer.output, "");
    EXPECT_TRUE(answer.error.starts_with("usage: ioreg"));
  }
}

TEST(PrintedRegistryValue, HasTheToolsForm) {
  using Data = PropertyValue::Data;
  EXPECT_EQ(printedValue(Data{}, false), "<>");
  EXPECT_EQ(printedValue(Data{0x41}, false), "<41>");
  EXPECT_EQ(printedValue(Data{'a', 'b', 0}, false), "<\"ab\">");
  EXPECT_EQ(printedValue(Data{'a', 0, 'b', 0}, false), "<\"a\",\"b\">");
  EXPECT_EQ(printedValue(Data{'a', 'b', 0}, true), "<616200>");
  EXPECT_EQ(printedValue(Data{0, 0}, false), "<0000>");
  EXPECT_EQ(printedValue(Data{0x86, 0x80}, false), "<8680>");
  EXPECT_EQ(printedValue(int64_t{-100}, false), "18446744073709551516");
  EXPECT_EQ(printedValue(int64_t{-100}, true), "0xffffffffffffff9c");
  EXPECT_EQ(printedValue(true, false), "Yes");
  EXPECT_EQ(printedValue(PropertyValue::Array{int64_t{1}, "a\"b"}, false), "(1,\"a\"b\")");
  EXPECT_EQ(
      printedValue(PropertyValue::Dictionary{{"a", int64_t{2}}, {"b", PropertyValue::Dictionary{}}},
                   false),
      "{\"a\"=2,\"b\"={}}");
}

}  // namespace
