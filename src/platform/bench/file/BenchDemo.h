#pragma once

#include "platform/bench/file/BenchState.h"

namespace corvane {

/// The bench that a new user meets: bench/demo.json, built into the program.
BenchState demoBench();

}  // namespace corvane
