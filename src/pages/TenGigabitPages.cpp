#include "pages/TenGigabitPages.h"

#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "CLIParser/toolReports.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_10GE/SEPort.h"
#include "discovery/Products.h"

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

constexpr const char* bundleName = "Corvane2-10GE.kext";
constexpr const char* bundleVersionKey = "CFBundleVersion";
constexpr const char* missingVersion = "0.0.0";

/// The room for a driver version, its terminator included.
constexpr size_t versionCapacity = 16;

int64_t tagOf(PerformanceMode mode) {
  return static_cast<int64_t>(mode);
}

std::vector<PopUpItem> modeItems() {
  return {{tagOf(PerformanceMode::LowLatency), "Low Latency"},
          {tagOf(PerformanceMode::Balanced), "Balanced"},
          {tagOf(PerformanceMode::HighThroughput), "High Throughput"},
          {tagOf(PerformanceMode::Server), "Server"}};
}

/// The operation that applies the preset with that tag; null when there is none.
using PresetOperation = int64_t (commandAPI::*)(const std::string&);

PresetOperation presetOperation(std::optional<int64_t> tag) {
  if (tag == tagOf(PerformanceMode::LowLatency)) return &commandAPI::setLowLatencyMode;
  if (tag == tagOf(PerformanceMode::Balanced)) return &commandAPI::setBalancedMode;
  if (tag == tagOf(PerformanceMode::HighThroughput)) return &commandAPI::setHighThroughputMode;
  if (tag == tagOf(PerformanceMode::Server)) return &commandAPI::setServerMode;
  return nullptr;
}

std::shared_ptr<SEPort> portOf(const Corvane2Device_10GE& adapter, int64_t portIndex) {
  return portIndex == 0 ? adapter.port1() : adapter.port2();
}

bool isAscii(const std::string& text) {
  for (const char character : text) {
    if (static_cast<unsigned char>(character) >= 0x80) return false;
  }
  return true;
}

/// The driver's version when the bundle at `path` has one that fits the room for it.
std::optional<std::string> driverVersion(Bundles& bundles, const std::string& path) {
  const auto value = bundles.infoValue(path, bundleVersionKey);
  const std::string* version = value ? value->text() : nullptr;
  if (!version || version->size() >= versionCapacity || !isAscii(*version)) return std::nullopt;
  return *version;
}

}  // namespace

TenGigabitPages::TenGigabitPages(const Platform& platform, MainWindowControls& controls,
                                 ControllerState& state,
                                 std::function<int64_t()> compareDriverVersion)
    : platform_(platform),
      controls_(controls),
      state_(state),
      compareDriverVersion_(std::move(compareDriverVersion)),
      command_(platform.shell, platform.paths),
      setCommand_(std::make_shared<commandAPI>(platform.shell, platform.paths)),
      self_(std::make_shared<TenGigabitPages*>(this)) {
  controls_.settingMode.setItems(modeItems());
  controls_.settingMode.setAction([this](PopUpButton& menu) { setUserMode(menu); });
  controls_.enableTCPipv4.setAction([this](CheckBox& checkBox) { enablePortTCPipv4(checkBox); });
  controls_.enableRSC.setAction([this](CheckBox& checkBox) { enablePortRSC(checkBox); });
}

void TenGigabitPages::show10GportInfo(int64_t portIndex) {
  const auto adapter = selectedAdapter();
  const auto port = adapter ? portOf(*adapter, portIndex) : nullptr;
  if (!port) return;
  const CommandTurn page;
  state_.corvaneDevice_10GE = adapter;
  state_.selectPort = portIndex + 1;
  command_.setNicName(port->nicNum().value_or(""));
  controls_.macAddress.setText(port->macAddr() ? *port->macAddr() : "");
  controls_.enName.setText(port->nicNum().value_or(""));
  if (compareDriverVersion_() != 0) {
    disableSettings(portIndex);
  } else {
    showSettings(*adapter, *port);
  }
  showLink();
  controls_.MTUvalue.setText(std::to_string(command_.getMTU(command_)));
}

void TenGigabitPages::show10GDeviceInfo() {
  const bool isRelease10_8 =
      platform_.systemVersion.productVersion().find("10.8.") != std::string::npos;
  const std::string& folder =
      isRelease10_8 ? platform_.paths.systemExtensions : platform_.paths.localExtensions;
  const auto version = driverVersion(platform_.bundles, folder + bundleName);
  controls_.drvVer_10GE.setText(version.value_or("N/A"));
  state_.driverVersion_10G = version.value_or(missingVersion);
  const auto adapter = selectedAdapter();
  const auto port = adapter ? adapter->port1() : nullptr;
  if (port) controls_.productType10G.setText(port->procudtTpe().value_or(""));
}

void TenGigabitPages::enablePortTCPipv4(CheckBox& checkBox) {
  // The setting reads and writes 1 for off and 2 for on, unlike every other one.
  writeAndSave("TCPipv4ChecksumEnable", checkBox.state() + 1);
}

void TenGigabitPages::enablePortRSC(CheckBox& checkBox) {
  writeAndSave("RSCEnable", checkBox.state());
}

