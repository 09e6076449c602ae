#pragma once

#include <QObject>
#include <functional>

#include "controls/Control.h"

namespace corvane {

/// Ties a control to the widget that renders it: renders once at once and again after each change,
/// for as long as the widget lives. The control outlives the widget.
class ControlBinding : public QObject {
  Q_OBJECT

 public:
  /// `view` is the widget, or the action of a menu, that the binding lives and dies with.
  ControlBinding(Control& control, QObject& view, std::function<void()> render);
  ~ControlBinding() override;

  ControlBinding(const ControlBinding&) = delete;
  ControlBinding& operator=(const ControlBinding&) = delete;

 private:
  Control& control_;
};

}  // namespace corvane
