#include "platform/macos/PropertyConversion.h"

#include "macos/MacOverBenchFixture.h"

using namespace corvane;
using namespace corvane::macos;

namespace {

class PropertyConversionTest : public MacOverBenchFixture {
 protected:
  static PropertyValue thereAndBack(const PropertyValue& value) {
    return propertyValue(platformValue(value).get());
  }
};

TEST_F(PropertyConversionTest, EachKindComesBackAsItWas) {
  const PropertyValue::Data bytes{0x00, 0xFF, 0x7F};
  for (const PropertyValue& value :
       {PropertyValue(), PropertyValue(bytes), PropertyValue(PropertyValue::Data()),
        PropertyValue("en5"), PropertyValue(""), PropertyValue(int64_t{-1}),
        PropertyValue(INT64_MAX), PropertyValue(true), PropertyValue(false),
        PropertyValue(PropertyValue::Array{1, "two", PropertyValue::Array{}}),
        PropertyValue(
            PropertyValue::Dictionary{{"a", 1}, {"b", PropertyValue::Dictionary{{"c", bytes}}}})}) {
    EXPECT_EQ(thereAndBack(value), value) << value.description();
  }
}

TEST_F(PropertyConversionTest, TextOfEveryPlaneComesBackAsItWas) {
  for (const std::string text :
       {"ASCII", "\u00C4\u00DF", "\u20AC", "\U0001F600", "a\u00E9\U00010000z"}) {
    EXPECT_EQ(macos::text(platformString(text).get()), text);
  }
}

TEST_F(PropertyConversionTest, ATextThatIsNoUtf8IsTakenByteByByte) {
  EXPECT_EQ(macos::text(platformString("a\xFF\xE9").get()), "a\u00FF\u00E9");
  EXPECT_EQ(thereAndBack(PropertyValue::Dictionary{{"\xC0", "\xED\xA0\x80"}}),
            PropertyValue(PropertyValue::Dictionary{{"\u00C0", "\u00ED\u00A0\u0080"}}));
  EXPECT_EQ(macos::text(platformString("cut \xE2\x82").get()), "cut \u00E2\u0082");
}

TEST_F(PropertyConversionTest, ATextKeepsItsZeroBytes) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(macos::text(platformString(text).get()), text);
}

TEST_F(PropertyConversionTest, WhatIsNoTextHasNone) {
  EXPECT_EQ(macos::text(nullptr), std::nullopt);
  EXPECT_EQ(macos::text(platformValue(5).get()), std::nullopt);
}

TEST_F(PropertyConversionTest, NothingAndObjectsOfOtherKindsBecomeNothing) {
  EXPECT_TRUE(propertyValue(nullptr).isNull());
  EXPECT_TRUE(propertyValue(kCFNull).isNull());
  const CoreFoundationReference<CFURLRef> url(CFURLCreateFromFileSystemRepresentation(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>("/"), 1, true));
  EXPECT_TRUE(propertyValue(url.get()).isNull());
}

TEST_F(PropertyConversionTest, ASetBecomesAnArray) {
  const auto first = platformValue("one");
  const auto second = platformValue(2);
  const void* members[] = {first.get(), second.get()};
  const CoreFoundationReference<CFSetRef> set(
      CFSetCreate(kCFAllocatorDefault, members, 2, &kCFTypeSetCallBacks));
  EXPECT_EQ(propertyValue(set.get()), PropertyValue(PropertyValue::Array{"one", 2}));
}

TEST_F(PropertyConversionTest, ANumberThatIsNotWholeIsCut) {
  const double value = 2.75;
  const CoreFoundationReference<CFNumberRef> number(
      CFNumberCreate(kCFAllocatorDefault, kCFNumberFloat64Type, &value));
  EXPECT_EQ(propertyValue(number.get()), PropertyValue(2));
}

TEST_F(PropertyConversionTest, OfADictionaryOnlyTextsAreKeys) {
  const CoreFoundationReference<CFMutableDictionaryRef> dictionary(CFDictionaryCreateMutable(
      kCFAllocatorDefault, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
  CFDictionarySetValue(dictionary.get(), platformValue(1).get(), platformValue("lost").get());
  CFDictionarySetValue(dictionary.get(), platformString("kept").get(), platformValue(2).get());
  EXPECT_EQ(propertyDictionary(dictionary.get()), (PropertyValue::Dictionary{{"kept", 2}}));
}

}  // namespace
