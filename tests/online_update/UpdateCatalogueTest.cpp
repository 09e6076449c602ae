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
  EXPECT_FALSE(isWithinPropertyListBounds(bytesOf(nested("dict", 33))));
  EXPECT_TRUE(isWithinPropertyListBounds(bytesOf(nested("dict", 20))));
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
