#include "support/AdministratorLock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "app/ApplicationFixture.h"

using namespace corvane;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

constexpr const char* lockedHint = "Click the lock to make changes.";

class AdministratorLockTest : public testing::Test {
 protected:
  AdministratorLockTest() {
    fakes.paths.scratchFile = testing::TempDir() + "corvane-lock-scratch-" +
                              std::to_string(reinterpret_cast<uintptr_t>(this));
    setCoalescing(true);
  }
  ~AdministratorLockTest() override { std::filesystem::remove(fakes.paths.scratchFile); }

  /// Whether the installed driver knows receive-side coalescing: what the utility then prints.
  void setCoalescing(bool known) {
    fakes.shell.answer = [this, known](const std::string&) {
      std::ofstream(fakes.paths.scratchFile) << (known ? "RSCEnable=0x00000001\n" : "");
      return 0;
    };
  }

  std::vector<Control*> guarded() {
    return {&controls.setSpeed,   &controls.setTopology,      &controls.checkUpdate,
            &controls.updateFW,   &controls.setQueueDepth,    &controls.settingMode,
            &controls.chooseALPA, &controls.queueDepthButton, &controls.enableTCPipv4,
            &controls.enableRSC};
  }

  std::vector<std::string> enabledOnes() {
    std::vector<std::string> names;
    for (const Control* control : guarded()) {
      if (control->isEnabled()) names.push_back(control->name());
    }
    return names;
  }

  std::vector<std::string> withoutHint() {
    std::vector<std::string> names;
    for (const Control* control : guarded()) {
      if (control->hint() != lockedHint) names.push_back(control->name());
    }
    return names;
  }

  ManualDispatch dispatch;
  FakePlatform fakes{dispatch};
  MainWindowControls controls{dispatch};
  int64_t comparison = 0;
  commandBody command{fakes.shell, fakes.paths};
  AdministratorLock lock{fakes.platform(), controls, command, [this] { return comparison; }};
};

TEST_F(AdministratorLockTest, IsSetUpWithTheAdministratorsRight) {
  lock.setUp();
  EXPECT_THAT(fakes.authorization.order,
              ElementsAre("setRight system.privilege.admin", "updateStatus", "setString TEST",
                          "setDelegate"));
}

TEST_F(AdministratorLockTest, IsClosedAtStart) {
  lock.setUp();
  EXPECT_THAT(enabledOnes(), IsEmpty());
  EXPECT_THAT(withoutHint(), IsEmpty());
  EXPECT_FALSE(controls.authView.isOn());
  EXPECT_TRUE(controls.downloadLogs.isEnabled());
  EXPECT_TRUE(controls.refreshButton.isEnabled());
  EXPECT_THAT(fakes.shell.lines(), IsEmpty());
}

TEST_F(AdministratorLockTest, ShowsARightThatIsHeldAlready) {
  fakes.authorization.authorize();
  lock.setUp();
  EXPECT_TRUE(controls.authView.isOn());
  EXPECT_EQ(enabledOnes().size(), guarded().size());
  controls.authView.click();
  EXPECT_FALSE(controls.authView.isOn());
  EXPECT_THAT(enabledOnes(), IsEmpty());
}

TEST_F(AdministratorLockTest, OpensForEverySetting) {
  lock.setUp();
  controls.authView.click();
  EXPECT_THAT(enabledOnes(),
              UnorderedElementsAre("setSpeed", "setTopology", "checkUpdate", "updateFW",
                                   "setQueueDepth", "settingMode", "chooseALPA", "queueDepthButton",
                                   "enableTCPipv4", "enableRSC"));
  for (const Control* control : guarded()) EXPECT_EQ(control->hint(), "") << control->name();
  EXPECT_TRUE(controls.authView.isOn());
  EXPECT_FALSE(controls.settingMode.autoenablesItems());
  EXPECT_FALSE(controls.enableRSC.isHidden());
  EXPECT_THAT(fakes.shell.lines(), ElementsAre("/usr/local/bin/corvaneutil all getRSCEnable > " +
                                               fakes.paths.scratchFile));
}

class TooOldDriver : public AdministratorLockTest, public testing::WithParamInterface<int64_t> {};

TEST_P(TooOldDriver, KeepsTheTenGigabitSettingsClosed) {
  comparison = GetParam();
  lock.setUp();
  controls.authView.click();
  EXPECT_THAT(enabledOnes(),
              UnorderedElementsAre("setSpeed", "setTopology", "checkUpdate", "updateFW",
                                   "setQueueDepth", "chooseALPA", "queueDepthButton"));
  EXPECT_EQ(controls.settingMode.hint(), "The installed driver is too old for this setting.");
  EXPECT_TRUE(controls.settingMode.autoenablesItems());
  EXPECT_THAT(fakes.shell.lines(), IsEmpty()) << "the utility is not asked";
}

INSTANTIATE_TEST_SUITE_P(Comparisons, TooOldDriver, testing::Values(1, 2));

