#pragma once

#include <cstdint>
#include <string_view>

#include "discovery/AdapterFamily.h"

namespace corvane {

/// Whether an installed driver of that version offers what this system asks for beyond port
/// information: modules of Fibre Channel ports, settings and modules of 10GbE ports. 0 when it
/// does; 1 or 2 when it is too old, or when `family` is none of the two. Components that are
/// missing or no numbers count as 0.
int64_t compareDriverVersion(AdapterFamily family, std::string_view version);

}  // namespace corvane
