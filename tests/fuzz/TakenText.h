#pragma once

#include <string>
#include <string_view>

namespace corvane::fuzz {

/// The part of `input` up to the first zero byte; `input` keeps what follows it.
inline std::string takeText(std::string_view& input) {
  const auto end = input.find('\0');
  const std::string text(input.substr(0, end));
  input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
  return text;
}

}  // namespace corvane::fuzz
