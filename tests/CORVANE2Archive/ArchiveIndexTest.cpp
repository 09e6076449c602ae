#include "CORVANE2Archive/ArchiveIndex.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "ArchiveFixtures.h"

namespace corvane::archivetest {
namespace {

/// The element as a text, or the status as "status N".
std::string parsedElement(const std::string& text, const char* name) {
  char* out = nullptr;
  const auto status = _xmlParse_element(text.c_str(), name, &out);
  if (status != ArchiveSuccess) {
    EXPECT_EQ(out, nullptr);
    return "status " + std::to_string(status);
  }
  std::string element = out;
  std::free(out);
  return element;
}

std::string listedBlock(const std::string& text, const char* id) {
  std::vector<char> out(text.size() + 1, '\0');
  const auto status =
      _xmlBase_list_one("archive_file", "file_id", id, text.c_str(), text.size(), out.data());
  if (status != ArchiveSuccess) {
    EXPECT_EQ(out, std::vector<char>(text.size() + 1, '\0'));
    return "status " + std::to_string(status);
  }
  return out.data();
}

TEST(ArchiveElement, IsTheTextBetweenTheTags) {
  EXPECT_EQ(parsedElement("..<a>one</a>..", "a"), "one");
  EXPECT_EQ(parsedElement("<a>\n\tone two </a>", "a"), "\n\tone two ");
}

TEST(ArchiveElement, EmptyElementIsAnEmptyTextNotAnError) {
  EXPECT_EQ(parsedElement("<a></a>", "a"), "");
}

TEST(ArchiveElement, FirstOccurrenceWins) {
  EXPECT_EQ(parsedElement("<a>one</a><a>two</a>", "a"), "one");
}

TEST(ArchiveElement, TagsOfLongerNamesDoNotMatch) {
  EXPECT_EQ(
      parsedElement("<archive_file_count>3</archive_file_count><archive_file>x</archive_file>",
                    "archive_file"),
      "x");
}

TEST(ArchiveElement, MissingTagsAreReported) {
  EXPECT_EQ(parsedElement("<a>one", "a"), "status 17");
  EXPECT_EQ(parsedElement("one</a>", "a"), "status 17");
  EXPECT_EQ(parsedElement("", "a"), "status 17");
  EXPECT_EQ(parsedElement("<", "a"), "status 17");
  EXPECT_EQ(parsedElement("<a", "a"), "status 17");
}

TEST(ArchiveElement, CloseBeforeOpenIsReportedEvenIfAnotherCloseFollows) {
  EXPECT_EQ(parsedElement("</a><a>", "a"), "status 17");
  EXPECT_EQ(parsedElement("</a><a>one</a>", "a"), "status 17");
}

TEST(ArchiveElement, NestedTagsAreTextLikeAnyOther) {
  EXPECT_EQ(parsedElement("<a>1<a>2</a>3</a>", "a"), "1<a>2");
  EXPECT_EQ(parsedElement("<a><b>1</a></b>", "a"), "<b>1");
}

TEST(ArchiveElement, SearchEndsAtAZeroByte) {
  EXPECT_EQ(parsedElement(std::string("<a>one\0</a>", 11), "a"), "status 17");
}

TEST(ArchiveBlock, IsTheWholeElementTagsIncluded) {
  const std::string block = "<archive_file>x<file_id>abc</file_id>y</archive_file>";
  EXPECT_EQ(listedBlock("head\n" + block + "\ntail", "abc"), block);
}

TEST(ArchiveBlock, IdMustBeExactlyEqual) {
  const std::string text = fileBlock("abcd", "1", "QQ==\n") + fileBlock("abc", "1", "QQ==\n");
  EXPECT_EQ(parsedElement(listedBlock(text, "abc"), "file_id"), "abc");
  EXPECT_EQ(parsedElement(listedBlock(text, "abcd"), "file_id"), "abcd");
  EXPECT_EQ(listedBlock(text, "ab"), "status 17");
  EXPECT_EQ(listedBlock(text, "bc"), "status 17");
  EXPECT_EQ(listedBlock(text, "ABC"), "status 17");
  EXPECT_EQ(listedBlock(text, ""), "status 17");
}

TEST(ArchiveBlock, FirstOfTwoWithTheSameIdIsTaken) {
  const std::string text = fileBlock("a", "1", "QQ==\n") + fileBlock("a", "2", "QUE=\n");
  EXPECT_EQ(parsedElement(listedBlock(text, "a"), "file_size"), "1");
}

TEST(ArchiveBlock, ArchiveLevelElementsNeverMatch) {
  EXPECT_EQ(listedBlock(indexOf("1", fileBlock("a", "1", "QQ==\n")), "ID"), "status 17");
}

TEST(ArchiveBlock, BeginsAtTheLastOpenTagBeforeTheId) {
  EXPECT_EQ(
      listedBlock("<archive_file>1<archive_file>2<file_id>a<3</archive_file>4</archive_file>", "a"),
      "<archive_file>2<file_id>a<3</archive_file>");
}

TEST(ArchiveBlock, MissingEnclosingTagsAreReported) {
  EXPECT_EQ(listedBlock("<file_id>a</file_id></archive_file>", "a"), "status 17");
  EXPECT_EQ(listedBlock("<file_id>a</file_id><archive_file></archive_file>", "a"), "status 17");
  EXPECT_EQ(listedBlock("<archive_file><file_id>a</file_id>", "a"), "status 17");
  EXPECT_EQ(listedBlock("</archive_file><archive_file><file_id>a</file_id>", "a"), "status 17");
}

TEST(ArchiveBlock, IdMayHoldASmallerThanSignWithoutHarm) {
  EXPECT_EQ(parsedElement(listedBlock(fileBlock("a<b", "7", "\n"), "a<b"), "file_size"), "7");
  EXPECT_EQ(parsedElement(listedBlock(fileBlock("a<b", "7", "\n"), "a"), "file_size"), "7");
}

TEST(ArchiveBlocks, AreTakenInOrderUntilNoneIsLeft) {
  const std::string text = indexOf("2", fileBlock("a", "1", "QQ==\n") + fileBlock("b", "", "\n"));
  std::string_view remaining = text;
  ArchiveMember member;
  auto block = takeFileBlock(remaining);
  ASSERT_TRUE(block);
  ASSERT_EQ(readMember(*block, member), ArchiveSuccess);
  EXPECT_EQ(member.id, "a");
  EXPECT_EQ(member.version, "v-a");
  EXPECT_EQ(member.description, "d");
  EXPECT_EQ(member.name, "n");
  EXPECT_EQ(member.size, 1);
  EXPECT_EQ(member.chunk, "QQ==\n");
  block = takeFileBlock(remaining);
  ASSERT_TRUE(block);
  ASSERT_EQ(readMember(*block, member), ArchiveSuccess);
  EXPECT_EQ(member.id, "b");
  EXPECT_FALSE(takeFileBlock(remaining));
}

TEST(ArchiveBlocks, OneThatNeverEndsIsTakenAndRefused) {
  std::string_view remaining = "<archive_file><file_id>a</file_id>";
  const auto block = takeFileBlock(remaining);
  ASSERT_TRUE(block);
  EXPECT_TRUE(remaining.empty());
  ArchiveMember member;
  EXPECT_EQ(readMember(*block, member), ArchiveFileIdNotFound);
}

TEST(ArchiveBlocks, EveryElementOfABlockIsNeeded) {
  const std::string whole = fileBlock("a", "1", "QQ==\n");
  for (const char* name : {"file_id", "file_version", "file_description", "file_name", "file_size",
                           "file_chunk", "archive_file"}) {
    std::string text = whole;
    text.erase(text.find("</" + std::string(name) + ">"), 1);
    std::string_view remaining = text;
    const auto block = takeFileBlock(remaining);
    ASSERT_TRUE(block) << name;
    ArchiveMember member;
    EXPECT_EQ(readMember(*block, member), ArchiveFileIdNotFound) << name;
    EXPECT_EQ(findMember(text, "a", member), ArchiveFileIdNotFound) << name;
  }
}

TEST(ArchiveBlocks, CountLeavesOutTheFileCountElement) {
  EXPECT_EQ(countFileBlocks(indexOf("0", "")), 0u);
  EXPECT_EQ(countFileBlocks(indexOf("9", "<archive_file><archive_file>")), 2u);
}

TEST(LeadingNumber, IsReadAsFarAsItGoes) {
  EXPECT_EQ(leadingNumber("42"), 42);
  EXPECT_EQ(leadingNumber(" \n\t-7x"), -7);
  EXPECT_EQ(leadingNumber("+5"), 5);
  EXPECT_EQ(leadingNumber("12 34"), 12);
}

TEST(LeadingNumber, WithoutDigitsIsZero) {
  for (const char* text : {"", " ", "x1", "-", "+", "+-5", "--5", "- 5"}) {
    EXPECT_EQ(leadingNumber(text), 0) << text;
  }
}

TEST(LeadingNumber, OutOfRangeIsTheNearestValue) {
  EXPECT_EQ(leadingNumber("2147483647"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(leadingNumber("4294967296"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(leadingNumber("-2147483649"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(leadingNumber(std::string(5000, '9')), std::numeric_limits<std::int32_t>::max());
}

}  // namespace
}  // namespace corvane::archivetest
