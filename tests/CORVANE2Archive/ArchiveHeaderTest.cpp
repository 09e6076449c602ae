#include "CORVANE2Archive/ArchiveHeader.h"

#include <gtest/gtest.h>

#include "ArchiveFixtures.h"

namespace corvane::archivetest {
namespace {

ArchiveHeader headerOf(const std::string& bytes) {
  ArchiveHeader header;
  bytes.copy(reinterpret_cast<char*>(&header), sizeof header);
  return header;
}

std::string bytesOfHeader(const ArchiveHeader& header) {
  return std::string(reinterpret_cast<const char*>(&header), sizeof header);
}

class ArchiveHeaderTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  std::string path = folder.file("a.pkg");
};

TEST_F(ArchiveHeaderTest, FieldsLieWhereTheFormatHasThem) {
  EXPECT_EQ(offsetof(ArchiveHeader, magic), 0u);
  EXPECT_EQ(offsetof(ArchiveHeader, scramble), 8u);
  EXPECT_EQ(offsetof(ArchiveHeader, reserved), 9u);
  EXPECT_EQ(offsetof(ArchiveHeader, checksum), 60u);
}

TEST_F(ArchiveHeaderTest, OpenHeaderIsMagicFlagZerosAndMarker) {
  EXPECT_EQ(bytesOfHeader(openHeader()), headerBytes("0000"));
}

TEST_F(ArchiveHeaderTest, SaveWritesTheRecordAndEmptiesTheFile) {
  writeFile(path, std::string(500, 'x'));
  const std::string bytes = headerBytes("\x01\x02\x03\x04");
  EXPECT_EQ(_save_Header(path.c_str(), headerOf(bytes)), 0u);
  EXPECT_EQ(readFile(path), bytes);
}

TEST_F(ArchiveHeaderTest, SaveReportsAPathThatCannotBeOpened) {
  EXPECT_EQ(_save_Header(folder.file("no/such/a.pkg").c_str(), openHeader()), 257u);
  EXPECT_EQ(_save_Header(folder.file("").c_str(), openHeader()), 257u);
}

TEST_F(ArchiveHeaderTest, SaveReportsAShortWrite) {
  EXPECT_EQ(_save_Header("/dev/full", openHeader()), 260u);
}

TEST_F(ArchiveHeaderTest, LoadReadsTheRecordAndChecksNothing) {
  std::string bytes(64, '?');
  bytes.replace(60, 4, "abcd");
  writeFile(path, bytes + "body");
  ArchiveHeader header = {};
  EXPECT_EQ(_load_Header(path.c_str(), header), 0u);
  EXPECT_EQ(bytesOfHeader(header), bytes);
}

TEST_F(ArchiveHeaderTest, LoadReportsEveryFileTooShortForAHeader) {
  for (std::size_t length = 0; length < 64; ++length) {
    writeFile(path, headerBytes("0000").substr(0, length));
    ArchiveHeader header = {};
    EXPECT_EQ(_load_Header(path.c_str(), header), 261u) << length;
  }
}

TEST_F(ArchiveHeaderTest, LoadStillReadsTheFieldsThatAreThere) {
  writeFile(path, headerBytes("0000").substr(0, 62));
  ArchiveHeader header = {};
  EXPECT_EQ(_load_Header(path.c_str(), header), 261u);
  EXPECT_TRUE(hasMagic(header));
  EXPECT_EQ(bytesOfHeader(header), headerBytes(std::string("00\0\0", 4)));
}

TEST_F(ArchiveHeaderTest, LoadReportsWhatCannotBeOpened) {
  ArchiveHeader header = {};
  EXPECT_EQ(_load_Header(folder.file("missing").c_str(), header), 257u);
  EXPECT_EQ(_load_Header(folder.file("").c_str(), header), 257u);
}

TEST_F(ArchiveHeaderTest, MagicAndMarkerAreComparedWhole) {
  const std::string bytes = headerBytes("0000");
  EXPECT_TRUE(hasMagic(headerOf(bytes)));
  EXPECT_TRUE(hasOpenMarker(headerOf(bytes)));
  for (const std::size_t offset : {0u, 7u}) {
    auto changed = bytes;
    changed[offset] = '?';
    EXPECT_FALSE(hasMagic(headerOf(changed))) << offset;
  }
  for (const std::size_t offset : {60u, 61u, 62u, 63u}) {
    auto changed = bytes;
    changed[offset] = '1';
    EXPECT_FALSE(hasOpenMarker(headerOf(changed))) << offset;
  }
}

TEST_F(ArchiveHeaderTest, ChecksumFieldIsLittleEndianWithoutZeroBytes) {
  EXPECT_EQ(checksumField(0x12345678), (ChecksumField{0x78, 0x56, 0x34, 0x12}));
  EXPECT_EQ(checksumField(0), (ChecksumField{1, 1, 1, 1}));
  EXPECT_EQ(checksumField(0x00AB00CD), (ChecksumField{0xCD, 1, 0xAB, 1}));
}

TEST_F(ArchiveHeaderTest, ChecksumFieldHoldsTheLow32Bits) {
  EXPECT_EQ(checksumField(0x7'0000'0002), (ChecksumField{2, 1, 1, 1}));
}

TEST_F(ArchiveHeaderTest, StampTouchesTheChecksumFieldAlone) {
  writeFile(path, headerBytes("0000") + "body");
  EXPECT_EQ(stampChecksum(path.c_str(), {'a', 'b', 'c', 'd'}), 0u);
  EXPECT_EQ(readFile(path), headerBytes("abcd") + "body");
  EXPECT_EQ(stampChecksum(folder.file("missing").c_str(), {1, 1, 1, 1}), 257u);
  EXPECT_EQ(stampChecksum("/dev/full", {1, 1, 1, 1}), 260u);
}

TEST_F(ArchiveHeaderTest, EveryStatusHasItsNumberAndAText) {
  const std::pair<ArchiveStatus, std::uint32_t> statuses[] = {
      {ArchiveSuccess, 0},           {ArchiveFileIdNotFound, 17},    {ArchiveNotRecognized, 18},
      {ArchiveChecksumMismatch, 19}, {ArchiveFileCountMismatch, 20}, {ArchiveOutputNotCreated, 256},
      {ArchiveNotOpened, 257},       {ArchiveShortWrite, 260},       {ArchiveShortRead, 261},
      {ArchiveOutOfMemory, 2049}};
  for (const auto& [status, number] : statuses) {
    EXPECT_EQ(static_cast<std::uint32_t>(status), number);
    EXPECT_STRNE(VelmarArchive_status_text(status), "unknown status") << number;
  }
  EXPECT_STREQ(VelmarArchive_status_text(static_cast<ArchiveStatus>(99)), "unknown status");
}

}  // namespace
}  // namespace corvane::archivetest
