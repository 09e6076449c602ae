#include "text/WholeNumber.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace corvane {

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

std::string_view withoutLeadingSpace(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(whiteSpace), text.size()));
}

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

struct ScannedNumber {
  int64_t value = 0;
  bool found = false;
  std::string_view rest;  ///< what follows the number
};

/// Scans the digits that `text` begins with as a number below 0 or above.
ScannedNumber scanDigits(std::string_view text, bool negative) {
  using Limits = std::numeric_limits<int64_t>;
  ScannedNumber number{0, false, text};
  while (!number.rest.empty() && isDigit(number.rest.front())) {
    const int64_t digit = number.rest.front() - '0';
    if (negative) {
      number.value =
          number.value < (Limits::min() + digit) / 10 ? Limits::min() : number.value * 10 - digit;
    } else {
      number.value =
          number.value > (Limits::max() - digit) / 10 ? Limits::max() : number.value * 10 + digit;
    }
    number.found = true;
    number.rest.remove_prefix(1);
  }
  return number;
}

ScannedNumber scan(std::string_view text) {
  text = withoutLeadingSpace(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
  return scanDigits(text, negative);
}

int32_t narrowed(int64_t number) {
  using Limits = std::numeric_limits<int32_t>;
  return static_cast<int32_t>(std::clamp<int64_t>(number, Limits::min(), Limits::max()));
}

}  // namespace

int32_t leadingWholeNumber(std::string_view text) {
  return narrowed(scan(text).value);
}

int64_t leadingWideNumber(std::string_view text) {
  return scan(text).value;
}

int64_t leadingInteger(std::string_view text) {
  return scanDigits(text, false).value;
}

std::optional<int32_t> wholeNumber(std::string_view text) {
  const ScannedNumber number = scan(text);
  if (!number.found || !withoutLeadingSpace(number.rest).empty()) return std::nullopt;
  return narrowed(number.value);
}

std::optional<int64_t> plainNumber(std::string_view text) {
  int64_t value = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

}  // namespace corvane
