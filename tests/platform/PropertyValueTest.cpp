#include "platform/PropertyValue.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

using Data = PropertyValue::Data;
using Array = PropertyValue::Array;
using Dictionary = PropertyValue::Dictionary;

TEST(PropertyValue, DataPrintsInGroupsOfFourBytes) {
  EXPECT_EQ(dataText(Data{}), "<>");
  EXPECT_EQ(dataText(Data{0x0A}), "<0a>");
  EXPECT_EQ(dataText(Data{0x20, 0x00, 0x00, 0x1B}), "<2000001b>");
  EXPECT_EQ(dataText(Data{0x20, 0x00, 0x00, 0x1B, 0x32, 0xA0, 0xB1, 0xC2}), "<2000001b 32a0b1c2>");
}

TEST(PropertyValue, EachKindPrintsInsideATextInItsOwnForm) {
  EXPECT_EQ(PropertyValue(Data{0x02, 0x00}).description(), "<0200>");
  EXPECT_EQ(PropertyValue("plain").description(), "plain");
  EXPECT_EQ(PropertyValue(int64_t{-7}).description(), "-7");
  EXPECT_EQ(PropertyValue(true).description(), "1");
  EXPECT_EQ(PropertyValue(false).description(), "0");
  EXPECT_EQ(PropertyValue().description(), "(null)");
  EXPECT_EQ(PropertyValue(Array{1, "two"}).description(), "(1, two)");
  EXPECT_EQ(PropertyValue(Dictionary{{"b", 1}, {"a", Array{}}}).description(), "{a = (), b = 1}");
}

TEST(PropertyValue, GivesItsValueAsItsOwnKindOnly) {
  const PropertyValue number(3);
  ASSERT_NE(number.number(), nullptr);
  EXPECT_EQ(*number.number(), 3);
  EXPECT_EQ(number.text(), nullptr);
  EXPECT_EQ(number.data(), nullptr);
  EXPECT_EQ(number.boolean(), nullptr);
  EXPECT_EQ(number.array(), nullptr);
  EXPECT_EQ(number.dictionary(), nullptr);
  EXPECT_FALSE(number.isNull());
  EXPECT_TRUE(PropertyValue().isNull());
}

TEST(PropertyValue, ALiteralIsATextAndNoBoolean) {
  const PropertyValue literal("yes");
  ASSERT_NE(literal.text(), nullptr);
  EXPECT_EQ(*literal.text(), "yes");
}

TEST(PropertyValue, FindsEntriesOfDictionariesOnly) {
  const PropertyValue dictionary(Dictionary{{"key", "value"}});
  ASSERT_NE(dictionary.find("key"), nullptr);
  EXPECT_EQ(*dictionary.find("key"), PropertyValue("value"));
  EXPECT_EQ(dictionary.find("other"), nullptr);
  EXPECT_EQ(PropertyValue("key").find("key"), nullptr);
}

TEST(PropertyValue, WhatIsAbsentPrintsAsNull) {
  const Dictionary properties{{"present", ""}};
  EXPECT_EQ(propertyText(properties, "present"), "");
  EXPECT_EQ(propertyText(properties, "absent"), "(null)");
  EXPECT_EQ(textOrNull(std::nullopt), "(null)");
  EXPECT_EQ(textOrNull("B"), "B");
}

}  // namespace
