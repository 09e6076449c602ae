#include "fibre_channel/TransceiverFacts.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "fibre_channel/TransceiverWords.h"

using namespace corvane;

namespace {

constexpr size_t baseAt = 63;
constexpr size_t extendedAt = 95;

std::vector<uint8_t> bytesOfHexadecimal(const std::string& text) {
  std::vector<uint8_t> bytes;
  for (size_t place = 0; place < text.size(); place += 2)
    bytes.push_back(static_cast<uint8_t>(std::stoul(text.substr(place, 2), nullptr, 16)));
  return bytes;
}

/// A module of the collection by its name.
std::vector<uint8_t> moduleBytes(const std::string& name) {
  static const auto collection =
      nlohmann::json::parse(std::ifstream(CORVANE_TEST_DATA "/findings/cases.json"));
  return bytesOfHexadecimal(collection.at("modules").at(name).at("bytes"));
}

TransceiverFacts module(const std::string& name) {
  return TransceiverFacts(moduleBytes(name));
}

TransceiverFacts changed(const std::string& name,
                         const std::vector<std::pair<size_t, uint8_t>>& changes) {
  auto bytes = moduleBytes(name);
  for (const auto& [place, value] : changes) bytes.at(place) = value;
  return TransceiverFacts(bytes);
}

TransceiverFacts withText(const std::string& name, size_t place, const std::string& text) {
  auto bytes = moduleBytes(name);
  std::copy(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(place));
  return TransceiverFacts(bytes);
}

/// The same bytes with a CC_BASE that fits.
TransceiverFacts mended(const TransceiverFacts& facts) {
  auto bytes = facts.bytes();
  bytes.at(baseAt) = facts.base().should;
  return TransceiverFacts(bytes);
}

using Speeds = std::vector<uint64_t>;

}  // namespace

TEST(TransceiverFacts, RefusesFewerThan96BytesAndIgnoresWhatFollows) {
  auto bytes = moduleBytes("8g-sw");
  bytes.push_back(0xAA);
  EXPECT_EQ(TransceiverFacts(bytes).bytes(), module("8g-sw").bytes());
  EXPECT_THROW(TransceiverFacts(std::span(bytes).first(95)), std::out_of_range);
  EXPECT_THROW(TransceiverFacts({}), std::out_of_range);
}

TEST(TransceiverFacts, BlankIsAllZerosOrAllOnes) {
  EXPECT_TRUE(TransceiverFacts(std::vector<uint8_t>(96, 0x00)).isBlank());
  EXPECT_TRUE(TransceiverFacts(std::vector<uint8_t>(96, 0xFF)).isBlank());
  EXPECT_FALSE(TransceiverFacts(std::vector<uint8_t>(96, 0x20)).isBlank());
  EXPECT_FALSE(module("8g-sw").isBlank());
  std::vector<uint8_t> nearly(96, 0x00);
  nearly.back() = 0xFF;
  EXPECT_FALSE(TransceiverFacts(nearly).isBlank());
}

TEST(TransceiverFacts, ChecksumsOfZerosFit) {
  const TransceiverFacts zeros(std::vector<uint8_t>(96, 0x00));
  EXPECT_TRUE(zeros.base().fits());
  EXPECT_TRUE(zeros.extended().fits());
  EXPECT_FALSE(zeros.isHalfRead());
}

TEST(TransceiverFacts, TellsBothChecksums) {
  EXPECT_TRUE(module("8g-sw").base().fits());
  EXPECT_TRUE(module("8g-sw").extended().fits());
  EXPECT_FALSE(module("16g-recoded").base().fits());
  EXPECT_TRUE(module("16g-recoded").extended().fits());
  EXPECT_TRUE(module("8g-ext-wrong").base().fits());
  EXPECT_FALSE(module("8g-ext-wrong").extended().fits());
  auto bytes = moduleBytes("8g-sw");
  ++bytes.at(extendedAt);
  const auto extended = TransceiverFacts(bytes).extended();
  EXPECT_EQ(extended.is, extended.should + 1);
}

