#include "cli/answers/StagedFile.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include "CORVANE2Archive/ArchiveFixtures.h"
#include "cli/archive/ArchiveReport.h"

namespace corvane::archivetest {
namespace {

/// A file beside one that is there already.
class StagedFileTest : public testing::Test {
 protected:
  StagedFileTest() { writeFile(destination, "before"); }

  size_t filesInFolder() const {
    const std::filesystem::directory_iterator entries(folder.path());
    return static_cast<size_t>(std::distance(begin(entries), end(entries)));
  }

  TemporaryFolder folder;
  std::string destination = folder.file("a.pkg");
};

TEST_F(StagedFileTest, TakesThePlaceOfItsDestinationWhenItIsCommitted) {
  StagedFile staged(destination);
  writeFile(staged.path(), "after");
  EXPECT_EQ(readFile(destination), "before");
  staged.commit();
  EXPECT_EQ(readFile(destination), "after");
  EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(StagedFileTest, AnInterruptIsKeptAndNothingIsLeftBehind) {
  for (const int signal : {SIGINT, SIGTERM}) {
    StagedFile staged(destination);
    EXPECT_FALSE(staged.isInterrupted());
    EXPECT_NO_THROW(requireUninterrupted(staged, destination));
    raise(signal);
    while (!staged.isInterrupted()) std::this_thread::yield();
    EXPECT_THROW(requireUninterrupted(staged, destination), CommandFailure);
  }
  EXPECT_EQ(readFile(destination), "before");
  EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(StagedFileTest, ADeviceIsWrittenDirectlyAndLeavesInterruptsAlone) {
  struct sigaction before = {};
  struct sigaction during = {};
  sigaction(SIGINT, nullptr, &before);
  const StagedFile staged("/dev/null");
  sigaction(SIGINT, nullptr, &during);
  EXPECT_EQ(staged.path(), "/dev/null");
  EXPECT_EQ(during.sa_handler, before.sa_handler);
}

}  // namespace
}  // namespace corvane::archivetest
