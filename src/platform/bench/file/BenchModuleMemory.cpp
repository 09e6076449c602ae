#include "platform/bench/file/BenchModuleMemory.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>
#include <string_view>

#include "platform/StructureLayout.h"
#include "text/Hexadecimal.h"

namespace corvane {

namespace {

/// The serial identification area of SFF-8472 (address A0h), as far as a module fills it.
struct SerialArea {
  static constexpr StructureField identifier{"identifier", 0, 1};
  static constexpr StructureField extendedIdentifier{"extended identifier", 1, 1};
  static constexpr StructureField connector{"connector", 2, 1};
  static constexpr StructureField linkLength{"Fibre Channel link length", 7, 1};
  static constexpr StructureField technology{"Fibre Channel technology", 8, 1};
  static constexpr StructureField media{"Fibre Channel transmission media", 9, 1};
  static constexpr StructureField speeds{"Fibre Channel speeds", 10, 1};
  static constexpr StructureField encoding{"encoding", 11, 1};
  static constexpr StructureField bitRate{"nominal bit rate in 100 MBd", 12, 1};
  static constexpr StructureField vendorName{"vendor name", 20, 16};
  static constexpr StructureField vendorOUI{"vendor OUI", 37, 3};
  static constexpr StructureField partNumber{"vendor part number", 40, 16};
  static constexpr StructureField revision{"vendor revision", 56, 4};
  static constexpr StructureField baseChecksum{"CC_BASE", 63, 1};
  static constexpr StructureField serialNumber{"vendor serial number", 68, 16};
  static constexpr StructureField dateCode{"date code", 84, 8};
  static constexpr StructureField extendedChecksum{"CC_EXT", 95, 1};

  static constexpr std::array fields{
      identifier, extendedIdentifier, connector,    linkLength, technology,      media,
      speeds,     encoding,           bitRate,      vendorName, vendorOUI,       partNumber,
      revision,   baseChecksum,       serialNumber, dateCode,   extendedChecksum};
};

using Memory = std::array<uint8_t, SerialArea::extendedChecksum.end()>;
static_assert(isLayoutWithin(SerialArea::fields, Memory().size()));

/// Texts are padded with blanks.
void putText(Memory& memory, const StructureField& field, std::string_view text) {
  const auto place = std::span(memory).subspan(field.offset, field.width);
  std::fill(place.begin(), place.end(), uint8_t{' '});
  std::copy(text.begin(), text.end(), place.begin());
}

/// A checksum is the low byte of the sum of the bytes from `first` up to its own place.
void putChecksum(Memory& memory, const StructureField& field, size_t first) {
  const auto summed = std::span(memory).subspan(first, field.offset - first);
  putNumber(memory, field, std::accumulate(summed.begin(), summed.end(), uint64_t{0}));
}

void putKind(Memory& memory) {
  constexpr uint64_t sfp = 0x03;
  constexpr uint64_t definedByItsMemory = 0x04;
  constexpr uint64_t lc = 0x07;
  constexpr uint64_t intermediateDistance = 0x20;
  constexpr uint64_t shortWaveLaser = 0x40;
  constexpr uint64_t multimodeFibre = 0x0C;  // of both core diameters
  putNumber(memory, SerialArea::identifier, sfp);
  putNumber(memory, SerialArea::extendedIdentifier, definedByItsMemory);
  putNumber(memory, SerialArea::connector, lc);
  putNumber(memory, SerialArea::linkLength, intermediateDistance);
  putNumber(memory, SerialArea::technology, shortWaveLaser);
  putNumber(memory, SerialArea::media, multimodeFibre);
}

void putSpeedClass(Memory& memory, bool is16G) {
  constexpr uint64_t from2To8G = 0x54;
  constexpr uint64_t from4To16G = 0x70;
  constexpr uint64_t code8B10B = 1;
  constexpr uint64_t code64B66B = 6;
  constexpr uint64_t rateOf8G = 85;
  constexpr uint64_t rateOf16G = 140;
  putNumber(memory, SerialArea::speeds, is16G ? from4To16G : from2To8G);
  putNumber(memory, SerialArea::encoding, is16G ? code64B66B : code8B10B);
  putNumber(memory, SerialArea::bitRate, is16G ? rateOf16G : rateOf8G);
}

void putVendor(Memory& memory, bool is16G) {
  constexpr std::array<uint8_t, SerialArea::vendorOUI.width> makersOUI{0x00, 0xD0, 0x2E};
  putText(memory, SerialArea::vendorName, "VELMAR");
  std::copy(makersOUI.begin(), makersOUI.end(), memory.begin() + SerialArea::vendorOUI.offset);
  putText(memory, SerialArea::partNumber, is16G ? "VSFP-16G-SW" : "VSFP-8G-SW");
  putText(memory, SerialArea::revision, "A");
  putText(memory, SerialArea::serialNumber, "VB0000001");
  putText(memory, SerialArea::dateCode, "260101");
}

}  // namespace

std::string shortWaveModule(const BenchProduct& product) {
  Memory memory{};
  putKind(memory);
  putSpeedClass(memory, product.has16G);
  putVendor(memory, product.has16G);
  putChecksum(memory, SerialArea::baseChecksum, SerialArea::identifier.offset);
  putChecksum(memory, SerialArea::extendedChecksum, SerialArea::baseChecksum.end());
  return lowerHexadecimal(memory);
}

}  // namespace corvane
