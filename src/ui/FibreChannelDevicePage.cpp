#include "ui/FibreChannelDevicePage.h"

#include "MainWindowControls.h"
#include "ui/Bindings.h"
#include "ui_FibreChannelDevicePage.h"

namespace corvane {

FibreChannelDevicePage::FibreChannelDevicePage(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::FibreChannelDevicePage>()) {
  ui_->setupUi(this);
}

FibreChannelDevicePage::~FibreChannelDevicePage() = default;

void FibreChannelDevicePage::bindTo(MainWindowControls& controls) {
  bind(controls.productType, *ui_->productType);
  bind(controls.deviceWWN, *ui_->deviceWWN);
  bind(controls.fwVer, *ui_->fwVer);
  bind(controls.drvVer_8G, *ui_->drvVer_8G);
  bind(controls.setQueueDepth, *ui_->setQueueDepth);
  bind(controls.queueDepthButton, *ui_->queueDepthButton);
}

}  // namespace corvane
