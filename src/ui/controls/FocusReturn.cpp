#include "ui/controls/FocusReturn.h"

#include <QWidget>

namespace corvane {

FocusReturn& FocusReturn::of(const QWidget& widget) {
  QWidget& window = *widget.window();
  for (QObject* child : window.children()) {
    if (auto* const found = dynamic_cast<FocusReturn*>(child)) return *found;
  }
  return *new FocusReturn(window);
}

FocusReturn::FocusReturn(QWidget& window) : QObject(&window), window_(window) {}

void FocusReturn::setEnabled(QWidget& widget, bool isEnabled) {
  if (widget.isEnabledTo(widget.parentWidget()) == isEnabled) return;
  const bool hadFocus = window_.focusWidget() == &widget;
  const bool isUserElsewhere = window_.focusWidget() != holder_;
  widget.setEnabled(isEnabled);
  if (!isEnabled && hadFocus) {
    if (!owner_ || isUserElsewhere) owner_ = &widget;
    holder_ = window_.focusWidget();
  } else if (isEnabled && owner_ == &widget) {
    owner_.clear();
    if (!isUserElsewhere) widget.setFocus();
  }
}

}  // namespace corvane
