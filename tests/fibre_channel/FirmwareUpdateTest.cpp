#include "firmware/FirmwareUpdate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "CORVANE2Archive/ArchiveFixtures.h"
#include "fakes/OneFilePackage.h"
#include "fibre_channel/FibreChannelFixture.h"
#include "firmware/Volumes.h"

using namespace corvane;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr const char* finishText = "Please restart device to launch new FW !";

class FirmwareUpdateTest : public FibreChannelFixture {
 protected:
  FirmwareUpdateTest() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder / "tmp");
    fake.paths.extractedImage = (folder / "tmp/emulex.grp").string();
    fake.paths.transferImage = fake.paths.extractedImage;
    fake.paths.home = folder.string();
    state.updateAlert.buttons = {{"OK"}, {"Cancel"}};
    attachCorvane2With8G();
    const auto driver = fake.userClient.answer;
    fake.userClient.answer = [this, driver](RegistryHandle service, uint32_t selector,
                                            std::span<const uint8_t> input,
                                            std::span<uint8_t> output) {
      if (selector == 3) takeImage(service, input);
      return driver(service, selector, input, output);
    };
    volumes = std::make_unique<Volumes>(fake.platform());
    update = std::make_unique<FirmwareUpdate>(fake.platform(), controls, state, state.updateAlert,
                                              *volumes, [this] { return volumeNames; });
  }
  ~FirmwareUpdateTest() override { std::filesystem::remove_all(folder); }

  void takeImage(RegistryHandle service, std::span<const uint8_t> input) {
    EXPECT_FALSE(dispatch.isMain());
    uint64_t address = 0;
    for (size_t index = 16; index-- > 8;) address = address << 8 | input[index];
    const size_t size = input[0] | static_cast<size_t>(input[1]) << 8;
    transferred.emplace_back(reinterpret_cast<const char*>(static_cast<uintptr_t>(address)), size);
    transferService = service;
    disksAtTransfer = fake.diskArbitration.order();
  }

  std::string writePackage(const std::string& name, const std::string& image,
                           const std::string& member = "emulex.grp",
                           const std::string& version = "2.0.1") {
    const std::string path = (folder / name).string();
    writeOneFilePackage(path, image, member, version);
    return path;
  }

  /// Chooses the package in the panel and lets the verification end.
  void choose(const std::string& path) {
    update->updateFW();
    fake.prompts.choosePaths({path});
    dispatch.runUntilIdle();
  }

  void confirm() { fake.prompts.pressSheetButton(0); }

  const AlertContent& lastAlert() { return fake.prompts.alerts.back().content; }

  std::filesystem::path folder = std::filesystem::path(testing::TempDir()) /
                                 (std::string("corvane_update_") +
                                  testing::UnitTest::GetInstance()->current_test_info()->name());
  std::vector<std::string> transferred;
  RegistryHandle transferService = 0;
  std::vector<std::string> disksAtTransfer;
  std::vector<std::string> volumeNames{"disk4s1", "disk5"};
  std::unique_ptr<Volumes> volumes;
  std::unique_ptr<FirmwareUpdate> update;
};

// Choosing and verifying.

TEST_F(FirmwareUpdateTest, AsksForOneFile) {
  controls.updateFW.click();
  ASSERT_THAT(fake.prompts.openPanels, SizeIs(1));
  const OpenPanelRequest& panel = fake.prompts.openPanels[0];
  EXPECT_EQ(panel.prompt, "Select");
  EXPECT_TRUE(panel.choosesFiles);
  EXPECT_FALSE(panel.choosesFolders);
  EXPECT_FALSE(panel.createsFolders);
  EXPECT_FALSE(panel.allowsSeveral);
}

TEST_F(FirmwareUpdateTest, CancelledPanelAndShortPathsEndIt) {
  update->updateFW();
  fake.prompts.choosePaths({});
  dispatch.runUntilIdle();
  choose("/");
  choose("");
  EXPECT_THAT(fake.prompts.alerts, IsEmpty());
  EXPECT_THAT(fake.prompts.openPanels, SizeIs(3));
}

TEST_F(FirmwareUpdateTest, NeedsAFibreChannelAdapter) {
  state.intProduct = 2;
  update->updateFW();
  EXPECT_THAT(fake.prompts.openPanels, IsEmpty());
  ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
  EXPECT_TRUE(fake.prompts.alerts[0].modal);
  state.intProduct = 1;
  state.corvaneDevice.reset();
  update->updateFW();
  EXPECT_THAT(fake.prompts.openPanels, IsEmpty());
}

