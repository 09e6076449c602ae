#include "text/Hexadecimal.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace corvane;

namespace {

using Bytes = std::vector<uint8_t>;

TEST(Hexadecimal, PairsInTheOrderOfTheBytes) {
  const Bytes bytes{0x00, 0x0A, 0x9F, 0xFF};
  EXPECT_EQ(lowerHexadecimal(bytes), "000a9fff");
  EXPECT_EQ(upperHexadecimal(bytes, ":"), "00:0A:9F:FF");
  EXPECT_EQ(upperHexadecimal(bytes, ", "), "00, 0A, 9F, FF");
  EXPECT_EQ(lowerHexadecimal({}), "");
  EXPECT_EQ(upperHexadecimal(Bytes{7}, ":"), "07");
}

TEST(Hexadecimal, EveryByteComesBack) {
  Bytes bytes(256);
  std::iota(bytes.begin(), bytes.end(), uint8_t{0});
  EXPECT_EQ(hexadecimalBytes(lowerHexadecimal(bytes)), bytes);
  EXPECT_EQ(hexadecimalBytes(upperHexadecimal(bytes, ":"), ":"), bytes);
}

TEST(Hexadecimal, BytesOfAnythingElseAreNone) {
  EXPECT_EQ(hexadecimalBytes(""), Bytes{});
  EXPECT_EQ(hexadecimalBytes("aB"), Bytes{0xAB});
  for (const char* text : {"a", "abc", "ag", "0x", " ab", "ab ", "-1", "ab:cd"}) {
    EXPECT_EQ(hexadecimalBytes(text), std::nullopt) << text;
  }
  for (const char* text : {"abcd", "ab:", ":ab", "ab::cd", "a:b", "ab:c", "ab-cd"}) {
    EXPECT_EQ(hexadecimalBytes(text, ":"), std::nullopt) << text;
  }
}

TEST(Hexadecimal, DigitsOfEitherCase) {
  EXPECT_TRUE(isHexadecimal("0123456789abcdefABCDEF"));
  EXPECT_TRUE(isHexadecimal(""));
  for (const char* text : {"g", "G", "0x1", " 1", "@", "`", ":", "/"}) {
    EXPECT_FALSE(isHexadecimal(text)) << text;
  }
  EXPECT_FALSE(isHexadecimal(std::string_view("\0", 1)));
}

TEST(Hexadecimal, NumbersOfUpToSixteenDigits) {
  EXPECT_EQ(hexadecimalNumber("0"), 0U);
  EXPECT_EQ(hexadecimalNumber("eF"), 0xEFU);
  EXPECT_EQ(hexadecimalNumber("FFFFFFFFFFFFFFFF"), UINT64_MAX);
  for (const char* text : {"", "0x1", "00000000000000001", " 1", "1 ", "-1", "+1"}) {
    EXPECT_EQ(hexadecimalNumber(text), std::nullopt) << text;
  }
}

}  // namespace
