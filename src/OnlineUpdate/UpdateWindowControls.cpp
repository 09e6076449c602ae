#include "OnlineUpdate/UpdateWindowControls.h"

namespace corvane {

UpdateWindowControls::UpdateWindowControls(const Dispatch& dispatch)
    : updateWindow(dispatch, "OnlineUpdate"),
      updateState(dispatch, "updateState"),
      updateTable(dispatch, "updateTable"),
      updateMessage(dispatch, "updateMessage"),
      updateProgress(dispatch, "updateProgress"),
      updateButton(dispatch, "updateButton"),
      cancelButton(dispatch, "cancelButton") {}

}  // namespace corvane
