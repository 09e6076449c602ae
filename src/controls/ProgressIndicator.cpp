#include "controls/ProgressIndicator.h"

namespace corvane {

ProgressIndicator::ProgressIndicator(const Dispatch& dispatch, std::string name)
    : Control(dispatch, std::move(name)) {
  setHidden(true);
}

void ProgressIndicator::start() {
  change(running_, running_ + 1);
  setHidden(false);
}

void ProgressIndicator::stop() {
  change(running_, running_ > 0 ? running_ - 1 : 0);
  setHidden(!isRunning());
}

}  // namespace corvane
