#include "launch/ShippedFiles.h"

#include <cstdlib>

#include "TemporaryFolder.h"

using namespace corvane;

namespace {

class ShippedFilesTest : public testing::Test {
 protected:
  void makeFile(const std::filesystem::path& path) {
    std::filesystem::create_directories((folder_ / path).parent_path());
    std::ofstream(folder_ / path) << "{}";
  }

  ShippedFiles beside(const std::string& program) const { return ShippedFiles(folder_ / program); }

  const TemporaryFolder temporary_;
  const std::filesystem::path folder_ = temporary_.path();
};

TEST_F(ShippedFilesTest, AnInstalledProgramFindsItsFiles) {
  makeFile("usr/share/corvane/bench/demo.json");
  makeFile("usr/libexec/corvane/bench-tools/ping");
  const ShippedFiles shipped = beside("usr/bin/corvane");
  EXPECT_EQ(shipped.benchFolder(), folder_ / "usr/share/corvane/bench");
  EXPECT_EQ(shipped.benchToolsFolder(), folder_ / "usr/libexec/corvane/bench-tools");
}

TEST_F(ShippedFilesTest, AProgramOfAnApplicationBundleFindsItsFiles) {
  makeFile("Some.app/Contents/Resources/bench/demo.json");
  makeFile("Some.app/Contents/Helpers/bench-tools/ping");
  const ShippedFiles shipped = beside("Some.app/Contents/MacOS/corvane");
  EXPECT_EQ(shipped.benchFolder(), folder_ / "Some.app/Contents/Resources/bench");
  EXPECT_EQ(shipped.benchToolsFolder(), folder_ / "Some.app/Contents/Helpers/bench-tools");
}

TEST_F(ShippedFilesTest, AProgramOfABuildTreeFindsThoseOfItsSources) {
  makeFile("source/bench/demo.json");
  makeFile("source/build/dev/bin/bench-tools/ping");
  const ShippedFiles shipped = beside("source/build/dev/bin/corvane");
  EXPECT_EQ(shipped.benchFolder(), folder_ / "source/bench");
  EXPECT_EQ(shipped.benchToolsFolder(), folder_ / "source/build/dev/bin/bench-tools");
}

TEST_F(ShippedFilesTest, AFolderOfThatNameWithoutSamplesIsPassedOver) {
  makeFile("source/bench/demo.json");
  makeFile("source/build/bench/other");
  EXPECT_EQ(beside("source/build/dev/bin/corvane").benchFolder(), folder_ / "source/bench");
}

TEST_F(ShippedFilesTest, WithoutFilesThereIsNothing) {
  const ShippedFiles shipped = beside("alone/corvane");
  EXPECT_EQ(shipped.benchFolder(), std::nullopt);
  EXPECT_EQ(shipped.benchToolsFolder(), std::nullopt);
}

TEST_F(ShippedFilesTest, ThisProgramFindsTheSourcesBenches) {
  EXPECT_EQ(ShippedFiles::ofThisProgram().benchFolder(),
            std::filesystem::path(CORVANE_SOURCE_DIR) / "bench");
}

}  // namespace
