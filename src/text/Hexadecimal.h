#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Bytes as pairs of hexadecimal digits, and back. Pure functions; any text is accepted.
namespace corvane {

/// Two digits a byte, in its order, with `between` between two bytes: "0a1f", "0A:1F".
std::string lowerHexadecimal(std::span<const uint8_t> bytes, std::string_view between = {});
std::string upperHexadecimal(std::span<const uint8_t> bytes, std::string_view between = {});

/// Whether every character is a digit of either case. An empty text has none that is not.
bool isHexadecimal(std::string_view text);

/// The bytes of a text of such pairs, digits of either case; nothing when it is anything else.
std::optional<std::vector<uint8_t>> hexadecimalBytes(std::string_view text,
                                                     std::string_view between = {});

/// The number that the whole text is, of one to sixteen digits; else nothing.
std::optional<uint64_t> hexadecimalNumber(std::string_view text);

}  // namespace corvane
