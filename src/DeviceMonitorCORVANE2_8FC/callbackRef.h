#pragma once

#include <memory>

#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "DeviceMonitorCORVANE2_8FC/VolumeSet.h"
#include "discovery/AdapterPairing.h"

namespace corvane {

/// What the Fibre Channel monitor hands to its callbacks; the adapters are filed by node name.
struct callbackRef : PairingContext<Corvane2Device> {
  std::shared_ptr<VolumeSet> bsdVolumeList;
};

}  // namespace corvane
