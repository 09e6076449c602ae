#include "OnlineUpdate/OnlineUpdate.h"

#include "online_update/OnlineUpdateFixture.h"

using namespace corvane;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr uint32_t transferSelector = 3;

const UpdateRule softwareDisk{"Corvane_SW", "1.0.0.1", "CORVANE_Utility.dmg", "9 MB", "New"};
const UpdateRule firmwarePackage{"Corvane_FW_16G", "3.0.0.0", "fw16.pkg", "1 MB", "New 16G"};

const AlertContent nothingSelected{
    "Error", "You don't select any device!!", {{"Ok"}}, "corvane_warning.icns"};
const AlertContent finished{"Finish",
                            "Update firmware successfully, please un-plug thunderbolt cable and "
                            "restart device to launch new version!",
                            {{"Ok"}},
                            "corvane_warning.icns"};

class OnlineUpdateInstallTest : public OnlineUpdateFixture {
 protected:
  OnlineUpdateInstallTest() {
    const auto driver = fake.userClient.answer;
    fake.userClient.answer = [this, driver](RegistryHandle service, uint32_t selector,
                                            std::span<const uint8_t> input,
                                            std::span<uint8_t> output) {
      if (selector == transferSelector) takeImage(service, input);
      return driver(service, selector, input, output);
    };
  }

  void takeImage(RegistryHandle service, std::span<const uint8_t> input) {
    uint64_t address = 0;
    for (size_t index = 16; index-- > 8;) address = address << 8 | input[index];
    const size_t size = input[0] | static_cast<size_t>(input[1]) << 8;
    transferred.emplace_back(reinterpret_cast<const char*>(static_cast<uintptr_t>(address)), size);
    transferServices.push_back(service);
    transferOnMain.push_back(dispatch.isMain());
    disksAtTransfer.push_back(fake.diskArbitration.order());
    buttonsAtTransfer.push_back(controls.updateFW.isEnabled() ||
                                update->controls().cancelButton.isEnabled());
    if (atTransfer) atTransfer();
  }

  /// Attaches two adapters of 16G, offers firmware for both and serves `package`.
  void offerFirmware(const std::string& package) {
    services = {addAdapter(sixteenGigabit, "20:01", "A - 1", "1.0.0.0"),
                addAdapter(sixteenGigabit, "20:02", "B - 1", "1.0.0.0")};
    ports[services[0]].nodeName = 0x2000001000000001;
    ports[services[1]].nodeName = 0x2000001000000002;
    serveCatalogue({firmwarePackage});
    serve("http://server/updates/10.11/fw16.pkg", package);
    update->checkUpdate();
    ASSERT_EQ(update->numberOfRowsInTableView(), 2);
  }

  void install() {
    update->controls().updateButton.click();
    dispatch.runUntilIdle();
  }

  std::vector<std::string> alertTexts() const {
    std::vector<std::string> texts;
    for (const auto& alert : fake.prompts.alerts) texts.push_back(alert.content.informativeText);
    return texts;
  }

