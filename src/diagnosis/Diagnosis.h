#pragma once

#include "diagnosis/Finding.h"
#include "diagnosis/Memory.h"
#include "inventory/AdapterReading.h"

namespace corvane {

/// Judges a reading: what is wrong, where and what to do, worst first, and the path of each port.
/// Depends on nothing but its arguments; any thread may call.
Diagnosis diagnose(const ComputerReading& reading, const Memory& memory);

}  // namespace corvane
