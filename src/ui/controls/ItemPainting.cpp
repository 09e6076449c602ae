#include "ui/controls/ItemPainting.h"

#include <QApplication>
#include <QStyleOptionViewItem>

namespace corvane {

namespace {

void drawFocus(const QStyleOptionViewItem& item, QPainter& painter) {
  const bool isSelected = item.state.testFlag(QStyle::State_Selected);
  QStyleOptionFocusRect frame;
  frame.QStyleOption::operator=(item);
  frame.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
  frame.backgroundColor = item.palette.color(isSelected ? QPalette::Highlight : QPalette::Base);
  styleOf(item).drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, item.widget);
}

}  // namespace

const QStyle& styleOf(const QStyleOptionViewItem& item) {
  return item.widget ? *item.widget->style() : *QApplication::style();
}

// The style would frame nothing but the place of the text, and leave room for the rest.
void drawWithoutContent(const QStyleOptionViewItem& item, QPainter& painter) {
  QStyleOptionViewItem empty = item;
  empty.features &= QStyleOptionViewItem::Alternate;
  empty.state &= ~QStyle::State_HasFocus;
  empty.text.clear();
  empty.icon = {};
  styleOf(item).drawControl(QStyle::CE_ItemViewItem, &empty, &painter, item.widget);
  if (item.state.testFlag(QStyle::State_HasFocus)) drawFocus(item, painter);
}

}  // namespace corvane
