#include "discovery/AttachedAdapters.h"

#include "fakes/FakeAdapters.h"

using namespace corvane;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

class AttachedAdaptersTest : public ::testing::Test {
 protected:
  /// Publishes the entry and all its ancestors, as a computer has them.
  void publishWithAncestors(RegistryHandle entry) {
    std::vector<RegistryHandle> entries;
    RegistryObject at(registry, registry.give(entry));
    RegistryHandle parent = 0;
    while (registry.parentEntry(at.get(), servicePlane, parent) == statusSuccess) {
      at = RegistryObject(registry, parent);
      entries.push_back(parent);
    }
    registry.publish(entries);
  }

  void plug(const FakeFibreChannelAdapter& adapter) {
    publishWithAncestors(addFibreChannelAdapter(registry, adapter)[0]);
  }

  void plug(const FakeTenGigabitAdapter& adapter) {
    for (const RegistryHandle port : addTenGigabitAdapter(registry, adapter))
      publishWithAncestors(port);
  }

  FakeRegistry registry;
};

}  // namespace

TEST_F(AttachedAdaptersTest, AreFoundWithTheLabelsThatTheirPortsGive) {
  FakeFibreChannelAdapter fibreChannel;
  for (const int hop : {1, 2, 6}) {
    fibreChannel.hop = hop;
    plug(fibreChannel);
  }
  FakeTenGigabitAdapter ethernet;
  ethernet.hop = 3;
  plug(ethernet);
  ethernet.bus = 30;
  ethernet.subsystem = 0x7203;
  ethernet.downstream = "DSB0";
  plug(ethernet);
  EXPECT_THAT(findAttachedAdapters(registry),
              UnorderedElementsAre(AttachedAdapter{"Corvane2 16G FC", "B - 1"},
                                   AttachedAdapter{"Corvane2 16G FC", "B - 2"},
                                   AttachedAdapter{"Corvane2 16G FC", "B - 6"},
                                   AttachedAdapter{"Corvane2 10G SFP+", "A - 3"},
                                   AttachedAdapter{"Corvane3 NBASE-T1", "(null) - 3"}));
  EXPECT_EQ(registry.references(), 0);
  EXPECT_EQ(registry.overReleases, 0);
}

TEST_F(AttachedAdaptersTest, AreTheMakersAlone) {
  FakeFibreChannelAdapter other;
  other.vendor = 3;
  plug(other);
  FakeFibreChannelAdapter unknown;
  unknown.model = 7;
  plug(unknown);
  FakeTenGigabitAdapter foreign;
  foreign.subsystem = 0x9999;
  plug(foreign);
  EXPECT_THAT(findAttachedAdapters(registry), IsEmpty());
}

TEST_F(AttachedAdaptersTest, AreNoneWhereTheRegistryRefuses) {
  plug(FakeFibreChannelAdapter{});
  registry.failAddNotification = firstMatchNotification;
  EXPECT_THAT(findAttachedAdapters(registry), IsEmpty());
  registry.failAddNotification = "";
  registry.failCreatePort = true;
  EXPECT_THAT(findAttachedAdapters(registry), IsEmpty());
}
