#include "OnlyIntegerValueFormatter.h"

#include <algorithm>

#include "text/WholeNumber.h"

namespace corvane {

namespace {

constexpr std::ptrdiff_t mostCharacters = 4;
constexpr int32_t firstRefusedNumber = 255;

// Characters of a UTF-8 text: every byte but the continuations.
std::ptrdiff_t characterCount(const std::string& text) {
  return std::count_if(text.begin(), text.end(),
                       [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; });
}

}  // namespace

bool OnlyIntegerValueFormatter::isPartialStringValid(const std::string& partialString) const {
  if (partialString.empty()) return true;
  if (characterCount(partialString) > mostCharacters) return false;
  if (leadingWholeNumber(partialString) >= firstRefusedNumber) return false;
  if (wholeNumber(partialString)) return true;
  prompts_.beep();
  return false;
}

}  // namespace corvane
