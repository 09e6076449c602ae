#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace corvane {

/// What a simulated adapter reads in the header of a controller image.
struct BenchFirmwareImage {
  int generation = 2;   ///< of the products that it is for, 2 or 3
  std::string version;  ///< what the adapter reports once it runs, at most 31 bytes

  bool operator==(const BenchFirmwareImage&) const = default;
};

/// The header of a controller image, little-endian, followed by the payload:
///
///     offset  width  field
///          0      8  magic, "VELMARFW"
///          8      4  generation
///         12     32  version, text ended by a zero byte
///         44      4  payload length
///         48      4  CRC-32 (IEEE 802.3) of the payload
inline constexpr size_t benchFirmwareHeaderSize = 52;

/// Why an adapter turns an image away, as one sentence without full stop; nothing when it is good.
/// A good image's header is put into `image`.
std::optional<std::string> checkFirmwareImage(std::span<const uint8_t> bytes,
                                              BenchFirmwareImage& image);

/// An image with that payload.
std::vector<uint8_t> makeFirmwareImage(const BenchFirmwareImage& image,
                                       std::span<const uint8_t> payload);

}  // namespace corvane
