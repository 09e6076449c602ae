#include "ApplicationFixture.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::StartsWith;

namespace {

class AppDelegatePagesTest : public ApplicationFixture {
 protected:
  void SetUp() override { launch(); }

  FakeTenGigabitAdapter tenGigabit(bool enabled1, bool enabled2) const {
    FakeTenGigabitAdapter adapter;
    adapter.enabled1 = enabled1;
    adapter.enabled2 = enabled2;
    return adapter;
  }

  MainWindowControls& controls() { return app->controls(); }
};

}  // namespace

TEST_F(AppDelegatePagesTest, AnArrivalShowsTheFirstRowsFirstPort) {
  plug(FakeFibreChannelAdapter{});
  EXPECT_EQ(page(), Page::FibreChannelPort);
  EXPECT_THAT(pageButtons(), ElementsAre("on", "off", "off"));
  EXPECT_EQ(app->state().intProduct, 1);
  EXPECT_EQ(app->state().selectPort, 1);
  EXPECT_EQ(controls().deviceTable.selectedRow(), 0);
  EXPECT_EQ(controls().WWNN.text(), "20:00:00:10:9B:12:34:56");
  EXPECT_EQ(controls().currentSpeed.text(), "16 Gbps");
  EXPECT_EQ(controls().fwVer.text(), "2.10x6") << "the device page is filled as well";
  EXPECT_EQ(app->state().driverVersion_8G, "2.0.8");
}

TEST_F(AppDelegatePagesTest, AnArrivalShowsTheFirstRowWhicheverAdapterCame) {
  FakeFibreChannelAdapter first;
  first.downstream = "DSB1";
  first.number = 1;
  plug(first);
  FakeFibreChannelAdapter second;
  second.number = 2;
  plug(second);
  EXPECT_EQ(controls().WWNN.text(), "20:00:00:10:9B:12:34:01");
  const auto entry = app->state().CorvaneList.entry(0);
  EXPECT_EQ(app->state().corvaneDevice, std::get<0>(entry->obj));
  EXPECT_EQ(app->state().corvaneInfo, entry->info);
}

struct TenGigabitSelectionRow {
  bool enabled1;
  bool enabled2;
  Page page;
  std::vector<std::string> buttons;
  const char* address;
};

class TenGigabitSelectionTest : public AppDelegatePagesTest,
                                public ::testing::WithParamInterface<TenGigabitSelectionRow> {};

TEST_P(TenGigabitSelectionTest, TheEnabledPortsChooseThePage) {
  plug(tenGigabit(GetParam().enabled1, GetParam().enabled2));
  EXPECT_EQ(page(), GetParam().page);
  EXPECT_EQ(pageButtons(), GetParam().buttons);
  app->numberOfRowsInTableView();
  EXPECT_EQ(pageButtons(), GetParam().buttons) << "however often the view asks";
  EXPECT_EQ(controls().macAddress.text(), GetParam().address);
  EXPECT_EQ(controls().productType10G.text(), "Corvane2 10G SFP+");
  EXPECT_EQ(app->state().intProduct, 2);
  EXPECT_EQ(app->state().driverVersion_10G, "1.4.0") << "known before a port page asks for it";
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TenGigabitSelectionTest,
    ::testing::Values(
        TenGigabitSelectionRow{
            true, true, Page::TenGigabitPort, {"on", "off", "off"}, "00:1B:21:AA:CC:00"},
        TenGigabitSelectionRow{
            true, false, Page::TenGigabitPort, {"on", "off!", "off"}, "00:1B:21:AA:CC:00"},
        TenGigabitSelectionRow{
            false, true, Page::TenGigabitPort, {"off!", "on", "off"}, "00:1B:21:AA:CC:01"},
        TenGigabitSelectionRow{false, false, Page::TenGigabitDevice, {"off!", "off!", "on"}, ""}));

TEST_F(AppDelegatePagesTest, SelectingARowShowsItsPage) {
  plug(tenGigabit(true, false));
  plug(FakeFibreChannelAdapter{});
  EXPECT_EQ(page(), Page::TenGigabitPort);
  controls().deviceTable.choose(1);
  EXPECT_EQ(app->state().intSelectRow, 1);
  EXPECT_EQ(page(), Page::FibreChannelPort);
  EXPECT_THAT(pageButtons(), ElementsAre("on", "off", "off"));
  controls().deviceTable.choose(0);
  EXPECT_EQ(page(), Page::TenGigabitPort);
  EXPECT_THAT(pageButtons(), ElementsAre("on", "off!", "off"));
}

TEST_F(AppDelegatePagesTest, SelectingNoRowChangesNothing) {
  plug(FakeFibreChannelAdapter{});
  app->selectRow(5);
  app->selectRow(-1);
  EXPECT_EQ(controls().deviceTable.selectedRow(), 0);
  controls().deviceTable.choose(-1);
  EXPECT_EQ(page(), Page::FibreChannelPort);
}

TEST_F(AppDelegatePagesTest, TheButtonsShowTheFibreChannelPages) {
  plug(FakeFibreChannelAdapter{});
  controls().port2Button.click();
  EXPECT_EQ(page(), Page::FibreChannelPort);
  EXPECT_EQ(app->state().selectPort, 2);
  EXPECT_THAT(pageButtons(), ElementsAre("off", "on", "off"));
  controls().deviceButton.click();
  EXPECT_EQ(page(), Page::FibreChannelDevice);
  EXPECT_THAT(pageButtons(), ElementsAre("off", "off", "on"));
  controls().port1Button.click();
  EXPECT_EQ(page(), Page::FibreChannelPort);
  EXPECT_EQ(app->state().selectPort, 1);
  EXPECT_THAT(pageButtons(), ElementsAre("on", "off", "off"));
}

