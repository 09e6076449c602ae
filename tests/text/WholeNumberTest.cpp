#include "text/WholeNumber.h"

#include <gtest/gtest.h>

#include <limits>

using namespace corvane;

namespace {

constexpr int32_t largest = std::numeric_limits<int32_t>::max();
constexpr int32_t smallest = std::numeric_limits<int32_t>::min();
constexpr int64_t widest = std::numeric_limits<int64_t>::max();
constexpr int64_t lowest = std::numeric_limits<int64_t>::min();

TEST(LeadingWholeNumber, EndsWhereTheDigitsEnd) {
  EXPECT_EQ(leadingWholeNumber("12a"), 12);
  EXPECT_EQ(leadingWholeNumber("007.5"), 7);
  EXPECT_EQ(leadingWholeNumber("0x10"), 0);
}

TEST(LeadingWholeNumber, MayComeAfterWhiteSpaceAndASign) {
  EXPECT_EQ(leadingWholeNumber(" \t\n\v\f\r-7 x"), -7);
  EXPECT_EQ(leadingWholeNumber("+8"), 8);
}

TEST(LeadingWholeNumber, IsZeroWhereThereIsNone) {
  for (const char* text : {"", " ", "-", "+", "+-5", "- 5", "x1", "."}) {
    EXPECT_EQ(leadingWholeNumber(text), 0) << text;
    EXPECT_EQ(leadingWideNumber(text), 0) << text;
  }
}

TEST(LeadingWholeNumber, IsTheNearestThatFits) {
  EXPECT_EQ(leadingWholeNumber("2147483647"), largest);
  EXPECT_EQ(leadingWholeNumber("2147483648"), largest);
  EXPECT_EQ(leadingWholeNumber("99999999999999999999"), largest);
  EXPECT_EQ(leadingWholeNumber("-2147483648"), smallest);
  EXPECT_EQ(leadingWholeNumber("-2147483649"), smallest);
  EXPECT_EQ(leadingWholeNumber("-99999999999999999999"), smallest);
}

TEST(LeadingWideNumber, TakesTwiceTheWidth) {
  EXPECT_EQ(leadingWideNumber(" 2147483648."), 2147483648);
  EXPECT_EQ(leadingWideNumber("9223372036854775807"), widest);
  EXPECT_EQ(leadingWideNumber("9223372036854775808"), widest);
  EXPECT_EQ(leadingWideNumber("92233720368547758070"), widest);
  EXPECT_EQ(leadingWideNumber("-9223372036854775808"), lowest);
  EXPECT_EQ(leadingWideNumber("-9223372036854775809"), lowest);
  EXPECT_EQ(leadingWideNumber("-99999999999999999999"), lowest);
}

TEST(LeadingInteger, TakesNothingBeforeThem) {
  EXPECT_EQ(leadingInteger("512 rings"), 512);
  EXPECT_EQ(leadingInteger("0512"), 512);
  for (const char* text : {"", " 5", "-5", "+5", "\n5", "x"}) {
    EXPECT_EQ(leadingInteger(text), 0) << text;
  }
  EXPECT_EQ(leadingInteger("99999999999999999999"), widest);
}

TEST(WholeNumber, IsTheWholeText) {
  EXPECT_EQ(wholeNumber("12"), 12);
  EXPECT_EQ(wholeNumber(" +12\n"), 12);
  EXPECT_EQ(wholeNumber("-3"), -3);
  EXPECT_EQ(wholeNumber("99999999999"), largest);
  for (const char* text : {"", " ", "-", "1 2", "12a", "a12", "1.5"}) {
    EXPECT_EQ(wholeNumber(text), std::nullopt) << text;
  }
}

TEST(PlainNumber, IsDigitsWithAtMostAMinus) {
  EXPECT_EQ(plainNumber("0"), 0);
  EXPECT_EQ(plainNumber("-12"), -12);
  EXPECT_EQ(plainNumber("9223372036854775807"), widest);
  for (const char* text : {"", " 1", "1 ", "+1", "--1", "1a", "9223372036854775808"}) {
    EXPECT_EQ(plainNumber(text), std::nullopt) << text;
  }
}

}  // namespace
