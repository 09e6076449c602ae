#include "firmware/Volumes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"
#include "firmware/UnmountedVolumesRecord.h"

using namespace corvane;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class VolumesTest : public testing::Test {
 protected:
  VolumesTest() {
    std::filesystem::remove_all(home);
    std::filesystem::create_directories(home);
    fake.paths.home = home.string();
  }
  ~VolumesTest() override { std::filesystem::remove_all(home); }

  std::filesystem::path home = std::filesystem::path(testing::TempDir()) /
                               (std::string("corvane_volumes_") +
                                testing::UnitTest::GetInstance()->current_test_info()->name());
  std::filesystem::path record =
      home / "Library/Application Support/Corvane Utility/unmounted-volumes";
  std::string recordContent() const {
    std::ifstream file(record);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
};

TEST_F(VolumesTest, AsksInTheOrderGivenOverOneSession) {
  Volumes volumes(fake.platform());
  volumes.unmountAllVolume({"disk5s1", "disk4", "disk4s1"});
  EXPECT_THAT(
      fake.diskArbitration.order(),
      ElementsAre("create", "unmount disk5s1", "unmount disk4", "unmount disk4s1", "release"));
  volumes.mountAllVolume({"disk5s1"});
  EXPECT_EQ(fake.diskArbitration.order().back(), "release");
  EXPECT_EQ(fake.diskArbitration.openSessions(), 0U);
}

TEST_F(VolumesTest, NoNamesMakeAndReleaseASessionOnly) {
  Volumes volumes(fake.platform());
  volumes.unmountAllVolume({});
  volumes.mountAllVolume({});
  EXPECT_THAT(fake.diskArbitration.order(), ElementsAre("create", "release", "create", "release"));
  EXPECT_FALSE(std::filesystem::exists(record));
}

TEST_F(VolumesTest, NameThatNoLongerExistsIsPassedOver) {
  fake.diskArbitration.unknownNames = {"disk9"};
  Volumes volumes(fake.platform());
  volumes.mountAllVolume({"disk9", "disk4"});
  EXPECT_THAT(fake.diskArbitration.order(), ElementsAre("create", "mount disk4", "release"));
}

TEST_F(VolumesTest, WithoutASessionNothingHappens) {
  fake.diskArbitration.failCreate = true;
  Volumes volumes(fake.platform());
  volumes.unmountAllVolume({"disk4"});
  EXPECT_THAT(fake.diskArbitration.order(), IsEmpty());
}

TEST_F(VolumesTest, UpdateThatEndsLeavesNothingToTell) {
  {
    Volumes volumes(fake.platform());
    volumes.unmountAllVolume({"disk4s1"});
    EXPECT_TRUE(std::filesystem::exists(record));
    volumes.mountAllVolume({"disk4s1"});
    EXPECT_FALSE(std::filesystem::exists(record));
  }
  EXPECT_THAT(Volumes(fake.platform()).tellLeftUnmounted(), IsEmpty());
  EXPECT_THAT(fake.log.lines(), IsEmpty());
}

TEST_F(VolumesTest, InterruptedUpdateIsToldOnceAtTheNextStart) {
  { Volumes(fake.platform()).unmountAllVolume({"disk4s1", "disk4s2"}); }
  Volumes next(fake.platform());
  EXPECT_THAT(next.tellLeftUnmounted(), ElementsAre("disk4s1", "disk4s2"));
  EXPECT_THAT(fake.log.lines(),
              ElementsAre("A firmware update did not end; these volumes may still be unmounted: "
                          "disk4s1, disk4s2"));
  EXPECT_THAT(next.tellLeftUnmounted(), IsEmpty());
}

TEST_F(VolumesTest, RunningUpdateOfAnotherProgramIsNotTold) {
  Volumes running(fake.platform());
  running.unmountAllVolume({"disk4s1"});
  EXPECT_THAT(Volumes(fake.platform()).tellLeftUnmounted(), IsEmpty());
  EXPECT_TRUE(std::filesystem::exists(record));
}

TEST_F(VolumesTest, RecordKeepsWhatIsNotMountedYet) {
  {
    Volumes volumes(fake.platform());
    volumes.unmountAllVolume({"disk4s1", "disk5s1"});
    volumes.mountAllVolume({"disk4s1"});
  }
  EXPECT_THAT(Volumes(fake.platform()).tellLeftUnmounted(), ElementsAre("disk5s1"));
}

TEST_F(VolumesTest, EachVolumeLeavesTheRecordAsItIsMounted) {
  Volumes volumes(fake.platform());
  volumes.unmountAllVolume({"disk4", "disk4s1", "disk5"});
  std::vector<std::string> recorded;
  fake.diskArbitration.onStep = [&](const std::string&) { recorded.push_back(recordContent()); };
  volumes.mountAllVolume({"disk5", "disk4", "disk4s1"});
  // At "create", at each mount and at "release".
  EXPECT_THAT(recorded, ElementsAre("disk4\ndisk4s1\ndisk5\n", "disk4\ndisk4s1\ndisk5\n",
                                    "disk4\ndisk4s1\n", "disk4s1\n", ""));
}

TEST_F(VolumesTest, VolumesThatWereNotAskedToBeMountedStayInTheRecord) {
  {
    Volumes volumes(fake.platform());
    volumes.unmountAllVolume({"disk4s1"});
    fake.diskArbitration.failCreate = true;
    volumes.mountAllVolume({"disk4s1"});
  }
  EXPECT_THAT(Volumes(fake.platform()).tellLeftUnmounted(), ElementsAre("disk4s1"));
}

TEST_F(VolumesTest, VolumeThatHasGoneLeavesTheRecord) {
  Volumes volumes(fake.platform());
  volumes.unmountAllVolume({"disk4s1"});
  fake.diskArbitration.unknownNames = {"disk4s1"};
  volumes.mountAllVolume({"disk4s1"});
  EXPECT_FALSE(std::filesystem::exists(record));
}

TEST_F(VolumesTest, RecordOfAProgramThatEndedMeanwhileIsKeptForTheNextStart) {
  Volumes volumes(fake.platform());
  EXPECT_THAT(volumes.tellLeftUnmounted(), IsEmpty());
  { Volumes(fake.platform()).unmountAllVolume({"disk9"}); }
  volumes.unmountAllVolume({"disk4s1"});
  EXPECT_EQ(recordContent(), "disk9\ndisk4s1\n");
  volumes.mountAllVolume({"disk4s1"});
  EXPECT_EQ(recordContent(), "disk9\n");
  EXPECT_THAT(Volumes(fake.platform()).tellLeftUnmounted(), ElementsAre("disk9"));
  EXPECT_FALSE(std::filesystem::exists(record));
}

TEST_F(VolumesTest, UpdateGoesOnWhenNothingCanBeNoted) {
  fake.paths.home = "/dev/null";
  Volumes volumes(fake.platform());
  volumes.unmountAllVolume({"disk4s1"});
  EXPECT_THAT(fake.log.lines(),
              ElementsAre("Could not note which volumes are unmounted for the firmware update"));
  EXPECT_THAT(fake.diskArbitration.order(), ElementsAre("create", "unmount disk4s1", "release"));
}

TEST_F(VolumesTest, LinkInPlaceOfTheRecordIsNotFollowed) {
  const auto other = home / "other";
  std::ofstream(other) << "precious";
  std::filesystem::create_directories(record.parent_path());
  std::filesystem::create_symlink(other, record);
  UnmountedVolumesRecord linked(record.string());
  EXPECT_FALSE(linked.add({"disk4s1"}));
  EXPECT_THAT(linked.takeLeftBehind(), IsEmpty());
  std::string content;
  std::ifstream(other) >> content;
  EXPECT_EQ(content, "precious");
}

}  // namespace
