#pragma once

#include <functional>
#include <string>

#include "platform/Dispatch.h"

namespace corvane {

/// The model of one control of the window: what it shows and whether it can be used. It knows no
/// toolkit; a view renders it and reports what the user did, the controllers read and change it.
///
/// A control is changed on the main queue only; changing it elsewhere is a programming error and
/// stops the program. It is neither copied nor moved, so a view may keep a reference to it.
class Control {
 public:
  /// `name` is the control's name in the window's interface file.
  Control(const Dispatch& dispatch, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& name() const { return name_; }

  bool isHidden() const { return hidden_; }
  void setHidden(bool hidden);

  /// Whether it can be used: enabled, and not suspended.
  bool isEnabled() const { return enabled_ && suspensions_ == 0; }
  void setEnabled(bool enabled);

  /// Takes the control out of use while some work goes on. Overlapping pieces of work each suspend
  /// and resume it. What setEnabled() says meanwhile holds once all of them have resumed it.
  void suspend();
  void resume();

  /// Why the control cannot be used or what it does, shown beside the pointer. May be empty.
  const std::string& hint() const { return hint_; }
  void setHint(const std::string& hint);

  /// Called on the main queue after each change, and once at once. One view per control: a new
  /// observer takes the place of the old one, an empty one ends the observation.
  void observe(std::function<void()> observer);

 protected:
  /// Whether the user can act on it at all.
  bool isUsable() const { return isEnabled() && !hidden_; }

  /// Assigns and tells the view, when there is a difference.
  template <typename Value>
  void change(Value& field, const Value& value) {
    requireMain();
    if (field == value) return;
    field = value;
    changed();
  }

  void requireMain() const;
  void changed() const;

 private:
  const Dispatch& dispatch_;
  std::string name_;
  std::string hint_;
  bool hidden_ = false;
  bool enabled_ = true;
  int suspensions_ = 0;
  std::function<void()> observer_;
};

}  // namespace corvane
