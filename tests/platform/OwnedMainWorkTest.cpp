#include "platform/OwnedMainWork.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

#include "fakes/ManualDispatch.h"

using namespace corvane;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Owner {
 public:
  Owner(Dispatch& dispatch, std::vector<std::string>& notes)
      : notes_(notes), mainWork_(dispatch, *this) {}

  const OwnedMainWork<Owner>& mainWork() const { return mainWork_; }
  void note(const std::string& text) { notes_.push_back(text); }
  void noteStep() { note("step"); }

 private:
  std::vector<std::string>& notes_;
  OwnedMainWork<Owner> mainWork_;
};

struct OwnedMainWorkTest : testing::Test {
  ManualDispatch dispatch;
  std::vector<std::string> notes;
  std::optional<Owner> owner{std::in_place, dispatch, notes};
};

TEST_F(OwnedMainWorkTest, WaitsForItsTurnOnTheMainQueue) {
  dispatch.asyncMain([this] { notes.emplace_back("earlier"); });
  owner->mainWork().async([](Owner& self) { self.note("work"); });
  EXPECT_THAT(notes, IsEmpty());
  dispatch.runUntilIdle();
  EXPECT_THAT(notes, ElementsAre("earlier", "work"));
}

TEST_F(OwnedMainWorkTest, TakesAFunctionOfTheOwner) {
  owner->mainWork().async(&Owner::noteStep);
  dispatch.runUntilIdle();
  EXPECT_THAT(notes, ElementsAre("step"));
}

TEST_F(OwnedMainWorkTest, TakesACallableThatChangesItself) {
  owner->mainWork().async([count = 0](Owner& self) mutable { self.note(std::to_string(++count)); });
  dispatch.runUntilIdle();
  EXPECT_THAT(notes, ElementsAre("1"));
}

TEST_F(OwnedMainWorkTest, IsDroppedWhenTheOwnerHasGone) {
  owner->mainWork().async([](Owner& self) { self.note("work"); });
  owner.reset();
  dispatch.runUntilIdle();
  EXPECT_THAT(notes, IsEmpty());
}

TEST_F(OwnedMainWorkTest, IsDroppedWhenTheOwnerGoesByWorkBeforeIt) {
  owner->mainWork().async([this](Owner& self) {
    self.note("last");
    owner.reset();
  });
  owner->mainWork().async([](Owner& self) { self.note("too late"); });
  dispatch.runUntilIdle();
  EXPECT_THAT(notes, ElementsAre("last"));
}

TEST_F(OwnedMainWorkTest, NeverReachesAnotherOwnerInTheSamePlace) {
  owner->mainWork().async([](Owner& self) { self.note("of the first"); });
  owner.emplace(dispatch, notes);
  owner->mainWork().async([](Owner& self) { self.note("of the second"); });
  dispatch.runUntilIdle();
  EXPECT_THAT(notes, ElementsAre("of the second"));
}

TEST_F(OwnedMainWorkTest, IsPostedFromAnotherThread) {
  dispatch.asyncGlobal(QueuePriority::Default, [this, way = owner->mainWork().way()] {
    way.async([](Owner& self) { self.note("work"); });
    notes.emplace_back("posted");
  });
  dispatch.runUntilIdle();
  EXPECT_THAT(notes, ElementsAre("posted", "work"));
}

TEST_F(OwnedMainWorkTest, AnotherThreadWaitsForItWhenItAsksTo) {
  dispatch.asyncGlobal(QueuePriority::Default, [this, way = owner->mainWork().way()] {
    way.sync([](Owner& self) { self.note("work"); });
    notes.emplace_back("gone on");
  });
  dispatch.runUntilIdle();
  EXPECT_THAT(notes, ElementsAre("work", "gone on"));
}

TEST_F(OwnedMainWorkTest, AnotherThreadGoesOnWhenTheOwnerHasGone) {
  dispatch.asyncGlobal(QueuePriority::Default, [this, way = owner->mainWork().way()] {
    dispatch.sleep(std::chrono::seconds(1));
    way.sync([](Owner& self) { self.note("work"); });
    way.async([](Owner& self) { self.note("more work"); });
    notes.emplace_back("gone on");
  });
  dispatch.runUntilIdle();
  owner.reset();
  dispatch.advance(std::chrono::seconds(1));
  EXPECT_THAT(notes, ElementsAre("gone on"));
}

TEST_F(OwnedMainWorkTest, IsDoneAtOnceOnTheMainThreadThatWaitsForIt) {
  owner->mainWork().way().sync(&Owner::noteStep);
  EXPECT_THAT(notes, ElementsAre("step"));
}

}  // namespace
