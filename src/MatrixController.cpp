#include "MatrixController.h"

#include <fmt/format.h>

#include <utility>

namespace corvane {

MatrixController::MatrixController(const Platform& platform, MainWindowControls& controls,
                                   std::function<void(uint64_t)> FinalChoosePortALPA)
    : matrixWindow(platform.dispatch, "MatrixTable"),
      idLabel(platform.dispatch, "idLabel"),
      FinalChoosePortALPA_(std::move(FinalChoosePortALPA)) {
  matrixWindow.setCloseAction([this] { cancelWindow(); });
  controls.chooseALPA.setAction([this](Button&) { choosePortALPA(); });
}

void MatrixController::choosePortALPA() {
  if (matrixWindow.load()) {
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
  if (selectALPA != 0) FinalChoosePortALPA_(std::exchange(selectALPA, 0));
  matrixWindow.drop();
}

void MatrixController::cancelWindow() {
  matrixWindow.drop();
}

}  // namespace corvane
