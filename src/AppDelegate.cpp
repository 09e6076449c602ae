#include "AppDelegate.h"

#include <utility>

#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "changes/ChangeHistory.h"
#include "discovery/DriverFitness.h"
#include "inventory/DeviceListEntries.h"

namespace corvane {

namespace {

constexpr int64_t tableRowHeight = 40;

}  // namespace

AppDelegate::AppDelegate(const Platform& platform)
    : platform_(platform),
      controls_(platform.dispatch),
      mainWindow_(platform.dispatch, "MainWindow"),
      aboutDialog_(platform.dispatch, platform.bundles),
      inventory_(platform, state_.CorvaneList),
      sfpController_(platform, controls_),
      fibreChannelPages_(platform, controls_, state_, sfpController_),
      matrixController_(
          platform, controls_, [this] { return fibreChannelPages_.portOnShow(); },
          [this](const PortTarget& port, uint64_t alpa) {
            fibreChannelPages_.FinalChoosePortALPA(port, alpa);
          }),
      queueDepthController_(
          platform, controls_, [this] { return fibreChannelPages_.portOnShow(); },
          [this](const PortTarget& port, uint32_t depth) {
            fibreChannelPages_.FinalEnterQueueDepth(port, depth);
          }),
      volumes_(platform),
      firmwareUpdate_(platform, controls_, state_, state_.updateAlert, volumes_,
                      [this] { return inventory_.device().getBSDVolumeList(); }),
      onlineUpdate_(platform, {controls_, state_, volumes_,
                               [this] { return inventory_.device().getBSDVolumeList(); },
                               [this] { return firmwareUpdate_.isRunning(); }}),
      tenGigabitPages_(platform, controls_, state_),
      pageSelection_(controls_, state_, fibreChannelPages_, tenGigabitPages_),
      logCollection_(platform, controls_),
      administratorLock_(platform, controls_, tenGigabitPages_.command(),
                         [this] { return driverFitness(); }),
      mainWork_(platform.dispatch, *this) {
  connectControls();
}

void AppDelegate::connectControls() {
  for (Button* button : {&controls_.port1Button, &controls_.port2Button, &controls_.deviceButton})
    button->setAction([this](Button& clicked) { selectTabButon(clicked); });
  controls_.refreshButton.setAction([this](Button&) { refreshInformation(); });
  fibreChannelPages_.whenSettled([this](const ChangeOutcome& outcome) { settled(outcome); });
  tenGigabitPages_.whenSettled([this](const ChangeOutcome& outcome) { settled(outcome); });
  controls_.deviceTable.setAction([this](TableView&) { tableViewSelectionIsChanging(); });
}

// The application's life.

void AppDelegate::applicationDidFinishLaunching() {
  administratorLock_.setUp();
  prepareControls();
  prepareUpdateAlert();
  inventory_.whenAdaptersChange([this](const auto& events) { follow(events); });
  inventory_.observeMonitors();
  administratorLock_.giveToolAdministratorRights();
  administratorLock_.openIfHeld();
  inventory_.startMonitors();
  volumes_.tellLeftUnmounted();
}

bool AppDelegate::applicationShouldHandleReopen(bool) {
  mainWindow_.load();
  mainWindow_.show();
  return true;
}

void AppDelegate::showAsDump(const std::string& reason) {
  inventory_.expectNoDriver();
  fibreChannelPages_.showDump();
  tenGigabitPages_.showDump();
  administratorLock_.keepClosed(reason);
  controls_.downloadLogs.setEnabled(false);
  controls_.downloadLogs.setHint(reason);
}

void AppDelegate::whenSettled(std::function<void(const ChangeOutcome&)> told) {
  told_ = std::move(told);
}

void AppDelegate::settled(const ChangeOutcome& outcome) {
  recordChanges(platform_.paths, {outcome});
  if (told_) told_(outcome);
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
  pageSelection_.showNothing();
}

void AppDelegate::prepareUpdateAlert() {
  state_.updateAlert.buttons = {{"OK"}, {"Cancel"}};
}

// Adapters that come and go. What is open for one that has gone closes; everything else that is
// open or under way stays with its own adapter.
void AppDelegate::follow(const std::vector<AdapterEvent>& events) {
  reloadDeviceTable();
  sfpController_.letGoOfDeparted();
  matrixController_.letGoOfDeparted();
  queueDepthController_.letGoOfDeparted();
  fibreChannelPages_.letGoOfDeparted();
  tenGigabitPages_.letGoOfDeparted();
  for (const AdapterEvent& event : events)
    if (event.hasArrived) pageSelection_.prepare(event.entry);
  showFirstRowSoon();
  for (const AdapterEvent& event : events)
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
  mainWork_.async([](AppDelegate& self) {
    if (std::exchange(self.firstRowAwaited_, false)) self.showFirstRow();
  });
}

void AppDelegate::showFirstRow() {
  state_.intSelectRow = 0;
  const auto entry = state_.CorvaneList.entry(0);
  if (!entry) return pageSelection_.showNothing();
  controls_.deviceTable.selectRow(0);
  pageSelection_.show(*entry);
  administratorLock_.pageWasShown();
}

// The device table.

int64_t AppDelegate::numberOfRowsInTableView() {
  pageSelection_.enableButtons();
  return static_cast<int64_t>(state_.CorvaneList.count());
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
  const auto entry = state_.CorvaneList.entry(state_.intSelectRow);
  if (!entry) return;
  pageSelection_.show(*entry);
  administratorLock_.pageWasShown();
}

void AppDelegate::selectRow(int64_t row) {
  if (!state_.CorvaneList.entry(row)) return;
  controls_.deviceTable.selectRow(row);
  tableViewSelectionIsChanging();
}

// The pages.

void AppDelegate::selectTabButon(Button& button) {
  pageSelection_.press(static_cast<PageButtonTag>(button.tag()));
  administratorLock_.pageWasShown();
}

void AppDelegate::refreshInformation() {
  pageSelection_.refresh();
  administratorLock_.pageWasShown();
}

int64_t AppDelegate::driverFitness() const {
  const auto family = static_cast<AdapterFamily>(state_.intProduct);
  return compareDriverVersion(family, family == AdapterFamily::FibreChannel
                                          ? state_.driverVersion_8G
                                          : state_.driverVersion_10G);
}

void AppDelegate::showAbout() {
  aboutDialog_.show();
}

}  // namespace corvane