TEST_F(FirmwareUpdateTest, UnverifiedFileGivesTheWarning) {
  const std::string other = writePackage("other.pkg", "IMAGE", "driver.bin");
  std::ofstream(folder / "text") << "no package";
  for (const std::string& path :
       {other, (folder / "text").string(), (folder / "gone").string(), folder.string()}) {
    fake.prompts.alerts.clear();
    choose(path);
    ASSERT_THAT(fake.prompts.alerts, SizeIs(1)) << path;
    EXPECT_TRUE(fake.prompts.alerts[0].modal);
    EXPECT_EQ(lastAlert(), (AlertContent{"Warning",
                                         "Your file can not be verified, please try again.",
                                         {{"Ok", true, false}},
                                         "corvane_warning.icns"}));
    EXPECT_FALSE(update->isRunning());
  }
}

TEST_F(FirmwareUpdateTest, WarningWaitsForTheMainQueue) {
  update->updateFW();
  fake.prompts.choosePaths({(folder / "gone").string()});
  EXPECT_THAT(fake.prompts.alerts, IsEmpty());
  dispatch.runUntilIdle();
  EXPECT_THAT(fake.prompts.alerts, SizeIs(1));
}

// Zeros at the end of a body of even length change nothing of a package, so it is the size alone
// that decides here.
TEST_F(FirmwareUpdateTest, PackageOf100MillionBytesIsRefusedAndOneByteLessIsNot) {
  const std::string path = writePackage("large.pkg", "IMAGE IMAGE");
  ASSERT_EQ(std::filesystem::file_size(path) % 2, 0U);
  std::filesystem::resize_file(path, 100'000'000);
  choose(path);
  EXPECT_EQ(lastAlert().message, "Warning");
  std::filesystem::resize_file(path, 99'999'999);
  choose(path);
  EXPECT_EQ(lastAlert().message, "Note");
}

TEST_F(FirmwareUpdateTest, PathBeyond7BitsCannotBeVerified) {
  choose(writePackage("gr\u00f6\u00dfe.pkg", "IMAGE"));
  EXPECT_EQ(lastAlert().message, "Warning");
}

TEST_F(FirmwareUpdateTest, VerifiedPackageIsConfirmedWithItsVersion) {
  state.updateAlert.icon = "loading7.gif";
  state.updateAlert.buttons = {{"OK", false, true}, {"Cancel", false, true}};
  choose(writePackage("good.pkg", "IMAGE"));
  ASSERT_THAT(fake.prompts.alerts, SizeIs(1));
  EXPECT_FALSE(fake.prompts.alerts[0].modal);
  EXPECT_EQ(fake.prompts.alerts[0].identity, &state.updateAlert);
  EXPECT_EQ(fake.prompts.alerts[0].parent, SheetParent::MainWindow);
  EXPECT_TRUE(fake.prompts.alerts[0].hasEndHandler);
  EXPECT_EQ(lastAlert(),
            (AlertContent{"Note",
                          "The new FW version: 2.0.1 \n\nUpdate FW will terminat all I/O access, "
                          "if you want continue please click\"Ok\" or click\"Cancel\" exit",
                          {{"OK", true, false}, {"Cancel", true, false}},
                          ""}));
}

TEST_F(FirmwareUpdateTest, ConfirmationNamesTheVersionThatWasReadLast) {
  const std::string package = writePackage("good.pkg", "IMAGE");
  update->updateFW();
  fake.prompts.choosePaths({package});
  writePackage("good.pkg", "IMAGE", "emulex.grp", "2.0.2");
  dispatch.runUntilIdle();
  EXPECT_THAT(lastAlert().informativeText, testing::StartsWith("The new FW version: 2.0.2 \n\n"));
}

TEST_F(FirmwareUpdateTest, CancelledConfirmationTouchesNothing) {
  choose(writePackage("good.pkg", "IMAGE"));
  fake.prompts.pressSheetButton(1);
  dispatch.advance(20s);
  EXPECT_THAT(fake.diskArbitration.order(), IsEmpty());
  EXPECT_THAT(sent(3), IsEmpty());
  EXPECT_THAT(fake.shell.lines(), IsEmpty());
  EXPECT_FALSE(update->isRunning());
  update->updateFW();
  EXPECT_THAT(fake.prompts.openPanels, SizeIs(2));
}

// Updating.

