#pragma once

#include <string>

#include "controls/Control.h"

namespace corvane {

/// A text that the user reads, or a label or frame of which only the visibility matters.
class TextField : public Control {
 public:
  using Control::Control;

  const std::string& text() const { return text_; }
  void setText(const std::string& text) { change(text_, text); }
  void clear() override { setText(""); }

 private:
  std::string text_;
};

}  // namespace corvane
