#pragma once

#include <cstdint>
#include <functional>
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
#include "inventory/DeviceInventory.h"
#include "pages/FibreChannelPages.h"
#include "pages/PageSelection.h"
#include "pages/TenGigabitPages.h"
#include "platform/Platform.h"
#include "support/AdministratorLock.h"
#include "support/LogCollection.h"
#include "window/ControllerState.h"
#include "window/MainWindowControls.h"

namespace corvane {

/// A cell of the device table.
struct DeviceTableCell {
  std::string identifier;  ///< which of the interface file's cells it is made from
  std::string text;        ///< two lines: the product and the label
  std::string image;       ///< icon file name

  bool operator==(const DeviceTableCell&) const = default;
};

/// The application's controller. It owns the controls of the main window, what the pages share, the
/// adapters that are attached and the controllers of the pages; it follows the adapters as they
/// come and go and puts a page on show. A face (the window, the command line) renders the controls
/// and calls the operations; it decides nothing itself.
///
/// Made, used and destroyed on the main thread.
class AppDelegate {
 public:
  /// What the platform refers to outlives the controller.
  explicit AppDelegate(const Platform& platform);

  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;

  MainWindowControls& controls() { return controls_; }
  ControllerState& state() { return state_; }
  InterfaceWindow& mainWindow() { return mainWindow_; }
  AboutDialog& aboutDialog() { return aboutDialog_; }
  DeviceInventory& inventory() { return inventory_; }

  // The controllers of the pages, the sheets and the longer pieces of work.

  FibreChannelPages& fibreChannelPages() { return fibreChannelPages_; }
  TenGigabitPages& tenGigabitPages() { return tenGigabitPages_; }
  PageSelection& pageSelection() { return pageSelection_; }
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

  /// `followed` is called on the main queue for each adapter that comes or goes, after the list has
  /// changed. Set it before the launch.
  void whenAdaptersChange(std::function<void(const AdapterEvent&)> followed);

  /// `told` is called on the main queue for each change of a setting with what came of it, after it
  /// has gone into the history.
  void whenSettled(std::function<void(const ChangeOutcome&)> told);

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
  int64_t driverFitness() const;

  void showAbout();

 private:
  void connectControls();
  void prepareControls();
  void prepareUpdateAlert();

  void follow(const std::vector<AdapterEvent>& events);
  void settled(const ChangeOutcome& outcome);
  void reloadDeviceTable();
  void showFirstRowSoon();
  void showFirstRow();

  const Platform platform_;
  MainWindowControls controls_;
  ControllerState state_;
  InterfaceWindow mainWindow_;
  AboutDialog aboutDialog_;
  DeviceInventory inventory_;

  SFPController sfpController_;
  FibreChannelPages fibreChannelPages_;
  MatrixController matrixController_;
  FCQDepthViewController queueDepthController_;
  Volumes volumes_;
  FirmwareUpdate firmwareUpdate_;
  OnlineUpdate onlineUpdate_;
  TenGigabitPages tenGigabitPages_;
  PageSelection pageSelection_;
  LogCollection logCollection_;
  AdministratorLock administratorLock_;

  std::function<void(const AdapterEvent&)> followed_;
  std::function<void(const ChangeOutcome&)> told_;
  bool firstRowAwaited_ = false;
  OwnedMainWork<AppDelegate> mainWork_;
};

}  // namespace corvane
