#pragma once

#include "controls/Button.h"
#include "controls/CheckBox.h"
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

/// Every control of the main window, under the name that its widget has in the interface file.
/// Owned by AppDelegate, filled by the page controllers, rendered by the window. Main queue only.
struct MainWindowControls {
  explicit MainWindowControls(const Dispatch& dispatch);

  /// Empties what the pages show of an adapter.
  void clearPages();

  // The device list and what chooses the page.
  TableView deviceTable;
  TabView tabView;
  Button port1Button;
  Button port2Button;
  Button deviceButton;
  Button refreshButton;

  // The bar below, and the menus.
  Menu fuckMenu;  ///< the application menu
  Button checkUpdate;
  Button updateFW;
  Button downloadLogs;
  Button authView;  ///< the lock; on while it is open
  ProgressIndicator logProgress;

  // Fibre Channel device page.
  TextField drvVer_8G;
  TextField fwVer;
  TextField deviceWWN;
  TextField productType;
  PopUpButton setQueueDepth;
  Button queueDepthButton;  ///< opens the queue-depth sheet

  // Fibre Channel port page.
  TextField WWNN;  ///< shows the port's name
  TextField currentSpeed;
  TextField currentTopology;
  PopUpButton setSpeed;
  PopUpButton setTopology;
  TextField hardALPA;
  Button chooseALPA;  ///< opens the AL_PA sheet
  Button SFPInfoButton;
  TextField SFPErrorMessage;
  Button SFPHelpButton;
  ProgressIndicator portProgress;  ///< a change is on its way

  // 10GbE device page.
  TextField drvVer_10GE;
  TextField productType10G;

  // 10GbE port page.
  TextField macAddress;
  TextField enName;
  TextField enStatus;
  TextField MTUvalue;
  TextField SFPTypeLabel;
  TextField SFPInfoContent;
  TextField SFPInfoModule;
  TextField SFPerrrorMessage10G;
  PopUpButton settingMode;
  CheckBox enableTCPipv4;
  CheckBox enableRSC;
  ProgressIndicator modeProgress;  ///< a preset is being applied
};

}  // namespace corvane
