#include <gmock/gmock.h>

#include "fibre_channel/FibreChannelPagesFixture.h"

using namespace corvane;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class FibreChannelRefreshTest : public FibreChannelPagesFixture {
 protected:
  FibreChannelRefreshTest() {
    attachCorvane2With8G();
    showPort(0);
  }

  /// The driver drops the link for a change and has taken the setting when it is read again.
  void changeSpeed(int64_t tag) {
    ports[firstService].linkState = 1;
    ports[firstService].configuredSpeed = static_cast<uint32_t>(tag);
    chooseTag(controls.setSpeed, tag);
    dispatch.runUntilIdle();
  }

  void linkUp(uint32_t speed) {
    ports[firstService].linkState = 0;
    ports[firstService].currentSpeed = speed;
  }
};

TEST_F(FibreChannelRefreshTest, SaysLoadingAtOnceWhateverTheLink) {
  ports[firstService].configuredSpeed = 4000;
  chooseTag(controls.setSpeed, 4000);
  EXPECT_EQ(dispatch.priorities(), std::vector{QueuePriority::Background});
  dispatch.runUntilIdle();
  expectLink("Loading Setting...", "Loading Setting...");
  EXPECT_EQ(controls.setSpeed.selectedTag(), 4000);
  EXPECT_TRUE(controls.portProgress.isRunning());
}

TEST_F(FibreChannelRefreshTest, LinkThatComesUpShowsAtTheNextReading) {
  changeSpeed(4000);
  linkUp(4000);
  dispatch.advance(2999ms);
  expectLink("Loading Setting...", "Loading Setting...");
  dispatch.advance(1ms);
  expectLink("4 Gbps", "Point to Point");
  EXPECT_TRUE(controls.portProgress.isRunning());
  dispatch.advance(6s);
  EXPECT_FALSE(controls.portProgress.isRunning());
  EXPECT_EQ(dispatch.unfinished(), 0U);
}

TEST_F(FibreChannelRefreshTest, LinkThatStaysDownSaysSoAfterNineSeconds) {
  changeSpeed(4000);
  for (int wait = 0; wait < 2; ++wait) {
    dispatch.advance(3s);
    expectLink("Loading Setting...", "Loading Setting...");
  }
  dispatch.advance(2999ms);
  expectLink("Loading Setting...", "Loading Setting...");
  dispatch.advance(1ms);
  expectLink("No Link", "No Link");
  EXPECT_FALSE(controls.portProgress.isRunning());
}

TEST_F(FibreChannelRefreshTest, ReadsFiveTimesInAll) {
  const size_t before = sent(2).size();
  changeSpeed(4000);
  EXPECT_THAT(sent(2), SizeIs(before + 1));
  dispatch.advance(3s);
  EXPECT_THAT(sent(2), SizeIs(before + 2));
  dispatch.advance(3s);
  EXPECT_THAT(sent(2), SizeIs(before + 3));
  dispatch.advance(3s);
  EXPECT_THAT(sent(2), SizeIs(before + 5));
  dispatch.advance(20s);
  EXPECT_THAT(sent(2), SizeIs(before + 5));
}

TEST_F(FibreChannelRefreshTest, RefusedChangeShowsTheOldValue) {
  ports[firstService].configuredSpeed = 8000;
  refused[6] = statusUnsupported;
  chooseTag(controls.setSpeed, 4000);
  EXPECT_EQ(controls.setSpeed.selectedTag(), 4000);
  dispatch.runUntilIdle();
  EXPECT_EQ(controls.setSpeed.selectedTag(), 8000);
  dispatch.advance(9s);
  expectLink("8 Gbps", "Point to Point");
  EXPECT_THAT(fake.prompts.alerts, IsEmpty());
}

