#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane {

/// The decimal number that `text` begins with after white space, its sign included; 0 when there is
/// none, the nearest representable value when it does not fit.
int32_t leadingWholeNumber(std::string_view text);

/// The number when the whole text is one, white space around it aside; else nothing.
std::optional<int32_t> wholeNumber(std::string_view text);

}  // namespace corvane
