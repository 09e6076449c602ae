#pragma once

#include "controls/Control.h"

namespace corvane {

/// A menu of the menu bar, as far as its items are concerned together.
class Menu : public Control {
 public:
  using Control::Control;

  /// Whether the menu's items are enabled by the toolkit rather than by hand.
  bool autoenablesItems() const { return autoenablesItems_; }
  void setAutoenablesItems(bool enables) { change(autoenablesItems_, enables); }

 private:
  bool autoenablesItems_ = true;
};

}  // namespace corvane
