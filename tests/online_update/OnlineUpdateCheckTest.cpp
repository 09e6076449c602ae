#include "OnlineUpdate/OnlineUpdate.h"

#include "online_update/OnlineUpdateFixture.h"

using namespace corvane;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr const char* eightGigabit = "Corvane2 8G FC";

const UpdateRule newSoftware{"Corvane_SW", "1.0.0.1", "CORVANE_Utility.dmg", "9 MB",
                             "New software"};
const UpdateRule sameSoftware{"Corvane_SW", "1.0.0.0", "CORVANE_Utility.dmg", "9 MB", "Same"};
const UpdateRule firmware8G{"Corvane_FW_8G", "2.0.0.0", "fw8.pkg", "1 MB", "New 8G"};
const UpdateRule firmware16G{"Corvane_FW_16G", "3.0.0.0", "fw16.pkg", "1 MB", "New 16G"};

class OnlineUpdateCheckTest : public OnlineUpdateFixture {
 protected:
  const AlertContent upToDate{
      "Warning", "Your system is up to date!", {{"Ok"}}, "corvane_warning.icns"};
};

TEST_F(OnlineUpdateCheckTest, VersionsAreComparedComponentByComponent) {
  struct Row {
    const char* local;
    const char* online;
    int64_t offered;
  };
  for (const Row& row : std::vector<Row>{{"1.2.3.4", "1.2.3.4", 0},
                                         {"1.2.3.4", "1.2.3.5", 1},
                                         {"1.2.3.4", "1.2.3.3", 0},
                                         {"2.0.0.5", "1.9.9.9", 1},
                                         {"2.9.9.9", "1.9.9.9", 0},
                                         {"1.0.0.0", "1.0.0", 0},
                                         {"1.0.0", "1.0.0.1", 1},
                                         {"1.0", "1.0.0.0", 0},
                                         {"1.2.3.4", "", 0},
                                         {"", "0.0.0.1", 1},
                                         {"1.0.0.0", "1.0.0.0.9", 0},
                                         {"1.0.0.a", "1.0.0.0", 0},
                                         {"1.0.0.9", "1.0.0.10b2", 1},
                                         {"1.0.0.0", "v2.0.0.0", 0},
                                         {"1.0.0.0", " 2.0.0.0", 1},
                                         {"1.0.0.0", "-2.0.0.0", 0},
                                         {"9", "99999999999999999999999", 1},
                                         {"99999999999999999999999", "99999999999999999999999", 0},
                                         {"1..0.0", "1.1.0.0", 1}}) {
    EXPECT_EQ(OnlineUpdate::checkPackageVersion(row.local, row.online), row.offered)
        << row.local << " against " << row.online;
  }
}

TEST_F(OnlineUpdateCheckTest, TestsTheNetworkWithOnePacketOfOneByte) {
  update->checkUpdate();
  EXPECT_THAT(fake.shell.lines(), ElementsAre("ping -c1 -s1 www.apple.com"));
}

TEST_F(OnlineUpdateCheckTest, WithoutANetworkItSaysSoAndChangesNothingElse) {
  serveCatalogue({newSoftware});
  fake.shell.answer = [](const std::string&) { return 512; };
  update->checkUpdate();
  ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
  EXPECT_TRUE(fake.prompts.alerts[0].modal);
  EXPECT_EQ(fake.prompts.alerts[0].content,
            (AlertContent{"Waring",
                          "Connot connect to network, please try again later !",
                          {{"Ok"}},
                          "corvane_warning.icns"}));
  EXPECT_THAT(fake.transfer.requests, IsEmpty());
  EXPECT_FALSE(isWindowShown());
  EXPECT_FALSE(update->lastCheck().networkAnswered);
}

