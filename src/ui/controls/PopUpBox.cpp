#include "ui/controls/PopUpBox.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace corvane {

namespace {

bool stepsThroughItems(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return true;
    default:
      return !event.text().isEmpty() && event.text().front().isPrint() &&
             !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  }
}

}  // namespace

PopUpBox::PopUpBox(QWidget* parent) : QComboBox(parent) {
  setSizeAdjustPolicy(QComboBox::AdjustToContents);
  connect(this, &QComboBox::activated, this,
          [this](int row) { emit chosen(itemData(row).toInt()); });
}

void PopUpBox::setChoices(const QList<Choice>& choices) {
  if (choices == choices_) return;
  choices_ = choices;
  clear();
  for (const Choice& choice : choices) addItem(choice.title, choice.index);
}

void PopUpBox::showChoice(int index, const QString& plainText) {
  const int row = index < 0 ? -1 : findData(index);
  setPlaceholderText(row < 0 ? plainText : QString());
  if (row < 0 && !plainText.isEmpty()) setAccessibleDescription(plainText);
  setCurrentIndex(row);
  updateGeometry();
}

void PopUpBox::dismiss() {
  if (view()->isVisible()) hidePopup();
}

void PopUpBox::showPopup() {
  emit opening();
  QComboBox::showPopup();
}

// The toolkit takes the menu away before it tells what was chosen.
void PopUpBox::hidePopup() {
  QComboBox::hidePopup();
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (!view()->isVisible()) emit closed();
      },
      Qt::QueuedConnection);
}

QSize PopUpBox::sizeHint() const {
  return QComboBox::sizeHint().expandedTo(sizeForPlainText());
}

QSize PopUpBox::minimumSizeHint() const {
  return QComboBox::minimumSizeHint().expandedTo(sizeForPlainText());
}

QSize PopUpBox::sizeForPlainText() const {
  if (placeholderText().isEmpty()) return {};
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QSize text(fontMetrics().horizontalAdvance(placeholderText()), fontMetrics().height());
  return style()->sizeFromContents(QStyle::CT_ComboBox, &option, text, this);
}

void PopUpBox::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void PopUpBox::keyPressEvent(QKeyEvent* event) {
  if (stepsThroughItems(*event)) {
    showPopup();
    event->accept();
  } else {
    QComboBox::keyPressEvent(event);
  }
}

}  // namespace corvane
