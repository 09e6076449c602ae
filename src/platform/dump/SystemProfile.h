#pragma once

#include <map>
#include <string>
#include <string_view>

namespace corvane {

/// What a system profile ("profiler.spx") tells beyond the registry. Empty where it tells nothing.
struct SystemProfile {
  std::string productVersion;                         ///< such as "10.15.7"
  std::map<std::string, std::string> driverVersions;  ///< by bundle identifier
};

/// Reads the property list that `system_profiler -xml` prints. Bytes that are none tell nothing.
SystemProfile readSystemProfile(std::string_view bytes);

}  // namespace corvane
