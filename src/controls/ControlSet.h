#pragma once

#include <vector>

#include "controls/Control.h"

namespace corvane {

/// Some controls that belong together: a page's, a window's. Each one is declared once, with its
/// name and its role, and enters itself here; whoever works on all of them goes by that.
class ControlSet {
 public:
  /// The dispatch outlives the set.
  explicit ControlSet(const Dispatch& dispatch) : dispatch_(dispatch) {}
  ControlSet(const ControlSet&) = delete;
  ControlSet& operator=(const ControlSet&) = delete;

  const Dispatch& dispatch() const { return dispatch_; }

  /// All of them, and those that change an adapter, in the order of their declaration.
  const std::vector<Control*>& all() const { return all_; }
  const std::vector<Control*>& changing() const { return changing_; }

  /// Called by each control when it is made. It lives as long as the set.
  void add(Control& control, ControlRole role) {
    all_.push_back(&control);
    if (role == ControlRole::ChangesAdapter) changing_.push_back(&control);
  }

 private:
  const Dispatch& dispatch_;
  std::vector<Control*> all_;
  std::vector<Control*> changing_;
};

}  // namespace corvane
