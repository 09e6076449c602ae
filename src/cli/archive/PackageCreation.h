#pragma once

#include <string>

namespace corvane {

struct CommandContext;

/// Builds the package `output` of what the manifest names. The package takes its
/// place only when it is complete; until then, and after a failure, what was there
/// stays. Refuses to replace the manifest or a file that it names. Throws
/// CommandFailure.
void createPackage(CommandContext& context, const std::string& output, const std::string& manifest);

}  // namespace corvane
