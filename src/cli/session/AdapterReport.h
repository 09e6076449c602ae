#pragma once

#include <nlohmann/json_fwd.hpp>

#include "inventory/AdapterReading.h"
#include "inventory/DeviceList.h"

namespace corvane {

/// Whom an answer is for. To a program what was not read is null; a person is told why.
enum class Reader { Program, Person };

/// One row of the device list as `list` prints it, without its ports.
nlohmann::ordered_json entryFields(const DeviceListEntry& entry);

/// What was read of an adapter, or of one of its ports, as `show` prints it.
nlohmann::ordered_json adapterFields(const AdapterReading& reading, Reader reader);
nlohmann::ordered_json portFields(const AdapterReading& adapter, int64_t port, Reader reader);

/// Whether each port has a link, and its speed in Mb/s, as `list` prints them.
nlohmann::ordered_json linkFields(const AdapterReading& reading);

/// The speed in Mb/s that a medium's name tells; nothing for "Unknow".
std::optional<int64_t> speedOfMedium(const std::string& medium);

}  // namespace corvane
