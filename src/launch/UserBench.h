#pragma once

#include <string>

namespace corvane {

/// The path of the user's own bench, on which the programs run when nothing else is named:
/// "corvane/bench.json" in the user's data folder (XDG_DATA_HOME, else "~/.local/share"). A bench
/// that is not there yet is made as a copy of the demo bench. Throws LaunchFailure.
std::string userBench();

}  // namespace corvane
