#include "OnlineUpdate/UpdateCatalogue.h"

#include <plist/plist.h>

#include <cstdlib>

#include "OnlineUpdate/PropertyListBounds.h"
#include "online_update/CatalogueText.h"

using namespace corvane;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::span<const uint8_t> bytesOf(const std::string& text) {
  return {reinterpret_cast<const uint8_t*>(text.data()), text.size()};
}

CatalogueReading read(const std::string& text) {
  return readCatalogue(bytesOf(text));
}

std::string asBinary(const std::string& xml) {
  plist_t list = nullptr;
  plist_from_xml(xml.data(), static_cast<uint32_t>(xml.size()), &list);
  char* bytes = nullptr;
  uint32_t size = 0;
  plist_to_bin(list, &bytes, &size);
  std::string binary(bytes, size);
  plist_free(list);
  std::free(bytes);
  return binary;
}

std::string nested(const std::string& element, int depth) {
  std::string text;
  for (int level = 0; level < depth; ++level) text += "<" + element + "><key>k</key>";
  for (int level = 0; level < depth; ++level) text += "</" + element + ">";
  return propertyListXml(text);
}

/// A binary list of two-element arrays, each of which names the next one twice: small, and 2^30
/// elements once it is written out.
std::string doublingArrays() {
  constexpr uint8_t count = 30;
  std::string list = "bplist00";
  std::string offsets;
  for (uint8_t object = 0; object < count; ++object) {
    offsets += static_cast<char>(list.size());
    list += '\xA2';
    list.append(2, static_cast<char>(object + 1));
  }
  offsets += static_cast<char>(list.size());
  list += '\xA0';
  const char table = static_cast<char>(list.size());
  list += offsets;
  list += std::string(6, '\0') + '\x01' + '\x01';
  list += std::string(7, '\0') + static_cast<char>(count + 1);
  list += std::string(8, '\0');
  list += std::string(7, '\0') + table;
  return list;
}

std::string bigEndian(uint64_t number, size_t size) {
  std::string bytes;
  for (size_t byte = size; byte-- > 0;) bytes += static_cast<char>(number >> (8 * byte) & 0xFF);
  return bytes;
}

/// The mark of an object, with its size in four bytes.
std::string marker(uint8_t kind, size_t size) {
  return static_cast<char>(kind | 0x0F) + std::string("\x12") + bigEndian(size, 4);
}

/// A binary list whose objects are those bytes, the first one its root; the others stand at those
/// places, which may be the same.
std::string binaryList(const std::string& objects, const std::vector<size_t>& places) {
  constexpr size_t magicSize = 8;
  std::string list = "bplist00" + objects;
  const size_t table = list.size();
  for (const size_t place : places) list += bigEndian(magicSize + place, 4);
  return list + std::string(6, '\0') + "\x04\x02" + bigEndian(places.size(), 8) + bigEndian(0, 8) +
         bigEndian(table, 8);
}

/// An array that names one value of that kind, with `size` bytes, so many times.
std::string valueNamedOften(size_t times, uint8_t kind, size_t size) {
  std::string array = marker(0xA0, times);
  for (size_t index = 0; index < times; ++index) array += bigEndian(1, 2);
  const size_t bytes = kind == 0x60 ? size / 2 : size;
  return binaryList(array + marker(kind, bytes) + std::string(size, 'x'), {0, array.size()});
}

/// An array of arrays that are one and the same place in the list, each of so many texts.
std::string arraysInOnePlace(size_t arrays, size_t texts) {
  std::string root = marker(0xA0, arrays);
  for (size_t index = 0; index < arrays; ++index) root += bigEndian(2 + index, 2);
  std::string shared = marker(0xA0, texts);
  for (size_t index = 0; index < texts; ++index) shared += bigEndian(1, 2);
  const std::string text = marker(0x50, 1) + "x";
  std::vector<size_t> places = {0, root.size() + shared.size()};
  places.insert(places.end(), arrays, root.size());
  return binaryList(root + shared + text, places);
}

