#pragma once

#include "cli/bench-tools/BenchTool.h"

namespace corvane {

/// `log collect --output FOLDER`: writes the log archive "system_logs.logarchive" into the folder,
/// which must exist.
ToolAnswer systemLogArchive(const BenchFile& bench, const ToolArguments& arguments);

}  // namespace corvane
