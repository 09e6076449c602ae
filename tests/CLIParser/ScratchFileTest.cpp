#include "CLIParser/ScratchFile.h"

#include <gtest/gtest.h>

#include <sys/file.h>
#include <sys/stat.h>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

#include "CLIParser/ScriptedShell.h"

namespace corvane {
namespace {

class ScratchFileTest : public testing::Test {
 protected:
  void write(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
  }
  std::string read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  mode_t permissions() {
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0);
    EXPECT_TRUE(S_ISREG(status.st_mode));
    return status.st_mode & 07777;
  }

  TemporaryFolder folder;
  std::string path = (folder.path() / "corvaneOutput.txt").string();
};

TEST_F(ScratchFileTest, IsMadeEmptyAndForItsOwnerAlone) {
  const mode_t before = umask(0);
  const ScratchFile file(path);
  umask(before);
  ASSERT_TRUE(file.isOpen());
  EXPECT_EQ(permissions(), 0600U);
  EXPECT_EQ(file.contents(), "");
}

TEST_F(ScratchFileTest, TheLastCommandsOutputIsGoneAndItsPermissionsAreTightened) {
  write(path, "old");
  chmod(path.c_str(), 0666);
  const ScratchFile file(path);
  EXPECT_EQ(file.contents(), "");
  EXPECT_EQ(permissions(), 0600U);
}

TEST_F(ScratchFileTest, HoldsWhatACommandWroteByPathAndStays) {
  {
    const ScratchFile file(path);
    write(path, std::string("a\0b\n", 4) + std::string(10000, 'x'));
    EXPECT_EQ(file.contents(), std::string("a\0b\n", 4) + std::string(10000, 'x'));
  }
  EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(ScratchFileTest, ADeviceIsNeverTakenAway) {
  const ScratchFile scratch("/dev/full");
  EXPECT_FALSE(scratch.isOpen());
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(ScratchFileTest, ALinkIsReplacedAndItsTargetIsLeftAlone) {
  const auto target = folder.path() / "precious";
  write(target, "precious");
  std::filesystem::create_symlink(target, path);
  const ScratchFile file(path);
  ASSERT_TRUE(file.isOpen());
  write(path, "output");
  EXPECT_EQ(read(target), "precious");
  EXPECT_EQ(permissions(), 0600U);
}

TEST_F(ScratchFileTest, ASecondNameOfAnotherFileIsReplaced) {
  const auto target = folder.path() / "precious";
  write(target, "precious");
  std::filesystem::create_hard_link(target, path);
  const ScratchFile file(path);
  ASSERT_TRUE(file.isOpen());
  write(path, "output");
  EXPECT_EQ(read(target), "precious");
}

TEST_F(ScratchFileTest, APipeInItsPlaceIsReplaced) {
  ASSERT_EQ(mkfifo(path.c_str(), 0666), 0);
  const ScratchFile file(path);
  EXPECT_TRUE(file.isOpen());
  EXPECT_EQ(permissions(), 0600U);
}

TEST_F(ScratchFileTest, AFolderInItsPlaceLeavesNoFile) {
  std::filesystem::create_directory(path);
  EXPECT_FALSE(ScratchFile(path).isOpen());
  EXPECT_EQ(ScratchFile(path).contents(), std::nullopt);
}

TEST_F(ScratchFileTest, AMissingFolderLeavesNoFile) {
  EXPECT_FALSE(ScratchFile((folder.path() / "none" / "file").string()).isOpen());
}

TEST_F(ScratchFileTest, IsLockedAgainstOtherProcessesWhileInUse) {
  const auto canLock = [this] {
    const int descriptor = open(path.c_str(), O_RDONLY);
    const bool free = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    close(descriptor);
    return free;
  };
  {
    const ScratchFile file(path);
    EXPECT_FALSE(canLock());
  }
  EXPECT_TRUE(canLock());
}

TEST_F(ScratchFileTest, TheWaitForAnotherProcessEnds) {
  const ScratchFile held(path);
  const ScratchFile waited(path, std::chrono::milliseconds(20));
  EXPECT_FALSE(waited.isOpen());
  EXPECT_TRUE(waited.isBusy());
}

TEST_F(ScratchFileTest, OutputWithoutEndIsCutOff) {
  const ScratchFile file(path);
  std::filesystem::resize_file(path, scratchFileLimit * 4);
  EXPECT_EQ(file.contents()->size(), scratchFileLimit);
}

}  // namespace
}  // namespace corvane
