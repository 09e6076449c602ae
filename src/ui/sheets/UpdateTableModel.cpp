#include "ui/sheets/UpdateTableModel.h"

#include <array>
#include <string>

#include "OnlineUpdate/OnlineUpdate.h"

namespace corvane {

namespace {

/// The columns by their identifiers, from left to right.
const std::array<std::string, 3> columns{"selected", "title", "version"};

const std::string& identifier(const QModelIndex& index) {
  return columns[static_cast<size_t>(index.column())];
}

bool isTick(const QModelIndex& index) {
  return identifier(index) == "selected";
}

}  // namespace

UpdateTableModel::UpdateTableModel(OnlineUpdate& controller, QObject* parent)
    : QAbstractTableModel(parent), controller_(controller) {}

void UpdateTableModel::reload() {
  beginResetModel();
  endResetModel();
}

int UpdateTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(controller_.numberOfRowsInTableView());
}

int UpdateTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

QVariant UpdateTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) {
    return int(section == 0 ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  switch (section) {
    case 0:
      return tr("Install");
    case 1:
      return tr("Update");
    default:
      return tr("Version");
  }
}

QVariant UpdateTableModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const PropertyValue value =
      controller_.tableViewObjectValueForTableColumn(identifier(index), index.row());
  if (isTick(index)) {
    if (role == Qt::CheckStateRole) {
      const int64_t* const ticked = value.number();
      return ticked && *ticked != 0 ? Qt::Checked : Qt::Unchecked;
    }
    if (role == Qt::AccessibleTextRole) return tr("Install");
    return {};
  }
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  const std::string* const text = value.text();
  return text ? QString::fromStdString(*text) : QString();
}

bool UpdateTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !isTick(index)) return false;
  const int64_t ticked = value.toInt() == Qt::Checked ? 1 : 0;
  controller_.tableViewSetObjectValueForTableColumn(PropertyValue(ticked), identifier(index),
                                                    index.row());
  emit dataChanged(index, index, {Qt::CheckStateRole});
  return true;
}

Qt::ItemFlags UpdateTableModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
  if (isTick(index) &&
      controller_.tableViewWillDisplayCellForTableColumn(identifier(index), index.row())) {
    flags |= Qt::ItemIsUserCheckable;
  }
  return flags;
}

}  // namespace corvane
