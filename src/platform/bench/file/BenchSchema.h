#pragma once

#include <nlohmann/json_fwd.hpp>

namespace corvane {

/// The schema of bench files: bench/schema.json, built into the program.
const nlohmann::ordered_json& benchSchema();

}  // namespace corvane
