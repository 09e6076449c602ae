#pragma once

#include <cstdint>

namespace corvane {

/// The two families of adapters, by the numbers that `intProduct` holds.
enum class AdapterFamily : int64_t { FibreChannel = 1, TenGigabit = 2 };

}  // namespace corvane
