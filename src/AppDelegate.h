#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AboutDialog.h"
#include "FCQDepthViewController.h"
#include "MatrixController.h"
#include "OnlineUpdate/OnlineUpdate.h"
#include "SFPController.h"
#include "controls/InterfaceWindow.h"
#include "firmware/FirmwareUpdate.h"
#include "firmware/Volumes.h"
#include "pages/FibreChannelPages.h"
#include "pages/TenGigabitPages.h"
#include "platform/Platform.h"
#include "support/AdministratorLock.h"
#include "support/LogCollection.h"
#include "window/ControllerState.h"
#include "window/MainWindowControls.h"

namespace corvane {

class DeviceMonitorCORVANE2;
class DeviceMonitorCORVANE2_10GE;

/// A cell of the device table.
struct DeviceTableCell {
  std::string identifier;  ///< which of the interface file's cells it is made from
  std::string text;        ///< two lines: the product and the label
  std::string image;       ///< icon file name

  bool operator==(const DeviceTableCell&) const = default;
};

/// An adapter that came or went, as the notification told it and as the list shows or showed it.
struct AdapterEvent {
  Notification notification;
  DeviceListEntry entry;
};

/// The tags of the three buttons that choose a page.
enum class PageButtonTag : int64_t { Port1 = 0, Port2 = 1, Device = 2 };

/// The application's controller. It owns the controls of the main window, what the pages share, the
/// two adapter monitors and the controllers of the pages; it keeps the device list as adapters come
/// and go and decides which page is on show. A face (the window, the command line) renders the
/// controls and calls the operations; it decides nothing itself.
///
/// Made, used and destroyed on the main thread, save for the notification handlers.
class AppDelegate {
 public:
  /// What the platform refers to outlives the controller.
  explicit AppDelegate(const Platform& platform);

  /// Stops both monitors and waits until nothing of theirs runs any more.
  ~AppDelegate();

  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;

  MainWindowControls& controls() { return controls_; }
  ControllerState& state() { return state_; }
  InterfaceWindow& mainWindow() { return mainWindow_; }
  AboutDialog& aboutDialog() { return aboutDialog_; }
  DeviceMonitorCORVANE2& device() { return *device_; }
  DeviceMonitorCORVANE2_10GE& device_10GE() { return *device_10GE_; }

  // The controllers of the pages, the sheets and the longer pieces of work.

  FibreChannelPages& fibreChannelPages() { return fibreChannelPages_; }
  SFPController& sfpController() { return sfpController_; }
  MatrixController& matrixController() { return matrixController_; }
  FCQDepthViewController& queueDepthController() { return queueDepthController_; }
  Volumes& volumes() { return volumes_; }
  FirmwareUpdate& firmwareUpdate() { return firmwareUpdate_; }
  OnlineUpdate& onlineUpdate() { return onlineUpdate_; }
  LogCollection& logCollection() { return logCollection_; }
  AdministratorLock& administratorLock() { return administratorLock_; }

  // The application's life.

  void applicationDidFinishLaunching();

  /// Makes the main window visible again; true.
  bool applicationShouldHandleReopen(bool hasVisibleWindows);

  /// For a computer of which there is a registry dump only: keeps every changing control disabled,
  /// with `reason` as its hint, and says of what no driver can tell that it is not in the dump. Set
  /// it before the launch.
  void showAsDump(const std::string& reason);

  /// `discovered` is called on the main queue once both monitors have started or failed to, after
  /// the adapters that were attached by then have been listed. Set it before the launch.
  void whenDiscovered(std::function<void()> discovered);

  /// Whether a monitor could not start, so that adapters of its family are not followed. Main queue
  /// only.
  bool hasFailedMonitor() const { return hasFailedMonitor_; }

  /// `followed` is called on the main queue for each adapter that comes or goes, after the list has
  /// changed. Set it before the launch.
  void whenAdaptersChange(std::function<void(const AdapterEvent&)> followed);

