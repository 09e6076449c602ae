#include "platform/StructureLayout.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

using namespace corvane;

namespace {

constexpr std::array<uint8_t, 8> countingBytes{0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08};

TEST(StructureLayout, NumbersAreLittleEndian) {
  const StructureReader reader(countingBytes);
  EXPECT_EQ(reader.number({"byte", 1, 1}), 0x02U);
  EXPECT_EQ(reader.number({"word", 2, 4}), 0x06050403U);
  EXPECT_EQ(reader.number({"long", 0, 8}), 0x0807060504030201U);
}

TEST(StructureLayout, TextEndsAtItsFirstZeroByte) {
  const std::array<uint8_t, 6> bytes{'a', 'b', ' ', 0, 'c', 'd'};
  EXPECT_EQ(StructureReader(bytes).text({"text", 0, 6}), "ab ");
  EXPECT_EQ(StructureReader(bytes).text({"text", 3, 3}), "");
}

TEST(StructureLayout, TextWithoutTerminatorEndsWithItsField) {
  const std::array<uint8_t, 6> bytes{'a', 'b', 'c', 'd', 'e', 'f'};
  EXPECT_EQ(StructureReader(bytes).text({"text", 1, 3}), "bcd");
}

TEST(StructureLayout, FieldBeyondTheStructureIsRefusedByName) {
  const StructureReader reader(countingBytes);
  EXPECT_THROW(reader.number({"late", 5, 4}), std::out_of_range);
  EXPECT_THROW(reader.bytes({"later", 9, 1}), std::out_of_range);
  EXPECT_THROW(reader.text({"huge", 1, SIZE_MAX}), std::out_of_range);
  try {
    reader.number({"link state", 8, 4});
    FAIL() << "no exception";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "the structure ends before its field \"link state\"");
  }
}

TEST(StructureLayout, WritingKeepsToTheField) {
  std::array<uint8_t, 6> bytes{};
  putNumber(bytes, {"word", 1, 4}, 0xAABBCCDDEEU);
  EXPECT_EQ(bytes, (std::array<uint8_t, 6>{0, 0xEE, 0xDD, 0xCC, 0xBB, 0}));
  EXPECT_THROW(putNumber(bytes, {"word", 3, 4}, 1), std::out_of_range);
}

TEST(StructureLayout, LayoutMustRiseAndFit) {
  constexpr std::array rising{StructureField{"a", 0, 2}, StructureField{"b", 4, 4}};
  constexpr std::array overlapping{StructureField{"a", 0, 2}, StructureField{"b", 1, 4}};
  constexpr std::array empty{StructureField{"a", 0, 0}};
  EXPECT_TRUE(isLayoutWithin(rising, 8));
  EXPECT_FALSE(isLayoutWithin(rising, 7));
  EXPECT_FALSE(isLayoutWithin(overlapping, 8));
  EXPECT_FALSE(isLayoutWithin(empty, 8));
}

}  // namespace
