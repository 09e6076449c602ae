#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/Dispatch.h"

namespace corvane {

class ControlSet;

/// Whether a control changes an adapter. The lock guards those that do.
enum class ControlRole { Shows, ChangesAdapter };

/// Why a control is out of use, each with a hint of its own. The first one that holds is told.
enum class OutOfUse {
  DriverTooOld,  ///< the installed driver does not offer the setting
  Senseless,     ///< what was read makes no sense, so nothing can be chosen instead
  Locked,        ///< the lock is closed
};

/// The model of one control of the window: what it shows and whether it can be used. It knows no
/// toolkit; a view renders it and reports what the user did, the controllers read and change it.
///
/// A control is changed on the main queue only; changing it elsewhere is a programming error and
/// stops the program. It is neither copied nor moved, so a view may keep a reference to it.
class Control {
 public:
  /// `name` is the control's name in the window's interface file.
  Control(const Dispatch& dispatch, std::string name);

  /// The same for one of a set of controls, which outlives it.
  Control(ControlSet& set, std::string name, ControlRole role = ControlRole::Shows);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& name() const { return name_; }

  bool isHidden() const { return hidden_; }
  void setHidden(bool hidden);

  /// Whether it can be used: enabled, not suspended, and for no reason out of use.
  bool isEnabled() const { return enabled_ && suspensions_ == 0 && outOfUse_.empty(); }
  void setEnabled(bool enabled);

  /// Takes the control out of use for a reason, whose hint is `hint`, or puts that reason aside.
  /// The reasons are kept apart: each holds until it is put aside itself.
  void setOutOfUse(OutOfUse reason, const std::string& hint);
  void clearOutOfUse(OutOfUse reason);
  bool isOutOfUse(OutOfUse reason) const { return outOfUse_.count(reason) != 0; }

  /// Takes the control out of use while some work goes on. Overlapping pieces of work each suspend
  /// and resume it. What setEnabled() says meanwhile holds once all of them have resumed it.
  void suspend();
  void resume();

  /// Why the control cannot be used or what it does, shown beside the pointer. May be empty.
  const std::string& hint() const { return outOfUse_.empty() ? hint_ : outOfUse_.begin()->second; }
  void setHint(const std::string& hint);

  /// Brings the control to what it shows of no adapter.
  virtual void clear() {}

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
  std::map<OutOfUse, std::string> outOfUse_;
  std::function<void()> observer_;
};

}  // namespace corvane
