#pragma once

#include "controls/Button.h"
#include "controls/InterfaceWindow.h"
#include "controls/ProgressIndicator.h"
#include "controls/TableView.h"
#include "controls/TextField.h"

namespace corvane {

/// Every control of the update window, under the name that its widget has in the interface file.
/// Owned and filled by OnlineUpdate, rendered by the window. Main queue only.
struct UpdateWindowControls {
  explicit UpdateWindowControls(const Dispatch& dispatch);

  InterfaceWindow updateWindow;
  TextField updateState;             ///< what is being done, or why something was not done
  TableView updateTable;             ///< the candidates
  TextField updateMessage;           ///< the description of the selected candidate
  ProgressIndicator updateProgress;  ///< how far the download is
  Button updateButton;
  Button cancelButton;
};

}  // namespace corvane
