#pragma once

#include <cstdint>
#include <span>

namespace corvane {

/// The first bytes of a binary property list.
bool isBinaryPropertyList(std::span<const uint8_t> bytes);

/// Whether a property list, XML or binary, is shallow and small enough to be handed to the reading
/// library, which follows nesting by recursion and copies what is referred to twice. A list that is
/// broken in other ways may pass; the library refuses it.
bool isWithinPropertyListBounds(std::span<const uint8_t> bytes);

}  // namespace corvane
