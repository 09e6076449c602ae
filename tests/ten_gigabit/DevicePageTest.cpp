#include "ten_gigabit/PageTest.h"

namespace corvane {
namespace {

constexpr const char* localBundle = "/Library/Extensions/Corvane2-10GE.kext";
constexpr const char* systemBundle = "/System/Library/Extensions/Corvane2-10GE.kext";

class DevicePageTest : public PageTest {
 protected:
  void expectVersion(const std::string& shown, const std::string& kept) {
    pages.show10GDeviceInfo();
    EXPECT_EQ(controls.drvVer_10GE.text(), shown);
    EXPECT_EQ(state.driverVersion_10G, kept);
  }
};

TEST_F(DevicePageTest, ShowsTheDriversVersionAndTheProduct) {
  computer.bundles.install(localBundle, "1.4.2");
  expectVersion("1.4.2", "1.4.2");
  EXPECT_EQ(controls.productType10G.text(), "Corvane2 10G SFP+");
  EXPECT_TRUE(shell.lines.empty());
}

TEST_F(DevicePageTest, EveryProductIsNamed) {
  for (const auto product : {corvane2_10G_BaseT, corvane2_10G_SFP, corvane3_NBASE_T1,
                             corvane3_10G_BaseT, corvane3_10G_SFP}) {
    select(product);
    pages.show10GDeviceInfo();
    EXPECT_EQ(controls.productType10G.text(), product);
  }
}

TEST_F(DevicePageTest, Release10_8KeepsItsDriversInTheSystemsFolder) {
  computer.bundles.install(localBundle, "2.0.0");
  computer.bundles.install(systemBundle, "1.0.0");
  computer.systemVersion.version = "10.8.5";
  expectVersion("1.0.0", "1.0.0");
  for (const char* release : {"10.7.5", "10.9", "10.80", "14.3", ""}) {
    computer.systemVersion.version = release;
    expectVersion("2.0.0", "2.0.0");
  }
}

TEST_F(DevicePageTest, WithoutADriverThereIsNoVersion) {
  computer.bundles.install(localBundle, "1.4.2");
  pages.show10GDeviceInfo();
  computer.bundles.bundles.clear();
  expectVersion("N/A", "0.0.0");
}

TEST_F(DevicePageTest, AVersionOfFifteenCharactersIsTheLongestThatFits) {
  computer.bundles.install(localBundle, "123456789.1.2.3");
  expectVersion("123456789.1.2.3", "123456789.1.2.3");
  computer.bundles.install(localBundle, "123456789.1.2.34");
  expectVersion("N/A", "0.0.0");
}

TEST_F(DevicePageTest, AVersionThatIsNoAsciiTextIsNone) {
  computer.bundles.install(localBundle,
                           "1.4\xC2\xB7"
                           "2");
  expectVersion("N/A", "0.0.0");
  computer.bundles.bundles[localBundle] = {{"CFBundleVersion", PropertyValue(14)}};
  expectVersion("N/A", "0.0.0");
}

TEST_F(DevicePageTest, TheVersionIsReadEvenWhenNo10GbEAdapterIsSelected) {
  computer.bundles.install(localBundle, "1.4.2");
  state.intSelectRow = 3;
  expectVersion("1.4.2", "1.4.2");
  EXPECT_EQ(controls.productType10G.text(), "");
}

}  // namespace
}  // namespace corvane
