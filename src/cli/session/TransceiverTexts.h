#pragma once

#include <nlohmann/json.hpp>

#include "cli/answers/CommandOutput.h"

namespace corvane {

/// The eleven texts of a transceiver as the commands print them; null for one that is unset.
/// `Module` has them under the same names, as a port of the driver and a decoded dump do.
template <typename Module>
nlohmann::ordered_json transceiverTexts(const Module& module) {
  return {{"Transceiver", textOrNothing(module.Transceiver)},
          {"Connector", textOrNothing(module.Connector)},
          {"TransceiverCode", textOrNothing(module.TransceiverCode)},
          {"SerialEncoding", textOrNothing(module.SerialEncoding)},
          {"Bitrate", textOrNothing(module.Bitrate)},
          {"VendorName", textOrNothing(module.VendorName)},
          {"VendorOUI", textOrNothing(module.VendorOUI)},
          {"VendorPN", textOrNothing(module.VendorPN)},
          {"VendorRev", textOrNothing(module.VendorRev)},
          {"VendorSN", textOrNothing(module.VendorSN)},
          {"ManuData", textOrNothing(module.ManuData)}};
}

}  // namespace corvane
