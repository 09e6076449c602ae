#include "SFPController.h"

#include "Corvane2Info.h"
#include "CorvaneAPI.h"

namespace corvane {

SFPController::SFPController(const Platform& platform, MainWindowControls& controls)
    : SFPWindow(platform.dispatch, "SFPController"),
      TransceiverInfo(platform.dispatch, "TransceiverInfo"),
      TransceiverCodeInfo(platform.dispatch, "TransceiverCodeInfo"),
      ConnectorInfo(platform.dispatch, "ConnectorInfo"),
      SerialEncodingInfo(platform.dispatch, "SerialEncodingInfo"),
      BitrateInfo(platform.dispatch, "BitrateInfo"),
      VendorNameInfo(platform.dispatch, "VendorNameInfo"),
      VendorOUIInfo(platform.dispatch, "VendorOUIInfo"),
      VendorPNInfo(platform.dispatch, "VendorPNInfo"),
      VendorRevInfo(platform.dispatch, "VendorRevInfo"),
      VendorSNInfo(platform.dispatch, "VendorSNInfo"),
      ManuDataInfo(platform.dispatch, "ManuDataInfo") {
  SFPWindow.setCloseAction([this] { cancelWindow(); });
  controls.SFPInfoButton.setAction([this](Button&) { showSFPInfo(); });
}

std::array<TextField*, SFPController::textCount> SFPController::fields() {
  return {&TransceiverInfo, &TransceiverCodeInfo, &ConnectorInfo, &SerialEncodingInfo,
          &BitrateInfo,     &VendorNameInfo,      &VendorOUIInfo, &VendorPNInfo,
          &VendorRevInfo,   &VendorSNInfo,        &ManuDataInfo};
}

void SFPController::setSFPwindowItem(const Corvane2Info& info, int64_t portNum) {
  if (portNum != 1 && portNum != 2) return;
  const CorvaneAPI& port = portNum == 1 ? info.port1Info : info.port2Info;
  texts_ = {port.Transceiver, port.TransceiverCode, port.Connector, port.SerialEncoding,
            port.Bitrate,     port.VendorName,      port.VendorOUI, port.VendorPN,
            port.VendorRev,   port.VendorSN,        port.ManuData};
}

void SFPController::describe(const PortTarget& port) {
  described_ = port;
  setSFPwindowItem(*port.adapter().info, port.port());
}

void SFPController::showSFPInfo() {
  SFPWindow.load();
  target_ = described_;
  SFPWindow.setSubject(target_ ? target_->name() : "");
  SFPWindow.show();
  const auto shown = fields();
  for (size_t index = 0; index < shown.size(); ++index) {
    shown[index]->setText(texts_[index].value_or(""));
  }
}

void SFPController::cancelWindow() {
  target_.reset();
  SFPWindow.drop();
}

void SFPController::letGoOfDeparted() {
  if (target_ && target_->isGone()) cancelWindow();
}

}  // namespace corvane
