#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "fakes/FakeAdapters.h"
#include "monitors/MonitorFixture.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

class VolumeTrackingTest : public MonitorFixture<DeviceMonitorCORVANE2> {
 protected:
  /// A disk's registry entry below a driver of that name.
  RegistryHandle addDisk(const std::string& name, const std::string& driver = "VelmarCORVANE") {
    return fake.registry.add(
        fake.registry.addChain(fake.registry.root, {"pci-bridge", driver, "IOBlockStorageDriver"}),
        "Media", {{"BSD Name", PropertyValue(name)}});
  }
};

}  // namespace

TEST_F(VolumeTrackingTest, DisksPresentAtTheStartAreKnown) {
  addDisk("disk4");
  addDisk("disk4s1");
  fake.diskArbitration.attach("disk4");
  fake.diskArbitration.attach("disk4s1");
  start();
  EXPECT_THAT(monitor.getBSDVolumeList(), UnorderedElementsAre("disk4", "disk4s1"));
  EXPECT_THAT(fake.diskArbitration.order(),
              ElementsAre("create", "appeared", "disappeared", "schedule"));
}

TEST_F(VolumeTrackingTest, DisksOnOtherBusesNeverEnter) {
  addDisk("disk0", "AppleAHCI");
  addDisk("disk1", "VelmarCORVANEx");
  start();
  fake.diskArbitration.attach("disk0");
  fake.diskArbitration.attach("disk1");
  EXPECT_THAT(monitor.getBSDVolumeList(), IsEmpty());
}

TEST_F(VolumeTrackingTest, ADiskTheRegistryDoesNotKnowNeverEnters) {
  start();
  fake.diskArbitration.attach("disk9");
  EXPECT_THAT(monitor.getBSDVolumeList(), IsEmpty());
}

TEST_F(VolumeTrackingTest, ADiskWithoutNameIsIgnored) {
  addDisk("disk4");
  start();
  fake.diskArbitration.attach("disk4");
  fake.diskArbitration.attach(std::nullopt);
  fake.diskArbitration.detach(std::nullopt);
  EXPECT_THAT(monitor.getBSDVolumeList(), ElementsAre("disk4"));
}

TEST_F(VolumeTrackingTest, ADiskAttachedAgainIsThereOnce) {
  addDisk("disk4");
  start();
  fake.diskArbitration.attach("disk4");
  fake.diskArbitration.detach("disk4");
  EXPECT_THAT(monitor.getBSDVolumeList(), IsEmpty());
  fake.diskArbitration.attach("disk4");
  fake.diskArbitration.attach("disk4");
  EXPECT_THAT(monitor.getBSDVolumeList(), ElementsAre("disk4"));
}

TEST_F(VolumeTrackingTest, ADiskGoesWithoutAskingTheRegistry) {
  const auto disk = addDisk("disk4");
  start();
  fake.diskArbitration.attach("disk4");
  fake.registry.terminate({disk});
  fake.diskArbitration.detach("disk4");
  EXPECT_THAT(monitor.getBSDVolumeList(), IsEmpty());
}

TEST_F(VolumeTrackingTest, APathThatDoesNotFitIsNoAdapters) {
  std::vector<std::string> names(40, "a-rather-long-name");
  names.push_back("VelmarCORVANE");
  fake.registry.add(fake.registry.addChain(fake.registry.root, names), "Media",
                    {{"BSD Name", PropertyValue("disk4")}});
  start();
  fake.diskArbitration.attach("disk4");
  EXPECT_THAT(monitor.getBSDVolumeList(), IsEmpty());
}

TEST_F(VolumeTrackingTest, LookingUpADiskLeavesNoReference) {
  addDisk("disk4");
  start();
  const auto before = fake.registry.references();
  fake.diskArbitration.attach("disk4");
  fake.registry.failPath = true;
  fake.diskArbitration.attach("disk4");
  EXPECT_EQ(fake.registry.references(), before);
}

TEST_F(VolumeTrackingTest, StopReleasesTheSessionBeforeItEmptiesTheSet) {
  addDisk("disk4");
  start();
  fake.diskArbitration.attach("disk4");
  std::vector<std::string> atRelease;
  fake.diskArbitration.onStep = [&](const std::string& step) {
    if (step == "release") atRelease = monitor.getBSDVolumeList();
  };
  monitor.stop();
  EXPECT_THAT(atRelease, ElementsAre("disk4"));
  EXPECT_THAT(monitor.getBSDVolumeList(), IsEmpty());
  EXPECT_THAT(fake.diskArbitration.order(), ElementsAre("create", "appeared", "disappeared",
                                                        "schedule", "unschedule", "release"));
}
