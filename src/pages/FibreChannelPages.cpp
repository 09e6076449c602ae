#include "pages/FibreChannelPages.h"

#include <fmt/format.h>

#include <atomic>
#include <chrono>

#include "Corvane2Info.h"
#include "CorvaneAPI.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "DeviceMonitorCORVANE2_8FC/FCDriver.h"
#include "DeviceMonitorCORVANE2_8FC/FCPort.h"
#include "SFPController.h"
#include "fibre_channel/FibreChannelProtocol.h"
#include "pages/FibreChannelMenus.h"

namespace corvane {

namespace {

constexpr const char* loadingText = "Loading Setting...";
constexpr const char* noLinkText = "No Link";

// The product it names is the one it was written for; every model shows it alike.
constexpr const char* wrongModuleText =
    "The inserted transceiver module is not the correct type for \n"
    "the Corvane2 8G FC. Please make sure to only use \n"
    "transceiver modules that support 8G Fibre Channel.";

constexpr const char* helpText =
    "The SFP button describes the transceiver module in this port. It cannot be used while the "
    "cage is empty, while the module does not suit the adapter, or with a driver too old to read "
    "modules.\n\n"
    "Use modules made for Fibre Channel: 4 and 8 Gb/s for 8G adapters, 4, 8 and 16 Gb/s for 16G "
    "adapters. Modules for Ethernet and for 1, 2 or 10 Gb/s do not suit.\n\n"
    "Short wave modules need multimode fibre, long wave modules single-mode fibre, and both ends "
    "of a cable need the same kind. If there is no link, clean the connectors and choose the speed "
    "and topology of the other side, or Automatic.";

constexpr int64_t noModule = 1;
constexpr int64_t wrongModule = 2;

constexpr int rereads = 3;
constexpr std::chrono::seconds rereadPause{3};

std::optional<std::string> driverBundlePath(const Platform& platform) {
  const FCDriver driver(platform);
  const std::string folder =
      driver.getMacVer() ? platform.paths.systemExtensions : platform.paths.localExtensions;
  switch (driver.getDriverVer()) {
    case 3:
      return folder + "Corvane-FC.kext";
    case 2:
      return folder + "Corvane2-FC.kext";
    default:
      return std::nullopt;
  }
}

std::optional<std::string> driverBundleVersion(const Platform& platform) {
  constexpr size_t mostCharacters = 15;
  const auto path = driverBundlePath(platform);
  if (!path) return std::nullopt;
  const auto version = platform.bundles.infoValue(*path, "CFBundleVersion");
  if (!version || !version->text()) return std::nullopt;
  return version->text()->substr(0, mostCharacters);
}

void readPort(CorvaneAPI& api, RegistryHandle service) {
  api.GetCorvaneInfoFunction(service);
  api.hardAPLA_check = api.hard_alpa != 0 ? 1 : 0;
}

std::string hardAddressText(const CorvaneAPI& api) {
  return api.hardAPLA_check != 0 ? fmt::format("{:2X}", api.hard_alpa) : "None";
}

}  // namespace

/// One following of a port after a change.
struct FibreChannelPages::Refresh {
  int64_t number = 0;
  RegistryHandle service = 0;
  std::optional<Port> port;        ///< main queue only
  std::atomic<bool> ended{false};  ///< set on the main queue when there is nothing left to follow
};

CorvaneAPI& FibreChannelPages::Port::api() const {
  return number == 1 ? info->port1Info : info->port2Info;
}

bool FibreChannelPages::Port::isGone() const {
  return record->portService() != service();
}

FibreChannelPages::FibreChannelPages(const Platform& platform, MainWindowControls& controls,
                                     ControllerState& state, SFPController& sfp,
                                     std::function<int64_t()> compareDriverVersion)
    : SFPHelp(platform.dispatch, "SFPHelp"),
      SFPHelpContent(platform.dispatch, "SFPHelpContent"),
      platform_(platform),
      controls_(controls),
      state_(state),
      sfp_(sfp),
      compareDriverVersion_(std::move(compareDriverVersion)),
      self_(std::make_shared<FibreChannelPages*>(this)) {
  controls_.setSpeed.setItems(speedMenuItems());
  controls_.setTopology.setItems(topologyMenuItems());
  controls_.setQueueDepth.setItems(queueDepthMenuItems());
  SFPHelpContent.setText(helpText);

  controls_.setSpeed.setAction([this](PopUpButton& menu) { setPortSpeed(menu); });
  controls_.setTopology.setAction([this](PopUpButton& menu) { setPortTopology(menu); });
  controls_.setQueueDepth.setAction([this](PopUpButton& menu) { setDeviceQueueDepth(menu); });
  controls_.SFPHelpButton.setAction([this](Button& button) { clickSFPHelp(button); });
}

std::shared_ptr<FCPort> FibreChannelPages::record(const Corvane2Device& device, int64_t number) {
  if (number == 1) return device.port1();
  if (number == 2) return device.port2();
  return nullptr;
}

std::optional<FibreChannelPages::Port> FibreChannelPages::port(int64_t number) const {
  if (!state_.corvaneInfo || !state_.corvaneDevice) return std::nullopt;
  const auto found = record(*state_.corvaneDevice, number);
  if (!found) return std::nullopt;
  return Port{state_.corvaneInfo, state_.corvaneDevice, found, number,
              std::make_shared<const RegistryObject>(found->retainedService())};
}

std::string FibreChannelPages::productType() const {
  const auto first = state_.corvaneDevice->port1();
  return first ? first->procudtTpe().value_or("") : "";
}

bool FibreChannelPages::isOnShow(const Port& port) const {
  return state_.corvaneDevice == port.device &&
         (state_.selectPort == port.number || state_.selectPort == 0);
}

// The device page.

void FibreChannelPages::show8GDeviceInfo() {
  const auto first = port(1);
  if (!first) return;
  readPort(first->api(), first->service());
  readDriverVersion();
  controls_.fwVer.setText(first->api().fwVer);
  controls_.deviceWWN.setText(first->api().WWNN);
  controls_.productType.setText(productType());
  trimQueueDepthMenu(controls_.setQueueDepth, state_.driverVersion_8G);
  showQueueDepth(controls_.setQueueDepth, first->api().queueDepth);
}

void FibreChannelPages::readDriverVersion() {
  const auto version = driverBundleVersion(platform_);
  controls_.drvVer_8G.setText(version.value_or("N/A"));
  state_.driverVersion_8G = version.value_or("0.0.0");
}

void FibreChannelPages::setDeviceQueueDepth(PopUpButton& menu) {
  if (const auto tag = menu.selectedTag()) setQueueDepth(1, static_cast<uint32_t>(*tag));
}

void FibreChannelPages::FinalEnterQueueDepth(uint32_t depth) {
  setQueueDepth(state_.selectPort, depth);
}

void FibreChannelPages::setQueueDepth(int64_t portNumber, uint32_t depth) {
  const auto target = port(portNumber);
  if (!target || target->service() == 0) return;
  target->api().set_queue_depth(target->service(), depth);
}

// The port page.

void FibreChannelPages::show8GPortInfo(int64_t portIndex) {
  const auto shown = port(portIndex + 1);
  if (!shown) return;
  trimSpeedMenu(controls_.setSpeed, productType());
  state_.selectPort = shown->number;
  readPort(shown->api(), shown->service());
  showTransceiver(*shown);
  trimTopologyMenu(controls_.setTopology, productType());
  controls_.chooseALPA.setHidden(!hasArbitratedLoop(productType()));
  showNames(*shown);
  showLink(*shown, noLinkText);
}

void FibreChannelPages::showTransceiver(const Port& port) {
  if (compareDriverVersion_() != 0) {
    controls_.SFPInfoButton.setEnabled(false);
    return;
  }
  const auto index = static_cast<uint32_t>(port.number - 1);
  if (port.api().GetCorvaneSFP(port.service(), index) == noModule) {
    controls_.SFPErrorMessage.setText("");
    controls_.SFPInfoButton.setEnabled(false);
    return;
  }
  showModule(port);
}

// A module may not answer fully at first, so it is read once more before it is judged.
void FibreChannelPages::showModule(const Port& port) {
  const auto index = static_cast<uint32_t>(port.number - 1);
  const bool suits = port.api().GetCorvaneSFP(port.service(), index) != wrongModule;
  controls_.SFPErrorMessage.setText(suits ? "" : wrongModuleText);
  controls_.SFPInfoButton.setEnabled(suits);
  if (suits) sfp_.setSFPwindowItem(*port.info, port.number);
}

void FibreChannelPages::showNames(const Port& port) {
  const CorvaneAPI& api = port.api();
  controls_.WWNN.setText(api.WWPN);
  controls_.hardALPA.setText(hardAddressText(api));
  showSpeed(controls_.setSpeed, api.settingSpeed);
  showTopology(controls_.setTopology, api.settingTopology);
}

// A speed or topology that has no name leaves its field as it was.
void FibreChannelPages::showLink(const Port& port, const std::string& withoutLink) {
  const CorvaneAPI& api = port.api();
  const bool up = api.linkState == linkStateUp;
  const auto speed = up ? speedText(api.portSpeed) : withoutLink;
  const auto topology = up ? topologyText(api.portTopology) : withoutLink;
  if (speed) controls_.currentSpeed.setText(*speed);
  if (topology) controls_.currentTopology.setText(*topology);
}

void FibreChannelPages::clickSFPHelp(Button& /*button*/) {
  if (SFPHelp.isShown()) {
    SFPHelp.drop();
    return;
  }
  SFPHelp.load();
  SFPHelp.show();
}

// Changing a port's settings.

void FibreChannelPages::setPortSpeed(PopUpButton& menu) {
  const auto tag = menu.selectedTag();
  if (!tag || !port(state_.selectPort)) return;
  changeSetting(
      [speed = speedToSend(productType(), *tag)](const CorvaneAPI& api, RegistryHandle service) {
        api.setSpeedFunction(service, speed);
      });
}

void FibreChannelPages::setPortTopology(PopUpButton& menu) {
  const auto tag = menu.selectedTag();
  if (!tag) return;
  changeSetting(
      [topology = static_cast<uint64_t>(*tag)](const CorvaneAPI& api, RegistryHandle service) {
        api.setTopologyFunction(service, topology);
      });
}

void FibreChannelPages::FinalChoosePortALPA(uint64_t alpa) {
  changeSetting([alpa](const CorvaneAPI& api, RegistryHandle service) {
    api.setHardAlpaFunction(service, alpa);
  });
}

void FibreChannelPages::changeSetting(const Setting& set) {
  const auto target = port(state_.selectPort);
  if (!target) return;
  controls_.portProgress.start();
  auto refresh = std::make_shared<Refresh>();
  refresh->port = target;
  platform_.dispatch.asyncGlobal(
      QueuePriority::Background,
      [&dispatch = platform_.dispatch, self = WeakSelf(self_), target = *target, set, refresh] {
        set(target.api(), target.service());
        follow(dispatch, self, refresh);
      });
}

// Following a port after a change. What runs on the main queue is a step of the pages; the thread
// in between only waits, and touches nothing but the refresh.

void FibreChannelPages::reload8GSetting(RegistryHandle port1, RegistryHandle port2) {
  auto refresh = std::make_shared<Refresh>();
  refresh->number = port1 != 0 ? 1 : 2;
  refresh->service = port1 != 0 ? port1 : port2;
  follow(platform_.dispatch, self_, refresh);
}

void FibreChannelPages::follow(Dispatch& dispatch, const WeakSelf& self,
                               const std::shared_ptr<Refresh>& refresh) {
  const auto onMain = [&](void (FibreChannelPages::*step)(Refresh&)) {
    dispatch.asyncMain([self, refresh, step] {
      const auto pages = self.lock();
      if (pages && !refresh->ended) ((**pages).*step)(*refresh);
    });
  };
  onMain(&FibreChannelPages::beginRefresh);
  for (int count = 0; count < rereads && !refresh->ended; ++count) {
    dispatch.sleep(rereadPause);
    onMain(&FibreChannelPages::continueRefresh);
  }
  onMain(&FibreChannelPages::endRefresh);
}

void FibreChannelPages::beginRefresh(Refresh& refresh) {
  if (!refresh.port) {
    const auto found = port(refresh.number);
    if (!found || found->service() != refresh.service) {
      refresh.ended = true;
      return;
    }
    refresh.port = found;
    controls_.portProgress.start();
  }
  if (!reread(refresh)) return;
  showNames(*refresh.port);
  controls_.currentSpeed.setText(loadingText);
  controls_.currentTopology.setText(loadingText);
}

void FibreChannelPages::continueRefresh(Refresh& refresh) {
  if (reread(refresh)) showLink(*refresh.port, loadingText);
}

void FibreChannelPages::endRefresh(Refresh& refresh) {
  if (reread(refresh)) showLink(*refresh.port, noLinkText);
  if (!refresh.ended) stopRefresh(refresh);
}

// Whether the port was read and its page is to show it. A port that has gone ends the refresh.
bool FibreChannelPages::reread(Refresh& refresh) {
  if (refresh.port->isGone()) {
    stopRefresh(refresh);
    return false;
  }
  if (!isOnShow(*refresh.port)) return false;
  readPort(refresh.port->api(), refresh.port->service());
  return true;
}

void FibreChannelPages::stopRefresh(Refresh& refresh) {
  refresh.ended = true;
  controls_.portProgress.stop();
}

}  // namespace corvane
