#pragma once

#include <QStyledItemDelegate>

namespace corvane {

/// Draws a cell of the update table with room at its sides. A cell to tick shows nothing but its
/// check box, in the middle; a click anywhere in the cell ticks it.
class UpdateCellDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

}  // namespace corvane
