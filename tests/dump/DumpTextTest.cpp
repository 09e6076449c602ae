#include "platform/dump/DumpText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace corvane;

namespace {

std::vector<DumpTextEntry> scannedEntries(std::string_view text, DumpProblems* problems = nullptr) {
  DumpTextScanner scanner(text);
  std::vector<DumpTextEntry> entries;
  while (const auto entry = scanner.next()) entries.push_back(*entry);
  if (problems) *problems = scanner.problems();
  return entries;
}

PropertyValue::Dictionary propertiesOf(std::string_view text, size_t index = 0,
                                       DumpProblems* problems = nullptr) {
  const auto entries = scannedEntries(text);
  DumpProblems found;
  auto properties = readDumpProperties(
      text.substr(entries[index].begin, entries[index].end - entries[index].begin), found);
  if (problems) *problems = found;
  return properties;
}

TEST(DumpHeaderLine, TellsNameLocationAndClass) {
  const DumpHeader header = readDumpHeader(
      "  | +-o RP05@1C,4  <class IOPCIDevice, id 0x100000533, registered, matched, active, busy 0 "
      "(149 ms), retain 19>\n");
  EXPECT_EQ(header.name, "RP05");
  EXPECT_EQ(header.location, "1C,4");
  EXPECT_EQ(header.className, "IOPCIDevice");
  EXPECT_TRUE(header.announced);
}

TEST(DumpHeaderLine, KeepsFreeNames) {
  struct {
    const char* line;
    const char* name;
    const char* location;
  } const samples[] = {
      {"+-o AGPM, Built-in (x) 1.0  <class A, id 0x1, retain 2>", "AGPM, Built-in (x) 1.0", ""},
      {"+-o user@host  <class A, id 0x1, retain 2>", "user@host", ""},
      {"+-o user@host@1F  <class A, id 0x1, retain 2>", "user@host", "1F"},
      {"+-o apciec0@B0000000  <class A, id 0x1, retain 2>", "apciec0", "B0000000"},
      {"+-o a  <class b  <class C, id 0x1, retain 2>", "a  <class b", ""},
      {"+-o \xC3\x9Cn\xC3\xAF  <class C>", "\xC3\x9Cn\xC3\xAF", ""},
      {"+-o DSB1@  <class C>", "DSB1@", ""},
      {"+-o   <class C>", "", ""},
  };
  for (const auto& sample : samples) {
    const DumpHeader header = readDumpHeader(sample.line);
    EXPECT_EQ(header.name, sample.name) << sample.line;
    EXPECT_EQ(header.location, sample.location) << sample.line;
  }
}

TEST(DumpHeaderLine, SaysWhetherTheEntryIsAnnounced) {
  EXPECT_FALSE(
      readDumpHeader("+-o a  <class A, id 0x1, !registered, !matched, active, busy 0, retain 4>")
          .announced);
  EXPECT_FALSE(
      readDumpHeader("+-o a  <class A, id 0x1, registered, matched, inactive, busy 0, retain 4>")
          .announced);
  EXPECT_TRUE(readDumpHeader("+-o a  <class A, id 0x1, retain 4>").announced);
  EXPECT_TRUE(
      readDumpHeader("+-o a, inactive, b  <class A, id 0x1, registered, active>").announced);
}

TEST(DumpHeaderLine, MayBeCut) {
  const DumpHeader inClass = readDumpHeader("  | | +-o pci-bridge@0  <class IOPCID$");
  EXPECT_EQ(inClass.name, "pci-bridge");
  EXPECT_EQ(inClass.location, "0");
  EXPECT_EQ(inClass.className, "IOPCID");
  const DumpHeader inName = readDumpHeader("  | | +-o pci-bri$");
  EXPECT_EQ(inName.name, "pci-bri");
  EXPECT_EQ(inName.className, "");
}

TEST(DumpTextScan, ReadsDepthsFromTheColumns) {
  const auto entries = scannedEntries(
      "+-o Root  <class R, id 0x1, retain 3>\n"
      "  +-o a  <class A, id 0x2, retain 3>\n"
      "  | +-o b  <class B, id 0x3, retain 3>\n"
      "  +-o c  <class C, id 0x4, retain 3>\n");
  ASSERT_EQ(entries.size(), 4u);
  EXPECT_EQ(entries[0].depth, 0u);
  EXPECT_EQ(entries[1].depth, 1u);
  EXPECT_EQ(entries[2].depth, 2u);
  EXPECT_EQ(entries[3].depth, 1u);
}

constexpr const char* leafWithBraces =
    "+-o Root  <class R, id 0x1, retain 3>\n"
    "    {\n"
    "      \"before\" = 1\n"
    "      \"note\" = \"first\n"
    "}\n"
    "    }\n"
    "+-o fake  <class F, id 0x9, retain 1>\n"
    "last\"\n"
    "      \"after\" = 2\n"
    "    }\n"
    "    \n";

TEST(DumpTextScan, IsNotDeceivedByLinesOfATextValue) {
  DumpProblems problems;
  ASSERT_EQ(scannedEntries(leafWithBraces, &problems).size(), 1u);
  EXPECT_EQ(problems, DumpProblems{});
  const auto properties = propertiesOf(leafWithBraces, 0, &problems);
  EXPECT_EQ(problems, DumpProblems{});
  EXPECT_EQ(propertyText(properties, "note"),
            "first\n}\n    }\n+-o fake  <class F, id 0x9, retain 1>\nlast");
  EXPECT_EQ(propertyText(properties, "before"), "1");
  EXPECT_EQ(propertyText(properties, "after"), "2");
}

TEST(DumpTextScan, AcceptsCarriageReturns) {
  std::string text;
  for (const char* line = leafWithBraces; *line; ++line) {
    if (*line == '\n') text += '\r';
    text += *line;
  }
  DumpProblems problems;
  ASSERT_EQ(scannedEntries(text, &problems).size(), 1u);
  EXPECT_EQ(problems, DumpProblems{});
  EXPECT_EQ(propertyText(propertiesOf(text), "after"), "2");
}

TEST(DumpTextScan, EndsAnUnclosedBlockAtTheNextEntry) {
  const std::string text =
      "+-o Root  <class R, id 0x1, retain 3>\n"
      "  | {\n"
      "  |   \"a\" = 1\n"
      "  +-o child  <class C, id 0x2, retain 3>\n"
      "      {\n"
      "        \"b\" = 2\n";
  ASSERT_EQ(scannedEntries(text).size(), 2u);
  EXPECT_EQ(propertyText(propertiesOf(text, 0), "a"), "1");
  EXPECT_EQ(propertyText(propertiesOf(text, 1), "b"), "2");
}

TEST(DumpTextScan, CountsLinesThatBelongToNothing) {
  DumpProblems problems;
  const auto entries = scannedEntries(
      "Last login: Tue Nov 3\n"
      "+-o Root  <class R, id 0x1, retain 3>\n"
      "\n"
      "  | | \n"
      "  | | | | | | | | | $\n"
      "stray\n",
      &problems);
  EXPECT_EQ(entries.size(), 1u);
  EXPECT_EQ(problems, (DumpProblems{.cutLines = 1, .unreadableLines = 2}));
}

TEST(DumpTextProperties, KeepTheirKeysAsPrinted) {
  const auto properties = propertiesOf(
      "+-o a  <class A, id 0x1, retain 3>\n"
      "    {\n"
      "      \"Curious \"key\"\" = 1\n"
      "      \"\" = 2\n"
      "      \"twice\" = 3\n"
      "      \"twice\" = 4\n"
      "      \"a = b\" = 5\n"
      "    }\n");
  EXPECT_EQ(propertyText(properties, "Curious \"key\""), "1");
  EXPECT_EQ(propertyText(properties, ""), "2");
  EXPECT_EQ(propertyText(properties, "twice"), "4");
  EXPECT_EQ(propertyText(properties, "a = b"), "5");
  EXPECT_EQ(properties.size(), 4u);
}

TEST(DumpTextProperties, CountWhatIsCut) {
  DumpProblems problems;
  const auto properties = propertiesOf(
      "+-o a  <class A, id 0x1, retain 3>\n"
      "    {\n"
      "      \"whole\" = 1\n"
      "      \"cut value\" = \"abc$\n"
      "      \"a key that is cu$\n"
      "      \"also whole\" = 2\n"
      "    }\n",
      0, &problems);
  EXPECT_EQ(properties.size(), 2u);
  EXPECT_EQ(problems, DumpProblems{.cutLines = 2});
}

TEST(DumpTextProperties, SpoilOnlyTheValueTheyStandIn) {
  DumpProblems problems;
  const auto properties = propertiesOf(
      "+-o a  <class A, id 0x1, retain 3>\n"
      "    {\n"
      "stray\n"
      "      \"a\" = 1\n"
      "stray\n"
      "      \"b\" = 2\n"
      "    }\n",
      0, &problems);
  EXPECT_EQ(properties.size(), 1u);
  EXPECT_EQ(propertyText(properties, "b"), "2");
  EXPECT_EQ(problems, (DumpProblems{.unreadableLines = 1, .unreadableValues = 1}));
}

TEST(DumpTextProperties, MayBeVeryLong) {
  const std::string digits(900000, 'a');
  const std::string text =
      "+-o a  <class A, id 0x1, retain 3>\n    {\n      \"long\" = <" + digits + ">\n    }\n    \n";
  const auto properties = propertiesOf(text);
  ASSERT_NE(findProperty(properties, "long"), nullptr);
  EXPECT_EQ(findProperty(properties, "long")->data()->size(), digits.size() / 2);
}

TEST(DumpProblemsSummary, NamesWhatOccurred) {
  EXPECT_EQ(DumpProblems{}.summary(), "");
  EXPECT_EQ(DumpProblems{.cutLines = 1}.summary(), "1 line is cut (\"ioreg -l -w0\" cuts none)");
  EXPECT_EQ((DumpProblems{2, 1, 3, 1}).summary(),
            "2 lines are cut (\"ioreg -l -w0\" cuts none), 1 line cannot be read, 3 values cannot "
            "be read, 1 value is redacted");
  EXPECT_EQ((DumpProblems{2, 1, 3, 1}).total(), 7u);
}

}  // namespace
