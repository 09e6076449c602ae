#pragma once

class QPainter;
class QStyle;
class QStyleOptionViewItem;

namespace corvane {

/// The style that the item's list or table is drawn with.
const QStyle& styleOf(const QStyleOptionViewItem& item);

/// Draws an item of a list or table without its content: the whole of it in the colour of its
/// state, framed when it has the focus.
void drawWithoutContent(const QStyleOptionViewItem& item, QPainter& painter);

}  // namespace corvane
