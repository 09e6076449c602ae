#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "ArchiveFixtures.h"
#include "CORVANE2Archive/CORVANE2Archive.h"

namespace corvane::archivetest {
namespace {

class ArchiveFacadeTest : public testing::Test {
 protected:
  ArchiveStatus compress(std::vector<FileToAdd> files, std::int32_t count) {
    InfoToWrite info{"CORVANE2", "1.0", count};
    std::vector<ArchiveFile> records;
    for (auto& file : files) records.push_back(file.record());
    return CORVANE2Archive_Compress(path.c_str(), info.record(), filesOf(records));
  }

  ArchiveStatus decompress(const char* id) {
    return CORVANE2Archive_Decompress(path.c_str(), id, out.c_str(), &extraction);
  }

  TemporaryFolder folder;
  std::string path = folder.file("a.pkg");
  std::string out = folder.file("out.bin");
  ArchiveExtraction extraction;
};

TEST_F(ArchiveFacadeTest, CompressBuildsAClosedPackage) {
  ASSERT_EQ(compress({goldenImageFile(), goldenNotesFile()}, 2), 0u);
  EXPECT_EQ(readFile(path), golden("two-files.pkg"));
}

TEST_F(ArchiveFacadeTest, CompressTakesAsManyFilesAsAnnounced) {
  ASSERT_EQ(compress({goldenImageFile(), goldenNotesFile()}, 1), 0u);
  ASSERT_EQ(decompress("emulex.grp"), 0u);
  EXPECT_EQ(decompress("emulex"), 17u);
}

TEST_F(ArchiveFacadeTest, CompressOfNoFilesIsAValidPackage) {
  ASSERT_EQ(compress({}, 0), 0u);
  ArchiveInfo info;
  ASSERT_EQ(CORVANE2Archive_Parse_Archive(path.c_str(), info), 0u);
  EXPECT_EQ(info.fileCount, 0);
  VelmarArchive_free_archive(info);
}

TEST_F(ArchiveFacadeTest, CompressStopsAtTheFirstFailure) {
  path = folder.file("no/such.pkg");
  EXPECT_EQ(compress({goldenNotesFile()}, 1), 257u);
  path = "/dev/full";
  EXPECT_EQ(compress({goldenNotesFile()}, 1), 260u);
}

TEST_F(ArchiveFacadeTest, CompressAsksForOneFileAfterAnotherAndTellsHowFarItIs) {
  std::vector<FileToAdd> given{goldenImageFile(), goldenNotesFile()};
  std::vector<std::int32_t> asked;
  ArchiveFile current;
  const ArchiveFiles files{[&](std::int32_t index) -> const ArchiveFile& {
                             asked.push_back(index);
                             return current = given.at(static_cast<std::size_t>(index)).record();
                           },
                           goldenImage().size() + given[1].data.size()};
  std::vector<double> fractions;
  InfoToWrite info{"CORVANE2", "1.0", 2};
  ASSERT_EQ(CORVANE2Archive_Compress(path.c_str(), info.record(), files,
                                     [&](std::uint64_t done, std::uint64_t total) {
                                       fractions.push_back(static_cast<double>(done) /
                                                           static_cast<double>(total));
                                     }),
            0u);
  EXPECT_EQ(readFile(path), golden("two-files.pkg"));
  EXPECT_EQ(asked, (std::vector<std::int32_t>{0, 1}));
  EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end()));
  EXPECT_NE(std::find(fractions.begin(), fractions.end(), 0.5), fractions.end());
  EXPECT_EQ(fractions.back(), 1.0);
}

TEST_F(ArchiveFacadeTest, CompressLetsAnExceptionOfTheCallerThrough) {
  struct Interrupted {};
  InfoToWrite info{"CORVANE2", "1.0", 1};
  const ArchiveFiles files{[](std::int32_t) -> const ArchiveFile& { throw Interrupted(); }};
  EXPECT_THROW(CORVANE2Archive_Compress(path.c_str(), info.record(), files), Interrupted);
}

TEST_F(ArchiveFacadeTest, DecompressWritesTheFile) {
  path = dataPath("two-files.pkg");
  writeFile(out, std::string(5000, 'x'));
  ASSERT_EQ(decompress("emulex.grp"), 0u);
  EXPECT_EQ(readFile(out), goldenImage());
  EXPECT_EQ(extraction.claimed, 200);
  EXPECT_EQ(extraction.decoded, 200u);
  EXPECT_EQ(extraction.written, 200u);
}

