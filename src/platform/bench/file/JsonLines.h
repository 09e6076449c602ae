#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// The line of `text`, counted from 1, on which the value stands that a JSON pointer names, or the
/// nearest enclosing value that is there. 0 when the text is no JSON.
size_t lineOfJsonValue(std::string_view text, const std::string& pointer);

/// The pointer of the first key that stands twice in one object; nothing when there is none.
std::optional<std::string> findRepeatedJsonKey(std::string_view text);

}  // namespace corvane
