#include "ui/list/DeviceRowDelegate.h"

#include <QPainter>
#include <algorithm>

#include "ui/controls/ItemPainting.h"

namespace corvane {

namespace {

constexpr int margin = 4;
constexpr int gap = 8;
constexpr int linesPerRow = 2;
constexpr double secondLineOpacity = 0.7;

int rowHeightFor(const QFontMetrics& metrics, int least) {
  return std::max(least, linesPerRow * metrics.height() + 2 * margin);
}

QRect iconRect(const QRect& row, int rowHeight) {
  const int size = rowHeight - 2 * margin;
  return {row.left() + gap, row.top() + (row.height() - size) / 2, size, size};
}

}  // namespace

QSize DeviceRowDelegate::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
  int width = 0;
  for (const QString& line : index.data(Qt::DisplayRole).toString().split('\n')) {
    width = std::max(width, option.fontMetrics.horizontalAdvance(line));
  }
  const int height = rowHeightFor(option.fontMetrics, rowHeight_);
  return {iconRect({}, height).width() + width + 3 * gap, height};
}

void DeviceRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  const QStringList lines = item.text.split(QChar::LineSeparator);
  drawWithoutContent(item, *painter);

  painter->save();
  const int height = rowHeightFor(item.fontMetrics, rowHeight_);
  const QRect picture = iconRect(item.rect, height);
  item.icon.paint(painter, picture);

  const bool selected = item.state.testFlag(QStyle::State_Selected);
  const bool active = item.state.testFlag(QStyle::State_Active);
  const auto group = active ? QPalette::Active : QPalette::Inactive;
  painter->setPen(item.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
  painter->setFont(item.font);
  QRect line(picture.right() + gap,
             item.rect.top() + (item.rect.height() - 2 * item.fontMetrics.height()) / 2,
             item.rect.right() - picture.right() - 2 * gap, item.fontMetrics.height());
  for (const QString& text : lines) {
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      item.fontMetrics.elidedText(text, Qt::ElideRight, line.width()));
    line.translate(0, item.fontMetrics.height());
    if (!selected) painter->setOpacity(secondLineOpacity);
  }
  painter->restore();
}

}  // namespace corvane
