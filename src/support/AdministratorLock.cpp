#include "support/AdministratorLock.h"

#include <utility>

namespace corvane {

namespace {

constexpr const char* clickLock = "Click the lock to make changes.";
constexpr const char* driverTooOld = "The installed driver is too old for this setting.";

}  // namespace

AdministratorLock::AdministratorLock(const Platform& platform, MainWindowControls& controls,
                                     commandBody& command, std::function<int64_t()> driverFitness)
    : platform_(platform),
      controls_(controls),
      command_(command),
      driverFitness_(std::move(driverFitness)),
      rights_(platform),
      closedHint_(clickLock) {
  controls_.authView.setAction([this](Button&) { toggle(); });
}

AdministratorLock::~AdministratorLock() {
  platform_.authorization.setDelegate(nullptr);
}

void AdministratorLock::setUp() {
  rights_.setUp();
  if (!hasView_) return;
  platform_.authorization.setDelegate(this);
  if (rights_.areHeld()) {
    controls_.authView.setOn(true);
  } else {
    close();
  }
}

void AdministratorLock::giveToolAdministratorRights() {
  if (!rights_.giveTool()) setUp();
}

void AdministratorLock::openIfHeld() {
  if (hasView_ && rights_.areHeld()) authorizationViewDidAuthorize();
}

void AdministratorLock::keepClosed(const std::string& reason) {
  closedHint_ = reason;
  close();
  controls_.authView.setEnabled(false);
  controls_.authView.setHint(reason);
}

void AdministratorLock::toggle() {
  if (rights_.areHeld()) {
    rights_.giveUp();
  } else {
    authorize();
  }
}

void AdministratorLock::authorizationViewDidAuthorize() {
  controls_.authView.setOn(true);
  controls_.checkUpdate.setEnabled(true);
  const TenGigabitPortControls& tenGigabit = controls_;
  for (Control* control : controls_.changing())
    if (control != &tenGigabit.enableTCPipv4 && control != &tenGigabit.enableRSC)
      guard(*control, false);
  openTenGigabitSettings();
}

// With a driver on show that is too old the tool is asked nothing; the next page that is shown
// puts its settings right.
void AdministratorLock::openTenGigabitSettings() {
  if (driverFitness_() != 0) {
    controls_.settingMode.setOutOfUse(OutOfUse::DriverTooOld, driverTooOld);
    return;
  }
  controls_.settingMode.clearOutOfUse(OutOfUse::DriverTooOld);
  controls_.settingMode.setAutoenablesItems(false);
  guard(controls_.enableTCPipv4, false);
  const bool known = driverKnowsCoalescing();
  controls_.enableRSC.setHidden(!known);
  if (known) guard(controls_.enableRSC, false);
}

void AdministratorLock::pageWasShown() {
  if (!hasView_ || !controls_.authView.isOn()) return;
  for (Control* control : controls_.changing()) guard(*control, false);
}

void AdministratorLock::authorizationViewDidDeauthorize() {
  close();
  controls_.enableRSC.setHidden(!driverKnowsCoalescing());
}

void AdministratorLock::close() {
  controls_.authView.setOn(false);
  for (Control* control : controls_.changing()) guard(*control, true);
}

void AdministratorLock::guard(Control& control, bool locked) {
  if (locked) {
    control.setOutOfUse(OutOfUse::Locked, closedHint_);
  } else {
    control.clearOutOfUse(OutOfUse::Locked);
  }
}

bool AdministratorLock::driverKnowsCoalescing() {
  command_.setCommandTittle("RSCEnable");
  return !command_.checkCommand(command_);
}

}  // namespace corvane