  // The monitors' notifications, on the posting thread. The list changes at once; everything else
  // follows on the main queue.

  void corvane2Appeared(const Notification& notification);
  void corvane2Disappeared(const Notification& notification);
  void corvane2Appeared_10GE(const Notification& notification);
  void corvane2Disappeared_10GE(const Notification& notification);

  // The device table.

  /// The number of adapters. The page buttons are enabled unless there is none; a port that the
  /// adapter on show has not enabled stays out of reach.
  int64_t numberOfRowsInTableView();

  /// The cell of a row; an empty one when there is no such row.
  DeviceTableCell tableViewViewForTableColumn(int64_t row) const;

  /// The user selected another row of the table: its first page is shown.
  void tableViewSelectionIsChanging();

  /// Selects the row as a user would. A row that does not exist changes nothing.
  void selectRow(int64_t row);

  // The pages.

  /// The user pressed one of the buttons that choose a page; its tag says which.
  void selectTabButon(Button& button);

  /// Reads anew what is on show.
  void refreshInformation();

  /// Whether the driver of the family on show is too old for the pages' settings: 0 when it is not,
  /// 1 or 2 when it is.
  int64_t compareDriverVersion() const;

  void showAbout();

 private:
  using Handler = void (AppDelegate::*)(const Notification&);

  void connectControls();
  void prepareControls();
  void prepareUpdateAlert();
  void registerForNotifications();
  void observe(const std::string& name, Handler handler);
  void startMonitors();
  void noteMonitorStart(int32_t status);
  void onMain(std::function<void(AppDelegate&)> work);

  void arrived(const Notification& notification, std::optional<DeviceListEntry> entry);
  void departed(const Notification& notification, std::vector<DeviceListEntry> entries);
  void showArrival(const AdapterEvent& event);
  void showDeparture(const std::vector<AdapterEvent>& events);
  void tell(const AdapterEvent& event) const;
  void reloadDeviceTable();
  void showFirstRowSoon();
  void showFirstRow();
  void makeCurrent(const DeviceListEntry& entry);
  void showSelection(const DeviceListEntry& entry);
  void showFibreChannelSelection();
  void showTenGigabitSelection(const Corvane2Device_10GE& adapter);
  void showNoAdapter();

  void showPortPage(int64_t portIndex);
  void showDevicePage();
  void fillPortPage(int64_t portIndex);
  void fillDevicePage();
  void correctDumpedPort(int64_t portIndex);
  void correctDumpedDevice();
  void markPageButton(PageButtonTag shown);
  void setUsablePorts(bool port1, bool port2);
  bool isDevicePageShown() const;
  AdapterFamily family() const;

  const Platform platform_;
  MainWindowControls controls_;
  ControllerState state_;
  InterfaceWindow mainWindow_;
  AboutDialog aboutDialog_;

  std::unique_ptr<DeviceMonitorCORVANE2> device_;
  std::unique_ptr<DeviceMonitorCORVANE2_10GE> device_10GE_;

  SFPController sfpController_;
  FibreChannelPages fibreChannelPages_;
  MatrixController matrixController_;
  FCQDepthViewController queueDepthController_;
  Volumes volumes_;
  FirmwareUpdate firmwareUpdate_;
  OnlineUpdate onlineUpdate_;
  TenGigabitPages tenGigabitPages_;
  LogCollection logCollection_;
  AdministratorLock administratorLock_;

  std::vector<std::unique_ptr<Observation>> observations_;
  std::function<void()> discovered_;
  std::function<void(const AdapterEvent&)> followed_;
  int monitorsStarting_ = 2;
  bool hasFailedMonitor_ = false;
  bool isDump_ = false;
  bool firstRowAwaited_ = false;
  bool port1Usable_ = true;  ///< whether the adapter on show has that port's page
  bool port2Usable_ = true;
  std::shared_ptr<AppDelegate*>
      self_;  ///< what waits on the main queue reaches the controller by it
};

}  // namespace corvane
