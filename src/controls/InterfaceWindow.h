#pragma once

#include <functional>
#include <utility>

#include "controls/Control.h"

namespace corvane {

/// A window that is loaded from its interface file on demand, shown, ended and dropped: a sheet on
/// another window, a popover or a window of its own. Which of them is the view's affair; `name` is
/// the name of the interface file. The controls inside it belong to the window's controller and
/// outlive the view that renders them.
class InterfaceWindow : public Control {
 public:
  using Control::Control;

  bool isLoaded() const { return loaded_; }
  bool isShown() const { return shown_; }

  /// What the window is for, such as "A - 1 port 1"; empty when it is for nothing in particular.
  const std::string& subject() const { return subject_; }
  void setSubject(const std::string& subject) { change(subject_, subject); }

  /// Loads the interface file unless it is loaded already. True when it was loaded just now: its
  /// controller then brings the controls inside to what a fresh interface shows.
  bool load() {
    const bool fresh = !loaded_;
    change(loaded_, true);
    return fresh;
  }

  /// Brings the loaded window to the front. Does nothing before load().
  void show() { change(shown_, loaded_); }

  /// Takes the window off the screen; it stays loaded.
  void end() { change(shown_, false); }

  /// Takes the window off the screen and forgets it, so that the next load() is a fresh one.
  void drop() {
    end();
    change(loaded_, false);
  }

  /// What the user's wish to close the window does (Escape, the close button); on the main queue.
  /// Without one the window is dropped.
  void setCloseAction(std::function<void()> action) { closeAction_ = std::move(action); }

  /// The user wants the window closed. Ignored while it is not shown.
  void requestClose() {
    requireMain();
    if (!shown_) return;
    if (closeAction_) {
      closeAction_();
    } else {
      drop();
    }
  }

 private:
  std::string subject_;
  bool loaded_ = false;
  bool shown_ = false;
  std::function<void()> closeAction_;
};

}  // namespace corvane
