#include "fibre_channel/TransceiverWords.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "text/Hexadecimal.h"

namespace corvane {

namespace {

constexpr size_t firstComplianceByte = 3;
constexpr size_t technologyByte = 7;
constexpr size_t encodingAt = 11;
constexpr size_t rateIdentifierAt = 13;
constexpr size_t kilometresAt = 14;
constexpr size_t hundredMetresAt = 15;
constexpr size_t cableLengthAt = 18;
constexpr size_t longCableLengthAt = 19;
constexpr size_t extendedCodeAt = 36;
constexpr size_t vendorOuiAt = 37;
constexpr size_t wavelengthAt = 60;
constexpr size_t revisionAt = 94;
constexpr uint8_t overflow = 0xFF;
constexpr int bitsOfByte = 8;

struct Code {
  uint8_t code;
  std::string_view words;
};

/// One bit of one byte and what it says.
struct Bit {
  size_t byte;
  int bit;
  std::string_view words;
};

// SFF-8024 table 4-1.
constexpr std::array identifiers{Code{0x00, "not specified"},
                                 Code{0x01, "GBIC"},
                                 Code{0x02, "soldered to the board"},
                                 Code{0x03, "SFP"},
                                 Code{0x04, "300-pin XBI"},
                                 Code{0x05, "XENPAK"},
                                 Code{0x06, "XFP"},
                                 Code{0x07, "XFF"},
                                 Code{0x08, "XFP-E"},
                                 Code{0x09, "XPAK"},
                                 Code{0x0A, "X2"},
                                 Code{0x0B, "DWDM-SFP"},
                                 Code{0x0C, "QSFP"},
                                 Code{0x0D, "QSFP+"},
                                 Code{0x0E, "CXP"},
                                 Code{0x11, "QSFP28"},
                                 Code{0x18, "QSFP-DD"},
                                 Code{0x19, "OSFP"},
                                 Code{0x1A, "SFP-DD"},
                                 Code{0x1E, "QSFP+ with CMIS"},
                                 Code{0x20, "SFP+ with CMIS"}};

// SFF-8024 table 4-3.
constexpr std::array connectors{Code{0x00, "unknown or unspecified"},
                                Code{0x01, "SC plug"},
                                Code{0x02, "Fibre Channel style 1 copper"},
                                Code{0x03, "Fibre Channel style 2 copper"},
                                Code{0x04, "BNC/TNC"},
                                Code{0x05, "Fibre Channel coaxial headers"},
                                Code{0x06, "Fiber Jack"},
                                Code{0x07, "LC plug"},
                                Code{0x08, "MT-RJ plug"},
                                Code{0x09, "MU plug"},
                                Code{0x0A, "SG plug"},
                                Code{0x0B, "optical pigtail (fixed cable)"},
                                Code{0x0C, "MPO 1x12 plug"},
                                Code{0x0D, "MPO 2x16 plug"},
                                Code{0x20, "HSSDC II"},
                                Code{0x21, "copper pigtail (fixed cable)"},
                                Code{0x22, "RJ45 plug"},
                                Code{0x23, "no separable connector (fixed cable)"},
                                Code{0x24, "MXC 2x16 plug"},
                                Code{0x25, "CS plug"},
                                Code{0x26, "SN plug"},
                                Code{0x27, "MPO 2x12 plug"},
                                Code{0x28, "MPO 1x16 plug"}};

// SFF-8024 table 4-2, the column for this map; QSFP modules number them differently.
constexpr std::array encodings{
    Code{0x00, "not specified"},
    Code{0x01, "8B/10B"},
    Code{0x02, "4B/5B"},
    Code{0x03, "NRZ"},
    Code{0x04, "Manchester"},
    Code{0x05, "SONET scrambled (a 10G or 16G module that says so often means 64B/66B)"},
    Code{0x06, "64B/66B"},
    Code{0x07, "256B/257B"},
    Code{0x08, "PAM4"}};

// SFF-8472 table 5-6.
constexpr std::array rateIdentifiers{Code{0x01, "4/2/1G, SFF-8079"},
                                     Code{0x02, "8/4/2G, receiver"},
                                     Code{0x04, "8/4/2G, transmitter"},
                                     Code{0x06, "8/4/2G, receiver and transmitter"},
                                     Code{0x08, "16/8/4G, receiver"},
                                     Code{0x0A, "16/8/4G, receiver and transmitter"},
                                     Code{0x0C, "32/16/8G"},
                                     Code{0x0E, "10/8G"},
                                     Code{0x10, "64/32/16G"},
                                     Code{0x20, "by the extended compliance code"}};

// SFF-8024 table 4-4, as far as such a cage goes.
constexpr std::array extendedCodes{Code{0x02, "25GBASE-SR"},
                                   Code{0x03, "25GBASE-LR"},
                                   Code{0x0B, "25G copper cable"},
                                   Code{0x0C, "25G copper cable"},
                                   Code{0x0D, "25G copper cable"},
                                   Code{0x16, "10GBASE-T"},
                                   Code{0x1C, "10GBASE-T, short reach"},
                                   Code{0x1D, "5GBASE-T"},
                                   Code{0x1E, "2.5GBASE-T"}};

// SFF-8472 table 8-12.
constexpr std::array revisions{Code{0x01, "SFF-8472 Rev 9.3"},  Code{0x02, "SFF-8472 Rev 9.5"},
                               Code{0x03, "SFF-8472 Rev 10.2"}, Code{0x04, "SFF-8472 Rev 10.4"},
                               Code{0x05, "SFF-8472 Rev 11.0"}, Code{0x06, "SFF-8472 Rev 11.3"},
                               Code{0x07, "SFF-8472 Rev 11.4"}, Code{0x08, "SFF-8472 Rev 12"},
                               Code{0x09, "SFF-8472 Rev 12.4"}};

// SFF-8472 table 5-3, bytes 3 to 10, each from bit 7 down; what is reserved has no name.
constexpr std::array<std::array<std::string_view, bitsOfByte>, 8> complianceTable{{
    {"10GBASE-ER", "10GBASE-LRM", "10GBASE-LR", "10GBASE-SR", "InfiniBand 1X SX",
     "InfiniBand 1X LX", "InfiniBand 1X copper, active", "InfiniBand 1X copper, passive"},
    {"ESCON multimode, 1310 nm LED", "ESCON single mode, 1310 nm laser", "OC-192 short reach",
     "SONET reach, first bit", "SONET reach, second bit", "OC-48 long reach",
     "OC-48 intermediate reach", "OC-48 short reach"},
    {"", "OC-12 single mode, long reach", "OC-12 single mode, intermediate", "OC-12 short reach",
     "", "OC-3 single mode, long reach", "OC-3 single mode, intermediate", "OC-3 short reach"},
    {"BASE-PX", "BASE-BX10", "100BASE-FX", "100BASE-LX/LX10", "1000BASE-T", "1000BASE-CX",
     "1000BASE-LX", "1000BASE-SX"},
    {"very long distance", "short distance", "intermediate distance", "long distance",
     "medium distance", "short wave, linear receiver", "long wave",
     "electrical between enclosures"},
    {"electrical inside an enclosure", "short wave", "short wave, with open fibre control",
     "long wave, long reach", "active cable", "passive cable", "", ""},
    {"twinaxial pair", "twisted pair", "miniature coax", "video coax", "multimode 62.5 um",
     "multimode 50 um", "", "single mode"},
    {"1200 MB/s", "800 MB/s", "1600 MB/s", "400 MB/s", "3200 MB/s", "200 MB/s", "further speed",
     "100 MB/s"},
}};

constexpr std::array shortWaveBits{Bit{7, 2, ""}, Bit{8, 6, ""}, Bit{8, 5, ""}};
constexpr std::array longWaveBits{Bit{7, 1, ""}, Bit{8, 4, ""}};
constexpr std::array electricalBits{Bit{7, 0, ""}, Bit{8, 7, ""}};

constexpr std::array ethernetBits{
    Bit{3, 7, "10GBASE-ER"},  Bit{3, 6, "10GBASE-LRM"},     Bit{3, 5, "10GBASE-LR"},
    Bit{3, 4, "10GBASE-SR"},  Bit{6, 7, "BASE-PX"},         Bit{6, 6, "BASE-BX10"},
    Bit{6, 5, "100BASE-FX"},  Bit{6, 4, "100BASE-LX/LX10"}, Bit{6, 3, "1000BASE-T"},
    Bit{6, 2, "1000BASE-CX"}, Bit{6, 1, "1000BASE-LX"},     Bit{6, 0, "1000BASE-SX"}};

constexpr std::array optionBits{
    Bit{64, 6, "power level 4"},   Bit{64, 5, "power level 3"},
    Bit{64, 4, "pages"},           Bit{64, 3, "retimer"},
    Bit{64, 2, "cooled laser"},    Bit{64, 1, "power level 2"},
    Bit{64, 0, "linear receiver"}, Bit{65, 7, "adjustable decision threshold"},
    Bit{65, 6, "tunable"},         Bit{65, 5, "rate select"},
    Bit{65, 4, "TX_DISABLE"},      Bit{65, 3, "TX_FAULT"},
    Bit{65, 2, "LOS inverted"},    Bit{65, 1, "LOS"}};

constexpr std::array diagnosticBits{
    Bit{92, 6, "could report its light levels; the driver does not read them"},
    Bit{92, 5, "calibrated inside"},
    Bit{92, 4, "calibrated outside"},
    Bit{92, 3, "received light as an average"},
    Bit{92, 2, "needs an address change"},
    Bit{93, 7, "alarms"},
    Bit{93, 6, "TX disable by software"},
    Bit{93, 5, "TX fault by software"},
    Bit{93, 4, "LOS by software"},
    Bit{93, 3, "rate select by software"},
    Bit{93, 2, "SFF-8079 application select"},
    Bit{93, 1, "SFF-8431 rate select"}};

/// A length in the fibre map: its byte, its unit in metres, and the fibre.
struct Reach {
  size_t byte;
  uint32_t unit;
  std::string_view fibre;
};
constexpr std::array reaches{Reach{16, 10, "OM2"}, Reach{17, 10, "OM1"}, Reach{18, 10, "OM4"},
                             Reach{19, 10, "OM3"}};

template <typename Table>
std::string wordsOf(const Table& table, uint8_t code) {
  const auto found = std::find_if(table.begin(), table.end(),
                                  [code](const Code& each) { return each.code == code; });
  return found == table.end() ? fmt::format("{:02X}h", code) : std::string(found->words);
}

bool isSet(const TransceiverFacts& facts, size_t byte, int bit) {
  return ((facts.byte(byte) >> bit) & 1) != 0;
}

template <typename Table>
bool isAnySet(const TransceiverFacts& facts, const Table& bits) {
  return std::any_of(bits.begin(), bits.end(),
                     [&facts](const Bit& each) { return isSet(facts, each.byte, each.bit); });
}

template <typename Table>
std::vector<std::string> wordsOfBits(const TransceiverFacts& facts, const Table& bits) {
  std::vector<std::string> words;
  for (const Bit& each : bits)
    if (isSet(facts, each.byte, each.bit)) words.emplace_back(each.words);
  return words;
}

std::string joined(const std::vector<std::string>& words) {
  return fmt::format("{}", fmt::join(words, ", "));
}

std::string printable(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char each) { return each < 0x20 || each > 0x7E; }, '?');
  return text;
}

