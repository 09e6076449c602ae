#include "ui/sheets/QueueDepthSheet.h"

#include "FCQDepthViewController.h"
#include "ui/controls/Bindings.h"
#include "ui_FCQDepthViewController.h"

namespace corvane {

QueueDepthSheet::QueueDepthSheet(FCQDepthViewController& controller, QWidget* parent)
    : QDialog(parent, Qt::Sheet), ui_(std::make_unique<Ui::FCQDepthViewController>()) {
  ui_->setupUi(this);
  bind(controller.depthEntry, *ui_->setQDepthSetting);
  bind(controller.qDepthSettingErrorMessage, *ui_->qDepthSettingErrorMessage);
  connect(ui_->confirmButton, &QPushButton::clicked, this,
          [&controller] { controller.setQDepthSetting(); });
  connect(ui_->cancelButton, &QPushButton::clicked, this,
          [&controller] { controller.cancelWindow(); });
  ui_->setQDepthSetting->setFocus();
}

QueueDepthSheet::~QueueDepthSheet() = default;

}  // namespace corvane