/// Arrays in one another, each behind a comment that seems to close the one around it.
std::string nestedBehindComments(int depth) {
  std::string text;
  for (int level = 0; level < depth; ++level) text += "<!--</array>--><array>";
  for (int level = 0; level < depth; ++level) text += "</array>";
  return propertyListXml(text);
}

const std::vector<UpdateRule> twoRules = {
    {"Corvane_SW", "1.2.3.4", "CORVANE_Utility.dmg", "12 MB", "Text & more"},
    {"Corvane_FW_8G", "2.0.0.1", "fw8.pkg", "1 MB", "Firmware"}};

TEST(UpdateCatalogue, ReadsXml) {
  const CatalogueReading reading = read(catalogueXml(twoRules));
  ASSERT_TRUE(reading.rules);
  EXPECT_EQ(*reading.rules, twoRules);
  EXPECT_EQ(reading.problem, "");
}

TEST(UpdateCatalogue, ReadsBinary) {
  const CatalogueReading reading = read(asBinary(catalogueXml(twoRules)));
  ASSERT_TRUE(reading.rules);
  EXPECT_EQ(*reading.rules, twoRules);
}

TEST(UpdateCatalogue, TheLastRuleOfAProductWins) {
  auto rules = twoRules;
  rules.push_back({"Corvane_SW", "9.9.9.9", "new.dmg", "", ""});
  const CatalogueReading reading = read(catalogueXml(rules));
  const UpdateRule* const found = findRule(*reading.rules, "Corvane_SW");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->Version, "9.9.9.9");
  EXPECT_EQ(findRule(*reading.rules, "Corvane_FW_16G"), nullptr);
}

TEST(UpdateCatalogue, FieldsThatAreNoTextsAreEmptyAndOtherMembersArePassedOver) {
  const CatalogueReading reading = read(propertyListXml(
      "<dict><key>Rules</key><array><string>none</string><integer>5</integer><array/>"
      "<dict><key>ProductID</key><string>Corvane_SW</string><key>Version</key><real>1.5</real>"
      "<key>FileName</key><array/><key>Size</key><integer>12</integer></dict></array></dict>"));
  ASSERT_TRUE(reading.rules);
  EXPECT_THAT(*reading.rules, ElementsAre(UpdateRule{"Corvane_SW", "", "", "", ""}));
}

TEST(UpdateCatalogue, SaysWhatIsWrong) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "no property list"},
      {"<html><body>404</body></html>", "no property list"},
      {"not a list at all", "no property list"},
      {std::string(4096, '\0'), "no property list"},
      {propertyListXml("<array/>"), "no property list"},
      {propertyListXml("<dict/>"), "no \"Rules\""},
      {propertyListXml("<dict><key>Rules</key><string>text</string></dict>"), "no \"Rules\""},
      {propertyListXml("<dict><key>Rules</key><dict/></dict>"), "no \"Rules\""},
      {propertyListXml("<dict><key>rules</key><array/></dict>"), "no \"Rules\""},
      {std::string(catalogueSizeLimit + 1, ' '), "too large"},
      {"bplist00", "no property list"},
      {"bplist00" + std::string(32, '\xFF'), "no property list"},
  };
  for (const auto& [text, problem] : cases) {
    const CatalogueReading reading = read(text);
    EXPECT_FALSE(reading.rules) << text.substr(0, 60);
    EXPECT_THAT(reading.problem, HasSubstr(problem)) << text.substr(0, 60);
  }
}

TEST(UpdateCatalogue, NoRulesAreRulesToo) {
  const CatalogueReading reading = read(propertyListXml("<dict><key>Rules</key><array/></dict>"));
  ASSERT_TRUE(reading.rules);
  EXPECT_THAT(*reading.rules, IsEmpty());
}

