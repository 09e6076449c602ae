#include "pages/DumpPages.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <string>

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "discovery/AttachedAdapters.h"

namespace corvane {

namespace {

/// The registry's own text of a name, such as 2100001b 32a0b1c2, as upper-case pairs joined by ":".
std::string pairs(const std::string& registryText) {
  std::string joined;
  size_t digits = 0;
  for (const char character : registryText) {
    if (character == ' ') continue;
    if (digits > 0 && digits % 2 == 0) joined += ':';
    joined += static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    ++digits;
  }
  return joined;
}

void showUnknown(PopUpButton& menu) {
  menu.showPlainValue(notInDump);
}

}  // namespace

void showDumpedFibreChannelPort(MainWindowControls& controls, const ControllerState& state,
                                int64_t portIndex) {
  const auto& device = state.corvaneDevice;
  const auto port = device ? (portIndex == 0 ? device->port1() : device->port2()) : nullptr;
  const bool isNamed = port && port->portWWN();
  controls.WWNN.setText(isNamed ? pairs(*port->portWWN()) : notInDump);
  for (TextField* field : {&controls.currentSpeed, &controls.currentTopology, &controls.hardALPA}) {
    field->setText(notInDump);
  }
  controls.SFPErrorMessage.setText("");
  controls.SFPInfoButton.setEnabled(false);
  controls.SFPInfoButton.setHint(notInDump);
  showUnknown(controls.setSpeed);
  showUnknown(controls.setTopology);
}

void showDumpedFibreChannelDevice(MainWindowControls& controls, const ControllerState& state) {
  const auto& info = state.corvaneInfo;
  controls.deviceWWN.setText(info ? info->deviceWWN : notInDump);
  controls.fwVer.setText(notInDump);
  if (controls.drvVer_8G.text() == "N/A") controls.drvVer_8G.setText(notInDump);
  showUnknown(controls.setQueueDepth);
}

void showDumpedTenGigabitPort(MainWindowControls& controls) {
  for (TextField* field : {&controls.enStatus, &controls.MTUvalue}) field->setText(notInDump);
  for (Control* module : {static_cast<Control*>(&controls.SFPTypeLabel),
                          static_cast<Control*>(&controls.SFPInfoContent),
                          static_cast<Control*>(&controls.SFPInfoModule),
                          static_cast<Control*>(&controls.SFPerrrorMessage10G)}) {
    module->setHidden(true);
  }
  showUnknown(controls.settingMode);
}

std::vector<std::string> unlistedAdapters(Registry& registry, const DeviceList& list,
                                          bool isWhole) {
  std::vector<AttachedAdapter> attached = findAttachedAdapters(registry);
  for (const auto& entry : list.entries()) {
    const auto listed = std::find(attached.begin(), attached.end(),
                                  AttachedAdapter{entry.ProductType, entry.Sequence});
    if (listed != attached.end()) attached.erase(listed);
  }
  const std::string reason =
      isWhole ? "none of its ports is in the dump, so its driver did not run"
              : "its ports are not whole in the dump; ask the customer for a whole one";
  std::vector<std::string> sentences;
  sentences.reserve(attached.size());
  for (const auto& adapter : attached)
    sentences.push_back(adapter.product + " at " + adapter.Sequence +
                        ": attached, but not listed: " + reason);
  return sentences;
}

void showDumpedTenGigabitDevice(MainWindowControls& controls) {
  if (controls.drvVer_10GE.text() == "N/A") controls.drvVer_10GE.setText(notInDump);
}

}  // namespace corvane