TEST_F(OnlineUpdateCheckTest, TheFolderFollowsTheOperatingSystem) {
  const std::vector<std::pair<std::string, std::string>> folders = {
      {"10.8.5", "10.8"},   {"10.9.1", "10.9"},   {"10.9", "10.11"},    {"10.10", "10.10"},
      {"10.10.5", "10.10"}, {"10.11.6", "10.11"}, {"10.15.7", "10.11"}, {"14.3", "10.11"},
      {"10.7.5", "10.11"},  {"", "10.11"},        {"10.8", "10.11"},    {"11.10.10", "10.10"}};
  for (const auto& [release, folder] : folders) {
    fake.systemVersion.version = release;
    fake.transfer.requests.clear();
    update->checkUpdate();
    ASSERT_FALSE(fake.transfer.requests.empty());
    EXPECT_EQ(fake.transfer.requests.front(),
              "http://server/updates/" + folder + "/CorvaneOnlineInfo.plist")
        << release;
  }
}

TEST_F(OnlineUpdateCheckTest, AnAddressThatNamesTheCatalogueIsTakenAsItStands) {
  serveFrom("http://server/CorvaneOnlineInfo.plist");
  update->checkUpdate();
  EXPECT_EQ(fake.transfer.requests.front(),
            "http://server/CorvaneOnlineInfo.plist/CorvaneOnlineInfo.plist");
}

TEST_F(OnlineUpdateCheckTest, AnotherServerTakesTheFolderToo) {
  update->setServer("http://other:8080/");
  update->checkUpdate();
  EXPECT_EQ(fake.transfer.requests.front(), "http://other:8080/10.11/CorvaneOnlineInfo.plist");
}

TEST_F(OnlineUpdateCheckTest, NewSoftwareIsOfferedInTheWindow) {
  serveCatalogue({newSoftware});
  update->checkUpdate();
  EXPECT_THAT(update->updateItem(), ElementsAre(UpdateDevice{false, "CORVANE Utility", "", "",
                                                             "1.0.0.1", "New software"}));
  EXPECT_TRUE(isWindowShown());
  EXPECT_GT(update->controls().updateTable.generation(), 0u);
  EXPECT_THAT(fake.prompts.alerts, IsEmpty());
}

TEST_F(OnlineUpdateCheckTest, APendingSoftwareUpdateHidesFirmware) {
  addAdapter(eightGigabit, "20:08", "A - 1", "1.0.0.0");
  addAdapter(sixteenGigabit, "20:16", "A - 2", "1.0.0.0");
  serveCatalogue({firmware8G, firmware16G, newSoftware});
  update->checkUpdate();
  EXPECT_THAT(candidateNames(), ElementsAre("CORVANE Utility"));
  EXPECT_THAT(fake.transfer.requests, SizeIs(1));
}

TEST_F(OnlineUpdateCheckTest, Pending8GFirmwareHides16GFirmware) {
  addAdapter(eightGigabit, "20:08", "A - 1", "1.0.0.0");
  addAdapter(sixteenGigabit, "20:16", "A - 2", "1.0.0.0");
  serveCatalogue({sameSoftware, firmware8G, firmware16G});
  update->checkUpdate();
  EXPECT_THAT(candidateNames(), ElementsAre("FW(8G) 20:08(A - 1)"));
}

TEST_F(OnlineUpdateCheckTest, EveryOutdatedAdapterOfTheKindIsOffered) {
  addAdapter(sixteenGigabit, "20:17", "B - 1", "2.9.0.0");
  addAdapter(sixteenGigabit, "20:16", "A - 2", "1.0.0.0");
  addAdapter(sixteenGigabit, "20:18", "C - 1", "3.0.0.0");
  addAdapter("Corvane3 F2", "20:33", "D - 1", "1.0.0.0");
  addAdapter(eightGigabit, "20:08", "E - 1", "9.0.0.0");
  serveCatalogue({sameSoftware, firmware8G, firmware16G});
  update->checkUpdate();
  EXPECT_THAT(
      update->updateItem(),
      ElementsAre(UpdateDevice{false, "FW(16G) 20:16(A - 2)", "20:16", "", "3.0.0.0", "New 16G"},
                  UpdateDevice{false, "FW(16G) 20:17(B - 1)", "20:17", "", "3.0.0.0", "New 16G"}));
}

