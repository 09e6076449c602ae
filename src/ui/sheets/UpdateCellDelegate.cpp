#include "ui/sheets/UpdateCellDelegate.h"

#include <QMouseEvent>
#include <QStyle>

#include "ui/controls/ItemPainting.h"

namespace corvane {

namespace {

bool isTick(const QModelIndex& index) {
  return index.flags().testFlag(Qt::ItemIsUserCheckable);
}

bool isTicked(const QModelIndex& index) {
  return index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

bool isClick(const QEvent& event) {
  return event.type() == QEvent::MouseButtonRelease &&
         static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
}

void drawCheckBox(QStyleOptionViewItem item, bool ticked, QPainter& painter) {
  const QStyle& style = styleOf(item);
  const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &item, item.widget),
                   style.pixelMetric(QStyle::PM_IndicatorHeight, &item, item.widget));
  item.rect = QStyle::alignedRect(item.direction, Qt::AlignCenter, size, item.rect);
  item.state &= ~QStyle::State_HasFocus;
  item.state |= ticked ? QStyle::State_On : QStyle::State_Off;
  style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &item, &painter, item.widget);
}

}  // namespace

QSize UpdateCellDelegate::sizeHint(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
  return QStyledItemDelegate::sizeHint(option, index) +
         QSize(option.fontMetrics.height(), option.fontMetrics.height() / 4);
}

void UpdateCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
  if (!isTick(index)) {
    QStyledItemDelegate::paint(painter, option, index);
    return;
  }
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  drawWithoutContent(item, *painter);
  drawCheckBox(item, isTicked(index), *painter);
}

bool UpdateCellDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                     const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (!isTick(index) || !isClick(*event))
    return QStyledItemDelegate::editorEvent(event, model, option, index);
  return model->setData(index, isTicked(index) ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

}  // namespace corvane
