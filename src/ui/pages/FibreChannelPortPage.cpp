#include "ui/pages/FibreChannelPortPage.h"

#include "ui/controls/Bindings.h"
#include "ui_FibreChannelPortPage.h"
#include "window/MainWindowControls.h"

namespace corvane {

FibreChannelPortPage::FibreChannelPortPage(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::FibreChannelPortPage>()) {
  ui_->setupUi(this);
}

FibreChannelPortPage::~FibreChannelPortPage() = default;

void FibreChannelPortPage::bindTo(MainWindowControls& controls) {
  bind(controls.WWNN, *ui_->WWNN);
  bind(controls.currentSpeed, *ui_->currentSpeed);
  bind(controls.currentTopology, *ui_->currentTopology);
  bind(controls.setSpeed, *ui_->setSpeed);
  bind(controls.setTopology, *ui_->setTopology);
  bind(controls.hardALPA, *ui_->hardALPA);
  bind(controls.chooseALPA, *ui_->chooseALPA);
  bind(controls.SFPInfoButton, *ui_->SFPInfoButton);
  bind(controls.SFPErrorMessage, *ui_->SFPErrorMessage);
  bind(controls.SFPHelpButton, *ui_->SFPHelpButton);
  bind(controls.portProgress, *ui_->portProgress);
}

QWidget& FibreChannelPortPage::helpAnchor() {
  return *ui_->SFPHelpButton;
}

}  // namespace corvane