TEST_F(AdministratorLockTest, HidesCoalescingThatTheDriverDoesNotKnow) {
  setCoalescing(false);
  lock.setUp();
  controls.authView.click();
  EXPECT_TRUE(controls.enableRSC.isHidden());
  EXPECT_FALSE(controls.enableRSC.isEnabled());
  controls.authView.click();
  EXPECT_TRUE(controls.enableRSC.isHidden());
}

TEST_F(AdministratorLockTest, ClosesAgainAndAsksForCoalescing) {
  lock.setUp();
  controls.authView.click();
  controls.authView.click();
  EXPECT_EQ(fakes.authorization.order.back(), "deauthorize");
  EXPECT_THAT(enabledOnes(), IsEmpty());
  EXPECT_THAT(withoutHint(), IsEmpty());
  EXPECT_FALSE(controls.authView.isOn());
  EXPECT_FALSE(controls.enableRSC.isHidden()) << "shown, disabled";
  EXPECT_EQ(fakes.shell.lines().size(), 2u);
}

TEST_F(AdministratorLockTest, StaysClosedWhenTheUserRefuses) {
  fakes.authorization.grants = false;
  lock.setUp();
  controls.authView.click();
  EXPECT_THAT(enabledOnes(), IsEmpty());
  EXPECT_FALSE(controls.authView.isOn());
  EXPECT_THAT(fakes.shell.lines(), IsEmpty());
}

TEST_F(AdministratorLockTest, LeavesTheControlsAloneWithoutAView) {
  lock.useWithoutView();
  lock.setUp();
  EXPECT_EQ(enabledOnes().size(), guarded().size());
  EXPECT_TRUE(lock.authorize());
  EXPECT_THAT(fakes.shell.lines(), IsEmpty());
  EXPECT_EQ(fakes.authorization.delegate, nullptr);
}

TEST_F(AdministratorLockTest, NamesTheRightBeforeItAsks) {
  EXPECT_TRUE(lock.authorize());
  EXPECT_THAT(fakes.authorization.order, ElementsAre("setString TEST", "authorize"));
  fakes.authorization.grants = false;
  EXPECT_FALSE(lock.authorize());
}

TEST_F(AdministratorLockTest, GivesTheToolItsRights) {
  lock.giveToolAdministratorRights();
  EXPECT_THAT(fakes.scripts.scripts,
              ElementsAre("do shell script \"chmod +s /usr/local/bin/corvaneutil \" with "
                          "administrator privileges"));
  EXPECT_THAT(fakes.authorization.order, IsEmpty());
}

TEST_F(AdministratorLockTest, LeavesTheToolAsItIsWhereTheUserIsToBeAskedNothing) {
  lock.askNothing();
  lock.giveToolAdministratorRights();
  EXPECT_THAT(fakes.scripts.scripts, IsEmpty());
  fakes.scripts.asks = false;
  lock.giveToolAdministratorRights();
  EXPECT_EQ(fakes.scripts.scripts.size(), 1u) << "nobody is asked for it";
}

TEST_F(AdministratorLockTest, IsSetUpAnewWhenThePasswordDialogIsCancelled) {
  fakes.scripts.result = {false, "User canceled."};
  lock.giveToolAdministratorRights();
  EXPECT_THAT(fakes.authorization.order,
              ElementsAre("setRight system.privilege.admin", "updateStatus", "setString TEST",
                          "setDelegate"));
}

TEST_F(AdministratorLockTest, PassesOverOtherFailures) {
  fakes.scripts.result = {false, "User canceled"};
  lock.giveToolAdministratorRights();
  EXPECT_THAT(fakes.authorization.order, IsEmpty());
}

TEST_F(AdministratorLockTest, CanBeKeptClosed) {
  lock.setUp();
  lock.keepClosed("A registry dump cannot be changed.");
  controls.authView.click();
  EXPECT_THAT(enabledOnes(), IsEmpty());
  EXPECT_FALSE(controls.authView.isEnabled());
  for (const Control* control : guarded()) {
    EXPECT_EQ(control->hint(), "A registry dump cannot be changed.") << control->name();
  }
}

class LockedApplicationTest : public ApplicationFixture {};

TEST_F(LockedApplicationTest, LetsNothingBeChangedUntilTheLockIsOpen) {
  launch();
  plug(FakeFibreChannelAdapter{});
  EXPECT_FALSE(app->controls().setSpeed.isEnabled());
  EXPECT_FALSE(app->controls().updateFW.isEnabled());
  app->controls().authView.click();
  EXPECT_TRUE(app->controls().setSpeed.isEnabled());
  EXPECT_TRUE(app->controls().updateFW.isEnabled());
  EXPECT_TRUE(app->controls().checkUpdate.isEnabled());
}

TEST_F(LockedApplicationTest, StaysLockedWhenAnotherPageIsShown) {
  launch();
  plug(FakeFibreChannelAdapter{});
  app->controls().deviceButton.click();
  app->controls().port1Button.click();
  EXPECT_FALSE(app->controls().setTopology.isEnabled());
  EXPECT_FALSE(app->controls().setQueueDepth.isEnabled());
}

}  // namespace
