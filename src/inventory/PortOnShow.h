#pragma once

#include <functional>
#include <optional>

#include "inventory/PortTarget.h"

namespace corvane {

/// Answers which port somebody who begins to change something means; nothing when there is none.
using PortOnShow = std::function<std::optional<PortTarget>()>;

}  // namespace corvane
