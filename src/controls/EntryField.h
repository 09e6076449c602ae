#pragma once

#include <functional>
#include <string>
#include <utility>

#include "controls/Control.h"

namespace corvane {

/// A text that the user types. Every edit, by key, paste or input method alike, passes a filter.
class EntryField : public Control {
 public:
  using Control::Control;

  const std::string& text() const { return text_; }
  void setText(const std::string& text) { change(text_, text); }

  /// Accepts or refuses the whole text that an edit would leave. Without a filter all are accepted.
  void setFilter(std::function<bool(const std::string& proposed)> filter) {
    filter_ = std::move(filter);
  }

  /// What pressing Return in the field does; on the main queue.
  void setAction(std::function<void(EntryField&)> action) { action_ = std::move(action); }

  /// The user's edit would leave `proposed`. False when it is refused: the view then keeps text().
  bool edit(const std::string& proposed) {
    requireMain();
    if (!isUsable() || (filter_ && !filter_(proposed))) return false;
    setText(proposed);
    return true;
  }

  /// The user pressed Return. Ignored while the field cannot be used.
  void confirm() {
    requireMain();
    if (isUsable() && action_) action_(*this);
  }

 private:
  std::string text_;
  std::function<bool(const std::string&)> filter_;
  std::function<void(EntryField&)> action_;
};

}  // namespace corvane
