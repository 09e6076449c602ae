#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fibre_channel/TransceiverFacts.h"

/// What a module says of itself, in words for people. A code that no table holds is told as its
/// number. Texts of the module are shown with "?" for what cannot be printed.
namespace corvane {

/// One explained field: its caption, such as "Encoding", and its words.
struct TransceiverLine {
  std::string caption;
  std::string words;

  bool operator==(const TransceiverLine&) const = default;
};

/// The kind of module on one line, such as "Fibre Channel 2, 4, 8 Gb/s, short wave, 850 nm, OM2
/// 50 m, LC plug, 8B/10B, 8.5 GBd".
std::string transceiverSummary(const TransceiverFacts& facts);

/// The module's maker, part number and serial number, as far as they are told.
std::string transceiverName(const TransceiverFacts& facts);

/// The names of all compliance bits that are set, byte by byte from bit 7 down.
std::vector<std::string> complianceNames(const TransceiverFacts& facts);

/// What the module was made for: the standards that its bits name in bytes 3 to 6 and its Fibre
/// Channel speeds, else the technology. Empty where it says nothing.
std::vector<std::string> kindNames(const TransceiverFacts& facts);

std::string identifierWords(const TransceiverFacts& facts);
std::string connectorWords(const TransceiverFacts& facts);
std::string encodingWords(const TransceiverFacts& facts);
std::string signallingRateWords(const TransceiverFacts& facts);  ///< "8.5 GBd", "not specified"

/// "2024-03-12", "2024-03", "date unreadable", "not specified"; with the lot code behind it.
std::string dateWords(const TransceiverFacts& facts);

/// "fits", or "A7, should be 5E".
std::string checksumWords(const TransceiverChecksum& checksum);

/// Speeds in Mb/s as "4, 8, 16 Gb/s".
std::string speedsWords(const std::vector<uint64_t>& speeds);

/// Every field that says something, in the order of the bytes.
std::vector<TransceiverLine> explainTransceiver(const TransceiverFacts& facts);

}  // namespace corvane
