#pragma once

#include <cstdint>
#include <functional>

#include "controls/InterfaceWindow.h"
#include "platform/Platform.h"
#include "window/MainWindowControls.h"

namespace corvane {

/// The sheet in which a port's hard AL_PA is picked from a matrix whose cells carry the addresses
/// as their tags (ArbitratedLoopAddresses.h). Main queue only.
class MatrixController {
 public:
  /// `FinalChoosePortALPA` gets a confirmed choice. Connects itself to the port page's button.
  MatrixController(const Platform& platform, MainWindowControls& controls,
                   std::function<void(uint64_t alpa)> FinalChoosePortALPA);
  MatrixController(const MatrixController&) = delete;
  MatrixController& operator=(const MatrixController&) = delete;

  InterfaceWindow matrixWindow;
  TextField idLabel;

  uint64_t selectALPA = 0;  ///< the address chosen; 0 while none is
  int64_t portFlag = 0;

  /// Shows the sheet, loading it if needed.
  void choosePortALPA();

  /// A cell of the matrix was clicked.
  void selectMatrix(uint64_t tag);

  /// The confirm button: hands on the address chosen, if any, and closes the sheet.
  void selectPortALPA();

  void cancelWindow();

 private:
  std::function<void(uint64_t)> FinalChoosePortALPA_;
};

}  // namespace corvane
