#pragma once

#include <cstdint>
#include <functional>

#include "OnlyIntegerValueFormatter.h"
#include "controls/EntryField.h"
#include "controls/InterfaceWindow.h"
#include "inventory/PortOnShow.h"
#include "platform/Platform.h"
#include "window/MainWindowControls.h"

namespace corvane {

/// The sheet in which a queue depth of one's own is entered. It is for the port that was on show
/// when it was opened, and closes when that port goes. Main queue only.
class FCQDepthViewController {
 public:
  using Confirmed = std::function<void(const PortTarget& port, uint32_t depth)>;

  /// `portOnShow` tells what the sheet is opened for; `FinalEnterQueueDepth` gets a confirmed
  /// value. Connects itself to the device page's button.
  FCQDepthViewController(const Platform& platform, MainWindowControls& controls,
                         PortOnShow portOnShow, Confirmed FinalEnterQueueDepth);
  FCQDepthViewController(const FCQDepthViewController&) = delete;
  FCQDepthViewController& operator=(const FCQDepthViewController&) = delete;

  InterfaceWindow QDepthWindow;
  EntryField depthEntry;  ///< "setQDepthSetting" in the interface file
  TextField qDepthSettingErrorMessage;

  /// Shows the sheet, loading it first, for the port on show; does nothing without one.
  void showQDepth();

  /// The confirm button: hands on the number entered and closes the sheet. An entry of 0 or none
  /// gives a message instead, and the sheet stays. A negative number is handed on as its 32 bits.
  void setQDepthSetting();

  void cancelWindow();

  /// Closes the sheet when the port that it is for has gone.
  void letGoOfDeparted();

 private:
  OnlyIntegerValueFormatter formatter_;
  PortOnShow portOnShow_;
  Confirmed FinalEnterQueueDepth_;
  std::optional<PortTarget> target_;  ///< what the sheet is for while it is loaded
};

}  // namespace corvane
