#include "ui/controls/DialogSize.h"

#include <QDialog>
#include <QLayout>
#include <algorithm>

namespace corvane {

namespace {
/// The least width of a dialog, in heights of a line.
constexpr int leastLinesWide = 28;
}  // namespace

void fitToContent(QDialog& dialog) {
  QLayout* const layout = dialog.layout();
  layout->activate();
  const QSize wanted = layout->totalSizeHint();
  const int least = leastLinesWide * dialog.fontMetrics().height();
  const int width = std::max({dialog.width(), dialog.minimumWidth(), wanted.width(), least});
  const int height =
      layout->hasHeightForWidth() ? layout->totalHeightForWidth(width) : wanted.height();
  dialog.setMinimumHeight(height);
  dialog.resize(width, height);
}

}  // namespace corvane
