#include "text/Hexadecimal.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr std::string_view lowerDigits = "0123456789abcdef";
constexpr std::string_view upperDigits = "0123456789ABCDEF";
constexpr size_t digitsInByte = 2;
constexpr size_t mostDigits = 16;

std::string pairsOf(std::span<const uint8_t> bytes, std::string_view between,
                    std::string_view digits) {
  std::string text;
  text.reserve(bytes.size() * (digitsInByte + between.size()));
  for (const uint8_t byte : bytes) {
    if (!text.empty()) text += between;
    text += digits[byte >> 4U];
    text += digits[byte & 0xFU];
  }
  return text;
}

/// The value of a digit; nothing when it is none.
std::optional<uint8_t> digitValue(char character) {
  for (const std::string_view digits : {lowerDigits, upperDigits}) {
    const size_t value = digits.find(character);
    if (value != std::string_view::npos) return static_cast<uint8_t>(value);
  }
  return std::nullopt;
}

}  // namespace

std::string lowerHexadecimal(std::span<const uint8_t> bytes, std::string_view between) {
  return pairsOf(bytes, between, lowerDigits);
}

std::string upperHexadecimal(std::span<const uint8_t> bytes, std::string_view between) {
  return pairsOf(bytes, between, upperDigits);
}

bool isHexadecimal(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char character) { return digitValue(character).has_value(); });
}

std::optional<std::vector<uint8_t>> hexadecimalBytes(std::string_view text,
                                                     std::string_view between) {
  std::vector<uint8_t> bytes;
  while (!text.empty()) {
    if (!bytes.empty()) {
      if (!text.starts_with(between)) return std::nullopt;
      text.remove_prefix(between.size());
    }
    if (text.size() < digitsInByte) return std::nullopt;
    const auto high = digitValue(text[0]);
    const auto low = digitValue(text[1]);
    if (!high || !low) return std::nullopt;
    bytes.push_back(static_cast<uint8_t>(*high << 4U | *low));
    text.remove_prefix(digitsInByte);
  }
  return bytes;
}

std::optional<uint64_t> hexadecimalNumber(std::string_view text) {
  if (text.empty() || text.size() > mostDigits || !isHexadecimal(text)) return std::nullopt;
  uint64_t number = 0;
  for (const char character : text) number = number << 4U | digitValue(character).value_or(0);
  return number;
}

}  // namespace corvane