TEST_F(FibreChannelRefreshTest, TwoChangesFollowSideBySideAndTheLastOneWins) {
  changeSpeed(4000);
  dispatch.advance(1s);
  changeSpeed(2000);
  EXPECT_THAT(sent(6), ElementsAre(on(firstService, "<a00f0000 00000000>"),
                                   on(firstService, "<d0070000 00000000>")));
  dispatch.advance(8s);
  expectLink("No Link", "No Link");
  EXPECT_TRUE(controls.portProgress.isRunning());
  linkUp(2000);
  dispatch.advance(1s);
  expectLink("2 Gbps", "Point to Point");
  EXPECT_EQ(controls.setSpeed.selectedTag(), 2000);
  EXPECT_FALSE(controls.portProgress.isRunning());
}

TEST_F(FibreChannelRefreshTest, UnpluggedPortEndsItQuietly) {
  changeSpeed(4000);
  const size_t before = sent(2).size();
  device->clearAll();
  dispatch.advance(3s);
  EXPECT_FALSE(controls.portProgress.isRunning());
  dispatch.advance(20s);
  EXPECT_THAT(sent(2), SizeIs(before));
  EXPECT_EQ(dispatch.unfinished(), 0U);
  EXPECT_THAT(fake.prompts.alerts, IsEmpty());
}

TEST_F(FibreChannelRefreshTest, PageOfAnotherPortIsLeftAlone) {
  ports[secondService].currentSpeed = 2000;
  changeSpeed(4000);
  pages->show8GPortInfo(1);
  dispatch.advance(9s);
  expectLink("2 Gbps", "Point to Point");
  EXPECT_FALSE(controls.portProgress.isRunning());
}

TEST_F(FibreChannelRefreshTest, PageOfAnotherAdapterIsLeftAlone) {
  changeSpeed(4000);
  attachCorvane3F2();
  ports[firstService].currentSpeed = 16000;
  showPort(0);
  dispatch.advance(9s);
  expectLink("16 Gbps", "Point to Point");
  EXPECT_FALSE(controls.portProgress.isRunning());
}

TEST_F(FibreChannelRefreshTest, PortStaysValidWhileItIsFollowed) {
  const int64_t onShow = fake.registry.references(firstService);
  changeSpeed(4000);
  EXPECT_GT(fake.registry.references(firstService), onShow);
  dispatch.advance(20s);
  EXPECT_EQ(fake.registry.references(firstService), onShow);
  device->port1()->clearService();
  pages->letGoOfDeparted();
  EXPECT_EQ(fake.registry.references(firstService), 0)
      << "the page lets go of a port that has gone";
  EXPECT_EQ(fake.registry.overReleases, 0);
}

TEST_F(FibreChannelRefreshTest, PagesThatAreGoneAreNotTouched) {
  changeSpeed(4000);
  const size_t before = sent(2).size();
  pages.reset();
  dispatch.advance(20s);
  EXPECT_THAT(sent(2), SizeIs(before));
  EXPECT_EQ(dispatch.unfinished(), 0U);
}

TEST_F(FibreChannelRefreshTest, FollowsThePortWhoseServiceIsGiven) {
  dispatch.asyncGlobal(QueuePriority::Background,
                       [this] { pages->reload8GSetting(firstService, secondService); });
  dispatch.runUntilIdle();
  expectLink("Loading Setting...", "Loading Setting...");
  EXPECT_TRUE(controls.portProgress.isRunning());
  dispatch.advance(9s);
  expectLink("8 Gbps", "Point to Point");
  EXPECT_FALSE(controls.portProgress.isRunning());

  pages->show8GPortInfo(1);
  const size_t before = sent(2).size();
  dispatch.asyncGlobal(QueuePriority::Background,
                       [this] { pages->reload8GSetting(0, secondService); });
  dispatch.advance(9s);
  ASSERT_THAT(sent(2), SizeIs(before + 5));
  EXPECT_EQ(fake.userClient.calls().back().service, secondService);
}

TEST_F(FibreChannelRefreshTest, UnknownServiceIsNotFollowed) {
  const size_t before = sent(2).size();
  dispatch.asyncGlobal(QueuePriority::Background, [this] { pages->reload8GSetting(0, 12345); });
  dispatch.advance(20s);
  EXPECT_THAT(sent(2), SizeIs(before));
  EXPECT_FALSE(controls.portProgress.isRunning());
  expectLink("8 Gbps", "Point to Point");
}

}  // namespace
