#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "changes/SettingChange.h"
#include "controls/InterfaceWindow.h"
#include "inventory/PortReaders.h"
#include "pages/FamilyPages.h"
#include "platform/OwnedMainWork.h"
#include "platform/Platform.h"
#include "window/ControllerState.h"

namespace corvane {

class SFPController;

/// Shown beside a module that the adapter cannot use, on every model alike.
extern const char* const wrongModuleText;

/// The device page and the two port pages of a Fibre Channel adapter: renders what was read of the
/// adapter on show, and carries out what the user chooses, for the port that was on show when they
/// began to choose.
///
/// Main queue only, save for reload8GSetting. Changes of a port's settings run on the background
/// queue and outlive the object, which they then leave alone.
class FibreChannelPages final : public FamilyPages {
 public:
  /// Fills the menus and connects itself to the pages' controls. `sfp` gets the texts of each
  /// module found.
  FibreChannelPages(const Platform& platform, MainWindowControls& controls, ControllerState& state,
                    SFPController& sfp);
  FibreChannelPages(const FibreChannelPages&) = delete;
  FibreChannelPages& operator=(const FibreChannelPages&) = delete;

  InterfaceWindow SFPHelp;  ///< the popover at the help button
  TextField SFPHelpContent;

  /// From now on no driver answers: what only one could tell is not in the dump.
  void showDump() { isDump_ = true; }

  /// `settled` is called for each change of a setting with what came of it.
  void whenSettled(std::function<void(const ChangeOutcome&)> settled);

  /// Fills the device page of the adapter on show. Does nothing when there is none.
  void show8GDeviceInfo();

  /// Fills the page of its first or second port, told by index 0 or 1.
  void show8GPortInfo(int64_t portIndex);

  /// What the port page shows; nothing before a port was shown.
  const std::optional<FibreChannelPortReading>& reading() const { return reading_; }

  /// The port on show, for whatever begins now and is for this port; nothing when there is none.
  std::optional<PortTarget> portOnShow() const;

  /// The user chose an item: sets it for the port that was on show when the menu was opened, and
  /// follows the port until it has settled, about nine seconds, with `portProgress` running
  /// meanwhile. Nothing before a port was shown.
  void setPortSpeed(PopUpButton& menu);
  void setPortTopology(PopUpButton& menu);

  /// The address confirmed in the AL_PA sheet, for the port that it was opened for.
  void FinalChoosePortALPA(const PortTarget& port, uint64_t alpa);

  /// The user chose a queue depth: sets it through the first port of the adapter that was on show
  /// when the menu was opened.
  void setDeviceQueueDepth(PopUpButton& menu);

  /// The queue depth confirmed in its sheet: sets it through the port that it was opened for.
  void FinalEnterQueueDepth(const PortTarget& port, uint32_t depth);

  /// Follows a port after a change: reads it at once and three times more, three seconds apart,
  /// and says so on the page meanwhile. The port is the first one when its service is given, else
  /// the second one. Blocks its caller; never call it on the main queue. Ends quietly when the port
  /// goes, and leaves a page alone that meanwhile shows another port.
  void reload8GSetting(RegistryHandle port1, RegistryHandle port2);

  /// Opens the help popover, or closes it.
  void clickSFPHelp(Button& button);

  void showPort(int64_t portIndex) override { show8GPortInfo(portIndex); }
  void showDevice() override { show8GDeviceInfo(); }
  UsablePorts usablePorts() const override { return {}; }
  Page portPage() const override { return Page::FibreChannelPort; }
  Page devicePage() const override { return Page::FibreChannelDevice; }
  void letGoOfDeparted() override;

 private:
  struct Refresh;

  std::optional<PortTarget> target(int64_t number) const;
  std::string productType() const;
  bool isOnShow(const PortTarget& port) const;

  void bindMenu(PopUpButton& menu, std::function<std::optional<PortTarget>()> port);
  std::optional<PortTarget> targetOf(const PopUpButton& menu) const;

  FibreChannelPortReading readPort(const PortTarget& port);
  void renderPort();
  void renderSettings();
  void renderModule();
  void renderLink(const std::string& withoutLink);
  void renderDump();
  void renderProgress();
  void renderDevice(const PortTarget& first, const FibreChannelPortInformation& told);

  void change(const std::optional<PortTarget>& port, const SettingWish& wish);
  void changeQueueDepth(const std::optional<PortTarget>& port, uint32_t depth);
  void settle(const ChangeOutcome& outcome);

  static void follow(Dispatch& dispatch, const OwnedMainWork<FibreChannelPages>::Way& way,
                     const std::shared_ptr<Refresh>& refresh);
  void beginRefresh(Refresh& refresh);
  void continueRefresh(Refresh& refresh);
  void endRefresh(Refresh& refresh);
  bool reread(Refresh& refresh);
  void stopRefresh(Refresh& refresh);

  const Platform platform_;
  MainWindowControls& controls_;
  ControllerState& state_;
  SFPController& sfp_;
  std::function<void(const ChangeOutcome&)> settled_;
  std::optional<PortTarget> shown_;                 ///< the port that the port page shows
  std::optional<FibreChannelPortReading> reading_;  ///< of it
  std::vector<PortTarget> busy_;                    ///< the ports that are followed after a change
  std::vector<std::pair<PopUpButton*, PortTarget>> openMenus_;
  bool isDump_ = false;
  OwnedMainWork<FibreChannelPages> mainWork_;
};

}  // namespace corvane
