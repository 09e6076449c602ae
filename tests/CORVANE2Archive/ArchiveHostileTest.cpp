#include <gtest/gtest.h>

#include "ArchiveFixtures.h"
#include "CORVANE2Archive/CORVANE2Archive.h"

namespace corvane::archivetest {
namespace {

/// Packages made to do harm. What matters besides the status is that nothing is
/// read or written out of bounds, which the sanitizer builds watch.
class ArchiveHostileTest : public testing::Test {
 protected:
  /// Everything that can be asked of a package. Returns the status of reading it.
  ArchiveStatus askEverything(const std::string& bytes) {
    writeFile(path, bytes);
    char* text = nullptr;
    const auto status = VelmarArchive_read(path.c_str(), &text);
    if (text != nullptr) parseEverything(text);
    VelmarArchive_free_xml(&text);
    return status;
  }

  ArchiveStatus extract(const std::string& index, const char* id) {
    writeFile(path, closedPackage(index));
    return CORVANE2Archive_Decompress(path.c_str(), id, out.c_str());
  }

  static void parseEverything(const char* text) {
    ArchiveInfo info;
    VelmarArchive_parse_archive(text, info);
    VelmarArchive_free_archive(info);
    for (const char* id : {"emulex.grp", "emulex", ""}) {
      ArchiveFile file;
      VelmarArchive_parse_file(text, id, file);
      VelmarArchive_free_file(file);
    }
  }

  TemporaryFolder folder;
  std::string path = folder.file("a.pkg");
  std::string out = folder.file("out");
};

TEST_F(ArchiveHostileTest, TruncationAtEveryByteIsNoticed) {
  const auto package = golden("two-files.pkg");
  for (std::size_t length = 0; length < package.size(); ++length) {
    EXPECT_EQ(askEverything(package.substr(0, length)), length < 64 ? 261u : 19u) << length;
  }
}

TEST_F(ArchiveHostileTest, TruncationOfAnOddBodyByItsUnguardedByteIsNotNoticed) {
  const auto package = golden("odd-body.pkg");
  EXPECT_EQ(askEverything(package.substr(0, package.size() - 1)), 0u);
  EXPECT_EQ(askEverything(package.substr(0, package.size() - 2)), 19u);
}

TEST_F(ArchiveHostileTest, EveryFlippedBitGivesTheStatusOfItsPlace) {
  const auto package = golden("odd-body.pkg");
  for (std::size_t bit = 0; bit < package.size() * 8; ++bit) {
    const std::size_t at = bit / 8;
    auto flipped = package;
    flipped[at] = static_cast<char>(flipped[at] ^ (1 << (bit % 8)));
    const bool inMagic = at < 8;
    const bool unguarded = (at >= 8 && at < 60) || at == package.size() - 1;
    EXPECT_EQ(askEverything(flipped), inMagic ? 18u : unguarded ? 0u : 19u) << at;
  }
}

TEST_F(ArchiveHostileTest, EveryFlippedBitOfTheIndexIsAnsweredEvenIfTheSumFits) {
  const auto index = complemented(golden("two-files.pkg").substr(64));
  for (std::size_t bit = 0; bit < index.size() * 8; ++bit) {
    auto flipped = index;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
    EXPECT_EQ(askEverything(closedPackage(flipped)), 0u) << bit;
  }
}

TEST_F(ArchiveHostileTest, EveryTruncatedIndexIsAnsweredEvenIfTheSumFits) {
  const auto index = complemented(golden("two-files.pkg").substr(64));
  for (std::size_t length = 0; length < index.size(); ++length) {
    EXPECT_EQ(askEverything(closedPackage(index.substr(0, length))), 0u) << length;
  }
}

TEST_F(ArchiveHostileTest, ZeroByteEndsTheText) {
  const auto block = fileBlock("a", "1", "QQ==\n");
  EXPECT_EQ(extract(indexOf("1", block + std::string(1, '\0')), "a"), 0u);
  EXPECT_EQ(extract(indexOf("1", std::string(1, '\0') + block), "a"), 17u);
  auto package = closedPackage(indexOf("1", block));
  package[20] = '\0';
  writeFile(path, package);
  EXPECT_EQ(CORVANE2Archive_Decompress(path.c_str(), "a", out.c_str()), 17u);
}

TEST_F(ArchiveHostileTest, CloseBeforeOpenIsAMissingElement) {
  auto block = fileBlock("a", "1", "QQ==\n");
  block.replace(block.find("<file_chunk>"), 12, "</file_chunk>");
  block.replace(block.rfind("</file_chunk>"), 13, "<file_chunk>");
  EXPECT_EQ(extract(indexOf("1", block), "a"), 17u);
  EXPECT_FALSE(std::filesystem::exists(out));
}

TEST_F(ArchiveHostileTest, BlockWithoutItsTagsIsNoBlock) {
  auto block = fileBlock("a", "1", "QQ==\n");
  EXPECT_EQ(extract(block.substr(0, block.size() - 4), "a"), 17u);
  EXPECT_EQ(extract(block.substr(4), "a"), 17u);
}

TEST_F(ArchiveHostileTest, NestedBlockIsFoundByItsOwnId) {
  const auto inner = fileBlock("inner", "1", "Qg==\n");
  const auto outer = "<archive_file><file_id>outer</file_id>" + inner + "</archive_file>";
  ASSERT_EQ(extract(indexOf("1", outer), "inner"), 0u);
  EXPECT_EQ(readFile(out), "B");
}

TEST_F(ArchiveHostileTest, RepeatedIdGivesTheFirst) {
  ASSERT_EQ(
      extract(indexOf("2", fileBlock("a", "1", "QQ==\n") + fileBlock("a", "1", "Qg==\n")), "a"),
      0u);
  EXPECT_EQ(readFile(out), "A");
}

TEST_F(ArchiveHostileTest, HugeTextOfTagsIsAnsweredQuickly) {
  std::string opens;
  for (int count = 0; count < 200'000; ++count) opens += "<file_id>a";
  EXPECT_EQ(extract(opens, "ab"), 17u);
  EXPECT_EQ(extract(std::string(2'000'000, '<'), "<"), 17u);
}

}  // namespace
}  // namespace corvane::archivetest
