#include <gtest/gtest.h>

#include "ArchiveFixtures.h"
#include "CORVANE2Archive/CORVANE2Archive.h"

namespace corvane::archivetest {
namespace {

class ArchiveWriterTest : public testing::Test {
 protected:
  ArchiveStatus begin(const std::string& id, const std::string& version, std::int32_t count) {
    InfoToWrite info{id, version, count};
    return VelmarArchive_create_begin(path.c_str(), info.record());
  }

  ArchiveStatus add(FileToAdd file) { return VelmarArchive_add(path.c_str(), file.record()); }

  ArchiveStatus end() { return VelmarArchive_create_end(path.c_str()); }

  /// The index text that is on the disk.
  std::string writtenIndex() const { return complemented(readFile(path).substr(64)); }

  TemporaryFolder folder;
  std::string path = folder.file("a.pkg");
};

TEST_F(ArchiveWriterTest, EachCallLeavesTheBytesOfTheFormat) {
  ASSERT_EQ(begin("CORVANE2", "1.0", 2), 0u);
  EXPECT_EQ(readFile(path), golden("after-begin.pkg"));
  ASSERT_EQ(add(goldenImageFile()), 0u);
  EXPECT_EQ(readFile(path), golden("after-add.pkg"));
  ASSERT_EQ(add(goldenNotesFile()), 0u);
  ASSERT_EQ(end(), 0u);
  EXPECT_EQ(readFile(path), golden("two-files.pkg"));
}

TEST_F(ArchiveWriterTest, OddBodyIsStampedWithoutItsLastByte) {
  ASSERT_EQ(begin("CORVANE2", "1.0.", 2), 0u);
  ASSERT_EQ(add(goldenImageFile()), 0u);
  ASSERT_EQ(add(goldenNotesFile()), 0u);
  ASSERT_EQ(end(), 0u);
  const auto written = readFile(path);
  EXPECT_EQ(written.size() % 2, 1u);
  EXPECT_EQ(written, golden("odd-body.pkg"));
}

TEST_F(ArchiveWriterTest, PackageWithoutFilesIsHeadAndTail) {
  ASSERT_EQ(begin("EMPTY", "0", 0), 0u);
  ASSERT_EQ(end(), 0u);
  EXPECT_EQ(readFile(path), golden("no-files.pkg"));
}

TEST_F(ArchiveWriterTest, ChunksEndAsTheLibraryEndsThem) {
  const auto image = goldenImage();
  ASSERT_EQ(begin("LENGTHS", "1", 10), 0u);
  for (const std::size_t length : {0u, 1u, 2u, 3u, 53u, 54u, 55u, 107u, 108u, 109u}) {
    const auto number = std::to_string(length);
    ASSERT_EQ(add({"length" + number, number, "", number + ".bin", image.substr(0, length)}), 0u);
  }
  ASSERT_EQ(end(), 0u);
  EXPECT_EQ(readFile(path), golden("lengths.pkg"));
}

TEST_F(ArchiveWriterTest, CreateBeginEmptiesWhatWasThere) {
  writeFile(path, std::string(5000, 'x'));
  ASSERT_EQ(begin("CORVANE2", "1.0", 2), 0u);
  EXPECT_EQ(readFile(path), golden("after-begin.pkg"));
}

TEST_F(ArchiveWriterTest, CountAndSizeArePrintedAsSignedDecimals) {
  ASSERT_EQ(begin("a", "b", -12), 0u);
  EXPECT_NE(writtenIndex().find("<archive_file_count>-12</archive_file_count>"), std::string::npos);
  ASSERT_EQ(begin("a", "b", 2147483647), 0u);
  EXPECT_NE(writtenIndex().find("<archive_file_count>2147483647</"), std::string::npos);
}

TEST_F(ArchiveWriterTest, FewerOrMoreFilesThanAnnouncedAreRefused) {
  ASSERT_EQ(begin("CORVANE2", "1.0", 2), 0u);
  ASSERT_EQ(add(goldenImageFile()), 0u);
  EXPECT_EQ(end(), 20u);
  EXPECT_EQ(readFile(path), golden("after-refused-end.pkg"));

  ASSERT_EQ(begin("CORVANE2", "1.0", 1), 0u);
  ASSERT_EQ(add(goldenImageFile()), 0u);
  ASSERT_EQ(add(goldenNotesFile()), 0u);
  EXPECT_EQ(end(), 20u);

  ASSERT_EQ(begin("CORVANE2", "1.0", -1), 0u);
  EXPECT_EQ(end(), 20u);
}

TEST_F(ArchiveWriterTest, RefusedPackageStaysOpen) {
  writeFile(path, golden("after-refused-end.pkg"));
  EXPECT_EQ(add(goldenNotesFile()), 0u);
  EXPECT_EQ(end(), 0u);
}

TEST_F(ArchiveWriterTest, ClosedPackageIsNotOpenAndNotTouched) {
  writeFile(path, golden("two-files.pkg"));
  EXPECT_EQ(add(goldenNotesFile()), 18u);
  EXPECT_EQ(end(), 18u);
  EXPECT_EQ(readFile(path), golden("two-files.pkg"));
}

TEST_F(ArchiveWriterTest, WhatIsNotAPackageIsNotTouched) {
  auto wrongMagic = openPackage("text");
  wrongMagic.front() = '-';
  const std::vector<std::string> files{std::string(200, '0'), std::string(),
                                       headerBytes("0000").substr(0, 63), wrongMagic,
                                       headerBytes("0001")};
  for (const auto& bytes : files) {
    writeFile(path, bytes);
    EXPECT_EQ(add(goldenNotesFile()), 18u) << bytes.size();
    EXPECT_EQ(end(), 18u) << bytes.size();
    EXPECT_EQ(readFile(path), bytes);
  }
}

TEST_F(ArchiveWriterTest, PathsThatCannotBeOpened) {
  EXPECT_EQ(add(goldenNotesFile()), 257u);
  EXPECT_EQ(end(), 257u);
  EXPECT_FALSE(std::filesystem::exists(path));
  path = folder.file("no/such/folder.pkg");
  EXPECT_EQ(begin("a", "b", 0), 257u);
  path = folder.file("");
  EXPECT_EQ(begin("a", "b", 0), 257u);
  EXPECT_EQ(add(goldenNotesFile()), 257u);
  EXPECT_EQ(end(), 257u);
}

TEST_F(ArchiveWriterTest, IndexWithoutACountCannotBeClosed) {
  writeFile(path, openPackage("<archive_file></archive_file>"));
  EXPECT_EQ(end(), 20u);
  writeFile(path, openPackage("</archive_file_count><archive_file_count>0"));
  EXPECT_EQ(end(), 20u);
}

TEST_F(ArchiveWriterTest, OpenPackageWithAnEmptyBodyIsRefusedForItsCount) {
  writeFile(path, headerBytes("0000"));
  EXPECT_EQ(end(), 20u);
}

TEST_F(ArchiveWriterTest, ByteFFEndsThePieceOfTextItStandsIn) {
  ASSERT_EQ(begin("a\xFF"
                  "b",
                  "1", 1),
            0u);
  EXPECT_EQ(writtenIndex(), "\n<velmar_archive>\n\t<archive_id>a");
  ASSERT_EQ(begin("a", "1", 1), 0u);
  ASSERT_EQ(add({"x\xFFy", "2", "3", "4", ""}), 0u);
  EXPECT_NE(writtenIndex().find("<file_id>x\n\t\t<file_version>2</file_version>"),
            std::string::npos);
}

TEST_F(ArchiveWriterTest, UnsetTextsAreEmpty) {
  ASSERT_EQ(VelmarArchive_create_begin(path.c_str(), {}), 0u);
  EXPECT_NE(writtenIndex().find("<archive_id></archive_id>"), std::string::npos);
  ASSERT_EQ(VelmarArchive_add(path.c_str(), {}), 0u);
  EXPECT_NE(writtenIndex().find("<file_size>0</file_size>\n\t\t<file_chunk>\n</file_chunk>"),
            std::string::npos);
}

TEST_F(ArchiveWriterTest, TextsMayBeLongerThanAnyTag) {
  const std::string longText(70'000, 'd');
  ASSERT_EQ(begin(longText, longText, 1), 0u);
  ASSERT_EQ(add({longText, longText, "", longText, "x"}), 0u);
  ASSERT_EQ(end(), 0u);
  EXPECT_EQ(readFile(path),
            closedPackage("\n<velmar_archive>\n\t<archive_id>" + longText +
                          "</archive_id>\n\t<archive_version>" + longText +
                          "</archive_version>\n\t<archive_file_count>1</archive_file_count>\n"
                          "\n\t<archive_file>\n\t\t<file_id>" +
                          longText + "</file_id>\n\t\t<file_version>" + longText +
                          "</file_version>\n\t\t<file_description></file_description>"
                          "\n\t\t<file_name>" +
                          longText +
                          "</file_name>\n\t\t<file_size>1</file_size>\n\t\t<file_chunk>eA==\n"
                          "</file_chunk>\n\t</archive_file>\n</velmar_archive>"));
}

TEST_F(ArchiveWriterTest, SumBeyond32BitsIsStampedWithItsLowBits) {
  const std::string bytes(400'000, '\0');
  ASSERT_EQ(begin("big", "1", 1), 0u);
  ASSERT_EQ(add({"big", "1", "", "big", bytes}), 0u);
  ASSERT_EQ(end(), 0u);
  const auto written = readFile(path);
  std::uint64_t sum = 0;
  for (std::size_t at = 64; at + 1 < written.size(); at += 2) {
    sum += static_cast<unsigned char>(written[at]) +
           std::uint64_t{256} * static_cast<unsigned char>(written[at + 1]);
  }
  ASSERT_GT(sum, std::uint64_t{0xFFFF'FFFF});
  EXPECT_EQ(written.substr(60, 4), checksumBytes(written.substr(64)));
  EXPECT_EQ(CORVANE2Archive_Decompress(path.c_str(), "big", folder.file("out").c_str()), 0u);
  EXPECT_EQ(readFile(folder.file("out")), bytes);
}

TEST_F(ArchiveWriterTest, LinksAndPermissionsSurviveTheClosing) {
  ASSERT_EQ(begin("EMPTY", "0", 0), 0u);
  std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  std::filesystem::create_symlink(path, folder.file("link"));
  const auto target = path;
  path = folder.file("link");
  ASSERT_EQ(end(), 0u);
  EXPECT_TRUE(std::filesystem::is_symlink(path));
  EXPECT_EQ(std::filesystem::status(target).permissions(), std::filesystem::perms::owner_all);
  EXPECT_EQ(readFile(target), golden("no-files.pkg"));
}

TEST_F(ArchiveWriterTest, ProgressRunsToTheEnd) {
  std::uint64_t last = 0;
  std::uint64_t announced = 0;
  const ArchiveProgress watch = [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_GT(done, last);
    last = done;
    announced = total;
  };
  ASSERT_EQ(begin("a", "b", 1), 0u);
  FileToAdd file{"a", "", "", "", std::string(300'000, 'x')};
  ASSERT_EQ(VelmarArchive_add(path.c_str(), file.record(), watch), 0u);
  EXPECT_EQ(last, 300'000u);
  EXPECT_EQ(announced, 300'000u);
  last = 0;
  ASSERT_EQ(VelmarArchive_create_end(path.c_str(), watch), 0u);
  EXPECT_EQ(last, std::filesystem::file_size(path) - 64);
  EXPECT_EQ(announced, last);
}

}  // namespace
}  // namespace corvane::archivetest
