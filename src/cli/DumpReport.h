#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace corvane {

class DeviceList;
struct Platform;

/// The adapters that a dump shows to be attached but that cannot be listed, such as
/// "Corvane2 16G FC at A - 1": the ports of their drivers are not in the dump, or not whole.
std::vector<std::string> unlistedAdapters(const Platform& platform, const DeviceList& list);

// What `list` and `show` print of a registry dump: whatever only a driver or a tool could tell is
// null, however the pages show it.

/// A row of the list.
void keepWhatDumpTells(nlohmann::ordered_json& entry);

/// An adapter with its ports.
void keepWhatDumpTellsOfAdapter(nlohmann::ordered_json& adapter);

/// Puts "not in the dump" in place of each null, for a reader.
void nameWhatIsMissing(nlohmann::ordered_json& fields);

}  // namespace corvane
