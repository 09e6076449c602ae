#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "controls/InterfaceWindow.h"
#include "platform/Platform.h"
#include "window/ControllerState.h"
#include "window/MainWindowControls.h"

namespace corvane {

class CorvaneAPI;
class FCPort;
class SFPController;

/// The device page and the two port pages of a Fibre Channel adapter: fills them from the driver
/// and carries out what the user chooses in their menus.
///
/// Main queue only, save for reload8GSetting. Changes of a port's settings run on the background
/// queue and outlive the object, which they then leave alone.
class FibreChannelPages {
 public:
  /// Fills the menus and connects itself to the pages' controls. `sfp` gets the texts of each
  /// module found. `compareDriverVersion` answers 0 when the driver's version suits the pages.
  FibreChannelPages(const Platform& platform, MainWindowControls& controls, ControllerState& state,
                    SFPController& sfp, std::function<int64_t()> compareDriverVersion);
  FibreChannelPages(const FibreChannelPages&) = delete;
  FibreChannelPages& operator=(const FibreChannelPages&) = delete;

  InterfaceWindow SFPHelp;  ///< the popover at the help button
  TextField SFPHelpContent;

  /// Fills the device page of the adapter on show. Does nothing when there is none.
  void show8GDeviceInfo();

  /// Fills the page of its first or second port, told by index 0 or 1.
  void show8GPortInfo(int64_t portIndex);

  /// The user chose an item: sets it for the port on show and follows the port until it has
  /// settled, about nine seconds, with `portProgress` running meanwhile. Nothing before a port was
  /// shown.
  void setPortSpeed(PopUpButton& menu);
  void setPortTopology(PopUpButton& menu);

  /// The address confirmed in the AL_PA sheet, likewise.
  void FinalChoosePortALPA(uint64_t alpa);

  /// The user chose a queue depth: sets it through the first port, whichever page is on show.
  void setDeviceQueueDepth(PopUpButton& menu);

  /// The queue depth confirmed in its sheet: sets it through the port on show.
  void FinalEnterQueueDepth(uint32_t depth);

  /// Follows a port after a change: reads it at once and three times more, three seconds apart,
  /// and says so on the page meanwhile. The port is the first one when its service is given, else
  /// the second one. Blocks its caller; never call it on the main queue. Ends quietly when the port
  /// goes, and leaves a page alone that meanwhile shows another port.
  void reload8GSetting(RegistryHandle port1, RegistryHandle port2);

  /// Opens the help popover, or closes it.
  void clickSFPHelp(Button& button);

 private:
  /// A port and what keeps it alive while work on it goes on.
  struct Port {
    std::shared_ptr<Corvane2Info> info;
    std::shared_ptr<Corvane2Device> device;
    std::shared_ptr<FCPort> record;
    int64_t number = 0;                          ///< 1 or 2
    std::shared_ptr<const RegistryObject> held;  ///< the service as it was when the work began

    RegistryHandle service() const { return held->get(); }
    CorvaneAPI& api() const;
    bool isGone() const;
  };
  struct Refresh;
  using Setting = std::function<void(const CorvaneAPI& api, RegistryHandle service)>;
  using WeakSelf = std::weak_ptr<FibreChannelPages*>;

  std::optional<Port> port(int64_t number) const;
  static std::shared_ptr<FCPort> record(const Corvane2Device& device, int64_t number);
  std::string productType() const;
  bool isOnShow(const Port& port) const;

  void readDriverVersion();
  void showTransceiver(const Port& port);
  void showModule(const Port& port);
  void showNames(const Port& port);
  void showLink(const Port& port, const std::string& withoutLink);

  void changeSetting(const Setting& set);
  void setQueueDepth(int64_t portNumber, uint32_t depth);

  static void follow(Dispatch& dispatch, const WeakSelf& self,
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
  std::function<int64_t()> compareDriverVersion_;
  /// What waits on the main queue reaches the pages by it, and finds out by it that they are gone.
  std::shared_ptr<FibreChannelPages*> self_;
};

}  // namespace corvane
