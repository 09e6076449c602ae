#pragma once

#include <filesystem>

namespace corvane::macos {

/// The path of the running program, links resolved; empty when it cannot be learned.
std::filesystem::path programPath();

}  // namespace corvane::macos
