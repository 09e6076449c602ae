#pragma once

#include <functional>
#include <string>
#include <utility>

#include "controls/Control.h"

namespace corvane {

/// A push button, a menu item or one of a row of toggle buttons.
class Button : public Control {
 public:
  using Control::Control;

  const std::string& title() const { return title_; }
  void setTitle(const std::string& title) { change(title_, title); }

  /// Distinguishes the buttons that share one action.
  int64_t tag() const { return tag_; }
  void setTag(int64_t tag) { change(tag_, tag); }

  /// Whether a toggle button is on.
  bool isOn() const { return on_; }
  void setOn(bool on) { change(on_, on); }

  /// What clicking does; on the main queue.
  void setAction(std::function<void(Button&)> action) { action_ = std::move(action); }

  /// The user clicked. Ignored while the button is disabled or hidden.
  void click() {
    requireMain();
    if (isUsable() && action_) action_(*this);
  }

 private:
  std::string title_;
  int64_t tag_ = 0;
  bool on_ = false;
  std::function<void(Button&)> action_;
};

}  // namespace corvane
