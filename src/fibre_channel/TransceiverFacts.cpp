#include "fibre_channel/TransceiverFacts.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace corvane {

namespace {

constexpr StructureField wholeMap{"identification area", 0, TransceiverFacts::size};
constexpr StructureField complianceField{"compliance codes", 3, 8};
constexpr StructureField dateField{"date code", 84, 8};

constexpr size_t cableAt = 8;
constexpr size_t speedAt = 10;
constexpr size_t secondSpeedAt = 62;
constexpr size_t baseAt = 63;
constexpr size_t highRateAt = 66;
constexpr size_t extendedAt = 95;

constexpr uint8_t soldered = 0x02;
constexpr uint8_t pluggable = 0x03;
constexpr uint8_t noSeparableConnector = 0x23;
constexpr uint8_t activeCableBit = 0x08;
constexpr uint8_t passiveCableBit = 0x04;
constexpr uint8_t seeSecondSpeedBit = 0x02;
constexpr uint8_t speed64GBit = 0x01;

struct SpeedBit {
  uint8_t bit;
  uint64_t speed;
};

// The bits are not in the order of the speeds.
constexpr std::array<SpeedBit, 7> speedBits{{{0x01, 1000},
                                             {0x04, 2000},
                                             {0x10, 4000},
                                             {0x40, 8000},
                                             {0x80, 10000},
                                             {0x20, 16000},
                                             {0x08, 32000}}};
constexpr uint64_t speed64G = 64000;

bool areAll(std::span<const uint8_t> bytes, uint8_t value) {
  return std::all_of(bytes.begin(), bytes.end(), [value](uint8_t byte) { return byte == value; });
}

uint8_t sum(std::span<const uint8_t> bytes) {
  return static_cast<uint8_t>(std::accumulate(bytes.begin(), bytes.end(), uint32_t{0}));
}

bool isPrintable(uint8_t byte) {
  return byte >= 0x20 && byte <= 0x7E;
}

std::span<const uint8_t> withoutTrailingZeros(std::span<const uint8_t> bytes) {
  while (!bytes.empty() && bytes.back() == 0) bytes = bytes.first(bytes.size() - 1);
  return bytes;
}

bool hasRubbish(std::span<const uint8_t> text) {
  const auto filled = withoutTrailingZeros(text);
  return !std::all_of(filled.begin(), filled.end(), isPrintable);
}

std::string trimmed(std::span<const uint8_t> bytes) {
  std::string text(bytes.begin(), bytes.end());
  const size_t last = text.find_last_not_of(std::string_view(" \0", 2));
  return last == std::string::npos ? std::string() : text.substr(0, last + 1);
}

std::optional<int> twoDigits(std::span<const uint8_t> code, size_t place) {
  const uint8_t tens = code[place];
  const uint8_t units = code[place + 1];
  const auto isDigit = [](uint8_t byte) { return byte >= '0' && byte <= '9'; };
  if (!isDigit(tens) || !isDigit(units)) return std::nullopt;
  return (tens - '0') * 10 + (units - '0');
}

}  // namespace

TransceiverFacts::TransceiverFacts(std::span<const uint8_t> eeprom) {
  const auto area = StructureReader(eeprom).bytes(wholeMap);
  std::copy(area.begin(), area.end(), bytes_.begin());
}

bool TransceiverFacts::isBlank() const {
  return areAll(bytes_, 0x00) || areAll(bytes_, 0xFF);
}

bool TransceiverFacts::isHalfRead() const {
  if (isBlank() || base().fits()) return false;
  const StructureReader reader(bytes_);
  return hasRubbish(reader.bytes(SfpInfoStruct::vendorName)) ||
         hasRubbish(reader.bytes(SfpInfoStruct::vendorPartNumber)) ||
         (byte(identifierAt) != soldered && byte(identifierAt) != pluggable);
}

bool TransceiverFacts::isCable() const {
  return isActiveCable() || isPassiveCable() || byte(connectorAt) == copperPigtail ||
         byte(connectorAt) == noSeparableConnector;
}

bool TransceiverFacts::isActiveCable() const {
  return (byte(cableAt) & activeCableBit) != 0;
}

bool TransceiverFacts::isPassiveCable() const {
  return (byte(cableAt) & passiveCableBit) != 0;
}

TransceiverChecksum TransceiverFacts::base() const {
  return {byte(baseAt), sum(std::span(bytes_).first(baseAt))};
}

TransceiverChecksum TransceiverFacts::extended() const {
  return {byte(extendedAt), sum(std::span(bytes_).subspan(baseAt + 1, extendedAt - baseAt - 1))};
}

std::vector<uint64_t> TransceiverFacts::speeds() const {
  std::vector<uint64_t> speeds;
  for (const auto& [bit, speed] : speedBits)
    if ((byte(speedAt) & bit) != 0) speeds.push_back(speed);
  if ((byte(speedAt) & seeSecondSpeedBit) != 0 && (byte(secondSpeedAt) & speed64GBit) != 0)
    speeds.push_back(speed64G);
  return speeds;
}

bool TransceiverFacts::hasComplianceCodes() const {
  return !areAll(StructureReader(bytes_).bytes(complianceField), 0x00);
}

std::optional<uint32_t> TransceiverFacts::signallingRate() const {
  constexpr uint32_t unit = 100;
  constexpr uint32_t highUnit = 250;
  constexpr uint8_t isHigh = 0xFF;
  if (byte(rateAt) == 0) return std::nullopt;
  if (byte(rateAt) != isHigh) return byte(rateAt) * unit;
  if (byte(highRateAt) == 0) return std::nullopt;
  return byte(highRateAt) * highUnit;
}

std::string TransceiverFacts::text(const StructureField& field) const {
  return trimmed(StructureReader(bytes_).bytes(field));
}

std::string TransceiverFacts::vendorName() const {
  return text(SfpInfoStruct::vendorName);
}

std::string TransceiverFacts::partNumber() const {
  return text(SfpInfoStruct::vendorPartNumber);
}

std::string TransceiverFacts::revision() const {
  return text(SfpInfoStruct::vendorRevision);
}

std::string TransceiverFacts::serialNumber() const {
  return text(SfpInfoStruct::vendorSerialNumber);
}

std::optional<TransceiverDate> TransceiverFacts::date() const {
  constexpr int century = 2000;
  const auto code = StructureReader(bytes_).bytes(dateField);
  const auto year = twoDigits(code, 0);
  const auto month = twoDigits(code, 2);
  const auto day = twoDigits(code, 4);
  if (!year || !month || !day || *month < 1 || *month > 12 || *day > 31) return std::nullopt;
  return TransceiverDate{century + *year, *month, *day, trimmed(code.subspan(6))};
}

}  // namespace corvane
