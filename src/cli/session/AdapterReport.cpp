#include "cli/session/AdapterReport.h"

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "CLIParser/toolReports.h"
#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "cli/session/ModeNames.h"
#include "cli/session/TransceiverTexts.h"

namespace corvane {

namespace {

using nlohmann::ordered_json;

bool isFibreChannel(AppDelegate& app) {
  return app.state().intProduct == static_cast<int64_t>(AdapterFamily::FibreChannel);
}

const char* familyName(AdapterFamily family) {
  return family == AdapterFamily::FibreChannel ? "FC" : "10GbE";
}

ordered_json shownTags(const PopUpButton& menu) {
  auto tags = ordered_json::array();
  for (const auto& item : menu.items())
    if (!item.hidden) tags.push_back(item.tag);
  return tags;
}

// Fibre Channel.

ordered_json moduleResult(AppDelegate& app) {
  constexpr int64_t usable = 0;
  constexpr int64_t none = 1;
  constexpr int64_t wrong = 2;
  if (app.compareDriverVersion() != 0) return nullptr;
  if (!app.controls().SFPErrorMessage.text().empty()) return wrong;
  return app.controls().SFPInfoButton.isEnabled() ? usable : none;
}

ordered_json moduleFields(AppDelegate& app, const CorvaneAPI& port) {
  ordered_json fields{{"result", moduleResult(app)},
                      {"error", app.controls().SFPErrorMessage.text()},
                      {"infoEnabled", app.controls().SFPInfoButton.isEnabled()}};
  fields.update(transceiverTexts(port));
  return fields;
}

ordered_json fibreChannelPort(AppDelegate& app, int64_t number) {
  const auto& controls = app.controls();
  const auto& info = *app.state().corvaneInfo;
  const CorvaneAPI& port = number == 1 ? info.port1Info : info.port2Info;
  return {{"port", number},
          {"portName", controls.WWNN.text()},
          {"currentSpeed", controls.currentSpeed.text()},
          {"currentTopology", controls.currentTopology.text()},
          {"settingSpeed", port.settingSpeed},
          {"settingTopology", port.settingTopology},
          {"speedItems", shownTags(controls.setSpeed)},
          {"topologyItems", shownTags(controls.setTopology)},
          {"linkState", port.linkState},
          {"pcivendor", port.pcivendor},
          {"pcidevice", port.pcidevice},
          {"hard_alpa", port.hard_alpa},
          {"queueDepth", port.queueDepth},
          {"sfp", moduleFields(app, port)}};
}

ordered_json fibreChannelDevice(AppDelegate& app) {
  const auto& controls = app.controls();
  return {{"driverVersion", controls.drvVer_8G.text()},
          {"firmwareVersion", controls.fwVer.text()},
          {"deviceWWN", controls.deviceWWN.text()},
          {"productType", controls.productType.text()},
          {"queueDepth", app.state().corvaneInfo->port1Info.queueDepth}};
}

// 10GbE.

ordered_json modeName(const PopUpButton& menu) {
  const auto tag = menu.selectedTag();
  if (!tag || *tag < 1 || *tag > static_cast<int64_t>(modeNames.size())) return nullptr;
  return modeNames[static_cast<size_t>(*tag - 1)];
}

int64_t moduleClassShown(const MainWindowControls& controls) {
  if (!controls.SFPerrrorMessage10G.isHidden()) return unknownModuleClass;
  for (int64_t each = firstModuleClass; each <= lastModuleClass; ++each)
    if (!controls.SFPInfoModule.isHidden() &&
        controls.SFPInfoModule.text() == moduleClassName(each))
      return each;
  return 0;
}

/// A driver that is too old is not asked for its module.
ordered_json moduleBox(AppDelegate& app) {
  const auto& controls = app.controls();
  if (app.compareDriverVersion() != 0)
    return {{"class", nullptr}, {"name", nullptr}, {"warning", nullptr}, {"hidden", true}};
  const bool isNamed = !controls.SFPInfoModule.isHidden();
  const bool isWarned = !controls.SFPerrrorMessage10G.isHidden();
  return {{"class", moduleClassShown(controls)},
          {"name", isNamed ? ordered_json(controls.SFPInfoModule.text()) : ordered_json(nullptr)},
          {"warning",
           isWarned ? ordered_json(controls.SFPerrrorMessage10G.text()) : ordered_json(nullptr)},
          {"hidden", !isNamed && !isWarned}};
}

ordered_json tenGigabitPort(AppDelegate& app, int64_t number) {
  const auto& controls = app.controls();
  return {
      {"port", number},
      {"macAddress", controls.macAddress.text()},
      {"enName", controls.enName.text()},
      {"enStatus", controls.enStatus.text()},
      {"MTU", std::strtoll(controls.MTUvalue.text().c_str(), nullptr, 10)},
      {"mode", modeName(controls.settingMode)},
      {"settingModeEnabled", controls.settingMode.isEnabled()},
      {"tcpipv4",
       {{"state", controls.enableTCPipv4.isOn()}, {"enabled", controls.enableTCPipv4.isEnabled()}}},
      {"rsc",
       {{"state", controls.enableRSC.isOn()},
        {"enabled", controls.enableRSC.isEnabled()},
        {"hidden", controls.enableRSC.isHidden()}}},
      {"module", moduleBox(app)}};
}

ordered_json portOutOfReach(const std::shared_ptr<SEPort>& port, int64_t number) {
  return {{"port", number},
          {"accessible", false},
          {"macAddress", port && port->macAddr() ? ordered_json(*port->macAddr()) : nullptr},
          {"enName", port ? textOrNothing(port->nicNum()) : nullptr}};
}

ordered_json tenGigabitDevice(AppDelegate& app) {
  return {{"driverVersion", app.controls().drvVer_10GE.text()},
          {"productType", app.controls().productType10G.text()}};
}

// Both.

ordered_json deviceFields(AppDelegate& app) {
  app.selectTabButon(app.controls().deviceButton);
  return isFibreChannel(app) ? fibreChannelDevice(app) : tenGigabitDevice(app);
}

bool isAccessible(AppDelegate& app, int64_t portNumber) {
  if (isFibreChannel(app)) return true;
  const auto& adapter = *app.state().corvaneDevice_10GE;
  const auto port = portNumber == 1 ? adapter.port1() : adapter.port2();
  return port && port->isAccessAbleflag() == 1;
}

}  // namespace

ordered_json entryFields(const DeviceListEntry& entry) {
  return {{"image", entry.image},
          {"WWN", entry.WWN},
          {"Sequence", entry.Sequence},
          {"Version", entry.Version},
          {"ProductType", entry.ProductType},
          {"pcidebug", entry.pcidebug},
          {"family", familyName(entry.family())}};
}

ordered_json portFields(AppDelegate& app, int64_t portNumber) {
  if (!isAccessible(app, portNumber)) {
    const auto& adapter = *app.state().corvaneDevice_10GE;
    return portOutOfReach(portNumber == 1 ? adapter.port1() : adapter.port2(), portNumber);
  }
  app.selectTabButon(portNumber == 1 ? app.controls().port1Button : app.controls().port2Button);
  return isFibreChannel(app) ? fibreChannelPort(app, portNumber) : tenGigabitPort(app, portNumber);
}

ordered_json adapterFields(AppDelegate& app) {
  auto device = deviceFields(app);
  auto ports = ordered_json::array({portFields(app, 1), portFields(app, 2)});
  return {{"family", familyName(static_cast<AdapterFamily>(app.state().intProduct))},
          {"device", std::move(device)},
          {"ports", std::move(ports)}};
}

}  // namespace corvane
