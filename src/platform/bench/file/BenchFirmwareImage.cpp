#include "platform/bench/file/BenchFirmwareImage.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/StructureLayout.h"

namespace corvane {

namespace {

constexpr std::string_view magic = "VELMARFW";

/// The header, as BenchFirmwareImage.h lays it out.
struct ImageHeader {
  static constexpr StructureField magic{"magic", 0, 8};
  static constexpr StructureField generation{"generation", 8, 4};
  static constexpr StructureField version{"version", 12, 32};
  static constexpr StructureField length{"payload length", 44, 4};
  static constexpr StructureField checksum{"payload checksum", 48, 4};
  static constexpr std::array fields{magic, generation, version, length, checksum};
};
static_assert(isLayoutWithin(ImageHeader::fields, benchFirmwareHeaderSize));

constexpr std::array<uint32_t, 256> makeChecksumTable() {
  constexpr uint32_t reflectedPolynomial = 0xEDB88320;
  std::array<uint32_t, 256> table{};
  for (uint32_t byte = 0; byte < table.size(); ++byte) {
    uint32_t value = byte;
    for (int bit = 0; bit < 8; ++bit) {
      value = (value & 1U) != 0 ? (value >> 1U) ^ reflectedPolynomial : value >> 1U;
    }
    table[byte] = value;
  }
  return table;
}

uint32_t checksumOf(std::span<const uint8_t> bytes) {
  static constexpr auto table = makeChecksumTable();
  uint32_t checksum = 0xFFFFFFFF;
  for (const uint8_t byte : bytes) {
    checksum = (checksum >> 8U) ^ table[(checksum ^ byte) & 0xFFU];
  }
  return ~checksum;
}

}  // namespace

std::optional<std::string> checkFirmwareImage(std::span<const uint8_t> bytes,
                                              BenchFirmwareImage& image) {
  if (bytes.size() < benchFirmwareHeaderSize) return "the image is shorter than its header";
  if (!std::equal(magic.begin(), magic.end(), bytes.begin())) return "the image has a wrong magic";
  const StructureReader header(bytes);
  const auto version = header.bytes(ImageHeader::version);
  const auto versionEnd = std::find(version.begin(), version.end(), uint8_t{0});
  if (versionEnd == version.end()) return "the image's version has no end";
  const auto payload = bytes.subspan(benchFirmwareHeaderSize);
  if (header.number(ImageHeader::length) != payload.size()) {
    return "the image's length does not agree with its header";
  }
  if (header.number(ImageHeader::checksum) != checksumOf(payload)) {
    return "the image's checksum is wrong";
  }
  image.generation = static_cast<int>(header.number(ImageHeader::generation));
  image.version.assign(version.begin(), versionEnd);
  return std::nullopt;
}

std::vector<uint8_t> makeFirmwareImage(const BenchFirmwareImage& image,
                                       std::span<const uint8_t> payload) {
  std::vector<uint8_t> bytes(benchFirmwareHeaderSize);
  std::copy(magic.begin(), magic.end(), bytes.begin());
  putNumber(bytes, ImageHeader::generation, static_cast<uint64_t>(image.generation));
  std::copy_n(image.version.begin(), std::min(image.version.size(), ImageHeader::version.width - 1),
              bytes.begin() + ImageHeader::version.offset);
  putNumber(bytes, ImageHeader::length, payload.size());
  putNumber(bytes, ImageHeader::checksum, checksumOf(payload));
  bytes.insert(bytes.end(), payload.begin(), payload.end());
  return bytes;
}

}  // namespace corvane
