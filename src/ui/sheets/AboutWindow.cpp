#include "ui/sheets/AboutWindow.h"

#include "AboutDialog.h"
#include "ui/controls/Artwork.h"
#include "ui/controls/Bindings.h"
#include "ui_AboutDialog.h"

namespace corvane {

namespace {
constexpr QSize iconSize{96, 96};
}

AboutWindow::AboutWindow(AboutDialog& controller, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::AboutDialog>()) {
  ui_->setupUi(this);
  ui_->icon->setPixmap(artworkIcon("corvane.icns").pixmap(iconSize, devicePixelRatio()));
  bind(controller.labelUtilityName, *ui_->labelUtilityName);
  bind(controller.labelVersion, *ui_->labelVersion);
  bind(controller.labelCopyright, *ui_->labelCopyright);
  connect(ui_->closeButton, &QPushButton::clicked, this, &QDialog::reject);
}

AboutWindow::~AboutWindow() = default;

}  // namespace corvane
