#pragma once

#include <string>
#include <vector>

#include "platform/Registry.h"
#include "window/ControllerState.h"
#include "window/MainWindowControls.h"

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

/// One sentence for each adapter that the dump shows to be attached but that could not be listed:
/// which it is, and why. `isWhole` says whether everything in the dump could be read.
std::vector<std::string> unlistedAdapters(Registry& registry, const DeviceList& list, bool isWhole);

}  // namespace corvane
