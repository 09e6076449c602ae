#include "fibre_channel/SFPDecoder.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "fibre_channel/FibreChannelProtocol.h"
#include "text/Hexadecimal.h"

namespace corvane {

namespace {

constexpr uint64_t identifierSFP = 3;  // SFF-8472 table 5-1
constexpr int bitRateUnitsPerGigabit = 10;

// SFF-8472 table 5-2, as far as the modules of these adapters go.
constexpr std::array<std::string_view, 12> connectorNames{"Unknown or unspecified",
                                                          "SC",
                                                          "Fibre Channel Style 1 copper connector",
                                                          "Fibre Channel Style 2 copper connector",
                                                          "BNC/TNC",
                                                          "Fibre Channel coaxial headers",
                                                          "FiberJack",
                                                          "LC",
                                                          "MT-RJ",
                                                          "MU",
                                                          "SG",
                                                          "Optical pigtail"};

// SFF-8472 table 5-6, likewise.
constexpr std::array<std::string_view, 5> encodingNames{"Unspecified", "8B10B", "4B5B", "NRZ",
                                                        "Manchester"};

std::string identifierText(uint64_t identifier) {
  return identifier == identifierSFP ? "SFP" : fmt::format("{:x}", identifier);
}

std::string connectorText(uint64_t connector) {
  if (connector < connectorNames.size()) return std::string(connectorNames[connector]);
  return fmt::format("{:x}", connector);
}

std::string encodingText(uint64_t encoding) {
  if (encoding < encodingNames.size()) return std::string(encodingNames[encoding]);
  return fmt::format("{:X}", encoding);
}

std::string dateText(std::span<const uint8_t> code) {
  std::string text;
  for (size_t index = 0; index < code.size(); ++index) {
    if (index > 0 && index % 2 == 0) text += '-';
    text += static_cast<char>(code[index]);
  }
  return text;
}

// Modules for 4, 8 and 16 Gb/s pass, the last by their nominal 14 Gb/s as well, and so do modules
// that do not tell their rate.
bool isUsableBitRate(int bitRate) {
  constexpr int nominalOf16G = 14;
  return bitRate % 4 == 0 || bitRate == nominalOf16G;
}

void describeModule(const StructureReader& reply, SFPDescription& description) {
  const int bitRate =
      static_cast<int>(reply.number(SfpInfoStruct::BitRate_100mbs)) / bitRateUnitsPerGigabit;
  description.bitRate = bitRate;
  description.Transceiver = identifierText(reply.number(SfpInfoStruct::identifier));
  description.Connector = connectorText(reply.number(SfpInfoStruct::connector));
  description.TransceiverCode = upperHexadecimal(reply.bytes(SfpInfoStruct::complianceCodes), "-");
  description.SerialEncoding = encodingText(reply.number(SfpInfoStruct::encoding));
  description.Bitrate = fmt::format("{} Gb/s", bitRate);
}

void describeVendor(const StructureReader& reply, SFPDescription& description) {
  description.VendorName = reply.text(SfpInfoStruct::vendorName);
  description.VendorOUI = upperHexadecimal(reply.bytes(SfpInfoStruct::vendorOUI), "-");
  description.VendorPN = reply.text(SfpInfoStruct::vendorPartNumber);
  description.VendorRev = reply.text(SfpInfoStruct::vendorRevision);
  description.VendorSN = reply.text(SfpInfoStruct::vendorSerialNumber);
  description.ManuData = dateText(reply.bytes(SfpInfoStruct::dateCode));
}

}  // namespace

SFPDescription decodeSFP(std::span<const uint8_t> reply) {
  const StructureReader reader(reply);
  SFPDescription description;
  if (reader.number(SfpInfoStruct::modulePresent) == 0) return description;
  describeModule(reader, description);
  if (!isUsableBitRate(*description.bitRate)) {
    description.result = SFPResult::WrongSpeedClass;
    return description;
  }
  describeVendor(reader, description);
  description.result = SFPResult::Usable;
  return description;
}

std::vector<uint8_t> sfpReplyForEEPROM(std::span<const uint8_t> eeprom) {
  constexpr StructureField wholeEEPROM{"identification area", 0, SfpInfoStruct::eepromSize};
  const std::span<const uint8_t> bytes = StructureReader(eeprom).bytes(wholeEEPROM);
  std::vector<uint8_t> reply(SfpInfoStruct::size);
  std::copy(bytes.begin(), bytes.end(), reply.begin());
  putNumber(reply, SfpInfoStruct::modulePresent, 1);
  return reply;
}

}  // namespace corvane
