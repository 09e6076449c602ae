#include "ui/sheets/SFPSheet.h"

#include "SFPController.h"
#include "ui/controls/Bindings.h"
#include "ui_SFPController.h"

namespace corvane {

SFPSheet::SFPSheet(SFPController& controller, QWidget* parent)
    : QDialog(parent, Qt::Sheet), ui_(std::make_unique<Ui::SFPController>()) {
  ui_->setupUi(this);
  bind(controller.TransceiverInfo, *ui_->TransceiverInfo);
  bind(controller.TransceiverCodeInfo, *ui_->TransceiverCodeInfo);
  bind(controller.ConnectorInfo, *ui_->ConnectorInfo);
  bind(controller.SerialEncodingInfo, *ui_->SerialEncodingInfo);
  bind(controller.BitrateInfo, *ui_->BitrateInfo);
  bind(controller.VendorNameInfo, *ui_->VendorNameInfo);
  bind(controller.VendorOUIInfo, *ui_->VendorOUIInfo);
  bind(controller.VendorPNInfo, *ui_->VendorPNInfo);
  bind(controller.VendorRevInfo, *ui_->VendorRevInfo);
  bind(controller.VendorSNInfo, *ui_->VendorSNInfo);
  bind(controller.ManuDataInfo, *ui_->ManuDataInfo);
  connect(ui_->closeButton, &QPushButton::clicked, this,
          [&controller] { controller.cancelWindow(); });
}

SFPSheet::~SFPSheet() = default;

}  // namespace corvane
