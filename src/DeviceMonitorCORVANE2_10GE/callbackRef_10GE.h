#pragma once

#include <memory>

#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "discovery/DeviceTable.h"
#include "discovery/StopToken.h"
#include "discovery/WorkGate.h"
#include "platform/Platform.h"

namespace corvane {

/// What the 10GbE monitor hands to its callbacks.
struct callbackRef_10GE {
  Platform platform;
  std::shared_ptr<DeviceTable<Corvane2Device_10GE>> deviceList;  ///< by PCI bus number
  std::shared_ptr<WorkGate> gate;  ///< what the monitor leaves on a queue passes it
  StopToken stopping;              ///< ends the waiting for an interface's name
};

}  // namespace corvane
