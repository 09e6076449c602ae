#pragma once

#include <QStyledItemDelegate>

namespace corvane {

/// Draws a row of the device table: the icon, and beside it two lines of text. Rows grow with the
/// text when it does not fit the height that the table asks for.
class DeviceRowDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void setRowHeight(int points) { rowHeight_ = points; }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  int rowHeight_ = 0;
};

}  // namespace corvane