void TenGigabitPages::setUserMode(PopUpButton& menu) {
  useInterfaceOnShow();
  const PresetOperation apply = presetOperation(menu.selectedTag());
  if (!apply) return;
  holdCommands();
  const auto release = [self = std::weak_ptr(self_)] {
    if (const auto pages = self.lock()) (*pages)->releaseCommands();
  };
  const auto work = [apply, release, setCommand = setCommand_, nicName = command_.nicName(),
                     &dispatch = platform_.dispatch] {
    ((*setCommand).*apply)(nicName);
    dispatch.asyncMain(release);
  };
  platform_.dispatch.asyncGlobal(QueuePriority::Background, work);
}

std::vector<Control*> TenGigabitPages::commandControls() const {
  return {&controls_.settingMode, &controls_.enableTCPipv4, &controls_.enableRSC,
          &controls_.port1Button, &controls_.port2Button,   &controls_.refreshButton,
          &controls_.deviceTable, &controls_.authView};
}

void TenGigabitPages::holdCommands() {
  for (Control* control : commandControls()) control->suspend();
  controls_.modeProgress.start();
}

void TenGigabitPages::releaseCommands() {
  controls_.modeProgress.stop();
  for (Control* control : commandControls()) control->resume();
}

std::shared_ptr<Corvane2Device_10GE> TenGigabitPages::selectedAdapter() const {
  const auto entry = state_.CorvaneList.entry(state_.intSelectRow);
  if (!entry) return nullptr;
  const auto* adapter = std::get_if<std::shared_ptr<Corvane2Device_10GE>>(&entry->obj);
  return adapter ? *adapter : nullptr;
}

void TenGigabitPages::disableSettings(int64_t portIndex) {
  controls_.settingMode.setEnabled(false);
  if (portIndex != 0) controls_.enableTCPipv4.setEnabled(false);
}

void TenGigabitPages::showSettings(const Corvane2Device_10GE& adapter, const SEPort& port) {
  showModule(findModuleClass(adapter, port));
  showMode();
  showChecksumOffload();
  showReceiveCoalescing();
}

int64_t TenGigabitPages::findModuleClass(const Corvane2Device_10GE& adapter, const SEPort& port) {
  const auto firstPort = adapter.port1();
  const SEPort& unknownModulesPort = firstPort ? *firstPort : port;
  command_.setCommandTittle("SFPModule");
  for (int64_t candidate = firstModuleClass; candidate <= lastModuleClass; ++candidate) {
    const bool reported = command_.getSFPinfo(command_) == candidate;
    const SEPort& judged = candidate == unknownModuleClass ? unknownModulesPort : port;
    if (reported && judged.procudtTpe() == corvane2_10G_SFP) return candidate;
  }
  return 0;
}

void TenGigabitPages::showModule(int64_t moduleClass) {
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

void TenGigabitPages::showMode() {
  const int64_t mode = setCommand_->returnCurrentMode(command_.nicName());
  controls_.settingMode.selectItemWithTag(mode);
  if (mode == tagOf(PerformanceMode::Custom)) controls_.settingMode.showPlainValue("Custom");
}

void TenGigabitPages::showChecksumOffload() {
  command_.setCommandTittle("TCPipv4ChecksumEnable");
  const int64_t value = leadingInteger(command_.getCommand(command_).value_or(""));
  if (value == 1) controls_.enableTCPipv4.setOn(false);
  if (value == 2) controls_.enableTCPipv4.setOn(true);
}

void TenGigabitPages::showReceiveCoalescing() {
  command_.setCommandTittle("RSCEnable");
  const bool isUnknownToDriver = command_.checkCommand(command_);
  controls_.enableRSC.setHidden(isUnknownToDriver);
  if (isUnknownToDriver) return;
  const std::string value = trimmedText(command_.getCommand(command_).value_or(""));
  if (value == "0x00000001") {
    controls_.enableRSC.setOn(true);
  } else if (value == "0x00000000") {
    controls_.enableRSC.setOn(false);
  } else {
    controls_.enableRSC.setEnabled(false);
  }
}

void TenGigabitPages::showLink() {
  constexpr auto noLink = static_cast<int64_t>(LinkState::NoLink);
  constexpr auto link = static_cast<int64_t>(LinkState::Link);
  if (command_.getNICstatus(command_) == noLink) {
    controls_.enStatus.setText("No Link");
  } else if (command_.getNICstatus(command_) == link) {
    controls_.enStatus.setText(command_.getCurrendSpeed(command_));
  } else {
    controls_.enStatus.setText("Unknow");
  }
}

void TenGigabitPages::useInterfaceOnShow() {
  const auto& adapter = state_.corvaneDevice_10GE;
  const bool isPortOnShow = state_.selectPort == 1 || state_.selectPort == 2;
  const auto port = adapter && isPortOnShow ? portOf(*adapter, state_.selectPort - 1) : nullptr;
  if (port) command_.setNicName(port->nicNum().value_or(""));
}

void TenGigabitPages::writeAndSave(const char* title, int64_t value) {
  const CommandTurn change;
  useInterfaceOnShow();
  command_.setSetValue(std::to_string(value));
  command_.setCommandTittle(title);
  command_.setCommand(command_);
  command_.saveCommand(command_);
}

}  // namespace corvane