  std::string fileContent(const std::string& name) const {
    std::ifstream file(folder_ / name);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::vector<RegistryHandle> services;
  std::vector<std::string> transferred;
  std::vector<RegistryHandle> transferServices;
  std::vector<bool> transferOnMain;
  std::vector<std::vector<std::string>> disksAtTransfer;
  std::vector<bool> buttonsAtTransfer;
  std::function<void()> atTransfer;
};

// Software.

TEST_F(OnlineUpdateInstallTest, SoftwareIsDownloadedOpenedAndTheApplicationQuits) {
  serveCatalogue({softwareDisk});
  serve("http://server/updates/10.11/CORVANE_Utility.dmg", "disk image");
  update->checkUpdate();
  tick(0);
  update->selectUpdate();
  EXPECT_EQ(fileContent("CORVANE_Utility.dmg"), "disk image");
  EXPECT_THAT(fake.shell.lines(), ElementsAre("ping -c1 -s1 www.apple.com",
                                              "open " + folder_.string() + "/CORVANE_Utility.dmg"));
  EXPECT_FALSE(isWindowShown());
  EXPECT_THAT(update->updateItem(), IsEmpty());
  EXPECT_EQ(fake.prompts.terminations, 1);
  EXPECT_EQ(update->lastInstallation().download.result, 0);
}

TEST_F(OnlineUpdateInstallTest, TheDiskImageIsOpenedByItsFixedName) {
  auto rule = softwareDisk;
  rule.FileName = "Other.dmg";
  serveCatalogue({rule});
  serve("http://server/updates/10.11/Other.dmg", "disk image");
  update->checkUpdate();
  tick(0);
  update->selectUpdate();
  EXPECT_EQ(fileContent("Other.dmg"), "disk image");
  EXPECT_EQ(fake.shell.lines().back(), "open " + folder_.string() + "/CORVANE_Utility.dmg");
}

TEST_F(OnlineUpdateInstallTest, AFailedSoftwareDownloadNeverOpensAnImageOfEarlier) {
  std::ofstream(folder_ / "CORVANE_Utility.dmg") << "old image";
  serveCatalogue({softwareDisk});
  update->checkUpdate();
  tick(0);
  update->selectUpdate();
  EXPECT_FALSE(std::filesystem::exists(folder_ / "CORVANE_Utility.dmg"));
  EXPECT_EQ(fake.prompts.terminations, 1);
  EXPECT_EQ(update->lastInstallation().download.result, 1);
  EXPECT_EQ(update->lastInstallation().download.problem, "Could not resolve host");
}

TEST_F(OnlineUpdateInstallTest, AnImageOfEarlierThatCannotBeRemovedIsNotOpened) {
  std::filesystem::create_directory(folder_ / "CORVANE_Utility.dmg");
  auto rule = softwareDisk;
  rule.FileName = "Other.dmg";
  serveCatalogue({rule});
  serve("http://server/updates/10.11/Other.dmg", "disk image");
  update->checkUpdate();
  tick(0);
  update->selectUpdate();
  EXPECT_THAT(fake.shell.lines(), ElementsAre("ping -c1 -s1 www.apple.com"));
  EXPECT_EQ(fake.prompts.terminations, 1);
}

TEST_F(OnlineUpdateInstallTest, ACancelledSoftwareDownloadLeavesTheApplicationRunning) {
  serveCatalogue({softwareDisk});
  serve("http://server/updates/10.11/CORVANE_Utility.dmg", "disk image");
  update->checkUpdate();
  tick(0);
  update->whileDownloading([this] {
    EXPECT_FALSE(update->controls().updateButton.isEnabled());
    EXPECT_FALSE(controls.updateFW.isEnabled());
    update->selectUpdate();
    update->checkUpdate();
    update->controls().cancelButton.click();
  });
  update->selectUpdate();
  EXPECT_TRUE(std::filesystem::is_empty(folder_));
  EXPECT_THAT(fake.shell.lines(), ElementsAre("ping -c1 -s1 www.apple.com"));
  EXPECT_EQ(fake.prompts.terminations, 0);
  EXPECT_FALSE(isWindowShown());
  EXPECT_THAT(update->updateItem(), IsEmpty());
  EXPECT_TRUE(update->lastInstallation().download.cancelled);
  EXPECT_TRUE(update->controls().updateButton.isEnabled());
}

TEST_F(OnlineUpdateInstallTest, SoftwareThatIsNotTickedIsAnError) {
  serveCatalogue({softwareDisk});
  update->checkUpdate();
  update->selectUpdate();
  dispatch.runUntilIdle();
  ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
  EXPECT_EQ(fake.prompts.alerts[0].content, nothingSelected);
  EXPECT_EQ(fake.prompts.terminations, 0);
}

TEST_F(OnlineUpdateInstallTest, WithoutCandidatesThereIsNothingToInstall) {
  update->selectUpdate();
  ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
  EXPECT_EQ(fake.prompts.alerts[0].content, nothingSelected);
}

// Firmware.

TEST_F(OnlineUpdateInstallTest, FirmwareThatIsNotTickedIsAnError) {
  offerFirmware(package("image"));
  install();
  ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
  EXPECT_EQ(fake.prompts.alerts[0].content, nothingSelected);
  EXPECT_THAT(transferred, IsEmpty());
}

TEST_F(OnlineUpdateInstallTest, TwoTickedAdaptersGetTheImageOneAfterAnother) {
  offerFirmware(package("the image"));
  tick(0);
  tick(1);
  install();
  EXPECT_THAT(transferred, ElementsAre("the image", "the image"));
  EXPECT_EQ(transferServices, services);
  EXPECT_THAT(transferOnMain, ElementsAre(true, true));
  const auto& adapters = update->lastInstallation().adapters;
  ASSERT_THAT(adapters, SizeIs(2));
  EXPECT_TRUE(adapters[0].succeeded());
  EXPECT_TRUE(adapters[1].succeeded());
  EXPECT_THAT(update->updateItem(), IsEmpty());
  EXPECT_FALSE(update->isInstalling());
  EXPECT_FALSE(isWindowShown());
}

TEST_F(OnlineUpdateInstallTest, TheAlertTellsOfEachStep) {
  offerFirmware(package("image"));
  tick(0);
  tick(1);
  install();
  ASSERT_THAT(fake.prompts.alerts, SizeIs(4));
  const auto& alerts = fake.prompts.alerts;
  EXPECT_EQ(alerts[0].content.message, "Wait");
  EXPECT_EQ(alerts[0].content.informativeText,
            "Downloading file, please wait..."
            "                                                                                  "
            "It will unmiubt all volument later for update.");
  EXPECT_EQ(alerts[0].content.icon, "loading7.gif");
  ASSERT_THAT(alerts[0].content.buttons, SizeIs(2));
  EXPECT_EQ(alerts[0].content.buttons[0], (AlertButton{"OK", true, true}));
  EXPECT_EQ(alerts[0].content.buttons[1], (AlertButton{"Cancel", true, true}));
  EXPECT_EQ(alerts[0].parent, SheetParent::UpdateWindow);
  EXPECT_EQ(alerts[1].content.informativeText,
            "Now is updating Device 20:00:00:10:00:00:00:01((null)-0)   Processed Device ...1/2");
  EXPECT_EQ(alerts[1].content.icon, "corvane.icns");
  EXPECT_EQ(alerts[2].content.informativeText,
            "Now is updating Device 20:00:00:10:00:00:00:02((null)-0)   Processed Device ...2/2");
  EXPECT_EQ(alerts[1].identity, alerts[0].identity);
  EXPECT_EQ(alerts[2].identity, alerts[0].identity);
  EXPECT_EQ(alerts[3].content, finished);
  EXPECT_EQ(alerts[3].parent, SheetParent::MainWindow);
  EXPECT_EQ(fake.prompts.endedSheets, 1);
}

TEST_F(OnlineUpdateInstallTest, OnlyTickedAdaptersAreUpdatedAndAllCandidatesCount) {
  offerFirmware(package("image"));
  tick(1);
  install();
  EXPECT_THAT(transferServices, ElementsAre(services[1]));
  EXPECT_THAT(alertTexts()[1], HasSubstr("Processed Device ...1/2"));
}

TEST_F(OnlineUpdateInstallTest, VolumesAreOfflineFromBeforeTheFirstTransferToAfterTheLast) {
  offerFirmware(package("image"));
  tick(0);
  tick(1);
  install();
  const std::vector<std::string> unmounted = {"create", "unmount disk4", "unmount disk4s1",
                                              "release"};
  EXPECT_EQ(disksAtTransfer[0], unmounted);
  EXPECT_EQ(disksAtTransfer[1], unmounted);
  EXPECT_THAT(fake.diskArbitration.order(),
              ElementsAre("create", "unmount disk4", "unmount disk4s1", "release", "create",
                          "mount disk4", "mount disk4s1", "release"));
}

TEST_F(OnlineUpdateInstallTest, TheDownloadIsShownAndEnds) {
  std::vector<std::optional<double>> fractions;
  offerFirmware(package("image"));
  update->controls().updateProgress.observe(
      [&] { fractions.push_back(update->controls().updateProgress.fraction()); });
  tick(0);
  install();
  EXPECT_THAT(fractions, testing::Contains(std::optional<double>(1.0)));
  EXPECT_FALSE(update->controls().updateProgress.isRunning());
  EXPECT_THAT(fake.transfer.destinations, testing::Contains(folder_.string() + "/fw16.pkg"));
}

TEST_F(OnlineUpdateInstallTest, AFailedDownloadGoesOnButSendsNothing) {
  offerFirmware(package("image"));
  fake.transfer.answers.erase("http://server/updates/10.11/fw16.pkg");
  std::ofstream(folder_ / "emulex.grp") << "stale image";
  std::ofstream(folder_ / "fw16.pkg") << package("stale package");
  tick(0);
  install();
  EXPECT_THAT(transferred, IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(folder_ / "emulex.grp"));
  EXPECT_EQ(fake.prompts.alerts.back().content, finished);
  EXPECT_EQ(fake.diskArbitration.order().back(), "release");
  EXPECT_EQ(update->lastInstallation().download.result, 1);
  EXPECT_FALSE(update->lastInstallation().adapters[0].transferResult);
}

TEST_F(OnlineUpdateInstallTest, APackageThatFailsItsChecksIsNotSent) {
  std::string damaged = package("image");
  damaged[damaged.size() / 2] = static_cast<char>(damaged[damaged.size() / 2] ^ 1);
  for (const std::string& content :
       {std::string("no package"), package("image", "other.bin"), damaged, std::string()}) {
    std::ofstream(folder_ / "emulex.grp") << "stale image";
    offerFirmware(content);
    tick(0);
    install();
    EXPECT_THAT(transferred, IsEmpty());
    EXPECT_EQ(fake.prompts.alerts.back().content, finished);
    EXPECT_EQ(update->lastInstallation().download.result, 0);
    EXPECT_FALSE(update->lastInstallation().extraction.complete);
    removeAdapter("20:01");
    removeAdapter("20:02");
  }
}

TEST_F(OnlineUpdateInstallTest, AFileNameThatIsMoreThanANameIsRefusedAndNothingIsAsked) {
  for (const char* const name : {"../../etc/passwd", "-rf", "a;b", "", "emulex.grp"}) {
    EXPECT_EQ(update->downloadFile(name), 1) << name;
    EXPECT_THAT(update->controls().updateState.text(), HasSubstr("Not downloaded: ")) << name;
    EXPECT_THAT(fake.log.lines(), testing::Contains(HasSubstr("the catalogue"))) << name;
    fake.log.clear();
  }
  EXPECT_THAT(fake.transfer.requests, IsEmpty());
  EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

TEST_F(OnlineUpdateInstallTest, AnAdapterThatHasGoneIsPassedOver) {
  offerFirmware(package("image"));
  tick(0);
  tick(1);
  removeAdapter("20:01");
  install();
  EXPECT_THAT(transferServices, ElementsAre(services[1]));
  EXPECT_FALSE(update->lastInstallation().adapters[0].attached);
  EXPECT_THAT(alertTexts()[1], HasSubstr("...2/2"));
  EXPECT_EQ(fake.prompts.alerts.back().content, finished);
}

TEST_F(OnlineUpdateInstallTest, ADriverThatRefusesIsKeptForTheCommandLineOnly) {
  offerFirmware(package("image"));
  refused[transferSelector] = statusFailure;
  tick(0);
  install();
  EXPECT_EQ(fake.prompts.alerts.back().content, finished);
  EXPECT_EQ(update->lastInstallation().adapters[0].transferResult, 0);
  EXPECT_EQ(update->lastInstallation().adapters[0].driverStatus, statusFailure);
  EXPECT_FALSE(update->lastInstallation().adapters[0].succeeded());
}

TEST_F(OnlineUpdateInstallTest, NothingElseCanBeStartedMeanwhile) {
  offerFirmware(package("image"));
  tick(0);
  update->controls().updateButton.click();
  EXPECT_TRUE(update->isInstalling());
  EXPECT_FALSE(update->controls().updateButton.isEnabled());
  EXPECT_FALSE(controls.checkUpdate.isEnabled());
  update->checkUpdate();
  update->selectUpdate();
  tick(1);
  EXPECT_EQ(update->numberOfRowsInTableView(), 2);
  atTransfer = [this] { update->cancelUpdate(); };
  dispatch.runUntilIdle();
  EXPECT_THAT(buttonsAtTransfer, ElementsAre(false));
  EXPECT_EQ(fake.prompts.alerts.back().content, finished);
  EXPECT_TRUE(controls.updateFW.isEnabled());
  EXPECT_TRUE(update->controls().cancelButton.isEnabled());
  EXPECT_TRUE(controls.checkUpdate.isEnabled());
  EXPECT_TRUE(update->controls().updateButton.isEnabled());
}

TEST_F(OnlineUpdateInstallTest, ACancelledFirmwareDownloadTouchesNothing) {
  offerFirmware(package("image"));
  tick(0);
  tick(1);
  update->whileDownloading([this] { update->controls().updateWindow.requestClose(); });
  install();
  EXPECT_THAT(transferred, IsEmpty());
  EXPECT_THAT(fake.prompts.alerts, IsEmpty());
  EXPECT_THAT(fake.diskArbitration.order(), IsEmpty());
  EXPECT_FALSE(isWindowShown());
  EXPECT_FALSE(update->isInstalling());
  EXPECT_TRUE(update->lastInstallation().download.cancelled);
  EXPECT_FALSE(update->lastInstallation().adapters[0].attached);
  EXPECT_TRUE(controls.updateFW.isEnabled());
  EXPECT_TRUE(update->controls().updateButton.isEnabled());
  EXPECT_TRUE(update->controls().cancelButton.isEnabled());
}

TEST_F(OnlineUpdateInstallTest, WhatIsCancelledBeforeItBeginsIsNotAskedFor) {
  offerFirmware(package("image"));
  tick(0);
  update->controls().updateButton.click();
  const auto before = fake.transfer.requests;
  update->controls().cancelButton.click();
  dispatch.runUntilIdle();
  EXPECT_EQ(fake.transfer.requests, before);
  EXPECT_THAT(fake.prompts.alerts, IsEmpty());
  EXPECT_FALSE(isWindowShown());
}

TEST_F(OnlineUpdateInstallTest, AfterACancelledInstallationTheNextOneInstalls) {
  offerFirmware(package("image"));
  tick(0);
  update->whileDownloading([this] { update->cancelUpdate(); });
  install();
  update->whileDownloading({});
  update->checkUpdate();
  tick(0);
  install();
  EXPECT_THAT(transferred, ElementsAre("image"));
}

TEST_F(OnlineUpdateInstallTest, ItWaitsForAnUpdateFromAFile) {
  offerFirmware(package("image"));
  isUpdatingFromFile = true;
  tick(0);
  install();
  EXPECT_THAT(transferred, IsEmpty());
  EXPECT_FALSE(update->isInstalling());
  EXPECT_THAT(update->controls().updateState.text(), HasSubstr("from a file"));
  EXPECT_EQ(update->lastInstallation().download.result, 1);
}

TEST_F(OnlineUpdateInstallTest, AnInstallationThatIsCutOffBringsTheVolumesBack) {
  offerFirmware(package("image"));
  tick(0);
  update->controls().updateButton.click();
  fake.userClient.answer = [this](RegistryHandle, uint32_t, std::span<const uint8_t>,
                                  std::span<uint8_t>) {
    dispatch.asyncMain([this] { update.reset(); });
    return statusSuccess;
  };
  dispatch.runUntilIdle();
  EXPECT_EQ(update, nullptr);
  EXPECT_THAT(fake.diskArbitration.order(),
              ElementsAre("create", "unmount disk4", "unmount disk4s1", "release", "create",
                          "mount disk4", "mount disk4s1", "release"));
}

}  // namespace
