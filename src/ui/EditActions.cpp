#include "ui/EditActions.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace corvane {

namespace {

void call(const char* operation) {
  if (QWidget* focus = QApplication::focusWidget()) QMetaObject::invokeMethod(focus, operation);
}

bool offers(const QWidget* widget, const char* operation) {
  return widget && widget->metaObject()->indexOfMethod(operation) >= 0;
}

QString detail(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    const bool isValue = label->textInteractionFlags().testFlag(Qt::TextSelectableByMouse);
    return isValue && !label->text().isEmpty() ? label->accessibleName() : QString();
  }
  if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
    const QString shown = box->currentIndex() < 0 ? box->placeholderText() : box->currentText();
    return QObject::tr("%1: %2").arg(box->accessibleName(), shown);
  }
  if (const auto* box = qobject_cast<const QCheckBox*>(&widget)) {
    return QObject::tr("%1: %2").arg(box->accessibleName(),
                                     box->isChecked() ? QObject::tr("on") : QObject::tr("off"));
  }
  return {};
}

}  // namespace

EditActions::EditActions(const Actions& actions) : actions_(actions) {
  connect(actions_.cut, &QAction::triggered, this, [] { call("cut"); });
  connect(actions_.paste, &QAction::triggered, this, [] { call("paste"); });
  connect(actions_.selectAll, &QAction::triggered, this, [] { call("selectAll"); });
  connect(actions_.copy, &QAction::triggered, this, [] {
    const auto* label = qobject_cast<QLabel*>(QApplication::focusWidget());
    if (label && label->hasSelectedText()) {
      QApplication::clipboard()->setText(label->selectedText());
    } else {
      call("copy");
    }
  });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
  follow(QApplication::focusWidget());
}

void EditActions::follow(QWidget* focus) {
  actions_.cut->setEnabled(offers(focus, "cut()"));
  actions_.paste->setEnabled(offers(focus, "paste()"));
  actions_.selectAll->setEnabled(offers(focus, "selectAll()"));
  actions_.copy->setEnabled(offers(focus, "copy()") || qobject_cast<QLabel*>(focus));
}

QString pageDetails(const QWidget& page) {
  QStringList lines;
  for (const QWidget* widget : page.findChildren<QWidget*>()) {
    if (!widget->isVisibleTo(&page)) continue;
    if (const QString line = detail(*widget); !line.isEmpty()) lines.append(line);
  }
  return lines.join('\n');
}

}  // namespace corvane
