#pragma once

#include "controls/InterfaceWindow.h"
#include "controls/TextField.h"
#include "platform/Bundles.h"

namespace corvane {

/// The About box, a window of its own from the interface file "AboutDialog". Main queue only.
class AboutDialog {
 public:
  /// The bundles outlive the dialog.
  AboutDialog(const Dispatch& dispatch, Bundles& bundles);

  InterfaceWindow window;
  TextField labelUtilityName;
  TextField labelVersion;
  TextField labelCopyright;

  /// Closes the box if it is open and shows a fresh one.
  void show();

 private:
  void windowDidLoad();

  Bundles& bundles_;
};

}  // namespace corvane