TEST(TransceiverFacts, HalfReadNeedsAWrongChecksumAndASignOfIt) {
  EXPECT_TRUE(module("8g-half-read").isHalfRead());
  EXPECT_FALSE(module("16g-recoded").isHalfRead()) << "readable texts, a good identifier";
  EXPECT_FALSE(module("8g-blank-name").isHalfRead());
  EXPECT_FALSE(module("8g-zero-padded").isHalfRead());

  const auto rubbish = withText("8g-sw", 20, "NORD\x01");
  EXPECT_TRUE(rubbish.isHalfRead());
  EXPECT_FALSE(mended(rubbish).isHalfRead()) << "the checksum fits";
  EXPECT_TRUE(withText("8g-sw", 40, "\xC3").isHalfRead());
  EXPECT_TRUE(withText("8g-sw", 40, std::string("A\0B", 3)).isHalfRead());
  EXPECT_FALSE(withText("8g-sw", 30, std::string(6, '\0')).isHalfRead()) << "trailing zeros";
  EXPECT_TRUE(changed("8g-sw", {{0, 0x80}}).isHalfRead());
  EXPECT_FALSE(changed("8g-sw", {{0, 0x02}}).isHalfRead());
}

TEST(TransceiverFacts, CablesByTheirBitsOrTheirPlug) {
  EXPECT_TRUE(module("copper-8g").isCable());
  EXPECT_TRUE(module("copper-8g").isPassiveCable());
  EXPECT_FALSE(module("copper-8g").isActiveCable());
  EXPECT_FALSE(module("8g-sw").isCable());
  EXPECT_TRUE(changed("8g-sw", {{8, 0x08}}).isCable());
  EXPECT_TRUE(changed("8g-sw", {{8, 0x04}}).isCable());
  EXPECT_TRUE(changed("8g-sw", {{2, 0x21}}).isCable());
  EXPECT_TRUE(changed("8g-sw", {{2, 0x23}}).isCable());
  EXPECT_FALSE(changed("8g-sw", {{2, 0x22}}).isCable());
  EXPECT_FALSE(changed("8g-sw", {{8, 0xF3}}).isCable());
}

TEST(TransceiverFacts, SpeedsOfByte10InRisingOrder) {
  EXPECT_EQ(module("8g-sw").speeds(), (Speeds{2000, 4000, 8000}));
  EXPECT_EQ(module("16g-sw").speeds(), (Speeds{4000, 8000, 16000}));
  EXPECT_EQ(module("32g-sw").speeds(), (Speeds{8000, 16000, 32000}));
  EXPECT_EQ(module("4g-sw").speeds(), (Speeds{1000, 2000, 4000}));
  EXPECT_EQ(module("10g-sr").speeds(), Speeds{});
  EXPECT_EQ(changed("8g-sw", {{10, 0xFF}, {62, 1}}).speeds(),
            (Speeds{1000, 2000, 4000, 8000, 10000, 16000, 32000, 64000}));
  EXPECT_EQ(changed("8g-sw", {{10, 0x02}, {62, 0}}).speeds(), Speeds{});
  EXPECT_EQ(changed("8g-sw", {{10, 0x80}}).speeds(), (Speeds{10000}));
}

TEST(TransceiverFacts, ComplianceCodesThatSayNothing) {
  EXPECT_TRUE(module("8g-sw").hasComplianceCodes());
  auto bytes = moduleBytes("8g-sw");
  std::fill(bytes.begin() + 3, bytes.begin() + 11, uint8_t{0});
  EXPECT_FALSE(TransceiverFacts(bytes).hasComplianceCodes());
  bytes.at(10) = 1;
  EXPECT_TRUE(TransceiverFacts(bytes).hasComplianceCodes());
}

