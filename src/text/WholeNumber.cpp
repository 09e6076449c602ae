#include "text/WholeNumber.h"

#include <algorithm>
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
  int32_t value = 0;
  bool found = false;
  std::string_view rest;  ///< what follows the number
};

ScannedNumber scan(std::string_view text) {
  text = withoutLeadingSpace(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);

  using Limits = std::numeric_limits<int32_t>;
  const int64_t furthest = negative ? -int64_t{Limits::min()} : int64_t{Limits::max()};
  int64_t magnitude = 0;
  ScannedNumber number;
  while (!text.empty() && isDigit(text.front())) {
    magnitude = std::min(magnitude * 10 + (text.front() - '0'), furthest);
    number.found = true;
    text.remove_prefix(1);
  }
  number.value = static_cast<int32_t>(negative ? -magnitude : magnitude);
  number.rest = text;
  return number;
}

}  // namespace

int32_t leadingWholeNumber(std::string_view text) {
  return scan(text).value;
}

std::optional<int32_t> wholeNumber(std::string_view text) {
  const ScannedNumber number = scan(text);
  if (!number.found || !withoutLeadingSpace(number.rest).empty()) return std::nullopt;
  return number.value;
}

}  // namespace corvane
