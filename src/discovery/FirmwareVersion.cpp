#include "discovery/FirmwareVersion.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <compare>
#include <cstdint>
#include <limits>

#include "discovery/Products.h"

namespace corvane {

namespace {

constexpr size_t comparedComponents = 4;
using VersionComponents = std::array<int64_t, comparedComponents>;

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

/// The whole number that a text begins with, after blanks; 0 when it begins with none. Numbers that
/// are too large count as the largest.
int64_t leadingNumber(std::string_view text) {
  const auto isBlank = [](unsigned char character) { return std::isspace(character) != 0; };
  while (!text.empty() && isBlank(static_cast<unsigned char>(text.front()))) text.remove_prefix(1);
  const bool negative = !text.empty() && text.front() == '-';
  if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
  constexpr int64_t largest = std::numeric_limits<int64_t>::max();
  int64_t value = 0;
  for (const char character : text) {
    if (!isDigit(character)) break;
    const int64_t digit = character - '0';
    value = value > (largest - digit) / 10 ? largest : value * 10 + digit;
  }
  return negative ? -value : value;
}

VersionComponents versionComponents(std::string_view version) {
  VersionComponents components{};
  for (int64_t& component : components) {
    const size_t dot = version.find('.');
    component = leadingNumber(version.substr(0, dot));
    if (dot == std::string_view::npos) break;
    version.remove_prefix(dot + 1);
  }
  return components;
}

/// Takes the leading run of digits, or of anything else, off the text.
std::string_view takeRun(std::string_view& text) {
  const bool isNumber = isDigit(text.front());
  const auto end = std::find_if(text.begin(), text.end(), [isNumber](char character) {
    return isDigit(character) != isNumber;
  });
  const std::string_view run(text.begin(), end);
  text.remove_prefix(run.size());
  return run;
}

std::string_view withoutLeadingZeros(std::string_view digits) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

std::strong_ordering compareRuns(std::string_view one, std::string_view other) {
  if (!isDigit(one.front()) || !isDigit(other.front())) return one <=> other;
  one = withoutLeadingZeros(one);
  other = withoutLeadingZeros(other);
  const auto byLength = one.size() <=> other.size();
  return std::is_neq(byLength) ? byLength : one <=> other;
}

}  // namespace

bool offersMore(std::string_view installed, std::string_view offered) {
  const VersionComponents there = versionComponents(installed);
  const VersionComponents offer = versionComponents(offered);
  for (size_t index = 0; index < comparedComponents; ++index)
    if (offer[index] > there[index]) return true;
  return false;
}

std::string_view catalogueProduct(std::string_view product) {
  if (product == corvane2_8G_FC) return "Corvane_FW_8G";
  if (product == corvane2_16G_FC) return "Corvane_FW_16G";
  return {};
}

bool isOlderFirmware(std::string_view one, std::string_view other) {
  while (!one.empty() && !other.empty()) {
    const auto order = compareRuns(takeRun(one), takeRun(other));
    if (std::is_neq(order)) return std::is_lt(order);
  }
  return one.empty() && !other.empty();
}

}  // namespace corvane
