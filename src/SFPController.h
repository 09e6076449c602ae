#pragma once

#include <array>
#include <optional>
#include <string>

#include "controls/InterfaceWindow.h"
#include "inventory/PortTarget.h"
#include "platform/Platform.h"
#include "window/MainWindowControls.h"

namespace corvane {

class Corvane2Info;

/// The sheet that describes a port's transceiver. It shows the texts that it was last given; the
/// port page gives them each time it is shown. It closes when the port whose texts it shows goes.
/// Main queue only.
class SFPController {
 public:
  /// Connects itself to the port page's button.
  SFPController(const Platform& platform, MainWindowControls& controls);
  SFPController(const SFPController&) = delete;
  SFPController& operator=(const SFPController&) = delete;

  InterfaceWindow SFPWindow;  ///< "SFPController"
  TextField TransceiverInfo;
  TextField TransceiverCodeInfo;
  TextField ConnectorInfo;
  TextField SerialEncodingInfo;
  TextField BitrateInfo;
  TextField VendorNameInfo;
  TextField VendorOUIInfo;
  TextField VendorPNInfo;
  TextField VendorRevInfo;
  TextField VendorSNInfo;
  TextField ManuDataInfo;

  /// Takes the texts of the device's first or second port, told by `portNum` 1 or 2. Any other
  /// number changes nothing.
  void setSFPwindowItem(const Corvane2Info& info, int64_t portNum);

  /// The same, and takes the port for what the sheet is about.
  void describe(const PortTarget& port);

  /// Shows the sheet, loading it if needed, with the texts last taken. A text that no module has
  /// told shows as empty.
  void showSFPInfo();

  void cancelWindow();

  /// Closes the sheet when the port that it is about has gone.
  void letGoOfDeparted();

 private:
  static constexpr size_t textCount = 11;

  std::array<TextField*, textCount> fields();

  std::array<std::optional<std::string>, textCount> texts_;
  std::optional<PortTarget> described_;  ///< the port whose texts were taken last
  std::optional<PortTarget> target_;     ///< what the sheet is about while it is shown
};

}  // namespace corvane
