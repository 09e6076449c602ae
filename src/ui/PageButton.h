#pragma once

#include <QToolButton>

namespace corvane {

/// One of the buttons that choose a page. The chosen one has the colour of a selection, so that it
/// stands out on dark and light alike.
class PageButton : public QToolButton {
  Q_OBJECT

 public:
  using QToolButton::QToolButton;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace corvane
