#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "ArchiveFixtures.h"
#include "CORVANE2Archive/CORVANE2Archive.h"

namespace corvane::archivetest {
namespace {

/// Lets files of this process grow to so many bytes and no further, like a disk
/// that is full, until the scope ends.
class LimitedDisk {
 public:
  explicit LimitedDisk(rlim_t bytes) {
    previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &previousLimit_);
    const rlimit limit{bytes, previousLimit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~LimitedDisk() {
    setrlimit(RLIMIT_FSIZE, &previousLimit_);
    std::signal(SIGXFSZ, previousHandler_);
  }
  LimitedDisk(const LimitedDisk&) = delete;
  LimitedDisk& operator=(const LimitedDisk&) = delete;

 private:
  rlimit previousLimit_{};
  void (*previousHandler_)(int) = nullptr;
};

class ArchiveFullDiskTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  std::string path = folder.file("a.pkg");
};

TEST_F(ArchiveFullDiskTest, BeginReportsEveryPointAtWhichTheDiskIsFull) {
  const auto whole = golden("after-begin.pkg");
  InfoToWrite info{"CORVANE2", "1.0", 2};
  for (std::size_t room = 0; room < whole.size(); ++room) {
    {
      const LimitedDisk disk(room);
      EXPECT_EQ(VelmarArchive_create_begin(path.c_str(), info.record()), 260u) << room;
    }
    EXPECT_EQ(readFile(path), whole.substr(0, room));
  }
}

TEST_F(ArchiveFullDiskTest, AddReportsEveryPointAtWhichTheDiskIsFull) {
  const auto begun = golden("after-begin.pkg");
  const auto whole = golden("after-add.pkg");
  auto file = goldenImageFile();
  for (std::size_t room = begun.size(); room < whole.size(); ++room) {
    writeFile(path, begun);
    {
      const LimitedDisk disk(room);
      EXPECT_EQ(VelmarArchive_add(path.c_str(), file.record()), 260u) << room;
    }
    EXPECT_EQ(readFile(path), whole.substr(0, room));
  }
}

TEST_F(ArchiveFullDiskTest, EndReportsEveryPointAtWhichTheDiskIsFullAndKeepsTheBody) {
  const auto whole = golden("no-files.pkg");
  const auto open = headerBytes("0000") + whole.substr(64);
  const auto begun = open.size() - 17;
  for (std::size_t room = begun; room < open.size(); ++room) {
    writeFile(path, open.substr(0, begun));
    {
      const LimitedDisk disk(room);
      EXPECT_EQ(VelmarArchive_create_end(path.c_str()), 260u) << room;
    }
    EXPECT_EQ(readFile(path), open.substr(0, room));
  }
}

TEST_F(ArchiveFullDiskTest, CompressStopsAtTheFileThatDoesNotFit) {
  InfoToWrite info{"CORVANE2", "1.0", 2};
  auto image = goldenImageFile();
  auto notes = goldenNotesFile();
  const std::vector<ArchiveFile> records{image.record(), notes.record()};
  const auto room = golden("after-begin.pkg").size() + 1;
  {
    const LimitedDisk disk(room);
    EXPECT_EQ(CORVANE2Archive_Compress(path.c_str(), info.record(), filesOf(records)), 260u);
  }
  EXPECT_EQ(readFile(path), golden("after-add.pkg").substr(0, room));
}

TEST_F(ArchiveFullDiskTest, WrongFileCountIsTheLastStatusSet) {
  const auto begun = golden("after-begin.pkg");
  writeFile(path, begun);
  const LimitedDisk disk(begun.size());
  EXPECT_EQ(VelmarArchive_create_end(path.c_str()), 20u);
}

}  // namespace
}  // namespace corvane::archivetest
