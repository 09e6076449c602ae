#pragma once

#include <optional>

#include "platform/bench/file/BenchState.h"
#include "platform/bench/file/JsonSchema.h"

namespace corvane {

/// The first place where a bench that fits its schema contradicts itself: a name given twice, two
/// devices in one place of a chain, a disk on a port that is nowhere, a setting that the product
/// does not have.
std::optional<SchemaBreach> findContradiction(const BenchState& state);

}  // namespace corvane
