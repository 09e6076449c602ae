#pragma once

#include "CLIParser/commandAPI.h"
#include "CLIParser/commandBody.h"
#include "changes/SettingChange.h"
#include "platform/Status.h"

namespace corvane {

/// Hands one setting to the driver of a Fibre Channel port and returns what it answered. Blocks for
/// one driver call; any thread may call.
Status sendToDriver(const PortTarget& port, const SettingWish& wish);

/// Writes one of the two offloads of a 10GbE port with the adapter's tool and has it saved, in the
/// order that is laid down; what it reads back meanwhile is the answer. `command` carries the
/// lines; it blocks while they run.
Answer<int64_t> sendToTool(const PortTarget& port, const SettingWish& wish, commandBody& command);

/// Applies a preset to a 10GbE port, likewise. The answer is the preset when it was written whole
/// and saved, else what is missing.
Answer<int64_t> applyMode(const PortTarget& port, const SettingWish& wish, commandAPI& presets);

}  // namespace corvane
