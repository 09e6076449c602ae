#pragma once

#include <nlohmann/json_fwd.hpp>

namespace corvane {

// What `list` and `show` print of a registry dump: whatever only a driver or a tool could tell is
// null, however the pages show it.

/// A row of the list.
void keepWhatDumpTells(nlohmann::ordered_json& entry);

/// An adapter with its ports.
void keepWhatDumpTellsOfAdapter(nlohmann::ordered_json& adapter);

/// Puts "not in the dump" in place of each null, for a reader.
void nameWhatIsMissing(nlohmann::ordered_json& fields);

}  // namespace corvane
