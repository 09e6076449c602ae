#pragma once

#include "ControllerState.h"
#include "MainWindowControls.h"

namespace corvane {

/// Stands in a page for what a registry dump does not tell.
inline constexpr const char* notInDump = "not in the dump";

/// Corrects the pages that have just been filled from a dump, in which no driver and no tool
/// answers: what only they could tell reads `notInDump`, and the names come from the registry.
/// `portIndex` is the port on show, 0 or 1. Main queue.
void showDumpedFibreChannelPort(MainWindowControls& controls, const ControllerState& state,
                                int64_t portIndex);
void showDumpedFibreChannelDevice(MainWindowControls& controls, const ControllerState& state);
void showDumpedTenGigabitPort(MainWindowControls& controls);
void showDumpedTenGigabitDevice(MainWindowControls& controls);

}  // namespace corvane
