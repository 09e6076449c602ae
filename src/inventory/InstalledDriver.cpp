#include "inventory/InstalledDriver.h"

#include <algorithm>

#include "DeviceMonitorCORVANE2_8FC/FCDriver.h"
#include "discovery/DriverFitness.h"

namespace corvane {

namespace {

constexpr const char* versionKey = "CFBundleVersion";
constexpr const char* tenGigabitBundleFile = "Corvane2-10GE.kext";

/// What a version text may have at most, its terminator not counted.
constexpr size_t mostCharacters = 15;

std::optional<std::string> bundleName(const FCDriver& driver, AdapterFamily family) {
  if (family == AdapterFamily::TenGigabit) return tenGigabitBundleFile;
  switch (driver.getDriverVer()) {
    case 3:
      return "Corvane-FC.kext";
    case 2:
      return "Corvane2-FC.kext";
    default:
      return std::nullopt;
  }
}

bool isAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(),
                     [](char each) { return static_cast<unsigned char>(each) < 0x80; });
}

std::optional<std::string> fibreChannelVersion(const std::string& text) {
  return text.substr(0, mostCharacters);
}

std::optional<std::string> tenGigabitVersion(const std::string& text) {
  if (text.size() > mostCharacters || !isAscii(text)) return std::nullopt;
  return text;
}

}  // namespace

InstalledDriver::InstalledDriver(const Platform& platform, AdapterFamily family) : family_(family) {
  const FCDriver driver(platform);
  const auto name = bundleName(driver, family);
  if (!name) return;
  const std::string path =
      (driver.getMacVer() ? platform.paths.systemExtensions : platform.paths.localExtensions) +
      *name;
  const auto value = platform.bundles.infoValue(path, versionKey);
  if (value || platform.bundles.exists(path)) bundlePath_ = path;
  if (!value || !value->text()) return;
  version_ = family == AdapterFamily::FibreChannel ? fibreChannelVersion(*value->text())
                                                   : tenGigabitVersion(*value->text());
}

int64_t InstalledDriver::fitness() const {
  return compareDriverVersion(family_, versionOrMissing());
}

}  // namespace corvane
