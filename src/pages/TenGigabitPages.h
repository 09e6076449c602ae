#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "CLIParser/commandAPI.h"
#include "CLIParser/commandBody.h"
#include "platform/Platform.h"
#include "window/ControllerState.h"
#include "window/MainWindowControls.h"

namespace corvane {

class Corvane2Device_10GE;
class SEPort;

/// The 10GbE pages of the main window: fills them and carries out what the user changes there.
///
/// Main thread only. Reads and changes of a setting block it until the tool has answered; a tool
/// that hangs is given up after commandTimeLimit. A preset alone is applied in the background; the
/// controls that would start another command are suspended and modeProgress runs until it is done.
class TenGigabitPages {
 public:
  /// Gives the mode menu its items and the three changing controls their actions.
  /// `compareDriverVersion` tells whether the installed driver is too old for the settings: 0 when
  /// it is not. `controls`, `state` and what the platform refers to outlive the object; a preset
  /// that is still being applied when the object goes is applied to its end.
  TenGigabitPages(const Platform& platform, MainWindowControls& controls, ControllerState& state,
                  std::function<int64_t()> compareDriverVersion);
  TenGigabitPages(const TenGigabitPages&) = delete;
  TenGigabitPages& operator=(const TenGigabitPages&) = delete;

  /// The channel for single commands. The lock asks with it whether the driver knows RSC.
  commandBody& command() { return command_; }

  /// Fills the port page for the adapter in the selected row: 0 is port 1, 1 is port 2. Without
  /// such an adapter nothing changes.
  void show10GportInfo(int64_t portIndex);

  /// Fills the device page for the adapter in the selected row and reads the driver's version.
  void show10GDeviceInfo();

  /// The user switched a check box: the setting is written to the port on show, and saved.
  void enablePortTCPipv4(CheckBox& checkBox);
  void enablePortRSC(CheckBox& checkBox);

  /// The user chose a preset: it is applied to the port on show, in the background.
  void setUserMode(PopUpButton& menu);

 private:
  std::shared_ptr<Corvane2Device_10GE> selectedAdapter() const;

  void showSettings(const Corvane2Device_10GE& adapter, const SEPort& port);
  void disableSettings(int64_t portIndex);
  int64_t findModuleClass(const Corvane2Device_10GE& adapter, const SEPort& port);
  void showModule(int64_t moduleClass);
  void showMode();
  void showChecksumOffload();
  void showReceiveCoalescing();
  void showLink();

  std::vector<Control*> commandControls() const;
  void holdCommands();
  void releaseCommands();

  void useInterfaceOnShow();
  void writeAndSave(const char* title, int64_t value);

  const Platform platform_;
  MainWindowControls& controls_;
  ControllerState& state_;
  std::function<int64_t()> compareDriverVersion_;
  commandBody command_;
  std::shared_ptr<commandAPI> setCommand_;  ///< shared with the preset that is being applied
  std::shared_ptr<TenGigabitPages*> self_;  ///< by it a preset that has ended reaches the pages
};

/// Shown in place of the module's name when the adapter cannot use the module.
extern const char* const wrongModuleWarning10G;

}  // namespace corvane