TEST_F(OnlineUpdateCheckTest, NothingNewerIsSaidAndTheWindowClosed) {
  addAdapter(eightGigabit, "20:08", "A - 1", "2.0.0.0");
  serveCatalogue({newSoftware});
  update->checkUpdate();
  serveCatalogue({sameSoftware, firmware8G, firmware16G});
  update->checkUpdate();
  ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
  EXPECT_TRUE(fake.prompts.alerts[0].modal);
  EXPECT_EQ(fake.prompts.alerts[0].content, upToDate);
  EXPECT_FALSE(isWindowShown());
  EXPECT_THAT(update->updateItem(), IsEmpty());
  EXPECT_EQ(update->lastCheck().catalogueProblem, "");
}

TEST_F(OnlineUpdateCheckTest, ACheckedAgainListHasNoDoubles) {
  serveCatalogue({newSoftware});
  update->checkUpdate();
  update->checkUpdate();
  EXPECT_THAT(update->updateItem(), SizeIs(1));
}

TEST_F(OnlineUpdateCheckTest, ACatalogueThatCannotBeReadReadsAsNothingNewerAndTheReasonIsKept) {
  addAdapter(sixteenGigabit, "20:16", "A - 1", "1.0.0.0");
  const std::string url = "http://server/updates/10.11/CorvaneOnlineInfo.plist";
  for (const std::string& content :
       {std::string("no list"), propertyListXml("<dict/>"),
        propertyListXml("<dict><key>Rules</key><integer>1</integer></dict>"),
        std::string(catalogueSizeLimit + 1, ' ')}) {
    fake.prompts.alerts.clear();
    serve(url, content);
    update->checkUpdate();
    ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
    EXPECT_EQ(fake.prompts.alerts[0].content, upToDate);
    EXPECT_NE(update->lastCheck().catalogueProblem, "");
    EXPECT_EQ(update->lastCheck().catalogueUrl, url);
  }
}

TEST_F(OnlineUpdateCheckTest, ACatalogueThatCannotBeFetchedLeavesTheFieldsOfTheLastRule) {
  serveCatalogue({newSoftware});
  update->checkUpdate();
  fake.transfer.answers.clear();
  EXPECT_EQ(update->checkAllVersions("SW"), 1);
  EXPECT_EQ(update->updateItem().back().currentVer, "1.0.0.1");
}

TEST_F(OnlineUpdateCheckTest, AProductWithoutARuleIsNotComparedWithAnothersVersion) {
  addAdapter(eightGigabit, "20:08", "A - 1", "0.0.0.1");
  serveCatalogue({sameSoftware});
  update->checkUpdate();
  EXPECT_THAT(update->updateItem(), IsEmpty());
}

TEST_F(OnlineUpdateCheckTest, TheWindowIsServedWhileTheCatalogueArrivesAndNothingElseBegins) {
  serveCatalogue({sameSoftware});
  int served = 0;
  update->whileDownloading([&] {
    ++served;
    EXPECT_FALSE(controls.checkUpdate.isEnabled());
    EXPECT_FALSE(controls.updateFW.isEnabled());
    EXPECT_FALSE(update->controls().updateButton.isEnabled());
    update->checkUpdate();
    update->selectUpdate();
  });
  update->checkUpdate();
  EXPECT_EQ(served, 3);
  EXPECT_THAT(fake.transfer.requests, SizeIs(3));
  EXPECT_THAT(fake.shell.lines(), SizeIs(1));
  ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
  EXPECT_EQ(fake.prompts.alerts[0].content, upToDate);
  EXPECT_TRUE(controls.checkUpdate.isEnabled());
  EXPECT_TRUE(controls.updateFW.isEnabled());
  EXPECT_TRUE(update->controls().updateButton.isEnabled());
}

TEST_F(OnlineUpdateCheckTest, UnknownKindsAreNothing) {
  serveCatalogue({newSoftware, firmware8G});
  for (const char* const kind : {"", "sw", "FW", "FW_32G"}) {
    EXPECT_EQ(update->checkAllVersions(kind), 0) << kind;
  }
  EXPECT_THAT(fake.transfer.requests, IsEmpty());
}

