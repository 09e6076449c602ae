#pragma once

#include <string>
#include <vector>

#include "inventory/DeviceList.h"
#include "platform/Registry.h"

namespace corvane {

/// Stands in a page for what a registry dump does not tell.
inline constexpr const char* notInDump = "not in the dump";

/// One sentence for each adapter that the dump shows to be attached but that could not be listed:
/// which it is, and why. `isWhole` says whether everything in the dump could be read.
std::vector<std::string> unlistedAdapters(Registry& registry, const DeviceList& list, bool isWhole);

}  // namespace corvane
