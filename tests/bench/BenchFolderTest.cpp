#include "platform/bench/file/BenchFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "TemporaryFolder.h"

using namespace corvane;

namespace {

class BenchFolderTest : public testing::Test {
 protected:
  BenchFolder folder() const { return BenchFolder(BenchFile(place_ + "/machine.json")); }

  const TemporaryFolder temporary_;
  const std::string place_ = temporary_.path().string();
};

}  // namespace

TEST_F(BenchFolderTest, EveryFixedPlaceHasItsFolderInsideTheBenchsOwn) {
  const BenchFolder made = folder();
  made.create();
  const Paths paths = made.paths();
  for (const std::string& path :
       {paths.utilityTool, paths.scratchFile, paths.extractedImage, paths.transferImage,
        paths.systemLog, paths.home, paths.downloadFolder + "/x", paths.localExtensions + "x",
        paths.systemExtensions + "x"}) {
    EXPECT_EQ(path.rfind(made.root() + "/", 0), 0U) << path;
    EXPECT_TRUE(std::filesystem::is_directory(std::filesystem::path(path).parent_path())) << path;
  }
  EXPECT_TRUE(std::filesystem::is_directory(paths.home + "/Desktop"));
}

TEST_F(BenchFolderTest, TheTemporaryFolderIsReachedByBothItsSpellings) {
  const BenchFolder made = folder();
  made.create();
  std::ofstream(made.paths().extractedImage) << "image";
  EXPECT_TRUE(std::filesystem::equivalent(made.paths().extractedImage, made.paths().transferImage));
}

TEST_F(BenchFolderTest, MakingItAgainKeepsWhatIsThere) {
  const BenchFolder made = folder();
  made.create();
  std::ofstream(made.paths().systemLog) << "line\n";
  std::filesystem::rename(made.root(), place_ + "/moved.files");
  const BenchFolder moved(BenchFile(place_ + "/moved.json"));
  moved.create();
  EXPECT_EQ(std::filesystem::file_size(moved.paths().systemLog), 5U);
  EXPECT_TRUE(std::filesystem::exists(moved.root() + "/tmp"));
}

TEST_F(BenchFolderTest, AToolIsPlacedReplacedAndTakenAway) {
  const BenchFolder made = folder();
  made.create();
  made.placeTool("corvaneutil", "/bin/true");
  EXPECT_EQ(std::filesystem::read_symlink(made.paths().utilityTool), "/bin/true");
  made.placeTool("corvaneutil", "/bin/false");
  EXPECT_EQ(std::filesystem::read_symlink(made.paths().utilityTool), "/bin/false");
  made.placeTool("corvaneutil", "");
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(made.paths().utilityTool)));
}

TEST_F(BenchFolderTest, APlaceThatCannotBeMadeIsRefused) {
  std::ofstream(place_ + "/machine.files") << "in the way";
  EXPECT_THROW(folder().create(), BenchFileError);
}
