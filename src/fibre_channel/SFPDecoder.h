#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace corvane {

/// What reading a transceiver comes to. The numbers are what the driver operation returns.
enum class SFPResult : int64_t {
  Usable = 0,          ///< a module of a usable speed class; every text is set
  NoModule = 1,        ///< the cage is empty; no text is set
  WrongSpeedClass = 2  ///< a module whose speed does not suit; the vendor's texts stay unset
};

/// A decoded transceiver. Texts that the decoding did not set are unset.
struct SFPDescription {
  SFPResult result = SFPResult::NoModule;
  /// Nominal bit rate in whole Gb/s, the remainder dropped; set when a module is present.
  std::optional<int> bitRate;

  std::optional<std::string> Transceiver;
  std::optional<std::string> Connector;
  std::optional<std::string> TransceiverCode;
  std::optional<std::string> SerialEncoding;
  std::optional<std::string> Bitrate;
  std::optional<std::string> VendorName;
  std::optional<std::string> VendorOUI;
  std::optional<std::string> VendorPN;
  std::optional<std::string> VendorRev;
  std::optional<std::string> VendorSN;
  std::optional<std::string> ManuData;
};

/// Decodes the driver's reply about a transceiver (SfpInfoStruct, 104 bytes). Vendor texts end at
/// their first zero byte and keep their trailing blanks. Throws std::out_of_range when the reply is
/// shorter than the structure.
SFPDescription decodeSFP(std::span<const uint8_t> reply);

/// The reply that a driver would give for a module with this EEPROM (SFF-8472, address A0h): its
/// first 96 bytes, marked as present. Throws std::out_of_range when there are fewer.
std::vector<uint8_t> sfpReplyForEEPROM(std::span<const uint8_t> eeprom);

}  // namespace corvane
