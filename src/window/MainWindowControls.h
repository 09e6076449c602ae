#pragma once

#include <vector>

#include "controls/Button.h"
#include "controls/CheckBox.h"
#include "controls/ControlSet.h"
#include "controls/Menu.h"
#include "controls/PopUpButton.h"
#include "controls/ProgressIndicator.h"
#include "controls/TabView.h"
#include "controls/TableView.h"
#include "controls/TextField.h"

namespace corvane {

/// The pages of `tabView`, by index.
enum class Page : int64_t {
  NoAdapter = 0,
  FibreChannelPort = 1,
  FibreChannelDevice = 2,
  TenGigabitPort = 3,
  TenGigabitDevice = 4,
};

// The controls of the main window: one set a page, each control declared once, under the name that
// its widget has in the interface file. Those that change an adapter are marked; the lock guards
// just these.

/// The device list, and what chooses the page.
struct ListControls : ControlSet {
  using ControlSet::ControlSet;

  TableView deviceTable{*this, "deviceTable"};
  TabView tabView{*this, "tabView"};
  Button port1Button{*this, "port1Button"};
  Button port2Button{*this, "port2Button"};
  Button deviceButton{*this, "deviceButton"};
  Button refreshButton{*this, "refreshButton"};
};

/// The bar below, and the menus.
struct BarControls : ControlSet {
  using ControlSet::ControlSet;

  Menu fuckMenu{*this, "fuckMenu"};  ///< the application menu
  Button checkUpdate{*this, "checkUpdate", ControlRole::ChangesAdapter};
  Button updateFW{*this, "updateFW", ControlRole::ChangesAdapter};
  Button downloadLogs{*this, "downloadLogs"};
  Button authView{*this, "authView"};  ///< the lock; on while it is open
  ProgressIndicator logProgress{*this, "logProgress"};
};

struct FibreChannelDeviceControls : ControlSet {
  using ControlSet::ControlSet;

  TextField drvVer_8G{*this, "drvVer_8G"};
  TextField fwVer{*this, "fwVer"};
  TextField deviceWWN{*this, "deviceWWN"};
  TextField productType{*this, "productType"};
  PopUpButton setQueueDepth{*this, "setQueueDepth", ControlRole::ChangesAdapter};
  /// Opens the queue-depth sheet.
  Button queueDepthButton{*this, "queueDepthButton", ControlRole::ChangesAdapter};
};

struct FibreChannelPortControls : ControlSet {
  using ControlSet::ControlSet;

  TextField WWNN{*this, "WWNN"};  ///< shows the port's name
  TextField currentSpeed{*this, "currentSpeed"};
  TextField currentTopology{*this, "currentTopology"};
  PopUpButton setSpeed{*this, "setSpeed", ControlRole::ChangesAdapter};
  PopUpButton setTopology{*this, "setTopology", ControlRole::ChangesAdapter};
  TextField hardALPA{*this, "hardALPA"};
  /// Opens the AL_PA sheet.
  Button chooseALPA{*this, "chooseALPA", ControlRole::ChangesAdapter};
  Button SFPInfoButton{*this, "SFPInfoButton"};
  TextField SFPErrorMessage{*this, "SFPErrorMessage"};
  Button SFPHelpButton{*this, "SFPHelpButton"};
  ProgressIndicator portProgress{*this, "portProgress"};  ///< a change of this port is on its way
};

struct TenGigabitDeviceControls : ControlSet {
  using ControlSet::ControlSet;

  TextField drvVer_10GE{*this, "drvVer_10GE"};
  TextField productType10G{*this, "productType10G"};
};

struct TenGigabitPortControls : ControlSet {
  using ControlSet::ControlSet;

  TextField macAddress{*this, "macAddress"};
  TextField enName{*this, "enName"};
  TextField enStatus{*this, "enStatus"};
  TextField MTUvalue{*this, "MTUvalue"};
  TextField SFPTypeLabel{*this, "SFPTypeLabel"};
  TextField SFPInfoContent{*this, "SFPInfoContent"};
  TextField SFPInfoModule{*this, "SFPInfoModule"};
  TextField SFPerrrorMessage10G{*this, "SFPerrrorMessage10G"};
  PopUpButton settingMode{*this, "settingMode", ControlRole::ChangesAdapter};
  CheckBox enableTCPipv4{*this, "enableTCPipv4", ControlRole::ChangesAdapter};
  CheckBox enableRSC{*this, "enableRSC", ControlRole::ChangesAdapter};
  ProgressIndicator modeProgress{*this,
                                 "modeProgress"};  ///< a preset is being applied to this port
};

/// Every control of the main window. Owned by AppDelegate, filled by the page controllers, rendered
/// by the window. Main queue only.
struct MainWindowControls : ListControls,
                            BarControls,
                            FibreChannelDeviceControls,
                            FibreChannelPortControls,
                            TenGigabitDeviceControls,
                            TenGigabitPortControls {
  explicit MainWindowControls(const Dispatch& dispatch);

  /// Empties what the pages show of an adapter.
  void clearPages();

  /// All controls that change an adapter.
  std::vector<Control*> changing() const;

 private:
  std::vector<const ControlSet*> pages() const;
};

}  // namespace corvane
