#include "platform/dump/DumpBundles.h"

#include <array>
#include <filesystem>
#include <utility>

namespace corvane {

namespace {

constexpr const char* identifierKey = "CFBundleIdentifier";

constexpr std::array<std::pair<const char*, const char*>, 3> driverIdentifiers = {{
    {"Corvane-FC.kext", "com.velmar.Corvane-FC"},
    {"Corvane2-FC.kext", "com.velmar.Corvane2-FC"},
    {"Corvane2-10GE.kext", "com.velmar.driver.Corvane2-10GE"},
}};

/// The identifier of the driver whose bundle lies at `path`; empty for other bundles.
std::string driverIdentifier(std::string path) {
  while (path.ends_with('/')) path.pop_back();
  const std::string name = std::filesystem::path(path).filename().string();
  for (const auto& [bundle, identifier] : driverIdentifiers) {
    if (name == bundle) return identifier;
  }
  return {};
}

}  // namespace

bool DumpBundles::exists(const std::string& path) {
  const std::string identifier = driverIdentifier(path);
  return !identifier.empty() && !dump_.entriesWith({{identifierKey, identifier}}).empty();
}

std::optional<PropertyValue> DumpBundles::infoValue(const std::string& path,
                                                    const std::string& key) {
  const bool isVersion = key == "CFBundleVersion" || key == "CFBundleShortVersionString";
  const auto found = profile_.driverVersions.find(driverIdentifier(path));
  if (!isVersion || found == profile_.driverVersions.end()) return std::nullopt;
  return PropertyValue(found->second);
}

std::optional<PropertyValue> DumpBundles::mainInfoValue(const std::string& key) {
  return application_.mainInfoValue(key);
}

/// Of the application's resources none is given out: they lead to the network.
std::optional<PropertyValue::Dictionary> DumpBundles::resourcePropertyList(const std::string&,
                                                                           const std::string&) {
  return std::nullopt;
}

}  // namespace corvane
