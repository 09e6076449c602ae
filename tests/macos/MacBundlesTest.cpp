#include "platform/macos/MacBundles.h"

#include <unistd.h>

#include "macos/MacOverBenchFixture.h"
#include "platform/macos/MacProgramPath.h"

using namespace corvane;
using namespace corvane::macos;

namespace {

class MacBundlesTest : public MacOverBenchFixture {
 protected:
  std::string driverBundle() const { return bench().paths.localExtensions + "Corvane2-FC.kext"; }

  MacBundles bundles_;
  MacSystemVersion version_;
};

TEST_F(MacBundlesTest, ABundleIsThereOrNot) {
  EXPECT_TRUE(bundles_.exists(driverBundle()));
  EXPECT_FALSE(bundles_.exists("/nowhere.kext"));
  EXPECT_FALSE(bundles_.exists(""));
}

TEST_F(MacBundlesTest, GivesTheValuesOfADriver) {
  EXPECT_EQ(bundles_.infoValue(driverBundle(), "CFBundleVersion"), PropertyValue("2.0.10"));
  EXPECT_EQ(bundles_.infoValue(driverBundle(), "NoSuchKey"), std::nullopt);
  EXPECT_EQ(bundles_.infoValue("/nowhere.kext", "CFBundleVersion"), std::nullopt);
  EXPECT_EQ(bundles_.infoValue("", "CFBundleVersion"), std::nullopt);
}

TEST_F(MacBundlesTest, ADriverThatIsUpdatedMeanwhileShowsItsNewVersion) {
  ASSERT_EQ(bundles_.infoValue(driverBundle(), "CFBundleVersion"), PropertyValue("2.0.10"));
  change([](BenchState& state) { state.drivers["Corvane2-FC"] = "2.1.0"; });
  EXPECT_EQ(bundles_.infoValue(driverBundle(), "CFBundleVersion"), PropertyValue("2.1.0"));
  change([](BenchState& state) { state.drivers.clear(); });
  EXPECT_FALSE(bundles_.exists(driverBundle()));
  EXPECT_EQ(bundles_.infoValue(driverBundle(), "CFBundleVersion"), std::nullopt);
}

TEST_F(MacBundlesTest, GivesTheApplicationsOwnValues) {
  EXPECT_EQ(bundles_.mainInfoValue("CFBundleName"), PropertyValue("Corvane Utility"));
  EXPECT_EQ(bundles_.mainInfoValue("NoSuchKey"), std::nullopt);
}

TEST_F(MacBundlesTest, GivesTheApplicationsPropertyLists) {
  const auto engine = bundles_.resourcePropertyList("UpdateEngine", "plist");
  ASSERT_TRUE(engine);
  EXPECT_EQ(engine, bench().bundles.resourcePropertyList("UpdateEngine", "plist"));
  EXPECT_EQ(bundles_.resourcePropertyList("NoSuchList", "plist"), std::nullopt);
}

TEST_F(MacBundlesTest, GivesTheSystemsVersion) {
  EXPECT_EQ(version_.productVersion(), bench().systemVersion.productVersion());
  EXPECT_FALSE(version_.productVersion().empty());
}

TEST_F(MacBundlesTest, EveryFailedCallMeansNothing) {
  for (const char* call :
       {"CFURLCreateFromFileSystemRepresentation", "CFBundleCopyInfoDictionaryInDirectory"}) {
    system().fail(call);
    EXPECT_EQ(bundles_.infoValue(driverBundle(), "CFBundleVersion"), std::nullopt) << call;
    system().mend(call);
  }
  for (const char* call : {"CFURLCreateFromFileSystemRepresentation", "CFReadStreamCreateWithFile",
                           "CFReadStreamOpen", "CFPropertyListCreateWithStream"}) {
    system().fail(call);
    EXPECT_EQ(version_.productVersion(), "") << call;
    system().mend(call);
  }
  for (const char* call : {"CFBundleGetMainBundle", "CFBundleCopyResourceURL", "CFReadStreamOpen",
                           "CFPropertyListCreateWithStream"}) {
    system().fail(call);
    EXPECT_EQ(bundles_.resourcePropertyList("UpdateEngine", "plist"), std::nullopt) << call;
    system().mend(call);
  }
  system().fail("CFBundleGetMainBundle");
  EXPECT_EQ(bundles_.mainInfoValue("CFBundleName"), std::nullopt);
}

TEST_F(MacBundlesTest, TheProgramKnowsWhereItStands) {
  EXPECT_EQ(programPath(), std::filesystem::read_symlink("/proc/self/exe"));
  system().fail("_NSGetExecutablePath");
  EXPECT_EQ(programPath(), "");
}

}  // namespace
