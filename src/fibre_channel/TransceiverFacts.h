#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "fibre_channel/FibreChannelProtocol.h"

namespace corvane {

/// A byte of a module's checksum, as it stands there and as the bytes that it covers sum up.
struct TransceiverChecksum {
  uint8_t is = 0;
  uint8_t should = 0;

  bool fits() const { return is == should; }
  bool operator==(const TransceiverChecksum&) const = default;
};

/// When a module was made. The day is 0 where the module tells the month alone.
struct TransceiverDate {
  int year = 0;
  int month = 0;
  int day = 0;
  std::string lot;  ///< the maker's lot code; empty without one

  bool operator==(const TransceiverDate&) const = default;
};

/// What the first 96 bytes of a module's serial identification area say (SFF-8472, address A0h).
/// Any bytes are accepted; what they claim is not judged, only told.
class TransceiverFacts {
 public:
  static constexpr size_t size = SfpInfoStruct::eepromSize;

  static constexpr size_t identifierAt = 0;
  static constexpr size_t connectorAt = 2;
  static constexpr size_t rateAt = 12;
  static constexpr uint8_t copperPigtail = 0x21;  ///< a connector that is the cable's own end

  /// Copies the first 96 bytes. Throws std::out_of_range when there are fewer.
  explicit TransceiverFacts(std::span<const uint8_t> eeprom);

  uint8_t byte(size_t offset) const { return bytes_.at(offset); }
  const std::array<uint8_t, size>& bytes() const { return bytes_; }

  /// All bytes 00h, or all FFh: there is no memory chip that answers. The checksums of zeros fit,
  /// so this is to be asked first.
  bool isBlank() const;

  /// Bytes that got into each other's place: the first checksum is wrong, and the texts hold what
  /// no text holds or the identifier is none of a module for such a cage.
  bool isHalfRead() const;

  /// A cable with fixed ends, copper or optical.
  bool isCable() const;
  bool isActiveCable() const;   ///< says so itself
  bool isPassiveCable() const;  ///< says so itself

  TransceiverChecksum base() const;      ///< CC_BASE, over bytes 0 to 62
  TransceiverChecksum extended() const;  ///< CC_EXT, over bytes 64 to 94

  /// The Fibre Channel speeds that the module names, in Mb/s, rising: 1000 to 64000.
  std::vector<uint64_t> speeds() const;

  /// Whether bytes 3 to 10 say anything at all.
  bool hasComplianceCodes() const;

  /// The nominal signalling rate in MBd; nothing where it is not specified, or is above what one
  /// byte can tell and not told elsewhere.
  std::optional<uint32_t> signallingRate() const;

  // Texts without trailing blanks and zero bytes, as they stand otherwise.
  std::string vendorName() const;
  std::string partNumber() const;
  std::string revision() const;
  std::string serialNumber() const;

  /// Nothing where the date code is none.
  std::optional<TransceiverDate> date() const;

 private:
  std::string text(const StructureField& field) const;

  std::array<uint8_t, size> bytes_{};
};

}  // namespace corvane
