#include "ui/pages/FibreChannelDevicePage.h"

#include "ui/controls/Bindings.h"
#include "ui_FibreChannelDevicePage.h"
#include "window/MainWindowControls.h"

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
