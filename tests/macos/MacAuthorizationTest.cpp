#include "platform/macos/MacAuthorization.h"

#include "macos/MacOverBenchFixture.h"

using namespace corvane;
using namespace corvane::macos;

namespace {

class RecordingLockDelegate final : public AuthorizationDelegate {
 public:
  void authorizationViewDidAuthorize() override { events.push_back("open"); }
  void authorizationViewDidDeauthorize() override { events.push_back("closed"); }
  std::vector<std::string> events;
};

class MacAuthorizationTest : public MacOverBenchFixture {
 protected:
  /// A lock that asks for a right.
  std::unique_ptr<MacAuthorization> lock() {
    auto lock = std::make_unique<MacAuthorization>();
    lock->setRight("system.privilege.admin");
    lock->setDelegate(&delegate_);
    return lock;
  }

  RecordingLockDelegate delegate_;
};

TEST_F(MacAuthorizationTest, OpensWhenTheUserGivesThePassword) {
  const auto opened = lock();
  EXPECT_FALSE(opened->isAuthorized());
  EXPECT_TRUE(opened->authorize());
  EXPECT_TRUE(opened->isAuthorized());
  EXPECT_THAT(delegate_.events, testing::ElementsAre("open"));
}

TEST_F(MacAuthorizationTest, StaysClosedWhenTheUserCancels) {
  change([](BenchState& state) { state.faults.insert("password-cancelled"); });
  const auto closed = lock();
  EXPECT_FALSE(closed->authorize());
  EXPECT_FALSE(closed->isAuthorized());
  EXPECT_TRUE(delegate_.events.empty());
}

TEST_F(MacAuthorizationTest, LookingAsksNobody) {
  const auto closed = lock();
  closed->updateStatus();
  EXPECT_FALSE(closed->isAuthorized());
  EXPECT_TRUE(delegate_.events.empty());
}

TEST_F(MacAuthorizationTest, LookingFindsARightThatIsHeld) {
  const auto opened = lock();
  opened->authorize();
  opened->updateStatus();
  EXPECT_TRUE(opened->isAuthorized());
  EXPECT_THAT(delegate_.events, testing::ElementsAre("open"));
}

TEST_F(MacAuthorizationTest, ClosingGivesTheRightsBack) {
  const auto closed = lock();
  closed->authorize();
  closed->deauthorize();
  EXPECT_FALSE(closed->isAuthorized());
  closed->updateStatus();
  EXPECT_FALSE(closed->isAuthorized());
  EXPECT_THAT(delegate_.events, testing::ElementsAre("open", "closed"));
  EXPECT_TRUE(closed->authorize());
}

TEST_F(MacAuthorizationTest, WithoutARightThereIsNothingToGrant) {
  MacAuthorization unnamed;
  EXPECT_FALSE(unnamed.authorize());
}

TEST_F(MacAuthorizationTest, ASystemWithoutAuthorizationsGrantsNothing) {
  system().fail("AuthorizationCreate");
  const auto closed = lock();
  EXPECT_FALSE(closed->authorize());
  closed->deauthorize();
  system().mend("AuthorizationCreate");
  closed->deauthorize();
  EXPECT_TRUE(closed->authorize());
}

TEST_F(MacAuthorizationTest, ARefusalOfTheSystemsIsARefusal) {
  const auto closed = lock();
  system().fail("AuthorizationCopyRights");
  EXPECT_FALSE(closed->authorize());
  EXPECT_FALSE(closed->isAuthorized());
}

}  // namespace
