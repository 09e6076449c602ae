#pragma once

#include <memory>

#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "DeviceMonitorCORVANE2_8FC/VolumeSet.h"
#include "discovery/DeviceTable.h"
#include "discovery/WorkGate.h"
#include "platform/Platform.h"

namespace corvane {

/// What the Fibre Channel monitor hands to its callbacks.
struct callbackRef {
  Platform platform;
  std::shared_ptr<DeviceTable<Corvane2Device>> deviceList;  ///< by node name
  std::shared_ptr<VolumeSet> bsdVolumeList;
  std::shared_ptr<WorkGate> gate;  ///< what the monitor leaves on a queue passes it
};

}  // namespace corvane
