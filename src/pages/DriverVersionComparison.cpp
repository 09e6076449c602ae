#include "pages/DriverVersionComparison.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <string>

namespace corvane {

namespace {

constexpr int64_t suits = 0;
constexpr int64_t tooOld = 1;
constexpr int64_t unusable = 2;

/// The first three components of a version text; what is missing or no number counts as 0.
std::array<int64_t, 3> components(const std::string& version) {
  std::array<int64_t, 3> numbers{};
  size_t start = 0;
  for (auto& number : numbers) {
    if (start == std::string::npos) break;
    const size_t end = version.find('.', start);
    number = std::strtoll(version.substr(start, end - start).c_str(), nullptr, 10);
    start = end == std::string::npos ? end : end + 1;
  }
  return numbers;
}

int64_t compareFibreChannel(const std::string& version) {
  const auto [major, minor, patch] = components(version);
  if (major != 1) return major < 2 ? unusable : suits;
  return minor == 0 && patch < 45 ? tooOld : suits;
}

// The first component is not looked at, and the third one only below minor 4.
int64_t compareTenGigabit(const std::string& version) {
  const auto [major, minor, patch] = components(version);
  return minor < 4 && patch < 6 ? tooOld : suits;
}

}  // namespace

int64_t DriverVersionComparison::compareDriverVersion() const {
  switch (static_cast<AdapterFamily>(state_.intProduct)) {
    case AdapterFamily::FibreChannel:
      return compareFibreChannel(state_.driverVersion_8G);
    case AdapterFamily::TenGigabit:
      return compareTenGigabit(state_.driverVersion_10G);
  }
  return unusable;
}

}  // namespace corvane
