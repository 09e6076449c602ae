#include "MatrixController.h"

#include <fmt/format.h>

#include <utility>

namespace corvane {

MatrixController::MatrixController(const Platform& platform, MainWindowControls& controls,
                                   PortOnShow portOnShow, Confirmed FinalChoosePortALPA)
    : matrixWindow(platform.dispatch, "MatrixTable"),
      idLabel(platform.dispatch, "idLabel"),
      portOnShow_(std::move(portOnShow)),
      FinalChoosePortALPA_(std::move(FinalChoosePortALPA)) {
  matrixWindow.setCloseAction([this] { cancelWindow(); });
  controls.chooseALPA.setAction([this](Button&) { choosePortALPA(); });
}

void MatrixController::choosePortALPA() {
  const auto port = portOnShow_();
  if (!port) return;
  if (matrixWindow.load()) {
    target_ = port;
    matrixWindow.setSubject(port->name());
    idLabel.setText("");
    selectALPA = 0;
  }
  matrixWindow.show();
}

void MatrixController::selectMatrix(uint64_t tag) {
  idLabel.setText(fmt::format("{:2X}", tag));
  selectALPA = tag;
}

void MatrixController::selectPortALPA() {
  const auto port = std::exchange(target_, std::nullopt);
  const uint64_t chosen = std::exchange(selectALPA, 0);
  matrixWindow.drop();
  if (chosen != 0 && port) FinalChoosePortALPA_(*port, chosen);
}

void MatrixController::cancelWindow() {
  target_.reset();
  matrixWindow.drop();
}

void MatrixController::letGoOfDeparted() {
  if (target_ && target_->isGone()) cancelWindow();
}

}  // namespace corvane
