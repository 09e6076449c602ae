#pragma once

#include <QToolButton>

namespace corvane {

/// The lock: checked while it is open. It shows its state by its picture and its text.
class LockButton : public QToolButton {
  Q_OBJECT

 public:
  explicit LockButton(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void checkStateSet() override;
  void nextCheckState() override;

 private:
  void showState();
};

}  // namespace corvane
