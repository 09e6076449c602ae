#pragma once

#include <QDialog>
#include <QList>
#include <memory>
#include <optional>

#include "platform/UserPrompts.h"

class QMovie;
class QPushButton;

namespace Ui {
class AlertSheet;
}

namespace corvane {

/// An alert: icon, message, text and buttons, all of which can change while it is on show. Escape
/// and the close button press its last usable button. An alert whose buttons are all hidden tells
/// of work in progress, and only passes on that the user wants to leave it. One that has no button
/// at all gets "OK".
class AlertSheet : public QDialog {
  Q_OBJECT

 public:
  explicit AlertSheet(QWidget* parent);
  ~AlertSheet() override;

  void setContent(const AlertContent& content);

  /// Shows a bar: 0 to 1, or nothing when it cannot be told. It goes with the next button shown.
  void setProgress(std::optional<double> fraction);

  /// Whether it shows no button, since work is going on.
  bool isWaiting() const;

  /// Escape or the window system's close button.
  void reject() override;

 signals:
  /// A button was pressed; its index in the alert's buttons.
  void buttonPressed(int index);

  /// The user wants to leave an alert that has no button to press.
  void leaveRequested();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void showIcon(const std::string& fileName);
  void showButtons(const std::vector<AlertButton>& buttons);
  void makeButtons(size_t count);
  QPushButton* lastUsableButton() const;

  std::unique_ptr<Ui::AlertSheet> ui_;
  QList<QPushButton*> buttons_;
  QMovie* movie_ = nullptr;
};

}  // namespace corvane
