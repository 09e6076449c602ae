#include "platform/dump/SupportFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using namespace corvane;

namespace {

namespace files = std::filesystem;

const files::path sampleDumps = CORVANE_TEST_DATA "/dumps";

class SupportFolderTest : public testing::Test {
 protected:
  SupportFolderTest() {
    folder = files::path(testing::TempDir()) /
             testing::UnitTest::GetInstance()->current_test_info()->name();
    files::remove_all(folder);
    files::create_directories(folder);
  }
  ~SupportFolderTest() override { files::remove_all(folder); }

  files::path folder;
};

TEST_F(SupportFolderTest, OpensACollectedFolder) {
  const SupportReading reading = openSupportMaterial(sampleDumps / "20151104-093000");
  ASSERT_TRUE(reading.material.has_value()) << reading.problem;
  EXPECT_EQ(reading.material->dump.entryCount(), 46u);
  EXPECT_EQ(reading.material->profile.productVersion, "10.10.5");
  EXPECT_EQ(reading.material->profile.driverVersions.at("com.velmar.Corvane2-FC"), "1.0.46");
  EXPECT_EQ(reading.material->profile.driverVersions.at("com.velmar.driver.Corvane2-10GE"),
            "1.3.8");
}

TEST_F(SupportFolderTest, OpensTheFolderAroundOneCollection) {
  files::copy(sampleDumps / "20151104-093000", folder / "20151104-093000",
              files::copy_options::recursive);
  EXPECT_TRUE(openSupportMaterial(folder).material.has_value());
  files::copy(folder / "20151104-093000", folder / "20151104-093001",
              files::copy_options::recursive);
  EXPECT_EQ(openSupportMaterial(folder).problem,
            "The folder holds 2 collections; open one of them.");
}

TEST_F(SupportFolderTest, ManagesWithoutAProfile) {
  files::copy(sampleDumps / "desktop-2013.txt", folder / "ioreg.txt");
  EXPECT_EQ(openSupportMaterial(folder).material->profile.productVersion, "");
  std::ofstream(folder / "profiler.spx") << "not a property list";
  EXPECT_EQ(openSupportMaterial(folder).material->profile.productVersion, "");
}

TEST_F(SupportFolderTest, SaysWhatIsMissing) {
  EXPECT_EQ(openSupportMaterial(folder).problem, "The folder holds no ioreg.txt.");
  EXPECT_EQ(openSupportMaterial(folder / "nothing").problem, "There is no such file.");
  EXPECT_EQ(openSupportMaterial("/dev/zero").problem, "There is no such file.");
}

TEST(SystemProfileText, TellsTheRelease) {
  const auto release = [](const std::string& text) {
    return readSystemProfile(
               "<plist version=\"1.0\"><array><dict><key>_dataType</key>"
               "<string>SPSoftwareDataType</string><key>_items</key><array><dict>"
               "<key>os_version</key><string>" +
               text + "</string></dict></array></dict></array></plist>")
        .productVersion;
  };
  EXPECT_EQ(release("Mac OS X 10.8.5 (12F45)"), "10.8.5");
  EXPECT_EQ(release("macOS 12.6.1 (21G217)"), "12.6.1");
  EXPECT_EQ(release("System"), "");
}

}  // namespace
