#pragma once

#include "cli/bench-tools/BenchTool.h"

namespace corvane {

/// `open`: shows nothing, but adds the path to the file "opened.txt" in the bench's folder, one a
/// line, so that a person or a test sees what the utility would have opened. A path that does not
/// exist is refused and not added.
ToolAnswer fileOpener(const BenchFile& bench, const ToolArguments& arguments);

}  // namespace corvane
