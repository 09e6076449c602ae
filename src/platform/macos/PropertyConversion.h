#pragma once

#include <optional>
#include <string>

#include "platform/PropertyValue.h"
#include "platform/macos/CoreFoundationReference.h"

namespace corvane::macos {

/// The property-list values of the platform and ours, one to one. A set becomes an array, a date or
/// an object of another type becomes nothing.
PropertyValue propertyValue(CFTypeRef object);
PropertyValue::Dictionary propertyDictionary(CFDictionaryRef dictionary);

/// Our value as the platform's; nothing becomes CFNull.
CoreFoundationReference<CFTypeRef> platformValue(const PropertyValue& value);
CoreFoundationReference<CFDictionaryRef> platformDictionary(
    const PropertyValue::Dictionary& dictionary);

/// A text that is no UTF-8 is taken byte by byte, each for the character of its number.
CoreFoundationReference<CFStringRef> platformString(const std::string& text);

/// Nothing when `object` is null or not a text.
std::optional<std::string> text(CFTypeRef object);

}  // namespace corvane::macos
