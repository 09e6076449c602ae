#include "FCQDepthViewController.h"

#include <utility>

#include "text/WholeNumber.h"

namespace corvane {

FCQDepthViewController::FCQDepthViewController(const Platform& platform,
                                               MainWindowControls& controls,
                                               std::function<void(uint32_t)> FinalEnterQueueDepth)
    : QDepthWindow(platform.dispatch, "FCQDepthViewController"),
      depthEntry(platform.dispatch, "setQDepthSetting"),
      qDepthSettingErrorMessage(platform.dispatch, "qDepthSettingErrorMessage"),
      formatter_(platform.prompts),
      FinalEnterQueueDepth_(std::move(FinalEnterQueueDepth)) {
  QDepthWindow.setCloseAction([this] { cancelWindow(); });
  depthEntry.setFilter(
      [this](const std::string& proposed) { return formatter_.isPartialStringValid(proposed); });
  depthEntry.setAction([this](EntryField&) { setQDepthSetting(); });
  controls.queueDepthButton.setAction([this](Button&) { showQDepth(); });
}

void FCQDepthViewController::showQDepth() {
  if (QDepthWindow.load()) {
    depthEntry.setText("");
    qDepthSettingErrorMessage.setText("");
  }
  QDepthWindow.show();
}

void FCQDepthViewController::setQDepthSetting() {
  const int32_t depth = leadingWholeNumber(depthEntry.text());
  if (depth == 0) {
    qDepthSettingErrorMessage.setText("*Please enter new setting.");
    return;
  }
  FinalEnterQueueDepth_(static_cast<uint32_t>(depth));
  QDepthWindow.drop();
}

void FCQDepthViewController::cancelWindow() {
  QDepthWindow.drop();
}

}  // namespace corvane
