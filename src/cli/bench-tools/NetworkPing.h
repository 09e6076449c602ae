#pragma once

#include "cli/bench-tools/BenchTool.h"

namespace corvane {

/// `ping`: reports one answered packet from the host, which is the last argument. Nothing is sent
/// anywhere; with the fault "no-network" no host has a name.
ToolAnswer networkPing(const BenchFile& bench, const ToolArguments& arguments);

}  // namespace corvane
