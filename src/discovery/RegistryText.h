#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/PropertyValue.h"

namespace corvane {

/// The text form of a registry property with "<", ">" and blanks trimmed from both ends: eight
/// bytes read 2100001b 32a0b1c2. "(null)" for a property that is absent.
std::string trimmedDataText(const PropertyValue::Dictionary& properties, std::string_view key);

/// The first `count` bytes of a registry byte string as upper-case hexadecimal pairs joined by ":",
/// such as 00:1B:21:AA:BB:CC. Nothing when the property is absent or too short.
std::optional<std::string> colonPairs(const PropertyValue::Dictionary& properties,
                                      std::string_view key, size_t count);

}  // namespace corvane