TEST_F(AppDelegatePagesTest, TheButtonsShowThe10GbEPages) {
  plug(tenGigabit(true, true));
  controls().port2Button.click();
  EXPECT_EQ(page(), Page::TenGigabitPort);
  EXPECT_EQ(controls().macAddress.text(), "00:1B:21:AA:CC:01");
  controls().deviceButton.click();
  EXPECT_EQ(page(), Page::TenGigabitDevice);
  EXPECT_THAT(pageButtons(), ElementsAre("off", "off", "on"));
  controls().port1Button.click();
  EXPECT_EQ(controls().macAddress.text(), "00:1B:21:AA:CC:00");
}

TEST_F(AppDelegatePagesTest, TheTagsOfThePageButtons) {
  EXPECT_EQ(controls().port1Button.tag(), 0);
  EXPECT_EQ(controls().port2Button.tag(), 1);
  EXPECT_EQ(controls().deviceButton.tag(), 2);
}

TEST_F(AppDelegatePagesTest, RefreshReadsThePortOnShowAgain) {
  plug(FakeFibreChannelAdapter{});
  controls().port2Button.click();
  const size_t before = fake.userClient.calls().size();
  controls().refreshButton.click();
  EXPECT_GT(fake.userClient.calls().size(), before);
  EXPECT_EQ(app->state().selectPort, 2);
  EXPECT_EQ(page(), Page::FibreChannelPort);
}

TEST_F(AppDelegatePagesTest, RefreshShowsThe10GbEPortOnShowAgain) {
  plug(tenGigabit(true, true));
  for (const auto& [button, address] : {std::pair{&controls().port2Button, "00:1B:21:AA:CC:01"},
                                        std::pair{&controls().port1Button, "00:1B:21:AA:CC:00"}}) {
    button->click();
    controls().macAddress.setText("stale");
    controls().refreshButton.click();
    EXPECT_EQ(controls().macAddress.text(), address);
  }
}

TEST_F(AppDelegatePagesTest, RefreshOnTheDevicePageReadsItToo) {
  plug(FakeFibreChannelAdapter{});
  controls().deviceButton.click();
  fake.bundles.install("/Library/Extensions/Corvane2-FC.kext", "2.1.0");
  controls().refreshButton.click();
  EXPECT_EQ(controls().drvVer_8G.text(), "2.1.0");
  EXPECT_EQ(page(), Page::FibreChannelDevice);
}

TEST_F(AppDelegatePagesTest, WithoutAdapterTheOperationsDoNothing) {
  app->refreshInformation();
  app->selectTabButon(controls().deviceButton);
  app->tableViewSelectionIsChanging();
  EXPECT_EQ(page(), Page::NoAdapter);
  EXPECT_TRUE(fake.userClient.calls().empty());
  EXPECT_TRUE(fake.shell.lines().empty());
}

TEST_F(AppDelegatePagesTest, ADepartureShowsTheFirstRowThatIsLeft) {
  plug(FakeFibreChannelAdapter{});
  const auto first = plug(tenGigabit(true, true));
  EXPECT_EQ(page(), Page::TenGigabitPort);
  app->selectRow(1);
  unplug(first);
  EXPECT_EQ(app->state().intSelectRow, 0);
  EXPECT_EQ(page(), Page::FibreChannelPort);
  EXPECT_EQ(app->state().intProduct, 1);
}

TEST_F(AppDelegatePagesTest, TheLastAdaptersDepartureLeavesNothingOfIt) {
  const auto ports = plug(FakeFibreChannelAdapter{});
  controls().deviceButton.click();
  unplug(ports);
  EXPECT_EQ(page(), Page::NoAdapter);
  EXPECT_THAT(pageButtons(), ElementsAre("off!", "off!", "off!"));
  EXPECT_EQ(controls().deviceTable.selectedRow(), -1);
  for (const TextField* field : {&controls().WWNN, &controls().fwVer, &controls().deviceWWN,
                                 &controls().productType, &controls().currentSpeed})
    EXPECT_EQ(field->text(), "") << field->name();
  EXPECT_EQ(app->state().corvaneDevice, nullptr);
  EXPECT_EQ(app->state().corvaneInfo, nullptr);
  EXPECT_EQ(app->state().selectPort, 0);
}

TEST_F(AppDelegatePagesTest, ARowSelectedBeforeTheFirstWasShownStaysSelected) {
  plug(FakeFibreChannelAdapter{});
  app->whenAdaptersChange([this](const AdapterEvent&) { app->selectRow(1); });
  plug(tenGigabit(true, true));
  EXPECT_EQ(controls().deviceTable.selectedRow(), 1);
  EXPECT_EQ(app->state().intSelectRow, 1);
  EXPECT_EQ(page(), Page::FibreChannelPort);
}

TEST_F(AppDelegatePagesTest, SeveralArrivalsAtOnceReadThePageOnce) {
  std::vector<RegistryHandle> services;
  for (uint8_t number = 0; number < 4; ++number) {
    FakeTenGigabitAdapter adapter;
    adapter.bus = 20 + number;
    adapter.number = number;
    adapter.hop = 4 - number;  // each arrival becomes the first row
    const auto ports = addTenGigabitAdapter(fake.registry, adapter);
    services.insert(services.end(), ports.begin(), ports.end());
  }
  int pagesShown = 0;
  controls().macAddress.observe([&] {
    if (!controls().macAddress.text().empty()) ++pagesShown;
  });
  fake.registry.publish(services);
  settle();
  controls().macAddress.observe(nullptr);
  EXPECT_EQ(pagesShown, 1);
  EXPECT_EQ(app->state().CorvaneList.count(), 4U);
}
