#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class PasswordSheet;
}

namespace corvane {

/// A bench's administrator dialog. Any password that is not empty is right there.
class PasswordSheet : public QDialog {
  Q_OBJECT

 public:
  explicit PasswordSheet(QWidget* parent);
  ~PasswordSheet() override;

  /// Shows it and waits. Whether a password was given.
  static bool ask(QWidget* parent);

 private:
  std::unique_ptr<Ui::PasswordSheet> ui_;
};

}  // namespace corvane
