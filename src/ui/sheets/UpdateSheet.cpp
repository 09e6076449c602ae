#include "ui/sheets/UpdateSheet.h"

#include <QHeaderView>
#include <QScreen>
#include <QShortcut>
#include <algorithm>

#include "OnlineUpdate/OnlineUpdate.h"
#include "ui/controls/Bindings.h"
#include "ui/controls/ControlBinding.h"
#include "ui/controls/FocusReturn.h"
#include "ui/sheets/UpdateCellDelegate.h"
#include "ui/sheets/UpdateTableModel.h"
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
  ui_->updateTable->setItemDelegate(new UpdateCellDelegate(this));
  ui_->updateTable->verticalHeader()->hide();
  QHeaderView* const header = ui_->updateTable->horizontalHeader();
  header->setSectionResizeMode(QHeaderView::ResizeToContents);
  header->setSectionResizeMode(1, QHeaderView::Stretch);
  TableView& table = controller_.controls().updateTable;
  connect(ui_->updateTable->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [&table](const QModelIndex& current) {
            if (current.isValid()) table.choose(current.row());
          });
  new ControlBinding(table, *ui_->updateTable, [this] { renderTable(); });
  auto* const space = new QShortcut(Qt::Key_Space, ui_->updateTable, this, &UpdateSheet::tickRow);
  space->setContext(Qt::WidgetShortcut);
}

// Whichever cell of the row has the focus.
void UpdateSheet::tickRow() {
  const QModelIndex tick = ui_->updateTable->currentIndex().siblingAtColumn(0);
  if (!tick.isValid()) return;
  const bool isTicked = tick.data(Qt::CheckStateRole).toInt() == Qt::Checked;
  rows_->setData(tick, isTicked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void UpdateSheet::renderTable() {
  const TableView& table = controller_.controls().updateTable;
  FocusReturn::of(*ui_->updateTable).setEnabled(*ui_->updateTable, table.isEnabled());
  if (table.generation() == shownGeneration_) return;
  shownGeneration_ = table.generation();
  const QModelIndex current = ui_->updateTable->currentIndex();
  rows_->reload();
  ui_->updateTable->setCurrentIndex(
      current.isValid() ? rows_->index(current.row(), current.column()) : rows_->index(0, 0));
  ui_->updateTable->setMinimumWidth(
      std::min(widthOfCells(), screen()->availableSize().width() * 4 / 5));
}

/// The least width at which every cell shows the whole of its text.
int UpdateSheet::widthOfCells() const {
  const QAbstractItemView& table = *ui_->updateTable;
  int width = 2 * table.frameWidth();
  for (int column = 0; column < rows_->columnCount({}); ++column) {
    width += std::max(table.sizeHintForColumn(column),
                      ui_->updateTable->horizontalHeader()->sectionSizeHint(column));
  }
  return width;
}

}  // namespace corvane
