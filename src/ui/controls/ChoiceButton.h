#pragma once

#include <QToolButton>

namespace corvane {

/// One of several buttons of which one is chosen, such as those of the pages. The chosen one has
/// the colour of a selection, so that it stands out on dark and light alike.
class ChoiceButton : public QToolButton {
  Q_OBJECT

 public:
  using QToolButton::QToolButton;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace corvane
