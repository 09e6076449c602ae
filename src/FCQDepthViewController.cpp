#include "FCQDepthViewController.h"

#include <utility>

#include "text/WholeNumber.h"

namespace corvane {

FCQDepthViewController::FCQDepthViewController(const Platform& platform,
                                               MainWindowControls& controls, PortOnShow portOnShow,
                                               Confirmed FinalEnterQueueDepth)
    : QDepthWindow(platform.dispatch, "FCQDepthViewController"),
      depthEntry(platform.dispatch, "setQDepthSetting"),
      qDepthSettingErrorMessage(platform.dispatch, "qDepthSettingErrorMessage"),
      formatter_(platform.prompts),
      portOnShow_(std::move(portOnShow)),
      FinalEnterQueueDepth_(std::move(FinalEnterQueueDepth)) {
  QDepthWindow.setCloseAction([this] { cancelWindow(); });
  depthEntry.setFilter(
      [this](const std::string& proposed) { return formatter_.isPartialStringValid(proposed); });
  depthEntry.setAction([this](EntryField&) { setQDepthSetting(); });
  controls.queueDepthButton.setAction([this](Button&) { showQDepth(); });
}

void FCQDepthViewController::showQDepth() {
  const auto port = portOnShow_();
  if (!port) return;
  if (QDepthWindow.load()) {
    target_ = port;
    QDepthWindow.setSubject(port->name());
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
  const auto port = std::exchange(target_, std::nullopt);
  QDepthWindow.drop();
  if (port) FinalEnterQueueDepth_(*port, static_cast<uint32_t>(depth));
}

void FCQDepthViewController::cancelWindow() {
  target_.reset();
  QDepthWindow.drop();
}

void FCQDepthViewController::letGoOfDeparted() {
  if (target_ && target_->isGone()) cancelWindow();
}

}  // namespace corvane