TEST_F(FirmwareUpdateTest, UnmountsTransfersOnceThroughTheFirstPortAndMounts) {
  choose(writePackage("good.pkg", "IMAGE"));
  confirm();
  EXPECT_TRUE(update->isRunning());
  EXPECT_THAT(dispatch.priorities(), ElementsAre(QueuePriority::Default));
  dispatch.runUntilIdle();
  EXPECT_THAT(dispatch.priorities(), ElementsAre(QueuePriority::Default, QueuePriority::Default));
  EXPECT_THAT(transferred, ElementsAre("IMAGE"));
  EXPECT_EQ(transferService, firstService);
  EXPECT_THAT(disksAtTransfer,
              ElementsAre("create", "unmount disk4s1", "unmount disk5", "release"));
  EXPECT_THAT(fake.diskArbitration.order(),
              ElementsAre("create", "unmount disk4s1", "unmount disk5", "release", "create",
                          "mount disk4s1", "mount disk5", "release"));
  EXPECT_THAT(fake.shell.lines(), ElementsAre("chmod 777 " + fake.paths.extractedImage));
  EXPECT_FALSE(update->isRunning());
  ASSERT_TRUE(update->lastOutcome());
  EXPECT_TRUE(update->lastOutcome()->succeeded());
}

TEST_F(FirmwareUpdateTest, OneAlertTellsOfEachStep) {
  choose(writePackage("good.pkg", "IMAGE"));
  confirm();
  dispatch.runUntilIdle();
  ASSERT_THAT(fake.prompts.alerts, SizeIs(3));
  EXPECT_EQ(fake.prompts.alerts[1].content,
            (AlertContent{"Wait",
                          "Update FW is running, Please wait...",
                          {{"OK", true, true}, {"Cancel", true, true}},
                          "loading7.gif"}));
  EXPECT_FALSE(fake.prompts.alerts[1].hasEndHandler);
  EXPECT_EQ(
      fake.prompts.alerts[2].content,
      (AlertContent{
          "Finish", finishText, {{"OK", true, false}, {"Cancel", true, true}}, "loading7.gif"}));
  for (const auto& alert : fake.prompts.alerts) EXPECT_EQ(alert.identity, &state.updateAlert);
}

