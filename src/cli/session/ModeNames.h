#pragma once

#include <array>
#include <string_view>

#include "CLIParser/commandAPI.h"

namespace corvane {

/// The performance presets under the names that the command line gives them, by the tags of their
/// items from 1.
inline constexpr std::array<std::string_view, 4> modeNames{"low-latency", "balanced",
                                                           "high-throughput", "server"};
static_assert(modeNames.size() == static_cast<size_t>(PerformanceMode::Server));

}  // namespace corvane
