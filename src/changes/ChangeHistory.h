#pragma once

#include <vector>

#include "changes/SettingChange.h"
#include "platform/Paths.h"

namespace corvane {

/// Adds what came of changes of settings to the history of this computer. A history that cannot be
/// written holds up nothing.
void recordChanges(const Paths& paths, const std::vector<ChangeOutcome>& outcomes);

}  // namespace corvane