TEST_F(OnlineUpdateCheckTest, WithoutAServerTheCheckStillEnds) {
  fake.bundles.resources.clear();
  update->checkUpdate();
  ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
  EXPECT_EQ(fake.prompts.alerts[0].content, upToDate);
}

TEST_F(OnlineUpdateCheckTest, TheMenuItemChecks) {
  controls.checkUpdate.click();
  EXPECT_THAT(fake.shell.lines(), SizeIs(1));
}

TEST_F(OnlineUpdateCheckTest, CancellingClosesTheWindowAndForgetsTheCandidates) {
  serveCatalogue({newSoftware});
  update->checkUpdate();
  update->controls().cancelButton.click();
  EXPECT_FALSE(isWindowShown());
  EXPECT_THAT(update->updateItem(), IsEmpty());
  update->checkUpdate();
  update->controls().updateWindow.requestClose();
  EXPECT_FALSE(isWindowShown());
  EXPECT_THAT(update->updateItem(), IsEmpty());
}

TEST_F(OnlineUpdateCheckTest, TheTableShowsTheThreeColumns) {
  addAdapter(sixteenGigabit, "20:16", "A - 1", "1.0.0.0");
  serveCatalogue({firmware16G});
  update->checkUpdate();
  ASSERT_EQ(update->numberOfRowsInTableView(), 1);
  const auto cell = [this](const std::string& column, int64_t row) {
    return update->tableViewObjectValueForTableColumn(column, row);
  };
  EXPECT_EQ(cell("selected", 0), PropertyValue(0));
  EXPECT_EQ(cell("title", 0), PropertyValue("FW(16G) 20:16(A - 1)"));
  EXPECT_EQ(cell("version", 0), PropertyValue("3.0.0.0"));
  for (const auto& [column, row] :
       std::vector<std::pair<std::string, int64_t>>{{"other", 0}, {"title", 1}, {"title", -1}}) {
    EXPECT_TRUE(cell(column, row).isNull()) << column << row;
  }
}

TEST_F(OnlineUpdateCheckTest, OnlyTheTickCanBeChanged) {
  serveCatalogue({newSoftware});
  update->checkUpdate();
  const auto set = [this](const PropertyValue& value, const std::string& column, int64_t row) {
    update->tableViewSetObjectValueForTableColumn(value, column, row);
  };
  EXPECT_TRUE(update->tableViewWillDisplayCellForTableColumn("selected", 0));
  EXPECT_FALSE(update->tableViewWillDisplayCellForTableColumn("title", 0));
  EXPECT_FALSE(update->tableViewWillDisplayCellForTableColumn("version", 0));
  EXPECT_FALSE(update->tableViewWillDisplayCellForTableColumn("selected", 1));
  set(PropertyValue(1), "selected", 0);
  EXPECT_TRUE(update->updateItem()[0].isSelect);
  set(PropertyValue(0), "selected", 0);
  EXPECT_FALSE(update->updateItem()[0].isSelect);
  set(PropertyValue(true), "selected", 0);
  EXPECT_TRUE(update->updateItem()[0].isSelect);
  set(PropertyValue("new name"), "title", 0);
  set(PropertyValue(1), "selected", 7);
  set(PropertyValue(1), "selected", -1);
  EXPECT_EQ(update->updateItem()[0].updateName, "CORVANE Utility");
}

TEST_F(OnlineUpdateCheckTest, TheSelectedRowShowsItsDescription) {
  serveCatalogue({newSoftware});
  update->checkUpdate();
  EXPECT_EQ(update->controls().updateMessage.text(), "");
  update->controls().updateTable.choose(0);
  EXPECT_EQ(update->controls().updateMessage.text(), "New software");
  update->controls().updateTable.choose(-1);
  EXPECT_EQ(update->controls().updateMessage.text(), "");
}

}  // namespace