TEST(UpdateCatalogue, DeepNestingIsRefused) {
  EXPECT_FALSE(read(nested("dict", 100'000)).rules);
  EXPECT_FALSE(read(asBinary(nested("array", 60))).rules);
  for (const char* const element : {"dict", "array"}) {
    EXPECT_FALSE(isWithinPropertyListBounds(bytesOf(nested(element, 2'001)))) << element;
    EXPECT_TRUE(isWithinPropertyListBounds(bytesOf(nested(element, 20)))) << element;
  }
}

TEST(UpdateCatalogue, WhatIsNestedAsDeepAsTheBoundsAllowIsRead) {
  EXPECT_TRUE(isWithinPropertyListBounds(bytesOf(nested("dict", 2'000))));
  EXPECT_FALSE(read(nested("dict", 2'000)).rules);
}

TEST(UpdateCatalogue, CommentsHideNoNesting) {
  EXPECT_FALSE(isWithinPropertyListBounds(bytesOf(nestedBehindComments(30'000))));
  EXPECT_FALSE(read(nestedBehindComments(30'000)).rules);
}

TEST(UpdateCatalogue, AThousandRulesAreRead) {
  const std::string catalogue = catalogueXml(std::vector<UpdateRule>(1'000, twoRules[0]));
  for (const std::string& text : {catalogue, asBinary(catalogue)}) {
    const CatalogueReading reading = read(text);
    ASSERT_TRUE(reading.rules) << reading.problem;
    EXPECT_EQ(reading.rules->size(), 1'000u);
  }
}

TEST(UpdateCatalogue, AValueThatIsNamedOftenCountsAsOften) {
  for (const uint8_t kind : std::initializer_list<uint8_t>{0x40, 0x50, 0x60}) {
    EXPECT_TRUE(isWithinPropertyListBounds(bytesOf(valueNamedOften(8, kind, 900'000))))
        << int{kind};
    EXPECT_FALSE(isWithinPropertyListBounds(bytesOf(valueNamedOften(10, kind, 900'000))))
        << int{kind};
    EXPECT_FALSE(read(valueNamedOften(19'000, kind, 900'000)).rules) << int{kind};
  }
}

TEST(UpdateCatalogue, ValuesAreCountedWhereverTheyAreNamed) {
  EXPECT_TRUE(isWithinPropertyListBounds(bytesOf(arraysInOnePlace(10, 1'000))));
  EXPECT_FALSE(isWithinPropertyListBounds(bytesOf(arraysInOnePlace(30, 1'000))));
  EXPECT_FALSE(read(arraysInOnePlace(19'000, 19'000)).rules);
}

TEST(UpdateCatalogue, ACollectionThatIsNamedTwiceIsRefused) {
  const std::string list = doublingArrays();
  EXPECT_FALSE(isWithinPropertyListBounds(bytesOf(list)));
  EXPECT_FALSE(read(list).rules);
}

TEST(UpdateCatalogue, EveryTruncationIsAnswered) {
  for (const std::string& whole : {catalogueXml(twoRules), asBinary(catalogueXml(twoRules))}) {
    for (size_t size = 0; size < whole.size(); ++size) {
      const CatalogueReading reading = read(whole.substr(0, size));
      EXPECT_EQ(reading.rules.has_value(), reading.problem.empty());
    }
  }
}

TEST(UpdateCatalogue, EveryDamagedByteOfABinaryListIsAnswered) {
  const std::string whole = asBinary(catalogueXml(twoRules));
  for (size_t index = 0; index < whole.size(); ++index) {
    for (const int damage : {0x01, 0x80, 0xFF}) {
      std::string damaged = whole;
      damaged[index] = static_cast<char>(damaged[index] ^ damage);
      const CatalogueReading reading = read(damaged);
      EXPECT_EQ(reading.rules.has_value(), reading.problem.empty());
    }
  }
}

}  // namespace
