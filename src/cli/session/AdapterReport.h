#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>

#include "AppDelegate.h"

namespace corvane {

/// One row of the device list as `list` prints it.
nlohmann::ordered_json entryFields(const DeviceListEntry& entry);

/// What the pages of the selected adapter show, as `show` prints it. Each page is shown in turn.
nlohmann::ordered_json adapterFields(AppDelegate& app);

/// The selected adapter's first or second port, told by 1 or 2, as `show` prints it among the
/// ports. Its page is shown.
nlohmann::ordered_json portFields(AppDelegate& app, int64_t portNumber);

}  // namespace corvane
