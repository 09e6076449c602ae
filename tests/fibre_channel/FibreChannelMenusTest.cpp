#include "fibre_channel/FibreChannelOffers.h"
#include "pages/FibreChannelMenus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/ManualDispatch.h"

using namespace corvane;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

std::vector<int64_t> offeredTags(const PopUpButton& menu) {
  std::vector<int64_t> tags;
  for (const PopUpItem& item : menu.items()) {
    if (!item.hidden) tags.push_back(item.tag);
  }
  return tags;
}

class FibreChannelMenusTest : public testing::Test {
 protected:
  FibreChannelMenusTest() {
    speed.setItems(speedMenuItems());
    topology.setItems(topologyMenuItems());
    depth.setItems(queueDepthMenuItems());
  }

  bool depthsTrimmed(const std::string& version) {
    trimQueueDepthMenu(depth, version);
    EXPECT_EQ(depth.items()[0].hidden, depth.items()[1].hidden);
    return depth.items()[0].hidden;
  }

  ManualDispatch dispatch;
  PopUpButton speed{dispatch, "setSpeed"};
  PopUpButton topology{dispatch, "setTopology"};
  PopUpButton depth{dispatch, "setQueueDepth"};
};

TEST_F(FibreChannelMenusTest, TrimmedItemsLieAtTheirIndices) {
  EXPECT_EQ(speed.items().size(), 5U);
  EXPECT_EQ(speed.items()[1].tag, 2000);
  EXPECT_EQ(speed.items()[3].tag, 16000);
  EXPECT_EQ(topology.items()[2].tag, 1);
  EXPECT_EQ(topology.items()[2].title, "Arbitrated Loop");
  EXPECT_THAT(offeredTags(topology), ElementsAre(0, 1));
  EXPECT_THAT(offeredTags(speed), UnorderedElementsAre(0, 2000, 4000, 8000, 16000));
  EXPECT_THAT(offeredTags(depth), testing::Contains(512));
  EXPECT_NE(depth.items()[0].tag, 512);
  EXPECT_NE(depth.items()[1].tag, 512);
}

struct ModelMenus {
  const char* product;
  std::vector<int64_t> speeds;
  std::vector<int64_t> topologies;
};

TEST_F(FibreChannelMenusTest, EachModelOffersItsOwn) {
  const std::vector<ModelMenus> models{
      {"Corvane2 8G FC", {0, 2000, 4000, 8000}, {0, 1}},
      {"Corvane2 16G FC", {0, 2000, 4000, 8000, 16000}, {0}},
      {"Corvane3 8G FC", {0, 2000, 4000, 8000}, {0, 1}},
      {"Corvane3 F2", {0, 4000, 8000, 16000}, {0}},
      {"", {0, 2000, 4000, 8000, 16000}, {0, 1}},
  };
  for (const ModelMenus& model : models) {
    trimSpeedMenu(speed, model.product);
    trimTopologyMenu(topology, model.product);
    EXPECT_THAT(offeredTags(speed), testing::UnorderedElementsAreArray(model.speeds))
        << model.product;
    EXPECT_THAT(offeredTags(topology), testing::ElementsAreArray(model.topologies))
        << model.product;
  }
}

TEST_F(FibreChannelMenusTest, OlderDriversTakeNoLargeDepths) {
  for (const char* version : {"2.0.7", "1.9.9", "0.0.0", "2.0.0", "1.0.45", "2", "2.0", "",
                              "10.0.9", "2.0.7b", "2.0.x9", "abc"}) {
    EXPECT_TRUE(depthsTrimmed(version)) << version;
  }
}

TEST_F(FibreChannelMenusTest, NewerDriversTakeThem) {
  for (const char* version : {"2.0.8", "2.0.10", "2.0.9", "2.1.0", "3.0.0", "2.0.80", "2.0.99b1"}) {
    EXPECT_FALSE(depthsTrimmed(version)) << version;
  }
}

TEST_F(FibreChannelMenusTest, PatchHasTwoCharactersOnlyInALongVersion) {
  EXPECT_TRUE(depthsTrimmed("2.0.1"));
  EXPECT_FALSE(depthsTrimmed("2.0.19"));
  EXPECT_TRUE(depthsTrimmed("2.0.07"));
}

TEST_F(FibreChannelMenusTest, TextsOfKnownValues) {
  EXPECT_EQ(speedText(0), "Automatic");
  EXPECT_EQ(speedText(2000), "2 Gbps");
  EXPECT_EQ(speedText(4000), "4 Gbps");
  EXPECT_EQ(speedText(8000), "8 Gbps");
  EXPECT_EQ(speedText(16000), "16 Gbps");
  EXPECT_EQ(speedText(1), std::nullopt);
  EXPECT_EQ(speedText(32000), std::nullopt);
  EXPECT_EQ(topologyText(0), "Point to Point");
  EXPECT_EQ(topologyText(1), "Arbitrated Loop");
  EXPECT_EQ(topologyText(2), std::nullopt);
}

TEST_F(FibreChannelMenusTest, OfferedValueIsSelectedByItsTag) {
  showSpeed(speed, 16000);
  EXPECT_EQ(speed.selectedTag(), 16000);
  showTopology(topology, 0);
  EXPECT_EQ(topology.selectedIndex(), 0U);
  showQueueDepth(depth, 512);
  EXPECT_EQ(depth.selectedTag(), 512);
}

TEST_F(FibreChannelMenusTest, HiddenValueIsShownPlainly) {
  trimSpeedMenu(speed, "Corvane2 8G FC");
  showSpeed(speed, 16000);
  EXPECT_EQ(speed.selectedTag(), std::nullopt);
  EXPECT_EQ(speed.plainValue(), "16 Gbps");
  trimTopologyMenu(topology, "Corvane3 F2");
  showTopology(topology, 1);
  EXPECT_EQ(topology.selectedTag(), std::nullopt);
  EXPECT_EQ(topology.plainValue(), "Arbitrated Loop");
}

TEST_F(FibreChannelMenusTest, UnlistedValueIsShownPlainly) {
  showSpeed(speed, 32000);
  EXPECT_EQ(speed.plainValue(), "32000 Mb/s");
  showTopology(topology, 7);
  EXPECT_EQ(topology.plainValue(), "7");
  showQueueDepth(depth, 33);
  EXPECT_EQ(depth.plainValue(), "33");
  EXPECT_EQ(depth.selectedTag(), std::nullopt);
}

TEST_F(FibreChannelMenusTest, OfferedValueReplacesAPlainOne) {
  showQueueDepth(depth, 33);
  showQueueDepth(depth, 64);
  EXPECT_EQ(depth.plainValue(), "");
  EXPECT_EQ(depth.selectedTag(), 64);
}

TEST(FibreChannelSpeedToSend, AutomaticIsOneOn16GAdaptersOnly) {
  EXPECT_EQ(speedToSend("Corvane2 16G FC", 0), 1U);
  EXPECT_EQ(speedToSend("Corvane3 F2", 0), 1U);
  EXPECT_EQ(speedToSend("Corvane2 8G FC", 0), 0U);
  EXPECT_EQ(speedToSend("Corvane3 8G FC", 0), 0U);
  EXPECT_EQ(speedToSend("Corvane2 16G FC", 8000), 8000U);
  EXPECT_EQ(speedToSend("Corvane2 8G FC", 2000), 2000U);
}

}  // namespace
