#include "ui/controls/HelpPopover.h"

#include <QLabel>
#include <QVBoxLayout>

#include "ui/controls/Bindings.h"

namespace corvane {

namespace {
constexpr int charactersPerLine = 60;
constexpr int popoverMargin = 16;
}  // namespace

HelpPopover::HelpPopover(TextField& content, QWidget* parent) : QDialog(parent, Qt::Popup) {
  setObjectName("helpPopover");
  auto* const text = new QLabel(this);
  text->setObjectName("helpText");
  text->setAccessibleName(tr("Help"));
  text->setTextFormat(Qt::PlainText);
  text->setWordWrap(true);
  text->setMinimumWidth(fontMetrics().averageCharWidth() * charactersPerLine);
  text->setFocusPolicy(Qt::StrongFocus);
  text->setMargin(popoverMargin);
  text->setFrameStyle(QFrame::Box | QFrame::Plain);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(text);
  bind(content, *text);
}

}  // namespace corvane
