#pragma once

#include <cstdint>
#include <functional>

#include "controls/InterfaceWindow.h"
#include "inventory/PortOnShow.h"
#include "platform/Platform.h"
#include "window/MainWindowControls.h"

namespace corvane {

/// The sheet in which a port's hard AL_PA is picked from a matrix whose cells carry the addresses
/// as their tags (ArbitratedLoopAddresses.h). It is for the port that was on show when it was
/// opened, and closes when that port goes. Main queue only.
class MatrixController {
 public:
  using Confirmed = std::function<void(const PortTarget& port, uint64_t alpa)>;

  /// `portOnShow` tells what the sheet is opened for; `FinalChoosePortALPA` gets a confirmed
  /// choice. Connects itself to the port page's button.
  MatrixController(const Platform& platform, MainWindowControls& controls, PortOnShow portOnShow,
                   Confirmed FinalChoosePortALPA);
  MatrixController(const MatrixController&) = delete;
  MatrixController& operator=(const MatrixController&) = delete;

  InterfaceWindow matrixWindow;
  TextField idLabel;

  uint64_t selectALPA = 0;  ///< the address chosen; 0 while none is
  int64_t portFlag = 0;

  /// Shows the sheet, loading it if needed, for the port on show; does nothing without one.
  void choosePortALPA();

  /// A cell of the matrix was clicked.
  void selectMatrix(uint64_t tag);

  /// The confirm button: hands on the address chosen, if any, and closes the sheet.
  void selectPortALPA();

  void cancelWindow();

  /// Closes the sheet when the port that it is for has gone.
  void letGoOfDeparted();

 private:
  PortOnShow portOnShow_;
  Confirmed FinalChoosePortALPA_;
  std::optional<PortTarget> target_;  ///< what the sheet is for while it is loaded
};

}  // namespace corvane
