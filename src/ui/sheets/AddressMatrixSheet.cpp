#include "ui/sheets/AddressMatrixSheet.h"

#include <QKeyEvent>

#include "MatrixController.h"
#include "ui/controls/Bindings.h"
#include "ui_MatrixTable.h"

namespace corvane {

AddressMatrixSheet::AddressMatrixSheet(MatrixController& controller, QWidget* parent)
    : QDialog(parent, Qt::Sheet), ui_(std::make_unique<Ui::MatrixTable>()) {
  ui_->setupUi(this);
  bind(controller.idLabel, *ui_->idLabel);
  for (QToolButton* const cell : ui_->matrix->findChildren<QToolButton*>()) {
    connect(cell, &QToolButton::clicked, this,
            [&controller, cell] { controller.selectMatrix(cell->property("tag").toULongLong()); });
  }
  connect(ui_->selectButton, &QPushButton::clicked, this,
          [&controller] { controller.selectPortALPA(); });
  connect(ui_->cancelButton, &QPushButton::clicked, this,
          [&controller] { controller.cancelWindow(); });
}

AddressMatrixSheet::~AddressMatrixSheet() = default;

// Return on a cell that the arrow keys led to chooses it, so that confirming never drops it.
void AddressMatrixSheet::keyPressEvent(QKeyEvent* event) {
  auto* const cell = qobject_cast<QToolButton*>(focusWidget());
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && cell && !cell->isChecked()) {
    cell->click();
  } else {
    QDialog::keyPressEvent(event);
  }
}

}  // namespace corvane
