#include "inventory/DeviceList.h"

#include <atomic>
#include <thread>

#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"

using namespace corvane;
using ::testing::ElementsAre;

namespace {

DeviceListEntry listEntry(const std::string& label, const std::string& wwn,
                          const std::string& bus = "") {
  DeviceListEntry entry;
  entry.Sequence = label;
  entry.WWN = wwn;
  entry.pcidebug = bus;
  entry.obj = std::make_shared<Corvane2Device>();
  return entry;
}

std::vector<std::string> names(const DeviceList& list) {
  std::vector<std::string> names;
  for (const auto& entry : list.entries()) names.push_back(entry.WWN);
  return names;
}

}  // namespace

TEST(DeviceListTest, KeepsTheOrderOfEqualLabels) {
  DeviceList list;
  list.add(listEntry("B - 1", "b"));
  list.add(listEntry("A - 1", "first"));
  list.add(listEntry("A - 1", "second"));
  list.sort();
  EXPECT_THAT(names(list), ElementsAre("first", "second", "b"));
}

TEST(DeviceListTest, RemovesEveryEntryOfThatName) {
  DeviceList list;
  list.add(listEntry("A - 1", "same"));
  list.add(listEntry("A - 2", "other"));
  list.add(listEntry("A - 3", "same"));
  EXPECT_EQ(list.removeWWN("same").size(), 2U);
  EXPECT_THAT(names(list), ElementsAre("other"));
  EXPECT_TRUE(list.removeWWN("none").empty());
}

TEST(DeviceListTest, RemovesByBus) {
  DeviceList list;
  list.add(listEntry("A - 1", "a", "12"));
  list.add(listEntry("A - 2", "b", "13"));
  EXPECT_EQ(list.removePcidebug("12").at(0).WWN, "a");
  EXPECT_THAT(names(list), ElementsAre("b"));
}

TEST(DeviceListTest, RowsOutsideTheListAreNothing) {
  DeviceList list;
  list.add(listEntry("A - 1", "a"));
  EXPECT_TRUE(list.entry(0));
  EXPECT_FALSE(list.entry(1));
  EXPECT_FALSE(list.entry(-1));
  EXPECT_EQ(list.count(), 1U);
}

TEST(DeviceListTest, SeveralThreadsMayUseIt) {
  DeviceList list;
  std::atomic<bool> done{false};
  std::thread reader([&] {
    while (!done) {
      EXPECT_LE(list.entries().size(), 2U);
      list.entry(0);
    }
  });
  std::thread writer([&] {
    for (int each = 0; each < 500; ++each) {
      list.add(listEntry("A - 1", "a"));
      list.removeWWN("a");
    }
  });
  for (int each = 0; each < 500; ++each) {
    list.add(listEntry("B - 1", "b", "12"));
    list.removePcidebug("12");
  }
  writer.join();
  done = true;
  reader.join();
  EXPECT_EQ(list.count(), 0U);
}