TEST_F(ArchiveFacadeTest, DecompressOfAnEmptyFileCreatesAnEmptyFile) {
  path = dataPath("lengths.pkg");
  ASSERT_EQ(decompress("length0"), 0u);
  EXPECT_EQ(readFile(out), "");
}

TEST_F(ArchiveFacadeTest, DecompressOfAnAbsentIdCreatesNothing) {
  path = dataPath("two-files.pkg");
  EXPECT_EQ(decompress("emulex.grp2"), 17u);
  EXPECT_FALSE(std::filesystem::exists(out));
}

TEST_F(ArchiveFacadeTest, DecompressOfADamagedPackageLeavesTheOutputAlone) {
  writeFile(out, "before");
  path = dataPath("after-add.pkg");
  EXPECT_EQ(decompress("emulex.grp"), 19u);
  path = folder.file("missing.pkg");
  EXPECT_EQ(decompress("emulex.grp"), 257u);
  EXPECT_EQ(readFile(out), "before");
}

TEST_F(ArchiveFacadeTest, DecompressReportsAnOutputThatCannotBeCreated) {
  path = dataPath("two-files.pkg");
  out = folder.file("no/such/out.bin");
  EXPECT_EQ(decompress("emulex.grp"), 256u);
  out = folder.file("");
  EXPECT_EQ(decompress("emulex.grp"), 256u);
  EXPECT_EQ(decompress("absent"), 17u) << "the id is looked up before the output is created";
}

TEST_F(ArchiveFacadeTest, DecompressDoesNotReportAFullDiskButTellsIt) {
  path = dataPath("two-files.pkg");
  out = "/dev/full";
  EXPECT_EQ(decompress("emulex.grp"), 0u);
  EXPECT_EQ(extraction.decoded, 200u);
  EXPECT_EQ(extraction.written, 0u);
}

TEST_F(ArchiveFacadeTest, ClaimedSizeCutsTheOutput) {
  writeFile(path, closedPackage(indexOf("1", fileBlock("a", "2", "QUJD\n"))));
  ASSERT_EQ(decompress("a"), 0u);
  EXPECT_EQ(readFile(out), "AB");
  EXPECT_EQ(extraction.decoded, 3u);
}

TEST_F(ArchiveFacadeTest, ZerosStandForClaimedBytesThatAreNotThere) {
  for (const std::size_t size : {4u, 100u}) {
    writeFile(path, closedPackage(indexOf("1", fileBlock("a", std::to_string(size), "QUJD\n"))));
    ASSERT_EQ(decompress("a"), 0u) << size;
    EXPECT_EQ(readFile(out), "ABC" + std::string(size - 3, '\0')) << size;
    EXPECT_EQ(extraction.decoded, 3u);
    EXPECT_EQ(extraction.due, size);
    EXPECT_EQ(extraction.written, size);
  }
}

TEST_F(ArchiveFacadeTest, NoClaimMakesTheOutputLongerThanThePackage) {
  for (const char* size : {"2000", "2147483647", "99999999999999999999"}) {
    const auto package = closedPackage(indexOf("1", fileBlock("a", size, "QUJD\n")));
    writeFile(path, package);
    ASSERT_EQ(decompress("a"), 0u) << size;
    EXPECT_EQ(readFile(out), "ABC" + std::string(package.size() - 3, '\0')) << size;
  }
}

TEST_F(ArchiveFacadeTest, FullDiskEndsTheZerosToo) {
  writeFile(path, closedPackage(indexOf("1", fileBlock("a", "100", "\n"))));
  out = "/dev/full";
  EXPECT_EQ(decompress("a"), 0u);
  EXPECT_EQ(extraction.due, 100u);
  EXPECT_EQ(extraction.written, 0u);
}

TEST_F(ArchiveFacadeTest, SizesThatMakeNoSenseGiveAnEmptyFile) {
  for (const char* size : {"0", "-1", "-2147483648", "-99999999999", "", "x"}) {
    writeFile(path, closedPackage(indexOf("1", fileBlock("a", size, "QUJD\n"))));
    ASSERT_EQ(decompress("a"), 0u) << size;
    EXPECT_EQ(readFile(out), "") << size;
  }
}

