#include <gtest/gtest.h>

#include <cstddef>

#include "ArchiveFixtures.h"
#include "CORVANE2Archive/CORVANE2Archive.h"

namespace {

/// How many more allocations succeed; negative while all do.
int allocationsLeft = -1;

}  // namespace

// The program is linked so that the archive module's calls of calloc come here.
extern "C" void* __real_calloc(std::size_t count, std::size_t size);
extern "C" void* __wrap_calloc(std::size_t count, std::size_t size) {
  if (allocationsLeft == 0) return nullptr;
  if (allocationsLeft > 0) --allocationsLeft;
  return __real_calloc(count, size);
}

namespace corvane::archivetest {
namespace {

class ArchiveMemoryTest : public testing::Test {
 protected:
  ~ArchiveMemoryTest() override { allocationsLeft = -1; }

  /// Runs `action` with each of its allocations failing in turn. Returns how many
  /// it makes when it succeeds.
  template <typename Action>
  static int eachAllocationFailing(Action action) {
    for (int count = 0;; ++count) {
      allocationsLeft = count;
      const ArchiveStatus status = action();
      allocationsLeft = -1;
      if (status == ArchiveSuccess) return count;
      EXPECT_EQ(status, 2049u) << "allocation " << count;
      if (status != ArchiveOutOfMemory || count > 100) return -1;
    }
  }

  TemporaryFolder folder;
  std::string path = folder.file("a.pkg");
};

TEST_F(ArchiveMemoryTest, WriterReportsEveryFailedAllocationAndWritesNothing) {
  InfoToWrite info{"CORVANE2", "1.0", 2};
  const auto begin = [&] { return VelmarArchive_create_begin(path.c_str(), info.record()); };
  allocationsLeft = 0;
  EXPECT_EQ(begin(), 2049u);
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_GT(eachAllocationFailing(begin), 0);
  auto image = goldenImageFile();
  auto notes = goldenNotesFile();
  EXPECT_GT(eachAllocationFailing([&] { return VelmarArchive_add(path.c_str(), image.record()); }),
            0);
  EXPECT_EQ(readFile(path), golden("after-add.pkg"));
  EXPECT_EQ(VelmarArchive_add(path.c_str(), notes.record()), 0u);
  allocationsLeft = 0;
  EXPECT_EQ(VelmarArchive_create_end(path.c_str()), 2049u);
  allocationsLeft = -1;
  EXPECT_EQ(VelmarArchive_create_end(path.c_str()), 0u);
  EXPECT_EQ(readFile(path), golden("two-files.pkg"));
}

TEST_F(ArchiveMemoryTest, EndReportsThatTheBodyDoesNotFit) {
  writeFile(path, golden("after-begin.pkg"));
  allocationsLeft = 1;
  EXPECT_EQ(VelmarArchive_create_end(path.c_str()), 2049u);
}

TEST_F(ArchiveMemoryTest, ReaderReportsEveryFailedAllocation) {
  const auto readAndParse = [] {
    char* text = nullptr;
    ArchiveInfo info;
    ArchiveFile file;
    auto status = VelmarArchive_read(dataPath("two-files.pkg").c_str(), &text);
    if (!status) status = VelmarArchive_parse_archive(text, info);
    if (!status) status = VelmarArchive_parse_file(text, "emulex.grp", file);
    VelmarArchive_free_xml(&text);
    VelmarArchive_free_archive(info);
    VelmarArchive_free_file(file);
    return status;
  };
  EXPECT_EQ(eachAllocationFailing(readAndParse), 8) << "text, 2 of the package, 5 of the file";
}

TEST_F(ArchiveMemoryTest, ElementReportsAFailedAllocation) {
  char* out = nullptr;
  allocationsLeft = 0;
  EXPECT_EQ(_xmlParse_element("<a>1</a>", "a", &out), 2049u);
  EXPECT_EQ(out, nullptr);
}

TEST_F(ArchiveMemoryTest, FacadeReportsEveryFailedAllocation) {
  const auto package = dataPath("two-files.pkg");
  const auto out = folder.file("out");
  EXPECT_GT(eachAllocationFailing(
                [&] { return CORVANE2Archive_Decompress(package.c_str(), "emulex", out.c_str()); }),
            0);
  char version[archiveVersionCapacity] = {};
  EXPECT_GT(eachAllocationFailing([&] {
              return CORVANE2Archive_Get_File_Version(package.c_str(), "emulex", version);
            }),
            0);
  EXPECT_STREQ(version, "1");
}

}  // namespace
}  // namespace corvane::archivetest