std::string lengthText(uint32_t metres) {
  constexpr uint32_t kilometre = 1000;
  if (metres < kilometre) return fmt::format("{} m", metres);
  if (metres % kilometre == 0) return fmt::format("{} km", metres / kilometre);
  return fmt::format("{:.1f} km", metres / static_cast<double>(kilometre));
}

// A byte that is full tells only that it is more than it can hold.
std::string reachText(std::string_view fibre, uint8_t units, uint32_t unit) {
  const std::string_view over = units == overflow ? "over " : "";
  const uint32_t counted = units == overflow ? overflow - 1U : units;
  return fmt::format("{} {}{}", fibre, over, lengthText(counted * unit));
}

void addSingleModeReach(const TransceiverFacts& facts, std::vector<std::string>& words) {
  constexpr uint32_t kilometre = 1000;
  constexpr uint32_t hundredMetres = 100;
  const uint8_t fine = facts.byte(hundredMetresAt);
  const uint8_t coarse = facts.byte(kilometresAt);
  if (fine != 0 && (fine != overflow || coarse == 0))
    words.push_back(reachText("single mode", fine, hundredMetres));
  else if (coarse != 0)
    words.push_back(reachText("single mode", coarse, kilometre));
}

std::vector<std::string> reachWords(const TransceiverFacts& facts) {
  std::vector<std::string> words;
  addSingleModeReach(facts, words);
  for (const auto& [byte, unit, fibre] : reaches)
    if (facts.byte(byte) != 0) words.push_back(reachText(fibre, facts.byte(byte), unit));
  return words;
}

