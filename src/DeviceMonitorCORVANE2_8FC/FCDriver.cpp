#include "DeviceMonitorCORVANE2_8FC/FCDriver.h"

namespace corvane {

bool FCDriver::getMacVer() const {
  return platform_.systemVersion.productVersion().find("10.8.") != std::string::npos;
}

int64_t FCDriver::getDriverVer() const {
  const std::string& folder =
      getMacVer() ? platform_.paths.systemExtensions : platform_.paths.localExtensions;
  if (platform_.bundles.exists(folder + "Corvane-FC.kext")) return 3;
  if (platform_.bundles.exists(folder + "Corvane2-FC.kext")) return 2;
  return 1;
}

}  // namespace corvane
