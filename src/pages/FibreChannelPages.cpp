#include "pages/FibreChannelPages.h"

#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <chrono>

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "DeviceMonitorCORVANE2_8FC/FCPort.h"
#include "SFPController.h"
#include "changes/ChangeSender.h"
#include "discovery/DriverFitness.h"
#include "fibre_channel/FibreChannelOffers.h"
#include "inventory/InstalledDriver.h"
#include "pages/DumpPages.h"
#include "pages/FibreChannelMenus.h"

namespace corvane {

// The product it names is the one it was written for; every model shows it alike.
const char* const wrongModuleText =
    "The inserted transceiver module is not the correct type for \n"
    "the Corvane2 8G FC. Please make sure to only use \n"
    "transceiver modules that support 8G Fibre Channel.";

namespace {

constexpr const char* loadingText = "Loading Setting...";
constexpr const char* noLinkText = "No Link";

constexpr const char* helpText =
    "The SFP button describes the transceiver module in this port. It cannot be used while the "
    "cage is empty, while the module does not suit the adapter, or with a driver too old to read "
    "modules.\n\n"
    "Use modules made for Fibre Channel: 4 and 8 Gb/s for 8G adapters, 4, 8 and 16 Gb/s for 16G "
    "adapters. Modules for Ethernet and for 1, 2 or 10 Gb/s do not suit.\n\n"
    "Short wave modules need multimode fibre, long wave modules single-mode fibre, and both ends "
    "of a cable need the same kind. If there is no link, clean the connectors and choose the speed "
    "and topology of the other side, or Automatic.";

constexpr int rereads = 3;
constexpr std::chrono::seconds rereadPause{3};

std::string hardAddressText(const FibreChannelPortInformation& told) {
  return told.hard_alpa != 0 ? fmt::format("{:2X}", told.hard_alpa) : "None";
}

std::string refusalText(Status status) {
  return fmt::format("0x{:08X}", static_cast<uint32_t>(status));
}

void takeRefusal(ChangeOutcome& outcome, Status answered) {
  if (answered == statusSuccess) return;
  outcome.outcome = Outcome::Refused;
  outcome.reason = refusalText(answered);
}

// The driver's own refusal counts; where it took the setting, what is read back does.
void judgeChange(ChangeOutcome& outcome, const Answer<FibreChannelPortInformation>& told,
                 int64_t seconds) {
  FibreChannelPortReading reading;
  reading.information = told;
  outcome.after = settingIn(reading, outcome.wish.setting);
  if (outcome.outcome == Outcome::Refused) return;
  outcome.outcome = judged(outcome.wish, outcome.after);
  if (!told) {
    outcome.reason = reasonText(told.none());
    return;
  }
  if (seconds == 0 || outcome.hasLink.value_or(false)) return;
  outcome.hasLink = told->hasLink();
  outcome.seconds = seconds;
}

}  // namespace

/// One following of a port after a change.
struct FibreChannelPages::Refresh {
  int64_t number = 0;
  RegistryHandle service = 0;
  std::optional<PortTarget> port;        ///< main queue only
  std::optional<ChangeOutcome> outcome;  ///< of the change that is followed, if one is
  int64_t seconds = 0;                   ///< since the change; main queue only
  std::atomic<bool> ended{false};  ///< set on the main queue when there is nothing left to follow
};

FibreChannelPages::FibreChannelPages(const Platform& platform, MainWindowControls& controls,
                                     ControllerState& state, SFPController& sfp)
    : SFPHelp(platform.dispatch, "SFPHelp"),
      SFPHelpContent(platform.dispatch, "SFPHelpContent"),
      platform_(platform),
      controls_(controls),
      state_(state),
      sfp_(sfp),
      mainWork_(platform.dispatch, *this) {
  controls_.setSpeed.setItems(speedMenuItems());
  controls_.setTopology.setItems(topologyMenuItems());
  controls_.setQueueDepth.setItems(queueDepthMenuItems());
  SFPHelpContent.setText(helpText);

  controls_.setSpeed.setAction([this](PopUpButton& menu) { setPortSpeed(menu); });
  controls_.setTopology.setAction([this](PopUpButton& menu) { setPortTopology(menu); });
  controls_.setQueueDepth.setAction([this](PopUpButton& menu) { setDeviceQueueDepth(menu); });
  bindMenu(controls_.setSpeed, [this] { return portOnShow(); });
  bindMenu(controls_.setTopology, [this] { return portOnShow(); });
  bindMenu(controls_.setQueueDepth, [this] { return target(1); });
  controls_.SFPHelpButton.setAction([this](Button& button) { clickSFPHelp(button); });
}

void FibreChannelPages::whenSettled(std::function<void(const ChangeOutcome&)> settled) {
  settled_ = std::move(settled);
}

// The ports of the adapter on show.

std::optional<PortTarget> FibreChannelPages::target(int64_t number) const {
  if (!state_.corvaneInfo || !state_.corvaneDevice) return std::nullopt;
  DeviceListEntry adapter;
  adapter.WWN = state_.corvaneInfo->deviceWWN;
  adapter.Sequence = state_.corvaneInfo->label();
  adapter.obj = state_.corvaneDevice;
  adapter.ProductType = productType();
  adapter.info = state_.corvaneInfo;
  return PortTarget::of(adapter, number);
}

std::optional<PortTarget> FibreChannelPages::portOnShow() const {
  return target(state_.selectPort);
}

std::string FibreChannelPages::productType() const {
  const auto first = state_.corvaneDevice->port1();
  return first ? first->procudtTpe().value_or("") : "";
}

bool FibreChannelPages::isOnShow(const PortTarget& port) const {
  const auto onShow = target(state_.selectPort == 0 ? port.port() : state_.selectPort);
  return onShow && onShow->isSamePort(port);
}

// A menu stands for the port that was on show when it was opened, until it is closed; what was read
// meanwhile is shown then.

void FibreChannelPages::bindMenu(PopUpButton& menu,
                                 std::function<std::optional<PortTarget>()> port) {
  menu.setOpenAction([this, port = std::move(port)](PopUpButton& opened) {
    if (const auto bound = port()) openMenus_.emplace_back(&opened, *bound);
  });
  menu.setCloseAction([this](PopUpButton& closed) {
    std::erase_if(openMenus_, [&closed](const auto& open) { return open.first == &closed; });
    if (shown_ && isOnShow(*shown_) && !isDump_) renderSettings();
  });
}

std::optional<PortTarget> FibreChannelPages::targetOf(const PopUpButton& menu) const {
  for (const auto& [open, port] : openMenus_)
    if (open == &menu) return port;
  return &menu == &controls_.setQueueDepth ? target(1) : portOnShow();
}

void FibreChannelPages::letGoOfDeparted() {
  for (const auto& [menu, port] : std::vector(openMenus_))
    if (port.isGone()) menu->close();
  if (!shown_ || !shown_->isGone()) return;
  shown_.reset();
  reading_.reset();
}

// The device page.

void FibreChannelPages::show8GDeviceInfo() {
  const auto first = target(1);
  if (!first) return;
  const auto told = isDump_ ? Answer<FibreChannelPortInformation>(Reason::NotInDump)
                            : readInformation(first->api(), first->service());
  renderDevice(*first, told.valueOr(zeroInformation()));
}

void FibreChannelPages::renderDevice(const PortTarget& first,
                                     const FibreChannelPortInformation& told) {
  const InstalledDriver driver(platform_, AdapterFamily::FibreChannel);
  state_.driverVersion_8G = driver.versionOrMissing();
  controls_.drvVer_8G.setText(driver.version().value_or(isDump_ ? notInDump : "N/A"));
  controls_.fwVer.setText(isDump_ ? notInDump : told.fwVer);
  controls_.deviceWWN.setText(isDump_ ? first.WWN() : told.WWNN);
  controls_.productType.setText(first.product());
  trimQueueDepthMenu(controls_.setQueueDepth, state_.driverVersion_8G);
  showQueueDepth(controls_.setQueueDepth, told.queueDepth);
  if (isDump_) controls_.setQueueDepth.showPlainValue(notInDump);
}

// The port page.

void FibreChannelPages::show8GPortInfo(int64_t portIndex) {
  auto port = target(portIndex + 1);
  if (!port) return;
  state_.selectPort = port->port();
  shown_ = std::move(port);
  reading_ = readPort(*shown_);
  renderPort();
}

FibreChannelPortReading FibreChannelPages::readPort(const PortTarget& port) {
  if (isDump_) return dumpedFibreChannelPort(port);
  return readFibreChannelPort(
      port, compareDriverVersion(AdapterFamily::FibreChannel, state_.driverVersion_8G));
}

void FibreChannelPages::renderPort() {
  renderSettings();
  renderModule();
  renderLink(noLinkText);
  renderProgress();
  if (isDump_) renderDump();
}

// The items on show are the product's; a menu that is open is left alone.
void FibreChannelPages::renderSettings() {
  const FibreChannelPortInformation told = reading_->information.valueOr(zeroInformation());
  shown_->api().hardAPLA_check = told.hard_alpa != 0 ? 1 : 0;
  controls_.chooseALPA.setHidden(!hasArbitratedLoop(shown_->product()));
  controls_.WWNN.setText(told.WWPN);
  controls_.hardALPA.setText(hardAddressText(told));
  if (!controls_.setSpeed.isOpen()) {
    trimSpeedMenu(controls_.setSpeed, shown_->product());
    showSpeed(controls_.setSpeed, told.settingSpeed);
  }
  if (!controls_.setTopology.isOpen()) {
    trimTopologyMenu(controls_.setTopology, shown_->product());
    showTopology(controls_.setTopology, told.settingTopology);
  }
}

void FibreChannelPages::renderModule() {
  const auto& module = reading_->module;
  if (module.lacksFor(Reason::DriverTooOld)) {
    controls_.SFPInfoButton.setEnabled(false);
    return;
  }
  const bool isThere = module && module->has_value();
  const bool isWrong = isThere && (*module)->result == SFPResult::WrongSpeedClass;
  controls_.SFPErrorMessage.setText(isWrong ? wrongModuleText : "");
  controls_.SFPInfoButton.setEnabled(isThere && !isWrong);
  if (isThere && !isWrong) sfp_.describe(*shown_);
}

// A speed or topology that has no name leaves its field as it was.
void FibreChannelPages::renderLink(const std::string& withoutLink) {
  const FibreChannelPortInformation told = reading_->information.valueOr(zeroInformation());
  const auto speed = told.hasLink() ? speedText(told.portSpeed) : withoutLink;
  const auto topology = told.hasLink() ? topologyText(told.portTopology) : withoutLink;
  if (speed) controls_.currentSpeed.setText(*speed);
  if (topology) controls_.currentTopology.setText(*topology);
}

void FibreChannelPages::renderDump() {
  controls_.WWNN.setText(reading_->portName.valueOr(notInDump));
  for (TextField* field :
       {&controls_.currentSpeed, &controls_.currentTopology, &controls_.hardALPA})
    field->setText(notInDump);
  controls_.SFPInfoButton.setHint(notInDump);
  for (PopUpButton* menu : {&controls_.setSpeed, &controls_.setTopology})
    menu->showPlainValue(notInDump);
}

// The bar belongs to the port that is being changed, so it is seen on that port's page alone.
void FibreChannelPages::renderProgress() {
  controls_.portProgress.setRunning(std::any_of(
      busy_.begin(), busy_.end(), [this](const PortTarget& port) { return isOnShow(port); }));
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
  if (const auto tag = menu.selectedTag()) change(targetOf(menu), {Setting::Speed, *tag});
}

void FibreChannelPages::setPortTopology(PopUpButton& menu) {
  if (const auto tag = menu.selectedTag()) change(targetOf(menu), {Setting::Topology, *tag});
}

void FibreChannelPages::FinalChoosePortALPA(const PortTarget& port, uint64_t alpa) {
  change(port, {Setting::HardAlpa, static_cast<int64_t>(alpa)});
}

void FibreChannelPages::setDeviceQueueDepth(PopUpButton& menu) {
  if (const auto tag = menu.selectedTag())
    changeQueueDepth(targetOf(menu), static_cast<uint32_t>(*tag));
}

void FibreChannelPages::FinalEnterQueueDepth(const PortTarget& port, uint32_t depth) {
  changeQueueDepth(port, depth);
}

void FibreChannelPages::changeQueueDepth(const std::optional<PortTarget>& port, uint32_t depth) {
  if (!port) return;
  const SettingWish wish{Setting::QueueDepth, static_cast<int64_t>(depth)};
  ChangeOutcome outcome = outcomeFor(*port, wish);
  if (port->isGone()) {
    outcome.outcome = Outcome::GoneBefore;
  } else {
    takeRefusal(outcome, sendToDriver(*port, wish));
  }
  settle(outcome);
}

void FibreChannelPages::change(const std::optional<PortTarget>& port, const SettingWish& wish) {
  if (!port) return;
  auto refresh = std::make_shared<Refresh>();
  refresh->port = port;
  refresh->outcome = outcomeFor(*port, wish);
  if (reading_ && shown_ && shown_->isSamePort(*port))
    refresh->outcome->before = settingIn(*reading_, wish.setting);
  if (port->isGone()) {
    refresh->outcome->outcome = Outcome::GoneBefore;
    return settle(*refresh->outcome);
  }
  busy_.push_back(*port);
  renderProgress();
  platform_.dispatch.asyncGlobal(
      QueuePriority::Background,
      [&dispatch = platform_.dispatch, way = mainWork_.way(), target = *port, wish, refresh] {
        takeRefusal(*refresh->outcome, sendToDriver(target, wish));
        follow(dispatch, way, refresh);
      });
}

void FibreChannelPages::settle(const ChangeOutcome& outcome) {
  if (settled_) settled_(outcome);
}

// Following a port after a change. What runs on the main queue is a step of the pages; the thread
// in between only waits, and touches nothing but the refresh.

void FibreChannelPages::reload8GSetting(RegistryHandle port1, RegistryHandle port2) {
  auto refresh = std::make_shared<Refresh>();
  refresh->number = port1 != 0 ? 1 : 2;
  refresh->service = port1 != 0 ? port1 : port2;
  follow(platform_.dispatch, mainWork_.way(), refresh);
}

void FibreChannelPages::follow(Dispatch& dispatch, const OwnedMainWork<FibreChannelPages>::Way& way,
                               const std::shared_ptr<Refresh>& refresh) {
  const auto onMain = [&](void (FibreChannelPages::*step)(Refresh&)) {
    way.async([refresh, step](FibreChannelPages& pages) {
      if (!refresh->ended) (pages.*step)(*refresh);
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
    const auto found = target(refresh.number);
    if (!found || found->service() != refresh.service) {
      refresh.ended = true;
      return;
    }
    refresh.port = found;
    busy_.push_back(*found);
    renderProgress();
  }
  if (!reread(refresh)) return;
  renderSettings();
  controls_.currentSpeed.setText(loadingText);
  controls_.currentTopology.setText(loadingText);
}

void FibreChannelPages::continueRefresh(Refresh& refresh) {
  refresh.seconds += rereadPause.count();
  if (reread(refresh)) renderLink(loadingText);
}

// A change is judged by what the port says in the end, even if another one is on show by then.
void FibreChannelPages::endRefresh(Refresh& refresh) {
  if (reread(refresh)) {
    renderLink(noLinkText);
  } else if (!refresh.ended && refresh.outcome) {
    judgeChange(*refresh.outcome, readInformation(refresh.port->api(), refresh.port->service()),
                refresh.seconds);
  }
  if (!refresh.ended) stopRefresh(refresh);
}

// Whether the port was read and its page is to show it. A port that has gone ends the refresh.
bool FibreChannelPages::reread(Refresh& refresh) {
  if (refresh.port->isGone()) {
    if (refresh.outcome) refresh.outcome->outcome = Outcome::GoneAfter;
    stopRefresh(refresh);
    return false;
  }
  if (!isOnShow(*refresh.port)) return false;
  const auto told = readInformation(refresh.port->api(), refresh.port->service());
  if (refresh.outcome) judgeChange(*refresh.outcome, told, refresh.seconds);
  if (!shown_ || !shown_->isSamePort(*refresh.port)) {
    shown_ = refresh.port;
    reading_ = FibreChannelPortReading{};
    reading_->port = shown_->port();
  }
  reading_->information = told;
  reading_->readAt = std::chrono::system_clock::now();
  return true;
}

void FibreChannelPages::stopRefresh(Refresh& refresh) {
  refresh.ended = true;
  const auto found = std::find_if(busy_.begin(), busy_.end(), [&refresh](const PortTarget& port) {
    return port.isSamePort(*refresh.port);
  });
  if (found != busy_.end()) busy_.erase(found);
  renderProgress();
  if (refresh.outcome) settle(*refresh.outcome);
}

}  // namespace corvane
