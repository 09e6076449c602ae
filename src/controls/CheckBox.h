#pragma once

#include <functional>
#include <utility>

#include "controls/Control.h"

namespace corvane {

/// A check box that is on or off.
class CheckBox : public Control {
 public:
  using Control::Control;

  bool isOn() const { return on_; }
  void setOn(bool on) { change(on_, on); }

  /// The state as a number: 1 on, 0 off.
  int64_t state() const { return on_ ? 1 : 0; }

  /// What a change by the user does; on the main queue, after the state has changed.
  void setAction(std::function<void(CheckBox&)> action) { action_ = std::move(action); }

  /// The user switched it. Ignored while it is disabled or hidden.
  void choose(bool on) {
    requireMain();
    if (!isUsable()) return;
    setOn(on);
    if (action_) action_(*this);
  }

 private:
  bool on_ = false;
  std::function<void(CheckBox&)> action_;
};

}  // namespace corvane
