#include <gmock/gmock.h>

#include "fibre_channel/FibreChannelPagesFixture.h"

using namespace corvane;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using ChangeTargetsTest = FibreChannelPagesFixture;

TEST_F(ChangeTargetsTest, AnOpenMenuMeansThePortThatItWasOpenedFor) {
  attachCorvane2With8G();
  showPort(0);
  const RegistryHandle meant = firstService;
  controls.setSpeed.open();
  attachCorvane3F2();
  showPort(1);
  chooseTag(controls.setSpeed, 2000);
  controls.setSpeed.close();
  dispatch.advance(20s);
  EXPECT_THAT(sent(6), ElementsAre(on(meant, "<d0070000 00000000>")));
  EXPECT_FALSE(offersTag(controls.setSpeed, 2000)) << "closed, it is the F2's menu";
}

TEST_F(ChangeTargetsTest, AMenuClosesWhenItsPortGoes) {
  attachCorvane2With8G();
  showPort(0);
  controls.setSpeed.open();
  device->port1()->clearService();
  attachCorvane3F2();
  pages->letGoOfDeparted();
  EXPECT_FALSE(controls.setSpeed.isOpen());
  EXPECT_THAT(sent(6), IsEmpty());
}

TEST_F(ChangeTargetsTest, AChangeOfAPortThatHasGoneIsRefusedAndNothingIsSent) {
  std::vector<ChangeOutcome> outcomes;
  pages->whenSettled([&outcomes](const ChangeOutcome& outcome) { outcomes.push_back(outcome); });
  attachCorvane2With8G();
  showPort(0);
  const PortTarget meant = *pages->portOnShow();
  device->port1()->clearService();
  pages->FinalChoosePortALPA(meant, 0xEF);
  pages->FinalEnterQueueDepth(meant, 33);
  dispatch.advance(20s);
  EXPECT_THAT(sent(7), IsEmpty());
  EXPECT_THAT(sent(15), IsEmpty());
  ASSERT_THAT(outcomes, SizeIs(2));
  for (const ChangeOutcome& outcome : outcomes)
    EXPECT_EQ(outcome.outcome, Outcome::GoneBefore) << sentenceOf(outcome);
}

TEST_F(ChangeTargetsTest, AChangeTellsWhatCameOfIt) {
  std::vector<ChangeOutcome> outcomes;
  pages->whenSettled([&outcomes](const ChangeOutcome& outcome) { outcomes.push_back(outcome); });
  attachCorvane2With8G();
  showPort(0);
  chooseTag(controls.setSpeed, 4000);
  ports[firstService].configuredSpeed = 4000;
  dispatch.advance(20s);
  refused[6] = statusFailure;
  chooseTag(controls.setSpeed, 8000);
  dispatch.advance(20s);
  ASSERT_THAT(outcomes, SizeIs(2));
  EXPECT_EQ(outcomes[0].outcome, Outcome::Taken);
  EXPECT_TRUE(outcomes[0].before.is(0));
  EXPECT_EQ(outcomes[0].hasLink, true);
  EXPECT_EQ(outcomes[1].outcome, Outcome::Refused);
  EXPECT_EQ(outcomes[1].reason, "0xE00002BC");
}

TEST_F(ChangeTargetsTest, ProgressBelongsToThePortThatIsChanged) {
  attachCorvane2With8G();
  showPort(0);
  chooseTag(controls.setSpeed, 4000);
  EXPECT_TRUE(controls.portProgress.isRunning());
  pages->show8GPortInfo(1);
  EXPECT_FALSE(controls.portProgress.isRunning());
  pages->show8GPortInfo(0);
  EXPECT_TRUE(controls.portProgress.isRunning());
  dispatch.advance(20s);
  EXPECT_FALSE(controls.portProgress.isRunning());
}

}  // namespace
