#include <gtest/gtest.h>

#include <cstring>

#include "ArchiveFixtures.h"

namespace corvane::archivetest {
namespace {

/// The reader's text and records, freed with the test.
class ArchiveReaderTest : public testing::Test {
 protected:
  ~ArchiveReaderTest() override {
    VelmarArchive_free_xml(&text);
    VelmarArchive_free_archive(info);
    VelmarArchive_free_file(file);
  }

  ArchiveStatus read(const std::string& bytes) {
    writeFile(path, bytes);
    return readPath(path);
  }

  ArchiveStatus readPath(const std::string& from) {
    VelmarArchive_free_xml(&text);
    return VelmarArchive_read(from.c_str(), &text);
  }

  ArchiveStatus parseFile(const char* id) {
    VelmarArchive_free_file(file);
    return VelmarArchive_parse_file(text, id, file);
  }

  std::string data() const {
    return {reinterpret_cast<const char*>(file.data), static_cast<std::size_t>(file.size)};
  }

  TemporaryFolder folder;
  std::string path = folder.file("a.pkg");
  char* text = nullptr;
  ArchiveInfo info;
  ArchiveFile file;
};

TEST_F(ArchiveReaderTest, TextIsTheHeaderAndThePlainIndex) {
  const auto package = golden("two-files.pkg");
  ASSERT_EQ(read(package), 0u);
  EXPECT_EQ(text, package.substr(0, 64) + complemented(package.substr(64)));
}

TEST_F(ArchiveReaderTest, ArchiveRecordIsFilled) {
  ASSERT_EQ(read(golden("two-files.pkg")), 0u);
  ASSERT_EQ(VelmarArchive_parse_archive(text, info), 0u);
  EXPECT_STREQ(info.id, "CORVANE2");
  EXPECT_STREQ(info.version, "1.0");
  EXPECT_EQ(info.fileCount, 2);
}

TEST_F(ArchiveReaderTest, FileRecordIsFilled) {
  ASSERT_EQ(read(golden("odd-body.pkg")), 0u);
  ASSERT_EQ(parseFile("emulex.grp"), 0u);
  EXPECT_STREQ(file.id, "emulex.grp");
  EXPECT_STREQ(file.version, "11.2.156.27");
  EXPECT_STREQ(file.description, "Controller firmware");
  EXPECT_STREQ(file.name, "emulex.grp");
  EXPECT_EQ(file.size, 200);
  EXPECT_EQ(file.decodedSize, 200u);
  EXPECT_EQ(data(), goldenImage());
  ASSERT_EQ(parseFile("emulex"), 0u);
  EXPECT_STREQ(file.name, "notes.txt");
  EXPECT_EQ(data(), "ok");
}

TEST_F(ArchiveReaderTest, EveryLengthOfALineIsDecoded) {
  ASSERT_EQ(read(golden("lengths.pkg")), 0u);
  for (const std::size_t length : {0u, 1u, 2u, 3u, 53u, 54u, 55u, 107u, 108u, 109u}) {
    ASSERT_EQ(parseFile(("length" + std::to_string(length)).c_str()), 0u) << length;
    EXPECT_EQ(data(), goldenImage().substr(0, length));
    EXPECT_EQ(file.decodedSize, length);
  }
}

TEST_F(ArchiveReaderTest, AbsentIdIsReported) {
  ASSERT_EQ(read(golden("two-files.pkg")), 0u);
  EXPECT_EQ(parseFile("emule"), 17u);
  EXPECT_EQ(parseFile(""), 17u);
  ASSERT_EQ(read(golden("no-files.pkg")), 0u);
  EXPECT_EQ(parseFile("emulex.grp"), 17u);
}

TEST_F(ArchiveReaderTest, MissingElementsAreReported) {
  for (const char* name :
       {"file_version", "file_description", "file_name", "file_size", "file_chunk"}) {
    auto index = indexOf("1", fileBlock("a", "1", "QQ==\n"));
    index.erase(index.find("</" + std::string(name)), 1);
    ASSERT_EQ(read(closedPackage(index)), 0u);
    EXPECT_EQ(parseFile("a"), 17u) << name;
  }
  for (const char* name : {"archive_id", "archive_version", "archive_file_count"}) {
    auto index = indexOf("0", "");
    index.erase(index.find("</" + std::string(name)), 1);
    ASSERT_EQ(read(closedPackage(index)), 0u);
    EXPECT_EQ(VelmarArchive_parse_archive(text, info), 17u) << name;
    VelmarArchive_free_archive(info);
  }
}

TEST_F(ArchiveReaderTest, WhatWasFoundBeforeAMissingElementStays) {
  auto index = indexOf("1", fileBlock("a", "1", "QQ==\n"));
  index.erase(index.find("</file_name"), 1);
  index.erase(index.find("</archive_file_count"), 1);
  ASSERT_EQ(read(closedPackage(index)), 0u);
  ASSERT_EQ(parseFile("a"), 17u);
  EXPECT_STREQ(file.id, "a");
  EXPECT_STREQ(file.version, "v-a");
  EXPECT_STREQ(file.description, "d");
  EXPECT_EQ(file.name, nullptr);
  EXPECT_NE(file.data, nullptr);
  ASSERT_EQ(VelmarArchive_parse_archive(text, info), 17u);
  EXPECT_STREQ(info.id, "ID");
  EXPECT_STREQ(info.version, "V");
}

TEST_F(ArchiveReaderTest, DataIsZeroBehindWhatWasDecoded) {
  ASSERT_EQ(read(closedPackage(indexOf("1", fileBlock("a", "100", "QUJD\n")))), 0u);
  ASSERT_EQ(parseFile("a"), 0u);
  EXPECT_EQ(file.size, 100);
  EXPECT_EQ(file.decodedSize, 3u);
  const std::string bytes(reinterpret_cast<const char*>(file.data), std::strlen(text));
  EXPECT_EQ(bytes, "ABC" + std::string(bytes.size() - 3, '\0'));
}

TEST_F(ArchiveReaderTest, CountThatIsNoNumberIsZero) {
  ASSERT_EQ(read(closedPackage(indexOf("many", ""))), 0u);
  info.fileCount = 9;
  ASSERT_EQ(VelmarArchive_parse_archive(text, info), 0u);
  EXPECT_EQ(info.fileCount, 0);
}

TEST_F(ArchiveReaderTest, PathsThatCannotBeOpened) {
  EXPECT_EQ(readPath(folder.file("missing")), 257u);
  EXPECT_EQ(text, nullptr);
  EXPECT_EQ(readPath(folder.file("")), 257u);
  EXPECT_EQ(text, nullptr);
}

TEST_F(ArchiveReaderTest, FewerThan64BytesAreTooFew) {
  for (std::size_t length = 0; length < 64; ++length) {
    EXPECT_EQ(read(headerBytes("\x01\x01\x01\x01").substr(0, length)), 261u) << length;
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text, "");
  }
}

TEST_F(ArchiveReaderTest, WhatHasNoLengthIsTooShort) {
  EXPECT_EQ(readPath("/dev/zero"), 261u);
}

TEST_F(ArchiveReaderTest, EmptyBodyHasTheSumOfOnes) {
  ASSERT_EQ(read(headerBytes("\x01\x01\x01\x01")), 0u);
  EXPECT_EQ(text, headerBytes("\x01\x01\x01\x01"));
  EXPECT_EQ(read(headerBytes("\x01\x01\x01\x02")), 19u);
}

TEST_F(ArchiveReaderTest, OpenPackageIsRefusedByItsChecksum) {
  EXPECT_EQ(read(golden("after-begin.pkg")), 19u);
  EXPECT_EQ(read(golden("after-add.pkg")), 19u);
  EXPECT_EQ(read(golden("after-refused-end.pkg")), 19u);
  EXPECT_EQ(read(headerBytes("0000")), 19u);
}

TEST_F(ArchiveReaderTest, ChecksumIsJudgedBeforeTheMagic) {
  auto package = golden("two-files.pkg");
  package[0] = '?';
  EXPECT_EQ(read(package), 18u);
  package[100] = static_cast<char>(package[100] ^ 1);
  EXPECT_EQ(read(package), 19u);
}

TEST_F(ArchiveReaderTest, RefusedTextIsAllocatedAndEmpty) {
  auto package = golden("two-files.pkg");
  package[1] = '?';
  ASSERT_EQ(read(package), 18u);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(std::string(text, package.size()), std::string(package.size(), '\0'));
  ASSERT_EQ(read(golden("after-add.pkg")), 19u);
  ASSERT_NE(text, nullptr);
  EXPECT_STREQ(text, "");
}

TEST_F(ArchiveReaderTest, LastByteOfAnOddBodyIsNotGuarded) {
  auto package = golden("odd-body.pkg");
  package.back() = static_cast<char>(package.back() ^ 0x10);
  EXPECT_EQ(read(package), 0u);
  package = golden("two-files.pkg");
  package.back() = static_cast<char>(package.back() ^ 0x10);
  EXPECT_EQ(read(package), 19u);
}

TEST_F(ArchiveReaderTest, OtherScrambleFlagMeansPlainText) {
  auto package = golden("two-files.pkg");
  package[8] = '0';
  ASSERT_EQ(read(package), 0u);
  EXPECT_EQ(text, package);
  EXPECT_EQ(parseFile("emulex.grp"), 17u);
  EXPECT_EQ(VelmarArchive_parse_archive(text, info), 17u);

  const auto index = indexOf("1", fileBlock("a", "1", "QQ==\n"));
  auto plain = headerBytes(checksumBytes(index)) + index;
  plain[8] = '0';
  ASSERT_EQ(read(plain), 0u);
  ASSERT_EQ(parseFile("a"), 0u);
  EXPECT_EQ(data(), "A");
}

TEST_F(ArchiveReaderTest, ReservedBytesAreNotInterpreted) {
  auto package = golden("two-files.pkg");
  package.replace(9, 51, std::string(51, '~'));
  ASSERT_EQ(read(package), 0u);
  EXPECT_EQ(parseFile("emulex"), 0u);
}

TEST_F(ArchiveReaderTest, PackageLargerThanOneReadIsWhole) {
  const auto index = indexOf("0", std::string(900'001, 'x'));
  ASSERT_EQ(read(closedPackage(index)), 0u);
  EXPECT_EQ(std::string(text).substr(64), index);
}

TEST_F(ArchiveReaderTest, ProgressRunsToTheEnd) {
  writeFile(path, closedPackage(std::string(700'000, 'x')));
  std::uint64_t last = 0;
  ASSERT_EQ(VelmarArchive_read(path.c_str(), &text,
                               [&](std::uint64_t done, std::uint64_t total) {
                                 EXPECT_GT(done, last);
                                 EXPECT_EQ(total, 700'000u);
                                 last = done;
                               }),
            0u);
  EXPECT_EQ(last, 700'000u);
}

TEST_F(ArchiveReaderTest, FreeingTwiceAndFreeingNothingIsHarmless) {
  ASSERT_EQ(read(golden("two-files.pkg")), 0u);
  ASSERT_EQ(VelmarArchive_parse_archive(text, info), 0u);
  ASSERT_EQ(parseFile("emulex"), 0u);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(VelmarArchive_free_xml(&text), 0u);
    EXPECT_EQ(VelmarArchive_free_archive(info), 0u);
    EXPECT_EQ(VelmarArchive_free_file(file), 0u);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(info.id, nullptr);
    EXPECT_EQ(file.data, nullptr);
  }
}

}  // namespace
}  // namespace corvane::archivetest
