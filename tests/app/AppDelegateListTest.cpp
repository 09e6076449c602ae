#include "ApplicationFixture.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "inventory/DeviceListEntries.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

class AppDelegateListTest : public ApplicationFixture {
 protected:
  void SetUp() override { launch(); }

  DeviceListEntry onlyEntry() const {
    const auto entries = app->state().CorvaneList.entries();
    EXPECT_THAT(entries, SizeIs(1));
    return entries.at(0);
  }
};

}  // namespace

TEST_F(AppDelegateListTest, AnEntryOfAFibreChannelAdapter) {
  FakeFibreChannelAdapter adapter;
  adapter.hop = 2;
  plug(adapter);
  const auto entry = onlyEntry();
  EXPECT_EQ(entry.image, "corvane2_2.icns");
  EXPECT_EQ(entry.WWN, "20:00:00:10:9B:12:34:56");
  EXPECT_EQ(entry.Sequence, "B - 2");
  EXPECT_EQ(entry.Version, "2.10x6");
  EXPECT_EQ(entry.ProductType, "Corvane2 16G FC");
  EXPECT_EQ(entry.pcidebug, "");
  EXPECT_EQ(entry.family(), AdapterFamily::FibreChannel);
  EXPECT_EQ(std::get<0>(entry.obj), app->inventory().device().getDevice("20:00:00:10:9B:12:34:56"));
}

TEST_F(AppDelegateListTest, AnEntryOfATenGigabitAdapter) {
  FakeTenGigabitAdapter adapter;
  adapter.subsystem = 0x7203;
  adapter.hop = 3;
  plug(adapter);
  const auto entry = onlyEntry();
  EXPECT_EQ(entry.image, "corvane3_2.icns");
  EXPECT_EQ(entry.WWN, "00:1B:21:AA:CC:00");
  EXPECT_EQ(entry.Sequence, "A - 3");
  EXPECT_EQ(entry.Version, "");
  EXPECT_EQ(entry.ProductType, "Corvane3 NBASE-T1");
  EXPECT_EQ(entry.pcidebug, "12");
  EXPECT_EQ(entry.family(), AdapterFamily::TenGigabit);
  EXPECT_EQ(std::get<1>(entry.obj)->deviceSequence(), "3");
}

TEST_F(AppDelegateListTest, AnAdapterWithoutLetter) {
  FakeFibreChannelAdapter fibreChannel;
  fibreChannel.downstream = "DSB0";
  plug(fibreChannel);
  EXPECT_EQ(onlyEntry().Sequence, "(null) - 1");
}

TEST_F(AppDelegateListTest, TheIconFollowsTheNotification) {
  FakeFibreChannelAdapter adapter;
  adapter.model = 0x12;
  plug(adapter);
  EXPECT_EQ(onlyEntry().image, "corvane3_2.icns");
}

TEST_F(AppDelegateListTest, EachNotificationAndProductHasItsIcon) {
  EXPECT_EQ(iconOfNotification("Corvane2Appeared"), "corvane2_2.icns");
  EXPECT_EQ(iconOfNotification("Corvane3Appeared"), "corvane3_2.icns");
  EXPECT_EQ(iconOfNotification("Corvane2Appeared_10GE"), "corvane2_2.icns");
  EXPECT_EQ(iconOfNotification("Corvane3Appeared_10GE"), "corvane3_2.icns");
  EXPECT_EQ(iconOfNotification("Corvane4Appeared"), "corvane2_2.icns");
  EXPECT_EQ(iconOfProduct("Corvane2 10G Base-T"), "corvane2_2.icns");
  EXPECT_EQ(iconOfProduct("Corvane3 NBASE-T1"), "corvane3_2.icns");
  EXPECT_EQ(iconOfProduct("Corvane2 or Corvane3"), "corvane2_2.icns");
  EXPECT_EQ(iconOfProduct("(null)"), "corvane2_2.icns");
}

TEST_F(AppDelegateListTest, TheListIsInOrderOfTheLabels) {
  FakeFibreChannelAdapter adapter;
  const auto add = [&](const char* downstream, int hop, uint8_t number) {
    adapter.downstream = downstream;
    adapter.hop = hop;
    adapter.number = number;
    plug(adapter);
  };
  add("DSB2", 1, 1);
  add("DSB1", 2, 2);
  EXPECT_THAT(labels(), ElementsAre("A - 2", "B - 1"));
  FakeTenGigabitAdapter other;
  plug(other);
  add("DSB1", 10, 3);
  EXPECT_THAT(labels(), ElementsAre("A - 1", "A - 10", "A - 2", "B - 1")) << "plain text order";
}

TEST_F(AppDelegateListTest, APortThatComesBackAddsTheAdapterAgain) {
  plug(FakeFibreChannelAdapter{});
  fake.notifications.post("Corvane2Appeared", "20:00:00:10:9B:12:34:56");
  settle();
  EXPECT_THAT(labels(), ElementsAre("B - 1", "B - 1"));
}

TEST_F(AppDelegateListTest, AnUnknownAdapterIsNotListed) {
  fake.notifications.post("Corvane2Appeared", "20:00:00:00:00:00:00:00");
  fake.notifications.post("Corvane3Appeared_10GE", "99");
  settle();
  EXPECT_THAT(labels(), IsEmpty());
}

