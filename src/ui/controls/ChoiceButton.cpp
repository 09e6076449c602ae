#include "ui/controls/ChoiceButton.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace corvane {

namespace {
/// In percent; the style lightens a button, and white letters must stay readable on it.
constexpr int darkening = 130;
}  // namespace

void ChoiceButton::paintEvent(QPaintEvent*) {
  QStyleOptionToolButton option;
  initStyleOption(&option);
  if (isChecked() && isEnabled()) {
    option.palette.setColor(QPalette::Button, palette().highlight().color().darker(darkening));
    option.palette.setBrush(QPalette::ButtonText, palette().highlightedText());
    option.state.setFlag(QStyle::State_On, false);
    option.state.setFlag(QStyle::State_Raised, true);
  }
  QStylePainter(this).drawComplexControl(QStyle::CC_ToolButton, option);
}

}  // namespace corvane
