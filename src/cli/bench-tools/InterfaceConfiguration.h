#pragma once

#include "cli/bench-tools/BenchTool.h"

namespace corvane {

/// `ifconfig`: prints the network interface that it is asked for, or all of them with "-a" or
/// nothing. It changes nothing. A port whose interface has not been named, or that is not plugged
/// in, has no interface.
ToolAnswer interfaceConfiguration(const BenchFile& bench, const ToolArguments& arguments);

}  // namespace corvane
