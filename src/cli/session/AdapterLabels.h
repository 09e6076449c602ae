#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "inventory/DeviceList.h"

namespace corvane {

/// Whether the text that a user typed names the adapter: its label as it is shown ("B - 2") or
/// short ("B2"), or the world wide name or MAC address of the adapter or of one of its ports; in
/// any case of letters.
bool isNamedBy(const DeviceListEntry& entry, const std::string& label);

/// The same for an adapter of which no more is known than its label and its WWN.
bool isNamedBy(const std::string& Sequence, const std::string& WWN, const std::string& label);

/// The rows of the adapters that the text names.
std::vector<int64_t> rowsNamedBy(const std::vector<DeviceListEntry>& entries,
                                 const std::string& label);

}  // namespace corvane
