#pragma once

#include <QDialog>

#include "controls/TextField.h"

namespace corvane {

/// A text shown at the button that asked for it, until the user clicks elsewhere or presses Escape.
class HelpPopover : public QDialog {
  Q_OBJECT

 public:
  HelpPopover(TextField& content, QWidget* parent);
};

}  // namespace corvane
