#include "inventory/PortReadings.h"

#include <fmt/chrono.h>

#include <ctime>
#include <iomanip>
#include <sstream>

#include "CLIParser/commandAPI.h"

namespace corvane {

namespace {

constexpr const char* utcPattern = "%Y-%m-%dT%H:%M:%SZ";

}  // namespace

Answer<int64_t> presetMode(const PresetReading& preset) {
  for (const auto* value : {&preset.rxIntrThrottle, &preset.rxRingSize, &preset.txIntrThrottle,
                            &preset.txRingSize, &preset.rxRingCount})
    if (!value->isKnown()) return value->none();
  return static_cast<int64_t>(
      modeOf({*preset.rxIntrThrottle, *preset.rxRingSize, *preset.txIntrThrottle,
              *preset.txRingSize, *preset.rxRingCount}));
}

std::string utcText(ReadingTime time) {
  return fmt::format("{:%Y-%m-%dT%H:%M:%SZ}",
                     fmt::gmtime(std::chrono::system_clock::to_time_t(time)));
}

std::optional<ReadingTime> timeOfUtcText(const std::string& text) {
  std::tm fields{};
  std::istringstream stream(text);
  stream >> std::get_time(&fields, utcPattern);
  if (stream.fail() || stream.peek() != std::istringstream::traits_type::eof()) return std::nullopt;
  return std::chrono::system_clock::from_time_t(timegm(&fields));
}

}  // namespace corvane
