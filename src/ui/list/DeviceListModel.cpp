#include "ui/list/DeviceListModel.h"

#include "ui/controls/Artwork.h"

namespace corvane {

DeviceListModel::DeviceListModel(AppDelegate& delegate, QObject* parent)
    : QAbstractListModel(parent), delegate_(delegate) {}

void DeviceListModel::reload() {
  beginResetModel();
  cells_.clear();
  const int64_t rows = delegate_.numberOfRowsInTableView();
  for (int64_t row = 0; row < rows; ++row) {
    cells_.push_back(delegate_.tableViewViewForTableColumn(row));
  }
  endResetModel();
}

int DeviceListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(cells_.size());
}

QVariant DeviceListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const DeviceTableCell& cell = cells_[static_cast<size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return QString::fromStdString(cell.text);
    case Qt::AccessibleTextRole:
      return QString::fromStdString(cell.text).replace('\n', ", ");
    case Qt::DecorationRole:
      return artworkIcon(cell.image);
    default:
      return {};
  }
}

}  // namespace corvane
