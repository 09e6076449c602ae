#pragma once

#include <cstdint>

#include "controls/Control.h"

namespace corvane {

/// A stack of pages of which one is on show.
class TabView : public Control {
 public:
  using Control::Control;

  int64_t selectedIndex() const { return selectedIndex_; }
  void selectTabViewItemAtIndex(int64_t index) { change(selectedIndex_, index); }

 private:
  int64_t selectedIndex_ = 0;
};

}  // namespace corvane
