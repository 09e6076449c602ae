#include "platform/bench/BenchFirmwareImage.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/bench/LittleEndian.h"

namespace corvane {

namespace {

constexpr std::string_view magic = "VELMARFW";
constexpr size_t generationOffset = 8;
constexpr size_t versionOffset = 12;
constexpr size_t versionWidth = 32;
constexpr size_t lengthOffset = 44;
constexpr size_t checksumOffset = 48;

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
  const auto version = bytes.subspan(versionOffset, versionWidth);
  const auto versionEnd = std::find(version.begin(), version.end(), uint8_t{0});
  if (versionEnd == version.end()) return "the image's version has no end";
  const auto payload = bytes.subspan(benchFirmwareHeaderSize);
  if (readLittleEndian(bytes, lengthOffset, 4) != payload.size()) {
    return "the image's length does not agree with its header";
  }
  if (readLittleEndian(bytes, checksumOffset, 4) != checksumOf(payload)) {
    return "the image's checksum is wrong";
  }
  image.generation = static_cast<int>(readLittleEndian(bytes, generationOffset, 4));
  image.version.assign(version.begin(), versionEnd);
  return std::nullopt;
}

std::vector<uint8_t> makeFirmwareImage(const BenchFirmwareImage& image,
                                       std::span<const uint8_t> payload) {
  std::vector<uint8_t> bytes(benchFirmwareHeaderSize);
  std::copy(magic.begin(), magic.end(), bytes.begin());
  writeLittleEndian(bytes, generationOffset, 4, static_cast<uint64_t>(image.generation));
  std::copy_n(image.version.begin(), std::min(image.version.size(), versionWidth - 1),
              bytes.begin() + versionOffset);
  writeLittleEndian(bytes, lengthOffset, 4, payload.size());
  writeLittleEndian(bytes, checksumOffset, 4, checksumOf(payload));
  bytes.insert(bytes.end(), payload.begin(), payload.end());
  return bytes;
}

}  // namespace corvane