// The longer field is a tenth, one, ten or a hundred metres times a number.
std::optional<std::string> cableLength(const TransceiverFacts& facts) {
  constexpr std::array<double, 4> factors{0.1, 1, 10, 100};
  constexpr int factorShift = 6;
  constexpr uint8_t numberMask = 0x3F;
  const uint8_t fine = facts.byte(longCableLengthAt);
  const bool saysCable = facts.isActiveCable() || facts.isPassiveCable();
  if (saysCable && (fine & numberMask) != 0)
    return fmt::format("{:g} m", factors.at(fine >> factorShift) * (fine & numberMask));
  if (facts.byte(cableLengthAt) == 0) return std::nullopt;
  return fmt::format("{} m", facts.byte(cableLengthAt));
}

std::string cableKind(const TransceiverFacts& facts) {
  if (facts.isPassiveCable()) return "copper cable, passive";
  if (facts.isActiveCable()) return "active cable";
  return facts.byte(TransceiverFacts::connectorAt) == TransceiverFacts::copperPigtail
             ? "copper cable"
             : "cable with fixed ends";
}

std::string cableSummary(const TransceiverFacts& facts) {
  const auto length = cableLength(facts);
  return length ? cableKind(facts) + ", " + *length : cableKind(facts);
}

std::string mainKind(const TransceiverFacts& facts) {
  if (const auto speeds = facts.speeds(); !speeds.empty())
    return "Fibre Channel " + speedsWords(speeds);
  if (const auto ethernet = wordsOfBits(facts, ethernetBits); !ethernet.empty())
    return joined(ethernet);
  return signallingRateWords(facts) + ", kind not told";
}

