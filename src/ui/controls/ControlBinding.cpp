#include "ui/controls/ControlBinding.h"

#include <utility>

namespace corvane {

ControlBinding::ControlBinding(Control& control, QObject& view, std::function<void()> render)
    : QObject(&view), control_(control) {
  control_.observe(std::move(render));
}

ControlBinding::~ControlBinding() {
  control_.observe({});
}

}  // namespace corvane
