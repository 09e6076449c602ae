#pragma once

#include "cli/bench-tools/BenchTool.h"

namespace corvane {

/// `ioreg [-l] [-a] [-x] [-w WIDTH] [-r] [-n NAME] [-c CLASS]`: the computer's device registry.
///
/// -l shows the properties, -a prints a property list in place of a text, -x shows numbers and data
/// in hexadecimal, -w cuts lines at that many columns (0, as without it, for none), and -r begins
/// at each entry of that name (-n) or class (-c), of which it needs one.
ToolAnswer registryListing(const BenchFile& bench, const ToolArguments& arguments);

}  // namespace corvane
