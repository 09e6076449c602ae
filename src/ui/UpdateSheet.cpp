#include "ui/UpdateSheet.h"

#include <QHeaderView>

#include "OnlineUpdate/OnlineUpdate.h"
#include "ui/Bindings.h"
#include "ui/ControlBinding.h"
#include "ui/FocusReturn.h"
#include "ui/UpdateTableModel.h"
#include "ui_OnlineUpdate.h"

namespace corvane {

UpdateSheet::UpdateSheet(OnlineUpdate& controller, QWidget* parent)
    : QDialog(parent, Qt::Sheet),
      controller_(controller),
      ui_(std::make_unique<Ui::OnlineUpdate>()) {
  ui_->setupUi(this);
  UpdateWindowControls& controls = controller.controls();
  bind(controls.updateState, *ui_->updateState);
  bind(controls.updateProgress, *ui_->updateProgress);
  bind(controls.updateButton, *ui_->updateButton);
  bind(controls.cancelButton, *ui_->cancelButton);
  TextField& message = controls.updateMessage;
  new ControlBinding(message, *ui_->updateMessage, [this, &message] {
    ui_->updateMessage->setPlainText(QString::fromStdString(message.text()));
  });
  bindTable();
}

UpdateSheet::~UpdateSheet() = default;

void UpdateSheet::reject() {
  controller_.controls().updateWindow.requestClose();
}

void UpdateSheet::bindTable() {
  rows_ = new UpdateTableModel(controller_, this);
  ui_->updateTable->setModel(rows_);
  ui_->updateTable->verticalHeader()->hide();
  QHeaderView* const header = ui_->updateTable->horizontalHeader();
  header->setSectionResizeMode(QHeaderView::ResizeToContents);
  header->setSectionResizeMode(1, QHeaderView::Stretch);
  TableView& table = controller_.controls().updateTable;
  new ControlBinding(table, *ui_->updateTable, [this] { renderTable(); });
  connect(ui_->updateTable->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [&table](const QModelIndex& current) {
            if (current.isValid()) table.choose(current.row());
          });
}

void UpdateSheet::renderTable() {
  const TableView& table = controller_.controls().updateTable;
  FocusReturn::of(*ui_->updateTable).setEnabled(*ui_->updateTable, table.isEnabled());
  if (table.generation() == shownGeneration_) return;
  shownGeneration_ = table.generation();
  const QModelIndex current = ui_->updateTable->currentIndex();
  rows_->reload();
  ui_->updateTable->setCurrentIndex(rows_->index(current.row(), current.column()));
}

}  // namespace corvane
