#include "CORVANE2Archive/checksum.h"

#include <gtest/gtest.h>

namespace corvane::archivetest {
namespace {

TEST(Checksum, AddsLittleEndianWords) {
  const std::uint8_t bytes[] = {0x01, 0x02, 0x10, 0x20};
  EXPECT_EQ(CalcEEPROM16BitCheckSum(bytes, 0, 4), 0x0201u + 0x2010u);
}

TEST(Checksum, BoundIsWhereAWordBegins) {
  const std::uint8_t bytes[] = {1, 0, 2, 0, 4, 0};
  EXPECT_EQ(CalcEEPROM16BitCheckSum(bytes, 0, 3), 3u);
  EXPECT_EQ(CalcEEPROM16BitCheckSum(bytes, 0, 5), 7u);
  EXPECT_EQ(CalcEEPROM16BitCheckSum(bytes, 2, 5), 6u);
}

TEST(Checksum, BoundBeforeTheEndLeavesOutTheLastByteOfAnOddBuffer) {
  const std::uint8_t bytes[] = {1, 0, 2, 0, 200};
  EXPECT_EQ(CalcEEPROM16BitCheckSum(bytes, 0, sizeof bytes - 1), 3u);
}

TEST(Checksum, EmptyRangeIsZero) {
  const std::uint8_t byte = 9;
  EXPECT_EQ(CalcEEPROM16BitCheckSum(&byte, 0, 0), 0u);
  EXPECT_EQ(CalcEEPROM16BitCheckSum(&byte, 5, 3), 0u);
}

TEST(Checksum, SumIsNotTruncated) {
  const std::vector<std::uint8_t> bytes(300'000, 0xFF);
  EXPECT_EQ(CalcEEPROM16BitCheckSum(bytes.data(), 0, bytes.size()), 150'000ull * 0xFFFFull);
}

TEST(Checksum, BothNamesGiveTheSameSum) {
  const std::uint8_t bytes[] = {7, 8, 9, 10};
  EXPECT_EQ(VerifyEEPROM16BitCheckSum(bytes, 0, 3), CalcEEPROM16BitCheckSum(bytes, 0, 3));
  EXPECT_EQ(VerifyEEPROM16BitCheckSum(bytes, 0, 3), 0x0807u + 0x0A09u);
}

}  // namespace
}  // namespace corvane::archivetest