TEST(TransceiverFacts, SignallingRates) {
  EXPECT_EQ(module("8g-sw").signallingRate(), 8500U);
  EXPECT_EQ(module("16g-sw").signallingRate(), 14000U);
  EXPECT_EQ(module("32g-sw").signallingRate(), 28000U);
  EXPECT_EQ(module("no-rate").signallingRate(), std::nullopt);
  EXPECT_EQ(changed("32g-sw", {{66, 0}}).signallingRate(), std::nullopt);
  EXPECT_EQ(signallingRateWords(module("8g-sw")), "8.5 GBd");
  EXPECT_EQ(signallingRateWords(module("32g-sw")), "28.0 GBd");
  EXPECT_EQ(signallingRateWords(module("no-rate")), "not specified");
  EXPECT_EQ(signallingRateWords(changed("32g-sw", {{66, 0}})), "above 25.4 GBd");
}

TEST(TransceiverFacts, TextsWithoutTheirPadding) {
  EXPECT_EQ(module("8g-sw").vendorName(), "NORDLICHT OPTIK");
  EXPECT_EQ(module("8g-sw").partNumber(), "NO-8FC-SW");
  EXPECT_EQ(module("8g-sw").revision(), "A");
  EXPECT_EQ(module("8g-sw").serialNumber(), "NL24A00081");
  EXPECT_EQ(module("8g-zero-padded").vendorName(), "HALDEN");
  EXPECT_EQ(module("8g-blank-name").vendorName(), "");
  EXPECT_EQ(module("8g-blank-name").serialNumber(), "");
}

TEST(TransceiverFacts, Dates) {
  EXPECT_EQ(module("8g-sw").date(), (TransceiverDate{2024, 3, 12, ""}));
  EXPECT_EQ(module("8g-blank-name").date(), (TransceiverDate{2018, 4, 25, "01"}));
  EXPECT_EQ(dateWords(module("8g-sw")), "2024-03-12");
  EXPECT_EQ(dateWords(module("8g-blank-name")), "2018-04-25, lot 01");
  EXPECT_EQ(dateWords(withText("8g-sw", 84, "240300")), "2024-03");
  EXPECT_EQ(dateWords(withText("8g-sw", 84, "241312")), "date unreadable");
  EXPECT_EQ(dateWords(withText("8g-sw", 84, "240012")), "date unreadable");
  EXPECT_EQ(dateWords(withText("8g-sw", 84, "240332")), "date unreadable");
  EXPECT_EQ(dateWords(withText("8g-sw", 84, "2x0312")), "date unreadable");
  EXPECT_EQ(dateWords(withText("8g-sw", 84, std::string(8, '\0'))), "not specified");
  EXPECT_EQ(dateWords(withText("8g-sw", 84, "        ")), "not specified");
}

TEST(TransceiverWords, SummariesForPeople) {
  EXPECT_EQ(transceiverSummary(module("8g-sw")),
            "Fibre Channel 2, 4, 8 Gb/s, short wave, 850 nm, OM2 50 m, OM1 20 m, OM3 150 m, "
            "LC plug, 8B/10B, 8.5 GBd");
  EXPECT_EQ(transceiverSummary(module("16g-lw")),
            "Fibre Channel 4, 8, 16 Gb/s, long wave, 1310 nm, single mode 10 km, LC plug, "
            "64B/66B, 14.0 GBd");
  EXPECT_EQ(transceiverSummary(module("copper-8g")), "copper cable, passive, 3 m");
  EXPECT_EQ(transceiverSummary(changed("copper-8g", {{8, 0x08}})), "active cable, 3 m");
  EXPECT_EQ(transceiverSummary(changed("copper-8g", {{8, 0}})), "copper cable, 3 m");
  EXPECT_EQ(transceiverSummary(changed("copper-8g", {{19, 0x4F}})), "copper cable, passive, 15 m");
  EXPECT_EQ(transceiverSummary(changed("copper-8g", {{19, 0x0F}})), "copper cable, passive, 1.5 m");
  EXPECT_TRUE(transceiverSummary(module("10g-sr")).starts_with("10GBASE-SR, 850 nm"));
  EXPECT_TRUE(
      transceiverSummary(changed("10g-sr", {{3, 0}})).starts_with("10.3 GBd, kind not told"));
}