TEST_F(ArchiveFacadeTest, ChunkIsDecodedAcrossPieces) {
  std::string bytes;
  for (std::uint32_t at = 0; at < 500'000; ++at) bytes += static_cast<char>(at * 2654435761u >> 24);
  ASSERT_EQ(compress({{"big", "1", "", "", bytes}}, 1), 0u);
  ASSERT_EQ(decompress("big"), 0u);
  EXPECT_EQ(readFile(out), bytes);
}

TEST_F(ArchiveFacadeTest, ForeignCharactersInAChunkAreSkipped) {
  const std::string code = "Q \r\n\tU" + std::string(200'000, '\n') +
                           "J*-\x80\xFE"
                           "D=\n";
  writeFile(path, closedPackage(indexOf("1", fileBlock("a", "3", code))));
  ASSERT_EQ(decompress("a"), 0u);
  EXPECT_EQ(readFile(out), "ABC");
}

TEST_F(ArchiveFacadeTest, VersionIsCopiedAndTerminated) {
  std::array<char, archiveVersionCapacity> version;
  version.fill('?');
  ASSERT_EQ(
      CORVANE2Archive_Get_File_Version(dataPath("two-files.pkg").c_str(), "emulex.grp", version),
      0u);
  EXPECT_STREQ(version.data(), "11.2.156.27");
}

TEST_F(ArchiveFacadeTest, VersionOfAnyLengthStaysInTheBuffer) {
  for (const std::size_t length : {30u, 31u, 32u, 33u, 5000u}) {
    ASSERT_EQ(compress({{"a", std::string(length, 'v'), "", "", ""}}, 1), 0u);
    std::array<char, archiveVersionCapacity + 1> version;
    version.fill('?');
    ASSERT_EQ(CORVANE2Archive_Get_File_Version(path.c_str(), "a",
                                               std::span(version).first<archiveVersionCapacity>()),
              0u);
    EXPECT_EQ(version.data(), std::string(std::min<std::size_t>(length, 31), 'v'));
    EXPECT_EQ(version.back(), '?');
  }
}

TEST_F(ArchiveFacadeTest, VersionIntoNoBufferIsOnlyTheStatus) {
  EXPECT_EQ(CORVANE2Archive_Get_File_Version(dataPath("two-files.pkg").c_str(), "emulex", {}), 0u);
}

TEST_F(ArchiveFacadeTest, FailedVersionLeavesTheBufferUntouched) {
  std::array<char, archiveVersionCapacity> version;
  version.fill('?');
  const auto untouched = version;
  const std::pair<const char*, std::uint32_t> cases[] = {
      {"after-add.pkg", 19}, {"missing.pkg", 257}, {"image.bin", 19}, {"no-files.pkg", 17}};
  for (const auto& [name, status] : cases) {
    EXPECT_EQ(CORVANE2Archive_Get_File_Version(dataPath(name).c_str(), "emulex.grp", version),
              status)
        << name;
    EXPECT_EQ(version, untouched);
  }
}

TEST_F(ArchiveFacadeTest, ArchiveRecordIsTheCallers) {
  ArchiveInfo info;
  ASSERT_EQ(CORVANE2Archive_Parse_Archive(dataPath("lengths.pkg").c_str(), info), 0u);
  EXPECT_STREQ(info.id, "LENGTHS");
  EXPECT_STREQ(info.version, "1");
  EXPECT_EQ(info.fileCount, 10);
  VelmarArchive_free_archive(info);
  EXPECT_EQ(CORVANE2Archive_Parse_Archive(dataPath("after-begin.pkg").c_str(), info), 19u);
  EXPECT_EQ(info.id, nullptr);
}

TEST_F(ArchiveFacadeTest, ArchiveRecordComesWithEachFileInOrder) {
  ArchiveInfo info;
  std::vector<std::string> seen;
  const auto look = [&seen](const ArchiveMember& member) {
    seen.push_back(std::string(member.id) + " " + std::to_string(member.size) + " " +
                   std::to_string(member.decodedSize()));
  };
  ASSERT_EQ(CORVANE2Archive_Parse_Archive(dataPath("two-files.pkg").c_str(), info, look), 0u);
  EXPECT_EQ(seen, (std::vector<std::string>{"emulex.grp 200 200", "emulex 2 2"}));
  VelmarArchive_free_archive(info);
}

TEST_F(ArchiveFacadeTest, FirstFileThatIsNotCompleteEndsTheShow) {
  const auto incomplete = "\n\t<archive_file>\n\t\t<file_id>b</file_id></archive_file>\n";
  writeFile(path, closedPackage(indexOf("3", fileBlock("a", "3", "QUJD\n") + incomplete +
                                                 fileBlock("c", "3", "QUJD\n"))));
  ArchiveInfo info;
  std::string seen;
  EXPECT_EQ(CORVANE2Archive_Parse_Archive(
                path.c_str(), info, [&seen](const ArchiveMember& member) { seen += member.id; }),
            17u);
  EXPECT_EQ(seen, "a");
  EXPECT_STREQ(info.id, "ID");
  VelmarArchive_free_archive(info);
}

}  // namespace
}  // namespace corvane::archivetest