void addTechnology(const TransceiverFacts& facts, std::vector<std::string>& words) {
  if (isAnySet(facts, shortWaveBits)) words.emplace_back("short wave");
  if (isAnySet(facts, longWaveBits)) words.emplace_back("long wave");
  if (isAnySet(facts, electricalBits)) words.emplace_back("electrical");
}

uint32_t wavelength(const TransceiverFacts& facts) {
  return (static_cast<uint32_t>(facts.byte(wavelengthAt)) << bitsOfByte) |
         facts.byte(wavelengthAt + 1);
}

std::string vendorOui(const TransceiverFacts& facts) {
  const auto oui = std::span(facts.bytes()).subspan(vendorOuiAt, 3);
  if (std::all_of(oui.begin(), oui.end(), [](uint8_t byte) { return byte == 0; })) return {};
  return upperHexadecimal(oui, "-");
}

std::string rateIdentifierWords(const TransceiverFacts& facts) {
  const uint8_t code = facts.byte(rateIdentifierAt);
  constexpr uint8_t lastOldOne = 0x11;
  const bool isOldOne = code % 2 == 1 && code > 1 && code <= lastOldOne;
  return code == 0 || isOldOne ? std::string() : wordsOf(rateIdentifiers, code);
}

std::string optionalCode(const auto& table, uint8_t code) {
  return code == 0 ? std::string() : wordsOf(table, code);
}

/// Lines without words are left out: the module says nothing there.
class Explanation {
 public:
  void add(std::string_view caption, std::string words) {
    if (!words.empty()) lines_.push_back({std::string(caption), std::move(words)});
  }

  std::vector<TransceiverLine> take() { return std::move(lines_); }

 private:
  std::vector<TransceiverLine> lines_;
};

void addReach(const TransceiverFacts& facts, Explanation& lines) {
  if (facts.isCable()) {
    lines.add("Length", cableLength(facts).value_or(""));
    return;
  }
  lines.add("Reach", joined(reachWords(facts)));
  if (wavelength(facts) != 0) lines.add("Wavelength", fmt::format("{} nm", wavelength(facts)));
}

void addMaker(const TransceiverFacts& facts, Explanation& lines) {
  lines.add("Vendor", printable(facts.vendorName()));
  lines.add("Vendor OUI", vendorOui(facts));
  lines.add("Part number", printable(facts.partNumber()));
  lines.add("Revision", printable(facts.revision()));
}

void addExtended(const TransceiverFacts& facts, Explanation& lines) {
  lines.add("Options", joined(wordsOfBits(facts, optionBits)));
  lines.add("Serial number", printable(facts.serialNumber()));
  lines.add("Made", dateWords(facts));
  lines.add("Diagnostics", joined(wordsOfBits(facts, diagnosticBits)));
  lines.add("Described by", optionalCode(revisions, facts.byte(revisionAt)));
}

}  // namespace

std::string speedsWords(const std::vector<uint64_t>& speeds) {
  constexpr uint64_t gigabit = 1000;
  std::vector<uint64_t> numbers;
  numbers.reserve(speeds.size());
  for (const uint64_t speed : speeds) numbers.push_back(speed / gigabit);
  return fmt::format("{} Gb/s", fmt::join(numbers, ", "));
}

std::string transceiverSummary(const TransceiverFacts& facts) {
  if (facts.isCable()) return cableSummary(facts);
  std::vector<std::string> words{mainKind(facts)};
  addTechnology(facts, words);
  if (wavelength(facts) != 0) words.push_back(fmt::format("{} nm", wavelength(facts)));
  for (auto& reach : reachWords(facts)) words.push_back(std::move(reach));
  if (facts.byte(TransceiverFacts::connectorAt) != 0) words.push_back(connectorWords(facts));
  if (facts.byte(encodingAt) != 0) words.push_back(encodingWords(facts));
  if (facts.byte(TransceiverFacts::rateAt) != 0) words.push_back(signallingRateWords(facts));
  return joined(words);
}

