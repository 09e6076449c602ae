#include "DeviceMonitorCORVANE2_8FC/FCDriver.h"

#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

using namespace corvane;

namespace {

class FCDriverTest : public ::testing::Test {
 protected:
  FCDriver driver() { return FCDriver(fake.platform()); }

  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
};

constexpr const char* first = "Corvane-FC.kext";
constexpr const char* second = "Corvane2-FC.kext";

}  // namespace

TEST_F(FCDriverTest, TellsTheReleaseThatKeepsDriversInTheSystemFolder) {
  for (const char* version : {"10.8.0", "10.8.5"}) {
    fake.systemVersion.version = version;
    EXPECT_TRUE(driver().getMacVer()) << version;
  }
  for (const char* version : {"10.8", "10.9.5", "10.18.1", "11.0", "14.3", ""}) {
    fake.systemVersion.version = version;
    EXPECT_FALSE(driver().getMacVer()) << version;
  }
}

TEST_F(FCDriverTest, NoDriverIsGenerationOne) {
  EXPECT_EQ(driver().getDriverVer(), 1);
}

TEST_F(FCDriverTest, TellsTheDriverByItsBundle) {
  fake.bundles.install("/Library/Extensions/" + std::string(second), "2.0.8");
  EXPECT_EQ(driver().getDriverVer(), 2);
  fake.bundles.install("/Library/Extensions/" + std::string(first), "1.0.45");
  EXPECT_EQ(driver().getDriverVer(), 3) << "the first generation comes first";
}

TEST_F(FCDriverTest, LooksInTheFolderOfTheReleaseOnly) {
  fake.bundles.install("/System/Library/Extensions/" + std::string(second), "2.0.8");
  EXPECT_EQ(driver().getDriverVer(), 1);
  fake.systemVersion.version = "10.8.5";
  EXPECT_EQ(driver().getDriverVer(), 2);
  fake.bundles.bundles.clear();
  fake.bundles.install("/Library/Extensions/" + std::string(first), "1.0.45");
  EXPECT_EQ(driver().getDriverVer(), 1);
}
