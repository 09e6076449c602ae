#include "pages/TenGigabitPages.h"

#include <utility>
#include <variant>

#include "CLIParser/toolReports.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_10GE/SEPort.h"
#include "changes/ChangeSender.h"
#include "discovery/DriverFitness.h"
#include "inventory/InstalledDriver.h"
#include "pages/DumpPages.h"

namespace corvane {

const char* const wrongModuleWarning10G =
    "The inserted transceiver module is not the correct type for the \n"
    "Corvane2 SFP+. This deivce requires SFP+ transceiver modules that \n"
    "support 10G optical Ethernet.\n"
    "IMPORTANT: After inserting a 10G optical Ethernet transciever,\n"
    "it is necessary to perform a hardware reset for the Corvane2. To do \n"
    "this, unplug the Thunderbolt cable, then plug it back in, with the \n"
    "device powered on. This will reset the PCIe interface so it will \n"
    "recognize the compatible 10G optical Ethernet transciever module \n"
    "when it is inserted.";

namespace {

constexpr const char* driverTooOld = "The installed driver is too old for this setting.";

constexpr auto customMode = static_cast<int64_t>(PerformanceMode::Custom);

std::vector<PopUpItem> modeItems() {
  std::vector<PopUpItem> items;
  for (const int64_t mode : offeredValues(Setting::Mode, {}, {}))
    items.push_back({mode, settingText(Setting::Mode, mode), false});
  return items;
}

void setOutOfUse(Control& control, OutOfUse reason, bool holds, const std::string& hint) {
  if (holds) {
    control.setOutOfUse(reason, hint);
  } else {
    control.clearOutOfUse(reason);
  }
}

// A tool that does not run prints as little of the setting as one whose driver does not know it.
bool printedNothing(const Answer<bool>& setting) {
  return setting.lacksFor(Reason::NotOffered) || setting.lacksFor(Reason::Missing) ||
         setting.lacksFor(Reason::Hangs);
}

std::string notReadText(const NoValue& none) {
  return "Not read: " + reasonText(none) + ".";
}

}  // namespace

TenGigabitPages::TenGigabitPages(const Platform& platform, MainWindowControls& controls,
                                 ControllerState& state)
    : platform_(platform),
      controls_(controls),
      state_(state),
      command_(platform.shell, platform.paths),
      setCommand_(std::make_shared<commandAPI>(platform.shell, platform.paths)),
      reader_(command_, *setCommand_),
      mainWork_(platform.dispatch, *this) {
  controls_.settingMode.setItems(modeItems());
  controls_.settingMode.setAction([this](PopUpButton& menu) { setUserMode(menu); });
  controls_.settingMode.setOpenAction([this](PopUpButton&) { modeTarget_ = shown_; });
  controls_.settingMode.setCloseAction([this](PopUpButton&) {
    modeTarget_.reset();
    if (reading_ && !busy_ && !isDump_) renderMode();
  });
  controls_.enableTCPipv4.setAction([this](CheckBox& checkBox) { enablePortTCPipv4(checkBox); });
  controls_.enableRSC.setAction([this](CheckBox& checkBox) { enablePortRSC(checkBox); });
}

void TenGigabitPages::whenSettled(std::function<void(const ChangeOutcome&)> settled) {
  settled_ = std::move(settled);
}

void TenGigabitPages::letGoOfDeparted() {
  if (modeTarget_ && modeTarget_->isGone()) controls_.settingMode.close();
  if (!shown_ || !shown_->isGone()) return;
  shown_.reset();
  reading_.reset();
}

// What is on show.

std::optional<DeviceListEntry> TenGigabitPages::selectedAdapter() const {
  auto entry = state_.CorvaneList.entry(state_.intSelectRow);
  if (!entry || entry->family() != AdapterFamily::TenGigabit) return std::nullopt;
  return entry;
}

UsablePorts TenGigabitPages::usablePorts() const {
  const auto isEnabled = [](const std::shared_ptr<SEPort>& port) {
    return port && port->isAccessAbleflag() == 1;
  };
  const auto& adapter = state_.corvaneDevice_10GE;
  if (!adapter) return {};
  return {isEnabled(adapter->port1()), isEnabled(adapter->port2())};
}

void TenGigabitPages::show10GportInfo(int64_t portIndex) {
  const auto adapter = selectedAdapter();
  auto port = adapter ? PortTarget::of(*adapter, portIndex + 1) : std::nullopt;
  if (!port) return;
  state_.corvaneDevice_10GE = std::get<std::shared_ptr<Corvane2Device_10GE>>(adapter->obj);
  state_.selectPort = portIndex + 1;
  shown_ = std::move(port);
  reading_ = readPort(*shown_);
  renderPort();
}

TenGigabitPortReading TenGigabitPages::readPort(const PortTarget& port) {
  if (isDump_) return dumpedTenGigabitPort(port);
  return reader_.read(port,
                      compareDriverVersion(AdapterFamily::TenGigabit, state_.driverVersion_10G));
}

void TenGigabitPages::show10GDeviceInfo() {
  const InstalledDriver driver(platform_, AdapterFamily::TenGigabit);
  state_.driverVersion_10G = driver.versionOrMissing();
  controls_.drvVer_10GE.setText(driver.version().value_or(isDump_ ? notInDump : "N/A"));
  const auto adapter = selectedAdapter();
  if (adapter) controls_.productType10G.setText(adapter->ProductType);
}

void TenGigabitPages::renderPort() {
  controls_.macAddress.setText(reading_->macAddress.valueOr(""));
  controls_.enName.setText(reading_->enName.valueOr(""));
  renderProgress();
  if (isDump_) return renderDump();
  const bool isTooOld = reading_->moduleClass.lacksFor(Reason::DriverTooOld);
  setOutOfUse(controls_.settingMode, OutOfUse::DriverTooOld, isTooOld, driverTooOld);
  setOutOfUse(controls_.enableTCPipv4, OutOfUse::DriverTooOld, isTooOld && reading_->port == 2,
              driverTooOld);
  if (!isTooOld) {
    renderModule();
    renderMode();
    renderChecksumOffload();
    renderReceiveCoalescing();
  }
  renderLink();
}

void TenGigabitPages::renderModule() {
  const int64_t reported = reading_->moduleClass.valueOr(0);
  const int64_t moduleClass = showsModuleOfClass(*shown_, reported) ? reported : 0;
  const std::string name(moduleClassName(moduleClass));
  const bool isUsable = !name.empty();
  const bool isWrong = moduleClass == unknownModuleClass;
  controls_.SFPTypeLabel.setHidden(!isUsable);
  controls_.SFPInfoContent.setHidden(!isUsable);
  controls_.SFPInfoModule.setHidden(!isUsable);
  controls_.SFPerrrorMessage10G.setHidden(!isWrong);
  if (isUsable) controls_.SFPInfoModule.setText(name);
  if (isWrong) controls_.SFPerrrorMessage10G.setText(wrongModuleWarning10G);
}

// A menu that is open is left alone.
void TenGigabitPages::renderMode() {
  if (controls_.settingMode.isOpen()) return;
  const auto mode = presetMode(reading_->preset);
  controls_.settingMode.selectItemWithTag(mode.valueOr(customMode));
  if (!mode) {
    controls_.settingMode.showPlainValue("Not read");
  } else if (*mode == customMode) {
    controls_.settingMode.showPlainValue("Custom");
  }
}

void TenGigabitPages::renderChecksumOffload() {
  if (reading_->checksumOffload) controls_.enableTCPipv4.setOn(*reading_->checksumOffload);
}

void TenGigabitPages::renderReceiveCoalescing() {
  const auto& state = reading_->receiveCoalescing;
  const bool isHidden = printedNothing(state);
  controls_.enableRSC.setHidden(isHidden);
  if (state) controls_.enableRSC.setOn(*state);
  setOutOfUse(controls_.enableRSC, OutOfUse::Senseless, !state && !isHidden,
              state ? "" : notReadText(state.none()));
}

void TenGigabitPages::renderLink() {
  if (reading_->hasLink.is(false)) {
    controls_.enStatus.setText("No Link");
  } else {
    const bool hasLink = reading_->hasLink.is(true);
    controls_.enStatus.setText(hasLink ? reading_->medium.valueOr("Unknow") : "Unknow");
  }
  controls_.MTUvalue.setText(std::to_string(reading_->MTU.valueOr(0)));
}

void TenGigabitPages::renderDump() {
  controls_.enStatus.setText(notInDump);
  controls_.MTUvalue.setText(notInDump);
  for (TextField* module : {&controls_.SFPTypeLabel, &controls_.SFPInfoContent,
                            &controls_.SFPInfoModule, &controls_.SFPerrrorMessage10G})
    module->setHidden(true);
  controls_.settingMode.showPlainValue(notInDump);
}

// The bar belongs to the port that is being changed, so it is seen on that port's page alone.
void TenGigabitPages::renderProgress() {
  controls_.modeProgress.setRunning(busy_ && shown_ && busy_->isSamePort(*shown_));
}

// Changes.

void TenGigabitPages::enablePortTCPipv4(CheckBox& checkBox) {
  writeSetting({Setting::ChecksumOffload, checkBox.state()});
}

void TenGigabitPages::enablePortRSC(CheckBox& checkBox) {
  writeSetting({Setting::ReceiveCoalescing, checkBox.state()});
}

void TenGigabitPages::writeSetting(const SettingWish& wish) {
  if (!shown_) return;
  ChangeOutcome outcome = outcomeFor(*shown_, wish);
  if (reading_) outcome.before = settingIn(*reading_, wish.setting);
  if (shown_->isGone()) {
    outcome.outcome = Outcome::GoneBefore;
  } else {
    outcome.after = sendToTool(*shown_, wish, command_);
  }
  settle(outcome);
}

void TenGigabitPages::setUserMode(PopUpButton& menu) {
  const auto port = modeTarget_ ? modeTarget_ : shown_;
  const auto tag = menu.selectedTag();
  if (!port || !tag) return;
  ChangeOutcome outcome = outcomeFor(*port, {Setting::Mode, *tag});
  if (reading_ && port->isSamePort(*shown_)) outcome.before = settingIn(*reading_, Setting::Mode);
  if (port->isGone()) {
    outcome.outcome = Outcome::GoneBefore;
    return settle(outcome);
  }
  applyInBackground(*port, outcome);
}

void TenGigabitPages::applyInBackground(const PortTarget& port, const ChangeOutcome& begun) {
  holdCommands(port);
  platform_.dispatch.asyncGlobal(
      QueuePriority::Background,
      [port, outcome = begun, way = mainWork_.way(), setCommand = setCommand_]() mutable {
        outcome.after = applyMode(port, outcome.wish, *setCommand);
        way.async([outcome](TenGigabitPages& pages) {
          pages.releaseCommands();
          pages.settle(outcome);
        });
      });
}

void TenGigabitPages::settle(ChangeOutcome outcome) {
  if (outcome.outcome != Outcome::GoneBefore) {
    outcome.outcome = judged(outcome.wish, outcome.after);
    if (!outcome.after) outcome.reason = reasonText(outcome.after.none());
  }
  if (settled_) settled_(outcome);
}

std::vector<Control*> TenGigabitPages::commandControls() const {
  return {&controls_.settingMode, &controls_.enableTCPipv4, &controls_.enableRSC,
          &controls_.port1Button, &controls_.port2Button,   &controls_.refreshButton,
          &controls_.deviceTable, &controls_.authView};
}

void TenGigabitPages::holdCommands(const PortTarget& port) {
  for (Control* control : commandControls()) control->suspend();
  busy_ = port;
  renderProgress();
}

void TenGigabitPages::releaseCommands() {
  busy_.reset();
  renderProgress();
  for (Control* control : commandControls()) control->resume();
}

}  // namespace corvane