TEST(TransceiverWords, EveryComplianceBitHasItsName) {
  EXPECT_EQ(complianceNames(module("8g-sw")),
            (std::vector<std::string>{"intermediate distance", "short wave", "multimode 62.5 um",
                                      "multimode 50 um", "800 MB/s", "400 MB/s", "200 MB/s"}));
  auto bytes = moduleBytes("8g-sw");
  std::fill(bytes.begin() + 3, bytes.begin() + 11, uint8_t{0xFF});
  const auto all = complianceNames(TransceiverFacts(bytes));
  EXPECT_EQ(all.size(), 64U);
  EXPECT_EQ(std::count(all.begin(), all.end(), ""), 0);
  EXPECT_EQ(all.at(0), "10GBASE-ER");
  EXPECT_EQ(all.at(16), "bit 7 of byte 5");
  EXPECT_EQ(all.at(63), "100 MB/s");
}

TEST(TransceiverWords, KindsAreStandardsAndSpeedsElseTheTechnology) {
  EXPECT_EQ(kindNames(module("100m-fx")), (std::vector<std::string>{"100BASE-FX"}));
  EXPECT_EQ(kindNames(module("10g-sr")), (std::vector<std::string>{"10GBASE-SR"}));
  EXPECT_EQ(kindNames(module("2g-sw")), (std::vector<std::string>{"Fibre Channel 1, 2 Gb/s"}));
  EXPECT_EQ(kindNames(changed("8g-sw", {{7, 0}, {9, 0}, {10, 0}})),
            (std::vector<std::string>{"short wave"}));
}

TEST(TransceiverWords, EncodingsByTheColumnOfThisMap) {
  EXPECT_EQ(encodingWords(changed("8g-sw", {{11, 1}})), "8B/10B");
  EXPECT_EQ(encodingWords(changed("8g-sw", {{11, 6}})), "64B/66B");
  EXPECT_EQ(encodingWords(changed("8g-sw", {{11, 5}})),
            "SONET scrambled (a 10G or 16G module that says so often means 64B/66B)");
  EXPECT_EQ(encodingWords(changed("8g-sw", {{11, 9}})), "09h");
}

TEST(TransceiverWords, CodesOfNoTableAreTheirNumbers) {
  EXPECT_EQ(identifierWords(changed("8g-sw", {{0, 0x81}})), "81h");
  EXPECT_EQ(connectorWords(changed("8g-sw", {{2, 0x30}})), "30h");
}

TEST(TransceiverWords, ReachesThatAreFullSayMoreThan) {
  const auto lines = explainTransceiver(changed("16g-lw", {{14, 0xFF}, {15, 0xFF}}));
  const auto reach = std::find_if(lines.begin(), lines.end(),
                                  [](const auto& line) { return line.caption == "Reach"; });
  ASSERT_NE(reach, lines.end());
  EXPECT_EQ(reach->words, "single mode over 254 km");
}

TEST(TransceiverWords, ExplainsWhatTheModuleSaysAndLeavesOutTheRest) {
  std::map<std::string, std::string> words;
  for (const auto& [caption, text] : explainTransceiver(module("16g-recoded")))
    words[caption] = text;
  EXPECT_EQ(words.at("Identifier"), "SFP");
  EXPECT_EQ(words.at("Connector"), "LC plug");
  EXPECT_EQ(words.at("Wavelength"), "850 nm");
  EXPECT_EQ(words.at("Vendor OUI"), "02-00-5E");
  EXPECT_EQ(words.at("Made"), "2024-03-12");
  EXPECT_TRUE(words.at("Checksum CC_BASE").find("should be") != std::string::npos);
  EXPECT_EQ(words.at("Checksum CC_EXT"), "fits");
  EXPECT_FALSE(words.contains("Extended compliance"));
  EXPECT_FALSE(words.contains("Rate identifier"));
}

TEST(TransceiverWords, ShowsNoByteThatCannotBePrinted) {
  EXPECT_EQ(transceiverName(withText("8g-sw", 20, "\x1B[31m\xFF")).substr(0, 6), "?[31m?");
}
