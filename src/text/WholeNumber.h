#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Decimal numbers in texts that people, tools and tables wrote. Pure functions; any text is
/// accepted. What does not fit counts as the nearest number that does. They differ in what may
/// stand around the digits and in how wide the number is.
namespace corvane {

/// The number that `text` begins with, white space and a sign before it allowed; 0 when there is
/// none.
int32_t leadingWholeNumber(std::string_view text);
int64_t leadingWideNumber(std::string_view text);

/// The same of digits alone: 0 when anything stands before them.
int64_t leadingInteger(std::string_view text);

/// The number when the whole text is one, with a sign and with white space around it allowed; else
/// nothing.
std::optional<int32_t> wholeNumber(std::string_view text);

/// The number when the whole text is one, with a minus alone allowed before it; nothing for any
/// other text, nor for a number that does not fit.
std::optional<int64_t> plainNumber(std::string_view text);

}  // namespace corvane
