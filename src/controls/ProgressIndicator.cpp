#include "controls/ProgressIndicator.h"

namespace corvane {

ProgressIndicator::ProgressIndicator(const Dispatch& dispatch, std::string name)
    : Control(dispatch, std::move(name)) {
  setHidden(true);
}

ProgressIndicator::ProgressIndicator(ControlSet& set, std::string name)
    : Control(set, std::move(name)) {
  setHidden(true);
}

void ProgressIndicator::setRunning(bool running) {
  change(running_, running ? 1 : 0);
  setHidden(!running);
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
