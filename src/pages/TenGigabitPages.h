#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "CLIParser/commandAPI.h"
#include "CLIParser/commandBody.h"
#include "changes/SettingChange.h"
#include "inventory/PortReaders.h"
#include "pages/FamilyPages.h"
#include "platform/OwnedMainWork.h"
#include "platform/Platform.h"
#include "window/ControllerState.h"

namespace corvane {

/// The 10GbE pages of the main window: renders what was read of the adapter on show, and carries
/// out what the user changes there, for the port that was on show when they began to.
///
/// Main thread only. Reads and changes of a setting block it until the tool has answered; a tool
/// that hangs is given up after commandTimeLimit. A preset alone is applied in the background; the
/// controls that would start another command are suspended and modeProgress runs until it is done.
class TenGigabitPages final : public FamilyPages {
 public:
  /// Gives the mode menu its items and the three changing controls their actions. `controls`,
  /// `state` and what the platform refers to outlive the object; a preset that is still being
  /// applied when the object goes is applied to its end.
  TenGigabitPages(const Platform& platform, MainWindowControls& controls, ControllerState& state);
  TenGigabitPages(const TenGigabitPages&) = delete;
  TenGigabitPages& operator=(const TenGigabitPages&) = delete;

  /// The channel for single commands. The lock asks with it whether the driver knows RSC.
  commandBody& command() { return command_; }

  /// From now on no driver and no tool answers: what only they could tell is not in the dump.
  void showDump() { isDump_ = true; }

  /// `settled` is called for each change of a setting with what came of it.
  void whenSettled(std::function<void(const ChangeOutcome&)> settled);

  /// Fills the port page for the adapter in the selected row: 0 is port 1, 1 is port 2. Without
  /// such an adapter nothing changes.
  void show10GportInfo(int64_t portIndex);

  /// Fills the device page for the adapter in the selected row and reads the driver's version.
  void show10GDeviceInfo();

  /// What the port page shows; nothing before a port was shown.
  const std::optional<TenGigabitPortReading>& reading() const { return reading_; }

  /// The port that the port page shows; nothing before one was shown.
  const std::optional<PortTarget>& portOnShow() const { return shown_; }

  /// The user switched a check box: the setting is written to the port on show, and saved.
  void enablePortTCPipv4(CheckBox& checkBox);
  void enablePortRSC(CheckBox& checkBox);

  /// The user chose a preset: it is applied, in the background, to the port that was on show when
  /// the menu was opened.
  void setUserMode(PopUpButton& menu);

  void showPort(int64_t portIndex) override { show10GportInfo(portIndex); }
  void showDevice() override { show10GDeviceInfo(); }
  UsablePorts usablePorts() const override;
  Page portPage() const override { return Page::TenGigabitPort; }
  Page devicePage() const override { return Page::TenGigabitDevice; }
  void letGoOfDeparted() override;

 private:
  std::optional<DeviceListEntry> selectedAdapter() const;
  TenGigabitPortReading readPort(const PortTarget& port);

  void renderPort();
  void renderModule();
  void renderMode();
  void renderChecksumOffload();
  void renderReceiveCoalescing();
  void renderLink();
  void renderDump();
  void renderProgress();

  std::vector<Control*> commandControls() const;
  void holdCommands(const PortTarget& port);
  void releaseCommands();

  void writeSetting(const SettingWish& wish);
  void applyInBackground(const PortTarget& port, const ChangeOutcome& begun);
  void settle(ChangeOutcome outcome);

  const Platform platform_;
  MainWindowControls& controls_;
  ControllerState& state_;
  std::function<void(const ChangeOutcome&)> settled_;
  commandBody command_;
  std::shared_ptr<commandAPI> setCommand_;  ///< shared with the preset that is being applied
  TenGigabitPortReader reader_;
  std::optional<PortTarget> shown_;               ///< the port that the port page shows
  std::optional<TenGigabitPortReading> reading_;  ///< of it
  std::optional<PortTarget> modeTarget_;          ///< what the open mode menu is for
  std::optional<PortTarget> busy_;                ///< the port that a preset is being applied to
  bool isDump_ = false;
  OwnedMainWork<TenGigabitPages> mainWork_;
};

/// Shown in place of the module's name when the adapter cannot use the module.
extern const char* const wrongModuleWarning10G;

}  // namespace corvane
