#include "discovery/RegistryText.h"

#include <algorithm>
#include <cctype>

namespace corvane {

std::string trimmedDataText(const PropertyValue::Dictionary& properties, std::string_view key) {
  constexpr const char* surrounding = "< >";
  const std::string text = propertyText(properties, key);
  const size_t first = text.find_first_not_of(surrounding);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(surrounding) - first + 1);
}

std::optional<std::string> colonPairs(const PropertyValue::Dictionary& properties,
                                      std::string_view key, size_t count) {
  std::string digits = trimmedDataText(properties, key);
  std::erase(digits, ' ');
  if (findProperty(properties, key) == nullptr || digits.size() < 2 * count) return std::nullopt;

  std::string joined;
  for (size_t offset = 0; offset < 2 * count; offset += 2) {
    if (offset > 0) joined += ':';
    joined += digits.substr(offset, 2);
  }
  std::transform(joined.begin(), joined.end(), joined.begin(), [](char each) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(each)));
  });
  return joined;
}

}  // namespace corvane