TEST_F(AppDelegateListTest, TheListChangesOnThePostingThreadThePageOnTheMainQueue) {
  const auto ports = addFibreChannelAdapter(fake.registry, {});
  fake.registry.publish(ports);
  EXPECT_THAT(labels(), ElementsAre("B - 1"));
  EXPECT_EQ(page(), Page::NoAdapter);
  settle();
  EXPECT_EQ(page(), Page::FibreChannelPort);
}

TEST_F(AppDelegateListTest, DepartureRemovesTheAdapter) {
  const auto first = plug(FakeFibreChannelAdapter{});
  FakeFibreChannelAdapter other;
  other.number = 0x57;
  other.downstream = "DSB1";
  plug(other);
  unplug(first);
  EXPECT_THAT(labels(), ElementsAre("A - 1"));
}

TEST_F(AppDelegateListTest, DepartureOfA10GbEAdapterGoesByItsBus) {
  const auto first = plug(FakeTenGigabitAdapter{});
  FakeTenGigabitAdapter other;
  other.bus = 30;
  other.number = 0x11;
  other.hop = 2;
  plug(other);
  plug(FakeFibreChannelAdapter{});
  unplug(first);
  EXPECT_THAT(labels(), ElementsAre("A - 2", "B - 1"));
}

TEST_F(AppDelegateListTest, AnAdapterWhoseDriverRefusesToTellItsNameGoesAllTheSame) {
  fake.userClient.openStatus = statusFailure;
  const auto ports = plug(FakeFibreChannelAdapter{});
  EXPECT_EQ(onlyEntry().WWN, "00:00:00:00:00:00:00:00");
  unplug(ports);
  EXPECT_THAT(labels(), IsEmpty());
}

TEST_F(AppDelegateListTest, AnAdapterPluggedInAgainBeforeItsDepartureWasToldStays) {
  const auto ports = plug(FakeFibreChannelAdapter{});
  fake.registry.terminate(ports);
  fake.registry.publish(ports);
  EXPECT_THAT(labels(), ElementsAre("B - 1", "B - 1"));
  settle();
  EXPECT_THAT(labels(), ElementsAre("B - 1"));
  EXPECT_FALSE(std::get<0>(onlyEntry().obj)->isEmpty());
}

TEST_F(AppDelegateListTest, ChangesAreToldWithTheEntryConcerned) {
  std::vector<std::string> told;
  app->whenAdaptersChange([&](const AdapterEvent& event) {
    told.push_back(event.notification.name + " " + event.notification.object + " " +
                   event.entry.Sequence);
  });
  const auto ports = plug(FakeFibreChannelAdapter{});
  unplug(ports);
  EXPECT_THAT(told, ElementsAre("Corvane2Appeared 20:00:00:10:9B:12:34:56 B - 1",
                                "Corvane2Disppeared 20:00:00:10:9B:12:34:56 B - 1"));
}

TEST_F(AppDelegateListTest, TheNumberOfRowsEnablesThePageButtons) {
  EXPECT_EQ(app->numberOfRowsInTableView(), 0);
  EXPECT_THAT(pageButtons(), ElementsAre("off!", "off!", "off!"));
  const auto ports = plug(FakeFibreChannelAdapter{});
  EXPECT_EQ(app->numberOfRowsInTableView(), 1);
  EXPECT_THAT(pageButtons(), ElementsAre("on", "off", "off"));
  unplug(ports);
  EXPECT_THAT(pageButtons(), ElementsAre("off!", "off!", "off!"));
}

TEST_F(AppDelegateListTest, ACellShowsProductAndLabel) {
  struct CellRow {
    uint32_t model;
    const char* text;
    const char* image;
  };
  uint8_t number = 1;
  for (const CellRow& row : {CellRow{0x05, "Corvane2 8G FC\nsequence: B - 1", "corvane2_2.icns"},
                             CellRow{0x12, "Corvane3 F2\nsequence: B - 1", "corvane3_2.icns"}}) {
    FakeFibreChannelAdapter adapter;
    adapter.model = row.model;
    adapter.number = number++;
    const auto ports = plug(adapter);
    EXPECT_EQ(app->tableViewViewForTableColumn(0),
              (DeviceTableCell{"MainCell", row.text, row.image}));
    unplug(ports);
  }
  EXPECT_EQ(app->tableViewViewForTableColumn(0), DeviceTableCell{});
  EXPECT_EQ(app->tableViewViewForTableColumn(-1), DeviceTableCell{});
}

TEST_F(AppDelegateListTest, ThousandsOfPlugsLeaveNoReferenceBehind) {
  const auto fibreChannel = addFibreChannelAdapter(fake.registry, {});
  const auto tenGigabit = addTenGigabitAdapter(fake.registry, {});
  for (int cycle = 0; cycle < 1000; ++cycle) {
    fake.registry.publish(cycle % 2 == 0 ? fibreChannel : tenGigabit);
    fake.registry.terminate(cycle % 2 == 0 ? fibreChannel : tenGigabit);
    if (cycle % 50 == 0) settle();
  }
  settle();
  EXPECT_THAT(labels(), IsEmpty());
  EXPECT_EQ(fake.registry.references(), 4) << "the four iterators";
  EXPECT_EQ(fake.userClient.openConnections(), 0U);
}
