#pragma once

#include <cstdint>
#include <functional>

#include "OnlyIntegerValueFormatter.h"
#include "controls/EntryField.h"
#include "controls/InterfaceWindow.h"
#include "platform/Platform.h"
#include "window/MainWindowControls.h"

namespace corvane {

/// The sheet in which a queue depth of one's own is entered. Main queue only.
class FCQDepthViewController {
 public:
  /// `FinalEnterQueueDepth` gets a confirmed value. Connects itself to the device page's button.
  FCQDepthViewController(const Platform& platform, MainWindowControls& controls,
                         std::function<void(uint32_t depth)> FinalEnterQueueDepth);
  FCQDepthViewController(const FCQDepthViewController&) = delete;
  FCQDepthViewController& operator=(const FCQDepthViewController&) = delete;

  InterfaceWindow QDepthWindow;
  EntryField depthEntry;  ///< "setQDepthSetting" in the interface file
  TextField qDepthSettingErrorMessage;

  /// Shows the sheet, loading it first.
  void showQDepth();

  /// The confirm button: hands on the number entered and closes the sheet. An entry of 0 or none
  /// gives a message instead, and the sheet stays. A negative number is handed on as its 32 bits.
  void setQDepthSetting();

  void cancelWindow();

 private:
  OnlyIntegerValueFormatter formatter_;
  std::function<void(uint32_t)> FinalEnterQueueDepth_;
};

}  // namespace corvane