TEST_F(FirmwareUpdateTest, ProgressRisesToTheEnd) {
  choose(writePackage("good.pkg", std::string(300'000, 'x')));
  confirm();
  dispatch.runUntilIdle();
  const auto& steps = fake.prompts.progress;
  ASSERT_THAT(steps, testing::Not(IsEmpty()));
  EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
  EXPECT_EQ(steps.back(), 1.0);
}

TEST_F(FirmwareUpdateTest, ExtractedImageStays) {
  choose(writePackage("good.pkg", "IMAGE"));
  confirm();
  dispatch.runUntilIdle();
  std::string content;
  std::ifstream(fake.paths.extractedImage) >> content;
  EXPECT_EQ(content, "IMAGE");
  EXPECT_THAT(
      std::vector<std::filesystem::path>(std::filesystem::directory_iterator(folder / "tmp"),
                                         std::filesystem::directory_iterator()),
      SizeIs(1));
}

TEST_F(FirmwareUpdateTest, NoVolumesIsNoReasonToStop) {
  volumeNames.clear();
  choose(writePackage("good.pkg", "IMAGE"));
  confirm();
  dispatch.runUntilIdle();
  EXPECT_THAT(transferred, ElementsAre("IMAGE"));
  EXPECT_THAT(fake.diskArbitration.order(), ElementsAre("create", "release", "create", "release"));
}

TEST_F(FirmwareUpdateTest, MountsWhatItUnmountedWhateverIsTrackedMeanwhile) {
  choose(writePackage("good.pkg", "IMAGE"));
  const auto driver = fake.userClient.answer;
  fake.userClient.answer = [&](RegistryHandle service, uint32_t selector,
                               std::span<const uint8_t> input, std::span<uint8_t> output) {
    if (selector == 3) volumeNames = {"disk9"};
    return driver(service, selector, input, output);
  };
  confirm();
  dispatch.runUntilIdle();
  EXPECT_EQ(fake.diskArbitration.order()[5], "mount disk4s1");
  EXPECT_EQ(fake.diskArbitration.order()[6], "mount disk5");
}

TEST_F(FirmwareUpdateTest, SecondUpdateCannotBeStartedWhileOneRuns) {
  const std::string package = writePackage("good.pkg", "IMAGE");
  update->updateFW();
  update->updateFW();
  EXPECT_THAT(fake.prompts.openPanels, SizeIs(1));
  fake.prompts.choosePaths({package});
  update->updateFW();
  dispatch.runUntilIdle();
  update->updateFW();
  EXPECT_THAT(fake.prompts.openPanels, SizeIs(1));
  confirm();
  update->updateFW();
  EXPECT_FALSE(controls.updateFW.isEnabled());
  EXPECT_THAT(fake.prompts.openPanels, SizeIs(1));
  dispatch.runUntilIdle();
  EXPECT_TRUE(controls.updateFW.isEnabled());
  update->updateFW();
  EXPECT_THAT(fake.prompts.openPanels, SizeIs(2));
}

TEST_F(FirmwareUpdateTest, ConfirmedUpdateDoesNotStartBesideAnother) {
  choose(writePackage("good.pkg", "IMAGE"));
  controls.updateFW.suspend();
  confirm();
  dispatch.runUntilIdle();
  EXPECT_FALSE(update->isRunning());
  EXPECT_THAT(fake.diskArbitration.order(), IsEmpty());
  EXPECT_THAT(transferred, IsEmpty());
  EXPECT_EQ(lastAlert().message, "Warning");
  EXPECT_TRUE(fake.prompts.alerts.back().modal);
  controls.updateFW.resume();
  update->updateFW();
  EXPECT_THAT(fake.prompts.openPanels, SizeIs(2));
}

TEST_F(FirmwareUpdateTest, SecondUpdateAsksWithBothButtonsAgain) {
  const std::string package = writePackage("good.pkg", "IMAGE");
  choose(package);
  confirm();
  dispatch.runUntilIdle();
  choose(package);
  EXPECT_EQ(lastAlert().message, "Note");
  EXPECT_FALSE(lastAlert().buttons[1].hidden);
}

TEST_F(FirmwareUpdateTest, RefusedTransferStillFinishesAndIsKnown) {
  refused[3] = statusUnsupported;
  choose(writePackage("good.pkg", "IMAGE"));
  confirm();
  dispatch.runUntilIdle();
  EXPECT_EQ(lastAlert().informativeText, finishText);
  EXPECT_EQ(fake.diskArbitration.order().back(), "release");
  ASSERT_TRUE(update->lastOutcome());
  EXPECT_FALSE(update->lastOutcome()->succeeded());
  EXPECT_EQ(update->lastOutcome()->driverStatus, statusUnsupported);
}

TEST_F(FirmwareUpdateTest, AdapterThatHasGoneStillFinishesAndIsKnown) {
  choose(writePackage("good.pkg", "IMAGE"));
  fake.userClient.openStatus = statusNoDevice;
  confirm();
  dispatch.runUntilIdle();
  EXPECT_EQ(lastAlert().informativeText, finishText);
  EXPECT_FALSE(update->lastOutcome()->succeeded());
  EXPECT_NE(update->lastOutcome()->driverStatus, statusSuccess);
}

TEST_F(FirmwareUpdateTest, PackageReplacedAfterTheCheckTransfersNothing) {
  const std::string package = writePackage("good.pkg", "IMAGE");
  std::ofstream(fake.paths.extractedImage) << "LEFT BY AN EARLIER UPDATE";
  choose(package);
  std::ofstream(package) << "replaced";
  confirm();
  dispatch.advance(3s);
  EXPECT_THAT(transferred, IsEmpty());
  EXPECT_EQ(lastAlert().informativeText, finishText);
  EXPECT_EQ(fake.diskArbitration.order().back(), "release");
  EXPECT_NE(update->lastOutcome()->extraction.status, ArchiveSuccess);
  EXPECT_EQ(update->lastOutcome()->transferResult, 1);
  EXPECT_FALSE(update->lastOutcome()->succeeded());
}

TEST_F(FirmwareUpdateTest, PackageReplacedByOneOfAnotherVersionTransfersNothing) {
  choose(writePackage("good.pkg", "IMAGE"));
  writePackage("good.pkg", "OTHER", "emulex.grp", "9.9.9");
  confirm();
  dispatch.advance(3s);
  EXPECT_THAT(transferred, IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(fake.paths.extractedImage));
  EXPECT_EQ(lastAlert().informativeText, finishText);
  EXPECT_TRUE(update->lastOutcome()->extraction.replaced);
  EXPECT_EQ(update->lastOutcome()->version, "2.0.1");
  EXPECT_FALSE(update->lastOutcome()->succeeded());
}

TEST_F(FirmwareUpdateTest, ImageOfAFalseSizeIsNotTransferred) {
  for (const char* size : {"9", "2", "-3"}) {
    const std::string package = (folder / "false-size.pkg").string();
    archivetest::writeFile(package,
                           archivetest::closedPackage(archivetest::indexOf(
                               "1", archivetest::fileBlock("emulex.grp", size, "QUJD\n"))));
    choose(package);
    confirm();
    dispatch.advance(3s);
    EXPECT_THAT(transferred, IsEmpty()) << size;
    EXPECT_FALSE(std::filesystem::exists(fake.paths.extractedImage)) << size;
    EXPECT_EQ(lastAlert().informativeText, finishText);
    EXPECT_EQ(update->lastOutcome()->extraction.status, ArchiveSuccess);
    EXPECT_FALSE(update->lastOutcome()->extraction.complete);
    EXPECT_FALSE(update->lastOutcome()->succeeded());
  }
}

TEST_F(FirmwareUpdateTest, PackageReplacedByOneOfTheSameVersionIsTaken) {
  choose(writePackage("good.pkg", "IMAGE"));
  writePackage("good.pkg", "OTHER");
  confirm();
  dispatch.runUntilIdle();
  EXPECT_THAT(transferred, ElementsAre("OTHER"));
  EXPECT_TRUE(update->lastOutcome()->succeeded());
}

TEST_F(FirmwareUpdateTest, TransferWaitsForAnImageThatComesLate) {
  const std::string package = writePackage("good.pkg", "IMAGE");
  choose(package);
  // Holds up the main queue in front of the extraction until the worker has found no image.
  dispatch.asyncMain(
      [this] { dispatch.parkUntil([this] { return fake.diskArbitration.order().size() >= 4; }); });
  confirm();
  dispatch.runUntilIdle();
  dispatch.advance(3s);
  EXPECT_THAT(transferred, ElementsAre("IMAGE"));
}

TEST_F(FirmwareUpdateTest, LinkInPlaceOfTheImageIsReplacedRatherThanFollowed) {
  const auto target = folder / "precious";
  std::ofstream(target) << "PRECIOUS";
  std::filesystem::create_symlink(target, fake.paths.extractedImage);
  choose(writePackage("good.pkg", "IMAGE"));
  confirm();
  dispatch.runUntilIdle();
  EXPECT_THAT(transferred, ElementsAre("IMAGE"));
  std::string content;
  std::ifstream(target) >> content;
  EXPECT_EQ(content, "PRECIOUS");
  EXPECT_FALSE(std::filesystem::is_symlink(fake.paths.extractedImage));
}

TEST_F(FirmwareUpdateTest, SecondAdapterIsLeftAlone) {
  const RegistryHandle otherAdapter = firstService;
  attachCorvane3F2();
  choose(writePackage("good.pkg", "IMAGE"));
  confirm();
  dispatch.runUntilIdle();
  EXPECT_EQ(transferService, firstService);
  for (const auto& call : fake.userClient.calls()) EXPECT_NE(call.service, otherAdapter);
}

TEST_F(FirmwareUpdateTest, AdapterThatTookThePlaceOfTheChosenOneIsLeftAlone) {
  choose(writePackage("good.pkg", "IMAGE"));
  attachCorvane3F2();
  confirm();
  dispatch.advance(3s);
  EXPECT_FALSE(update->isRunning());
  EXPECT_FALSE(update->isUnderWay());
  EXPECT_THAT(transferred, IsEmpty());
  EXPECT_THAT(fake.diskArbitration.order(), IsEmpty());
  EXPECT_EQ(lastAlert(), (AlertContent{"Warning",
                                       "The adapter has gone. Nothing was updated.",
                                       {{"Ok", true, false}},
                                       "corvane_warning.icns"}));
}

TEST_F(FirmwareUpdateTest, AdapterThatGoesBeforeTheConfirmationEndsIt) {
  choose(writePackage("good.pkg", "IMAGE"));
  // Its page is still on show; that changes a little later.
  state.corvaneDevice->port1()->clearService();
  confirm();
  dispatch.runUntilIdle();
  EXPECT_THAT(transferred, IsEmpty());
  EXPECT_FALSE(update->isUnderWay());
}

TEST_F(FirmwareUpdateTest, SelectingAnotherAdapterMeanwhileChangesNothing) {
  const RegistryHandle chosenService = firstService;
  choose(writePackage("good.pkg", "IMAGE"));
  confirm();
  attachCorvane3F2();
  dispatch.runUntilIdle();
  EXPECT_EQ(transferService, chosenService);
}

}  // namespace
