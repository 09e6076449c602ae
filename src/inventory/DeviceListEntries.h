#pragma once

#include <memory>
#include <optional>
#include <string>

#include "inventory/DeviceList.h"
#include "platform/Platform.h"

namespace corvane {

inline constexpr const char* secondGenerationIcon = "corvane2_2.icns";
inline constexpr const char* thirdGenerationIcon = "corvane3_2.icns";

/// The icon of an adapter that a notification of that name announced.
std::string iconOfNotification(const std::string& name);

/// The icon of an adapter with that product name.
std::string iconOfProduct(const std::string& productType);

/// The list entry of a Fibre Channel adapter that has just been announced. Asks the driver for both
/// ports, and the registry for the adapter's place. Nothing when a port has gone meanwhile.
std::optional<DeviceListEntry> makeEntry(const Platform& platform,
                                         const std::shared_ptr<Corvane2Device>& device,
                                         const std::string& icon);

/// The same for a 10GbE adapter. Stores its place in the adapter's record.
std::optional<DeviceListEntry> makeEntry(const Platform& platform,
                                         const std::shared_ptr<Corvane2Device_10GE>& device,
                                         const std::string& icon);

}  // namespace corvane
