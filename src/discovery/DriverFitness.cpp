#include "discovery/DriverFitness.h"

#include <array>
#include <cstddef>

#include "text/WholeNumber.h"

namespace corvane {

namespace {

constexpr int64_t suits = 0;
constexpr int64_t tooOld = 1;
constexpr int64_t unusable = 2;

/// The first three components of a version text; what is missing or no number counts as 0.
std::array<int64_t, 3> components(std::string_view version) {
  std::array<int64_t, 3> numbers{};
  size_t start = 0;
  for (auto& number : numbers) {
    if (start == std::string_view::npos) break;
    const size_t end = version.find('.', start);
    number = leadingWideNumber(version.substr(start, end - start));
    start = end == std::string_view::npos ? end : end + 1;
  }
  return numbers;
}

int64_t compareFibreChannel(std::string_view version) {
  const auto [major, minor, patch] = components(version);
  if (major != 1) return major < 2 ? unusable : suits;
  return minor == 0 && patch < 45 ? tooOld : suits;
}

// The first component is not looked at, and the third one only below minor 4.
int64_t compareTenGigabit(std::string_view version) {
  const auto [major, minor, patch] = components(version);
  return minor < 4 && patch < 6 ? tooOld : suits;
}

}  // namespace

int64_t compareDriverVersion(AdapterFamily family, std::string_view version) {
  switch (family) {
    case AdapterFamily::FibreChannel:
      return compareFibreChannel(version);
    case AdapterFamily::TenGigabit:
      return compareTenGigabit(version);
  }
  return unusable;
}

}  // namespace corvane
