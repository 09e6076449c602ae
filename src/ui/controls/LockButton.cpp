#include "ui/controls/LockButton.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

#include "ui/controls/Artwork.h"

namespace corvane {

LockButton::LockButton(QWidget* parent) : QToolButton(parent) {
  setCheckable(true);
  showState();
}

// An open lock is no pressed button: nothing but its picture tells the state.
void LockButton::paintEvent(QPaintEvent*) {
  QStyleOptionToolButton option;
  initStyleOption(&option);
  option.state.setFlag(QStyle::State_On, false);
  QStylePainter(this).drawComplexControl(QStyle::CC_ToolButton, option);
}

void LockButton::checkStateSet() {
  QToolButton::checkStateSet();
  showState();
}

// Only the control opens and closes the lock; a click by itself does not.
void LockButton::nextCheckState() {}

void LockButton::showState() {
  setIcon(artworkIcon(isChecked() ? "lock-open.svg" : "lock-closed.svg"));
  setText(isChecked() ? tr("Click the lock to prevent further changes.")
                      : tr("Click the lock to make changes."));
}

}  // namespace corvane
