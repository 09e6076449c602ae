#include "AboutDialog.h"

#include "ApplicationFixture.h"

using namespace corvane;

namespace {

using AboutDialogTest = ApplicationFixture;

}  // namespace

TEST_F(AboutDialogTest, ShowsNameVersionAndCopyright) {
  fake.bundles.mainInfo = {{"CFBundleShortVersionString", PropertyValue("1.0.0.0")},
                           {"NSHumanReadableCopyright", PropertyValue("Copyright 2026 Velmar")}};
  EXPECT_FALSE(app->aboutDialog().window.isLoaded());
  app->showAbout();
  EXPECT_TRUE(app->aboutDialog().window.isShown());
  EXPECT_EQ(app->aboutDialog().window.name(), "AboutDialog");
  EXPECT_EQ(app->aboutDialog().labelUtilityName.text(), "CORVANE Utility");
  EXPECT_EQ(app->aboutDialog().labelVersion.text(), "Version 1.0.0.0");
  EXPECT_EQ(app->aboutDialog().labelCopyright.text(), "Copyright 2026 Velmar");
}

TEST_F(AboutDialogTest, MissingInformationPrintsAsNull) {
  app->showAbout();
  EXPECT_EQ(app->aboutDialog().labelVersion.text(), "Version (null)");
  EXPECT_EQ(app->aboutDialog().labelCopyright.text(), "(null)");
}

TEST_F(AboutDialogTest, ShowingItAgainClosesTheFormerOne) {
  app->showAbout();
  bool closed = false;
  app->aboutDialog().window.observe(
      [&] { closed = closed || !app->aboutDialog().window.isShown(); });
  app->showAbout();
  EXPECT_TRUE(closed);
  EXPECT_TRUE(app->aboutDialog().window.isShown());
  app->aboutDialog().window.observe(nullptr);
}