std::string transceiverName(const TransceiverFacts& facts) {
  std::vector<std::string> words;
  for (const std::string& text : {facts.vendorName(), facts.partNumber(), facts.serialNumber()})
    if (!text.empty()) words.push_back(printable(text));
  return fmt::format("{}", fmt::join(words, " "));
}

std::vector<std::string> complianceNames(const TransceiverFacts& facts) {
  std::vector<std::string> names;
  for (size_t row = 0; row < complianceTable.size(); ++row) {
    const size_t byte = firstComplianceByte + row;
    for (int bit = bitsOfByte - 1; bit >= 0; --bit) {
      if (!isSet(facts, byte, bit)) continue;
      const std::string_view name = complianceTable[row][static_cast<size_t>(bitsOfByte - 1 - bit)];
      names.push_back(name.empty() ? fmt::format("bit {} of byte {}", bit, byte)
                                   : std::string(name));
    }
  }
  return names;
}

std::vector<std::string> kindNames(const TransceiverFacts& facts) {
  std::vector<std::string> names;
  for (size_t byte = firstComplianceByte; byte < technologyByte; ++byte)
    for (int bit = bitsOfByte - 1; bit >= 0; --bit)
      if (isSet(facts, byte, bit))
        names.emplace_back(
            complianceTable[byte - firstComplianceByte][static_cast<size_t>(bitsOfByte - 1 - bit)]);
  names.erase(std::remove(names.begin(), names.end(), ""), names.end());
  if (const auto speeds = facts.speeds(); !speeds.empty())
    names.push_back("Fibre Channel " + speedsWords(speeds));
  return names.empty() ? complianceNames(facts) : names;
}

std::string identifierWords(const TransceiverFacts& facts) {
  return wordsOf(identifiers, facts.byte(TransceiverFacts::identifierAt));
}

std::string connectorWords(const TransceiverFacts& facts) {
  return wordsOf(connectors, facts.byte(TransceiverFacts::connectorAt));
}

std::string encodingWords(const TransceiverFacts& facts) {
  return wordsOf(encodings, facts.byte(encodingAt));
}

std::string signallingRateWords(const TransceiverFacts& facts) {
  constexpr double megabaudPerGigabaud = 1000;
  if (const auto rate = facts.signallingRate())
    return fmt::format("{:.1f} GBd", *rate / megabaudPerGigabaud);
  return facts.byte(TransceiverFacts::rateAt) == overflow ? "above 25.4 GBd" : "not specified";
}

std::string dateWords(const TransceiverFacts& facts) {
  constexpr size_t dateAt = 84;
  constexpr size_t dateLength = 6;
  const auto code = std::span(facts.bytes()).subspan(dateAt, dateLength);
  if (std::all_of(code.begin(), code.end(), [](uint8_t each) { return each == 0 || each == ' '; }))
    return "not specified";
  const auto date = facts.date();
  if (!date) return "date unreadable";
  std::string words = fmt::format("{:04}-{:02}", date->year, date->month);
  if (date->day != 0) words += fmt::format("-{:02}", date->day);
  return date->lot.empty() ? words : words + ", lot " + printable(date->lot);
}

std::string checksumWords(const TransceiverChecksum& checksum) {
  if (checksum.fits()) return "fits";
  return fmt::format("{:02X}, should be {:02X}", checksum.is, checksum.should);
}

std::vector<TransceiverLine> explainTransceiver(const TransceiverFacts& facts) {
  Explanation lines;
  lines.add("Kind", transceiverSummary(facts));
  lines.add("Identifier", identifierWords(facts));
  lines.add("Connector", connectorWords(facts));
  lines.add("Compliance", joined(complianceNames(facts)));
  lines.add("Extended compliance", optionalCode(extendedCodes, facts.byte(extendedCodeAt)));
  lines.add("Encoding", encodingWords(facts));
  lines.add("Signalling rate", signallingRateWords(facts));
  lines.add("Rate identifier", rateIdentifierWords(facts));
  addReach(facts, lines);
  addMaker(facts, lines);
  addExtended(facts, lines);
  lines.add("Checksum CC_BASE", checksumWords(facts.base()));
  lines.add("Checksum CC_EXT", checksumWords(facts.extended()));
  return lines.take();
}

}  // namespace corvane
