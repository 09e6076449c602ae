#include "ui/sheets/PasswordSheet.h"

#include "ui/controls/Artwork.h"
#include "ui/controls/DialogSize.h"
#include "ui_PasswordSheet.h"

namespace corvane {

namespace {
constexpr QSize lockIconSize{56, 56};
}

PasswordSheet::PasswordSheet(QWidget* parent)
    : QDialog(parent, Qt::Sheet), ui_(std::make_unique<Ui::PasswordSheet>()) {
  ui_->setupUi(this);
  setWindowModality(Qt::WindowModal);
  ui_->icon->setPixmap(artworkIcon("lock-closed.svg").pixmap(lockIconSize, devicePixelRatio()));
  ui_->okButton->setEnabled(false);
  connect(ui_->password, &QLineEdit::textChanged, this,
          [this](const QString& text) { ui_->okButton->setEnabled(!text.isEmpty()); });
  connect(ui_->okButton, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->cancelButton, &QPushButton::clicked, this, &QDialog::reject);
  ui_->password->setFocus();
  fitToContent(*this);
}

PasswordSheet::~PasswordSheet() = default;

bool PasswordSheet::ask(QWidget* parent) {
  PasswordSheet sheet(parent);
  return sheet.exec() == QDialog::Accepted;
}

}  // namespace corvane
