#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/Log.h"
#include "platform/bench/file/BenchFile.h"

namespace corvane {

/// The bytes of a module's serial identification area (SFF-8472, address A0h, 0 to 95).
using BenchTransceiverBytes = std::array<uint8_t, 96>;

/// What a module's EEPROM holds; nothing when the cage is empty, or when its dump cannot be read,
/// which is logged. A dump's file is looked for beside the bench file.
std::optional<BenchTransceiverBytes> transceiverBytes(const BenchTransceiver& transceiver,
                                                      const BenchFile& bench, Log& log);

}  // namespace corvane
