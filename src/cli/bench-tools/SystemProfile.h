#pragma once

#include "cli/bench-tools/BenchTool.h"

namespace corvane {

/// `system_profiler -xml`: the computer's profile as a property list, an array of one dictionary
/// for each data type: hardware, software, Fibre Channel and Ethernet.
ToolAnswer systemProfile(const BenchFile& bench, const ToolArguments& arguments);

}  // namespace corvane
