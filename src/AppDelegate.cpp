#include "AppDelegate.h"

#include <utility>

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "inventory/DeviceListEntries.h"
#include "pages/DriverVersionComparison.h"
#include "pages/DumpPages.h"

namespace corvane {

namespace {

constexpr int64_t tableRowHeight = 40;

}  // namespace

AppDelegate::AppDelegate(const Platform& platform)
    : platform_(platform),
      controls_(platform.dispatch),
      mainWindow_(platform.dispatch, "MainWindow"),
      aboutDialog_(platform.dispatch, platform.bundles),
      device_(std::make_unique<DeviceMonitorCORVANE2>(platform)),
      device_10GE_(std::make_unique<DeviceMonitorCORVANE2_10GE>(platform)),
      sfpController_(platform, controls_),
      fibreChannelPages_(platform, controls_, state_, sfpController_,
                         [this] { return compareDriverVersion(); }),
      matrixController_(platform, controls_,
                        [this](uint64_t alpa) { fibreChannelPages_.FinalChoosePortALPA(alpa); }),
      queueDepthController_(
          platform, controls_,
          [this](uint32_t depth) { fibreChannelPages_.FinalEnterQueueDepth(depth); }),
      volumes_(platform),
      firmwareUpdate_(platform, controls_, state_, state_.updateAlert, volumes_,
                      [this] { return device_->getBSDVolumeList(); }),
      onlineUpdate_(platform,
                    {controls_, state_, volumes_, [this] { return device_->getBSDVolumeList(); },
                     [this] { return firmwareUpdate_.isRunning(); }}),
      tenGigabitPages_(platform, controls_, state_, [this] { return compareDriverVersion(); }),
      logCollection_(platform, controls_),
      administratorLock_(platform, controls_, tenGigabitPages_.command(),
                         [this] { return compareDriverVersion(); }),
      self_(std::make_shared<AppDelegate*>(this)) {
  connectControls();
}

AppDelegate::~AppDelegate() {
  device_->stop();
  device_10GE_->stop();
}

void AppDelegate::connectControls() {
  controls_.port1Button.setTag(static_cast<int64_t>(PageButtonTag::Port1));
  controls_.port2Button.setTag(static_cast<int64_t>(PageButtonTag::Port2));
  controls_.deviceButton.setTag(static_cast<int64_t>(PageButtonTag::Device));
  for (Button* button : {&controls_.port1Button, &controls_.port2Button, &controls_.deviceButton})
    button->setAction([this](Button& clicked) { selectTabButon(clicked); });
  controls_.refreshButton.setAction([this](Button&) { refreshInformation(); });
  controls_.deviceTable.setAction([this](TableView&) { tableViewSelectionIsChanging(); });
}

// The application's life.

void AppDelegate::applicationDidFinishLaunching() {
  administratorLock_.setUp();
  prepareControls();
  prepareUpdateAlert();
  registerForNotifications();
  administratorLock_.giveToolAdministratorRights();
  startMonitors();
  volumes_.tellLeftUnmounted();
}

bool AppDelegate::applicationShouldHandleReopen(bool) {
  mainWindow_.load();
  mainWindow_.show();
  return true;
}

void AppDelegate::showAsDump(const std::string& reason) {
  isDump_ = true;
  administratorLock_.keepClosed(reason);
  controls_.downloadLogs.setEnabled(false);
  controls_.downloadLogs.setHint(reason);
}

void AppDelegate::whenDiscovered(std::function<void()> discovered) {
  discovered_ = std::move(discovered);
}

void AppDelegate::whenAdaptersChange(std::function<void(const AdapterEvent&)> followed) {
  followed_ = std::move(followed);
}

void AppDelegate::prepareControls() {
  controls_.fuckMenu.setAutoenablesItems(false);
  controls_.checkUpdate.setEnabled(false);
  controls_.deviceTable.setRowHeight(tableRowHeight);
  mainWindow_.load();
  mainWindow_.show();
  reloadDeviceTable();
  showNoAdapter();
}

void AppDelegate::prepareUpdateAlert() {
  state_.updateAlert.buttons = {{"OK"}, {"Cancel"}};
}

void AppDelegate::registerForNotifications() {
  observe("Corvane2Appeared_10GE", &AppDelegate::corvane2Appeared_10GE);
  observe("Corvane3Appeared_10GE", &AppDelegate::corvane2Appeared_10GE);
  observe("Corvane2Disppeared_10GE", &AppDelegate::corvane2Disappeared_10GE);
  observe("Corvane2Appeared", &AppDelegate::corvane2Appeared);
  observe("Corvane3Appeared", &AppDelegate::corvane2Appeared);
  observe("Corvane2Disppeared", &AppDelegate::corvane2Disappeared);
}

void AppDelegate::observe(const std::string& name, Handler handler) {
  observations_.push_back(platform_.notifications.observe(
      name, [this, handler](const Notification& notification) { (this->*handler)(notification); }));
}

void AppDelegate::startMonitors() {
  const auto started = [this](int32_t status) {
    onMain([status](AppDelegate& self) { self.noteMonitorStart(status); });
  };
  device_->whenStarted(started);
  device_10GE_->whenStarted(started);
  device_->start();
  device_10GE_->start();
}

void AppDelegate::noteMonitorStart(int32_t status) {
  if (status != 0) hasFailedMonitor_ = true;
  if (--monitorsStarting_ == 0 && discovered_) discovered_();
}

void AppDelegate::onMain(std::function<void(AppDelegate&)> work) {
  platform_.dispatch.asyncMain([self = std::weak_ptr(self_), work = std::move(work)] {
    if (const auto alive = self.lock()) work(**alive);
  });
}

// The monitors' notifications.

void AppDelegate::corvane2Appeared(const Notification& notification) {
  const auto adapter = device_->getDevice(notification.object);
  if (!adapter) return;
  auto entry = makeEntry(platform_, adapter, iconOfNotification(notification.name));
  if (isDump_ && entry) entry->WWN = adapter->nodeWWN().value_or("");
  arrived(notification, std::move(entry));
}

void AppDelegate::corvane2Appeared_10GE(const Notification& notification) {
  const auto adapter = device_10GE_->getDevice(notification.object);
  if (!adapter) return;
  arrived(notification, makeEntry(platform_, adapter, iconOfNotification(notification.name)));
}

void AppDelegate::arrived(const Notification& notification, std::optional<DeviceListEntry> entry) {
  if (!entry) return;
  state_.CorvaneList.add(*entry);
  onMain([event = AdapterEvent{notification, std::move(*entry)}](AppDelegate& self) {
    self.showArrival(event);
  });
}

void AppDelegate::corvane2Disappeared(const Notification& notification) {
  departed(notification, state_.CorvaneList.removeWWN(notification.object));
}

void AppDelegate::corvane2Disappeared_10GE(const Notification& notification) {
  departed(notification, state_.CorvaneList.removePcidebug(notification.object));
}

void AppDelegate::departed(const Notification& notification, std::vector<DeviceListEntry> entries) {
  std::vector<AdapterEvent> events;
  events.reserve(entries.size());
  for (auto& entry : entries) events.push_back({notification, std::move(entry)});
  onMain([events = std::move(events)](AppDelegate& self) { self.showDeparture(events); });
}

void AppDelegate::showArrival(const AdapterEvent& event) {
  reloadDeviceTable();
  makeCurrent(event.entry);
  if (event.entry.family() == AdapterFamily::FibreChannel) fillDevicePage();
  showFirstRowSoon();
  tell(event);
}

void AppDelegate::showDeparture(const std::vector<AdapterEvent>& events) {
  reloadDeviceTable();
  showFirstRowSoon();
  for (const auto& event : events) tell(event);
}

void AppDelegate::tell(const AdapterEvent& event) const {
  if (followed_) followed_(event);
}

void AppDelegate::reloadDeviceTable() {
  controls_.deviceTable.reloadData();
  numberOfRowsInTableView();
}

// Reading a page takes time, so of several changes at once only the last one reads it. A row that
// is selected meanwhile stays selected.
void AppDelegate::showFirstRowSoon() {
  state_.intSelectRow = 0;
  if (std::exchange(firstRowAwaited_, true)) return;
  onMain([](AppDelegate& self) {
    if (std::exchange(self.firstRowAwaited_, false)) self.showFirstRow();
  });
}

void AppDelegate::showFirstRow() {
  state_.intSelectRow = 0;
  const auto entry = state_.CorvaneList.entry(0);
  if (!entry) return showNoAdapter();
  controls_.deviceTable.selectRow(0);
  showSelection(*entry);
}

// The device table.

int64_t AppDelegate::numberOfRowsInTableView() {
  const auto rows = static_cast<int64_t>(state_.CorvaneList.count());
  controls_.port1Button.setEnabled(rows != 0 && port1Usable_);
  controls_.port2Button.setEnabled(rows != 0 && port2Usable_);
  controls_.deviceButton.setEnabled(rows != 0);
  controls_.refreshButton.setEnabled(rows != 0);
  return rows;
}

DeviceTableCell AppDelegate::tableViewViewForTableColumn(int64_t row) const {
  const auto entry = state_.CorvaneList.entry(row);
  if (!entry) return {};
  return {"MainCell", entry->ProductType + "\nsequence: " + entry->Sequence,
          iconOfProduct(entry->ProductType)};
}

void AppDelegate::tableViewSelectionIsChanging() {
  firstRowAwaited_ = false;
  state_.intSelectRow = controls_.deviceTable.selectedRow();
  if (const auto entry = state_.CorvaneList.entry(state_.intSelectRow)) showSelection(*entry);
}

void AppDelegate::selectRow(int64_t row) {
  if (!state_.CorvaneList.entry(row)) return;
  controls_.deviceTable.selectRow(row);
  tableViewSelectionIsChanging();
}

// Selection.

void AppDelegate::makeCurrent(const DeviceListEntry& entry) {
  state_.intProduct = static_cast<int64_t>(entry.family());
  state_.iconName = entry.image;
  if (entry.family() == AdapterFamily::FibreChannel) {
    state_.corvaneDevice = std::get<std::shared_ptr<Corvane2Device>>(entry.obj);
    state_.corvaneInfo = entry.info;
  } else {
    state_.corvaneDevice_10GE = std::get<std::shared_ptr<Corvane2Device_10GE>>(entry.obj);
  }
}

void AppDelegate::showSelection(const DeviceListEntry& entry) {
  makeCurrent(entry);
  if (entry.family() == AdapterFamily::FibreChannel) {
    showFibreChannelSelection();
  } else {
    showTenGigabitSelection(*state_.corvaneDevice_10GE);
  }
}

void AppDelegate::showFibreChannelSelection() {
  setUsablePorts(true, true);
  showPortPage(0);
}

// The device page comes first: the port page asks for the driver's version that it reads.
void AppDelegate::showTenGigabitSelection(const Corvane2Device_10GE& adapter) {
  const auto isEnabled = [](const std::shared_ptr<SEPort>& port) {
    return port && port->isAccessAbleflag() == 1;
  };
  const bool port1 = isEnabled(adapter.port1());
  const bool port2 = isEnabled(adapter.port2());
  setUsablePorts(port1, port2);
  if (!port1 && !port2) return showDevicePage();
  fillDevicePage();
  showPortPage(port1 ? 0 : 1);
}

void AppDelegate::showNoAdapter() {
  state_.corvaneInfo.reset();
  state_.corvaneDevice.reset();
  state_.corvaneDevice_10GE.reset();
  state_.selectPort = 0;
  setUsablePorts(true, true);
  controls_.deviceTable.selectRow(-1);
  controls_.tabView.selectTabViewItemAtIndex(static_cast<int64_t>(Page::NoAdapter));
  for (Button* button : {&controls_.port1Button, &controls_.port2Button, &controls_.deviceButton})
    button->setOn(false);
  controls_.clearPages();
}

// The pages.

void AppDelegate::selectTabButon(Button& button) {
  if (state_.CorvaneList.count() == 0) return;
  switch (static_cast<PageButtonTag>(button.tag())) {
    case PageButtonTag::Port1:
      return showPortPage(0);
    case PageButtonTag::Port2:
      return showPortPage(1);
    case PageButtonTag::Device:
      return showDevicePage();
  }
}

void AppDelegate::refreshInformation() {
  if (state_.CorvaneList.count() == 0) return;
  const int64_t portIndex = state_.selectPort == 2 ? 1 : 0;
  const Button& button = portIndex == 1 ? controls_.port2Button : controls_.port1Button;
  if (isDevicePageShown()) fillDevicePage();
  if (button.isEnabled()) fillPortPage(portIndex);
}

int64_t AppDelegate::compareDriverVersion() const {
  return DriverVersionComparison(state_).compareDriverVersion();
}

void AppDelegate::showAbout() {
  aboutDialog_.show();
}

void AppDelegate::showPortPage(int64_t portIndex) {
  const Page page =
      family() == AdapterFamily::FibreChannel ? Page::FibreChannelPort : Page::TenGigabitPort;
  controls_.tabView.selectTabViewItemAtIndex(static_cast<int64_t>(page));
  markPageButton(portIndex == 0 ? PageButtonTag::Port1 : PageButtonTag::Port2);
  fillPortPage(portIndex);
}

void AppDelegate::showDevicePage() {
  const Page page =
      family() == AdapterFamily::FibreChannel ? Page::FibreChannelDevice : Page::TenGigabitDevice;
  controls_.tabView.selectTabViewItemAtIndex(static_cast<int64_t>(page));
  markPageButton(PageButtonTag::Device);
  fillDevicePage();
}

void AppDelegate::fillPortPage(int64_t portIndex) {
  if (family() == AdapterFamily::FibreChannel) {
    fibreChannelPages_.show8GPortInfo(portIndex);
  } else {
    tenGigabitPages_.show10GportInfo(portIndex);
  }
  if (isDump_) correctDumpedPort(portIndex);
}

void AppDelegate::fillDevicePage() {
  if (family() == AdapterFamily::FibreChannel) {
    fibreChannelPages_.show8GDeviceInfo();
  } else {
    tenGigabitPages_.show10GDeviceInfo();
  }
  if (isDump_) correctDumpedDevice();
}

void AppDelegate::correctDumpedPort(int64_t portIndex) {
  if (family() == AdapterFamily::FibreChannel) {
    showDumpedFibreChannelPort(controls_, state_, portIndex);
  } else {
    showDumpedTenGigabitPort(controls_);
  }
}

void AppDelegate::correctDumpedDevice() {
  if (family() == AdapterFamily::FibreChannel) {
    showDumpedFibreChannelDevice(controls_, state_);
  } else {
    showDumpedTenGigabitDevice(controls_);
  }
}

void AppDelegate::markPageButton(PageButtonTag shown) {
  for (Button* button : {&controls_.port1Button, &controls_.port2Button, &controls_.deviceButton})
    button->setOn(button->tag() == static_cast<int64_t>(shown));
}

// The view asks for the rows at any time, and each time the buttons follow.
void AppDelegate::setUsablePorts(bool port1, bool port2) {
  port1Usable_ = port1;
  port2Usable_ = port2;
  numberOfRowsInTableView();
}

bool AppDelegate::isDevicePageShown() const {
  const auto page = static_cast<Page>(controls_.tabView.selectedIndex());
  return page == Page::FibreChannelDevice || page == Page::TenGigabitDevice;
}

AdapterFamily AppDelegate::family() const {
  return static_cast<AdapterFamily>(state_.intProduct);
}

}  // namespace corvane
