#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "inventory/DeviceList.h"
#include "platform/UserPrompts.h"

namespace corvane {

class Corvane2Info;

/// What the main controller and its page controllers share. Main queue only, save for CorvaneList,
/// which guards itself: arrivals and departures change the list on the thread that posted them and
/// move everything else to the main queue.
struct ControllerState {
  DeviceList CorvaneList;

  /// The Fibre Channel adapter on show, with its driver information, and its record.
  std::shared_ptr<Corvane2Info> corvaneInfo;
  std::shared_ptr<Corvane2Device> corvaneDevice;

  /// The 10GbE adapter on show.
  std::shared_ptr<Corvane2Device_10GE> corvaneDevice_10GE;

  int64_t intProduct = 0;    ///< family of the selection: 1 Fibre Channel, 2 10GbE
  int64_t intSelectRow = 0;  ///< the selected row
  int64_t selectPort = 0;    ///< the port page on show: 1 or 2, 0 before any was

  /// The driver versions that the device pages last read; "0.0.0" when there was no bundle.
  std::string driverVersion_8G = "0.0.0";
  std::string driverVersion_10G = "0.0.0";

  /// The alert that tells of a firmware update, shown anew with changed texts at each step.
  AlertContent updateAlert;
};

}  // namespace corvane
