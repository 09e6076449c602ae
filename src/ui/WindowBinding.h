#pragma once

#include <functional>

#include "controls/InterfaceWindow.h"

class QDialog;
class QWidget;

namespace corvane {

enum class WindowForm {
  Sheet,    ///< window-modal, on its parent
  Window,   ///< a window of its own
  Popover,  ///< a popup below its parent, gone with a click elsewhere
};

/// Renders `window` by a dialog that `make` builds when it is loaded and that goes when it is
/// dropped. Escape and the close button go to the window's close action. The binding lives as long
/// as `parent`, which `make` gets as the dialog's parent.
void bindWindow(InterfaceWindow& window, QWidget& parent, WindowForm form,
                std::function<QDialog*(QWidget* parent)> make);

}  // namespace corvane
