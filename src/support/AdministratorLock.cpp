#include "support/AdministratorLock.h"

#include <utility>

namespace corvane {

namespace {

constexpr const char* administratorRight = "system.privilege.admin";
constexpr const char* rightName = "TEST";

constexpr const char* administratorScript =
    "do shell script \"chmod +s /usr/local/bin/corvaneutil \" with administrator privileges";
constexpr const char* userCancelled = "User canceled.";

constexpr const char* clickLock = "Click the lock to make changes.";
constexpr const char* driverTooOld = "The installed driver is too old for this setting.";

}  // namespace

AdministratorLock::AdministratorLock(const Platform& platform, MainWindowControls& controls,
                                     commandBody& command,
                                     std::function<int64_t()> compareDriverVersion)
    : platform_(platform),
      controls_(controls),
      command_(command),
      compareDriverVersion_(std::move(compareDriverVersion)),
      closedHint_(clickLock) {
  controls_.authView.setAction([this](Button&) { toggle(); });
}

AdministratorLock::~AdministratorLock() {
  platform_.authorization.setDelegate(nullptr);
}

void AdministratorLock::setUp() {
  platform_.authorization.setRight(administratorRight);
  platform_.authorization.updateStatus();
  platform_.authorization.setString(rightName);
  if (!hasView_) return;
  platform_.authorization.setDelegate(this);
  if (platform_.authorization.isAuthorized()) {
    controls_.authView.setOn(true);
  } else {
    close();
  }
}

void AdministratorLock::giveToolAdministratorRights() {
  if (!mayAsk_ && platform_.scripts.asksForPassword()) return;
  const ScriptResult result = platform_.scripts.run(administratorScript);
  if (!result.succeeded && result.errorMessage == userCancelled) setUp();
}

bool AdministratorLock::authorize() {
  platform_.authorization.setString(rightName);
  return platform_.authorization.authorize();
}

void AdministratorLock::keepClosed(const std::string& reason) {
  closedHint_ = reason;
  close();
  controls_.authView.setEnabled(false);
  controls_.authView.setHint(reason);
}

void AdministratorLock::toggle() {
  if (platform_.authorization.isAuthorized()) {
    platform_.authorization.deauthorize();
  } else {
    authorize();
  }
}

void AdministratorLock::authorizationViewDidAuthorize() {
  controls_.authView.setOn(true);
  for (Control* control : settings()) allow(*control, true);
  if (compareDriverVersion_() != 0) {
    controls_.settingMode.setEnabled(false);
    controls_.settingMode.setHint(driverTooOld);
    return;
  }
  allow(controls_.settingMode, true);
  controls_.settingMode.setAutoenablesItems(false);
  allow(controls_.enableTCPipv4, true);
  const bool known = driverKnowsCoalescing();
  controls_.enableRSC.setHidden(!known);
  if (known) allow(controls_.enableRSC, true);
}

void AdministratorLock::authorizationViewDidDeauthorize() {
  close();
  controls_.enableRSC.setHidden(!driverKnowsCoalescing());
}

/// What the lock guards for either family; the 10GbE page's own settings come besides.
std::vector<Control*> AdministratorLock::settings() const {
  return {&controls_.setSpeed,        &controls_.setTopology,   &controls_.checkUpdate,
          &controls_.updateFW,        &controls_.setQueueDepth, &controls_.chooseALPA,
          &controls_.queueDepthButton};
}

void AdministratorLock::close() {
  controls_.authView.setOn(false);
  for (Control* control : settings()) allow(*control, false);
  allow(controls_.enableTCPipv4, false);
  allow(controls_.settingMode, false);
  allow(controls_.enableRSC, false);
}

void AdministratorLock::allow(Control& control, bool allowed) {
  control.setEnabled(allowed);
  control.setHint(allowed ? "" : closedHint_);
}

bool AdministratorLock::driverKnowsCoalescing() {
  command_.setCommandTittle("RSCEnable");
  return !command_.checkCommand(command_);
}

}  // namespace corvane
