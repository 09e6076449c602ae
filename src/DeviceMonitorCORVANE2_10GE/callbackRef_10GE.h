#pragma once

#include <memory>

#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_10GE/SmallTree.h"
#include "discovery/AdapterPairing.h"
#include "discovery/StopToken.h"

namespace corvane {

/// What the 10GbE monitor hands to its callbacks; the adapters are filed by PCI bus number.
struct callbackRef_10GE : PairingContext<Corvane2Device_10GE> {
  std::shared_ptr<SmallTree> fuckSmallTree;
  StopToken stopping;  ///< ends the waiting for an interface's name
};

}  // namespace corvane
