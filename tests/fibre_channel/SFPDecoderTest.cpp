#include "fibre_channel/SFPDecoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

using namespace corvane;

namespace {

constexpr size_t replySize = 104;
constexpr size_t presentOffset = 96;

void putModuleText(std::vector<uint8_t>& reply, size_t offset, std::string_view text) {
  std::copy(text.begin(), text.end(), reply.begin() + static_cast<std::ptrdiff_t>(offset));
}

// An 8G short-wave module, as the driver would report it.
std::vector<uint8_t> shortWaveModule() {
  std::vector<uint8_t> reply(replySize);
  reply[0] = 3;
  reply[2] = 7;
  for (size_t index = 0; index < 8; ++index) reply[3 + index] = static_cast<uint8_t>(0xA0 + index);
  reply[11] = 1;
  reply[12] = 85;
  putModuleText(reply, 20, "VELMAR OPTICS   ");
  reply[37] = 0x02;
  reply[38] = 0x4A;
  reply[39] = 0x9C;
  putModuleText(reply, 40, "VO-8G-SW        ");
  putModuleText(reply, 56, "A   ");
  putModuleText(reply, 68, "S0012345        ");
  putModuleText(reply, 84, "11041922");
  reply[presentOffset] = 1;
  return reply;
}

SFPDescription decodedWith(size_t offset, uint8_t value) {
  std::vector<uint8_t> reply = shortWaveModule();
  reply[offset] = value;
  return decodeSFP(reply);
}

TEST(SFPDecoder, UsableModuleSetsEveryText) {
  const SFPDescription module = decodeSFP(shortWaveModule());
  EXPECT_EQ(module.result, SFPResult::Usable);
  EXPECT_EQ(module.bitRate, 8);
  EXPECT_EQ(module.Transceiver, "SFP");
  EXPECT_EQ(module.Connector, "LC");
  EXPECT_EQ(module.TransceiverCode, "A0-A1-A2-A3-A4-A5-A6-A7");
  EXPECT_EQ(module.SerialEncoding, "8B10B");
  EXPECT_EQ(module.Bitrate, "8 Gb/s");
  EXPECT_EQ(module.VendorName, "VELMAR OPTICS   ");
  EXPECT_EQ(module.VendorOUI, "02-4A-9C");
  EXPECT_EQ(module.VendorPN, "VO-8G-SW        ");
  EXPECT_EQ(module.VendorRev, "A   ");
  EXPECT_EQ(module.VendorSN, "S0012345        ");
  EXPECT_EQ(module.ManuData, "11-04-19");
}

TEST(SFPDecoder, EmptyCageSetsNothing) {
  const SFPDescription module = decodedWith(presentOffset, 0);
  EXPECT_EQ(module.result, SFPResult::NoModule);
  EXPECT_FALSE(module.bitRate);
  EXPECT_FALSE(module.Transceiver);
  EXPECT_FALSE(module.Bitrate);
  EXPECT_FALSE(module.VendorName);
  EXPECT_FALSE(module.ManuData);
}

TEST(SFPDecoder, AnyNonZeroFlagMeansPresent) {
  std::vector<uint8_t> reply = shortWaveModule();
  reply[presentOffset] = 0;
  reply[presentOffset + 3] = 0x80;
  EXPECT_EQ(decodeSFP(reply).result, SFPResult::Usable);
}

TEST(SFPDecoder, WrongSpeedClassLeavesTheVendorTextsUnset) {
  const SFPDescription module = decodedWith(12, 21);
  EXPECT_EQ(module.result, SFPResult::WrongSpeedClass);
  EXPECT_EQ(module.Transceiver, "SFP");
  EXPECT_EQ(module.Connector, "LC");
  EXPECT_EQ(module.TransceiverCode, "A0-A1-A2-A3-A4-A5-A6-A7");
  EXPECT_EQ(module.SerialEncoding, "8B10B");
  EXPECT_EQ(module.Bitrate, "2 Gb/s");
  EXPECT_FALSE(module.VendorName);
  EXPECT_FALSE(module.VendorOUI);
  EXPECT_FALSE(module.VendorPN);
  EXPECT_FALSE(module.VendorRev);
  EXPECT_FALSE(module.VendorSN);
  EXPECT_FALSE(module.ManuData);
}

TEST(SFPDecoder, SpeedClassIsDecidedOnWholeGigabits) {
  for (int byte = 0; byte <= 255; ++byte) {
    const int gigabits = byte / 10;
    const bool usable = gigabits == 0 || gigabits == 4 || gigabits == 8 || gigabits == 12 ||
                        gigabits == 14 || gigabits == 16 || gigabits == 20 || gigabits == 24;
    const SFPDescription module = decodedWith(12, static_cast<uint8_t>(byte));
    EXPECT_EQ(module.result, usable ? SFPResult::Usable : SFPResult::WrongSpeedClass) << byte;
    EXPECT_EQ(module.Bitrate, std::to_string(gigabits) + " Gb/s") << byte;
  }
}

TEST(SFPDecoder, EveryNamedConnector) {
  const std::vector<std::string> names{"Unknown or unspecified",
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
  for (size_t value = 0; value < names.size(); ++value) {
    EXPECT_EQ(decodedWith(2, static_cast<uint8_t>(value)).Connector, names[value]);
  }
}

TEST(SFPDecoder, OtherConnectorsAreLowerCaseHexadecimal) {
  EXPECT_EQ(decodedWith(2, 12).Connector, "c");
  EXPECT_EQ(decodedWith(2, 0x22).Connector, "22");
  EXPECT_EQ(decodedWith(2, 0xFB).Connector, "fb");
}

TEST(SFPDecoder, EveryNamedEncoding) {
  const std::vector<std::string> names{"Unspecified", "8B10B", "4B5B", "NRZ", "Manchester"};
  for (size_t value = 0; value < names.size(); ++value) {
    EXPECT_EQ(decodedWith(11, static_cast<uint8_t>(value)).SerialEncoding, names[value]);
  }
}

TEST(SFPDecoder, OtherEncodingsAreUpperCaseHexadecimal) {
  EXPECT_EQ(decodedWith(11, 5).SerialEncoding, "5");
  EXPECT_EQ(decodedWith(11, 6).SerialEncoding, "6");
  EXPECT_EQ(decodedWith(11, 0xAB).SerialEncoding, "AB");
}

TEST(SFPDecoder, OtherIdentifiersAreLowerCaseHexadecimal) {
  EXPECT_EQ(decodedWith(0, 0x0B).Transceiver, "b");
  EXPECT_EQ(decodedWith(0, 0).Transceiver, "0");
  EXPECT_EQ(decodedWith(0, 0xFF).Transceiver, "ff");
}

TEST(SFPDecoder, TextsWithoutTerminatorsEndWithTheirFields) {
  std::vector<uint8_t> reply = shortWaveModule();
  std::fill(reply.begin() + 20, reply.begin() + 96, uint8_t{'#'});
  const SFPDescription module = decodeSFP(reply);
  EXPECT_EQ(module.VendorName, std::string(16, '#'));
  EXPECT_EQ(module.VendorPN, std::string(16, '#'));
  EXPECT_EQ(module.VendorRev, std::string(4, '#'));
  EXPECT_EQ(module.VendorSN, std::string(16, '#'));
  EXPECT_EQ(module.ManuData, "##-##-##");
}

TEST(SFPDecoder, TextsEndAtTheirFirstZeroByte) {
  std::vector<uint8_t> reply = shortWaveModule();
  reply[23] = 0;
  reply[56] = 0;
  const SFPDescription module = decodeSFP(reply);
  EXPECT_EQ(module.VendorName, "VEL");
  EXPECT_EQ(module.VendorRev, "");
}

TEST(SFPDecoder, TruncatedReplyIsRefused) {
  std::vector<uint8_t> reply = shortWaveModule();
  reply.resize(99);
  EXPECT_THROW(decodeSFP(reply), std::out_of_range);
}

TEST(SFPDecoder, DumpOf96BytesCountsAsPresent) {
  std::vector<uint8_t> dump = shortWaveModule();
  dump.resize(96);
  const std::vector<uint8_t> reply = sfpReplyForEEPROM(dump);
  ASSERT_EQ(reply.size(), replySize);
  EXPECT_TRUE(std::equal(dump.begin(), dump.end(), reply.begin()));
  EXPECT_EQ(decodeSFP(reply).result, SFPResult::Usable);
}

TEST(SFPDecoder, WhatFollowsTheFirst96BytesOfADumpIsNotLookedAt) {
  std::vector<uint8_t> dump = shortWaveModule();
  dump.resize(96);
  const std::vector<uint8_t> short96 = sfpReplyForEEPROM(dump);
  dump.resize(256, 0xEE);
  EXPECT_EQ(sfpReplyForEEPROM(dump), short96);
}

TEST(SFPDecoder, ShorterDumpIsRefused) {
  EXPECT_THROW(sfpReplyForEEPROM(std::vector<uint8_t>(95)), std::out_of_range);
}

}  // namespace
