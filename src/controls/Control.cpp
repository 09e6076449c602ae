#include "controls/Control.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "controls/ControlSet.h"

namespace corvane {

Control::Control(const Dispatch& dispatch, std::string name)
    : dispatch_(dispatch), name_(std::move(name)) {}

Control::Control(ControlSet& set, std::string name, ControlRole role)
    : Control(set.dispatch(), std::move(name)) {
  set.add(*this, role);
}

void Control::setHidden(bool hidden) {
  change(hidden_, hidden);
}

void Control::setEnabled(bool enabled) {
  change(enabled_, enabled);
}

void Control::setOutOfUse(OutOfUse reason, const std::string& hint) {
  auto reasons = outOfUse_;
  reasons[reason] = hint;
  change(outOfUse_, reasons);
}

void Control::clearOutOfUse(OutOfUse reason) {
  auto reasons = outOfUse_;
  reasons.erase(reason);
  change(outOfUse_, reasons);
}

void Control::suspend() {
  change(suspensions_, suspensions_ + 1);
}

void Control::resume() {
  change(suspensions_, suspensions_ > 0 ? suspensions_ - 1 : 0);
}

void Control::setHint(const std::string& hint) {
  change(hint_, hint);
}

void Control::observe(std::function<void()> observer) {
  requireMain();
  observer_ = std::move(observer);
  changed();
}

void Control::requireMain() const {
  if (dispatch_.isMain()) return;
  std::fprintf(stderr, "control \"%s\" was changed off the main queue\n", name_.c_str());
  std::abort();
}

void Control::changed() const {
  if (observer_) observer_();
}

}  // namespace corvane
