#include "ui/pages/NoAdapterPage.h"

#include "ui/controls/Artwork.h"
#include "ui_NoAdapterPage.h"

namespace corvane {

namespace {
constexpr QSize pictureSize{160, 128};
}

NoAdapterPage::NoAdapterPage(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::NoAdapterPage>()) {
  ui_->setupUi(this);
  ui_->picture->setPixmap(artworkIcon("connect.svg").pixmap(pictureSize, devicePixelRatio()));
}

NoAdapterPage::~NoAdapterPage() = default;

void NoAdapterPage::showAsDump() {
  ui_->title->setText(tr("No adapter is in this dump"));
  ui_->advice->setText(tr(
      "The computer had no adapter connected when the dump was made, or its driver did not run."));
}

}  // namespace corvane
