#include "discovery/ChainPosition.h"

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "fakes/FakeAdapters.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"

using namespace corvane;

namespace {

struct DownstreamRow {
  const char* name;
  const char* letter;  ///< null for none
};

class DownstreamLetterTest : public ::testing::TestWithParam<DownstreamRow> {};

ChainPosition positionBelow(const std::vector<std::string>& names) {
  FakeRegistry registry;
  const auto service = registry.addChain(registry.root, names);
  const ChainPosition position = findChainPosition(registry, service);
  EXPECT_EQ(registry.references(), 0);
  EXPECT_EQ(registry.usesAfterRelease, 0);
  return position;
}

}  // namespace

TEST_P(DownstreamLetterTest, TheDigitAfterTheNameGivesTheLetter) {
  const auto position = positionBelow({GetParam().name, "UPS0", "pci-bridge", "port"});
  if (GetParam().letter == nullptr) {
    EXPECT_FALSE(position.port) << *position.port;
  } else {
    EXPECT_EQ(position.port, GetParam().letter);
  }
  EXPECT_EQ(position.sequence, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DownstreamLetterTest,
    ::testing::Values(DownstreamRow{"DSB1", "A"}, DownstreamRow{"DSB2", "B"},
                      DownstreamRow{"DSB3", "C"}, DownstreamRow{"DSB4", "D"},
                      DownstreamRow{"DSB5", "E"}, DownstreamRow{"DSB6", "F"},
                      DownstreamRow{"DSB7", "G"}, DownstreamRow{"DSB8", "H"},
                      DownstreamRow{"DSB9", "I"}, DownstreamRow{"DSB0", nullptr},
                      DownstreamRow{"DSB10", nullptr}, DownstreamRow{"DSB11", nullptr},
                      DownstreamRow{"DSB12", nullptr}, DownstreamRow{"DSB13", nullptr},
                      DownstreamRow{"DSB99", nullptr}, DownstreamRow{"DSB", nullptr},
                      DownstreamRow{"DSBx", nullptr}, DownstreamRow{"XDSB1", nullptr},
                      DownstreamRow{"DSB3 more", "C"}));

TEST(ChainPositionTest, BridgesAreHalvedRoundingUp) {
  EXPECT_EQ(positionBelow({"DSB2", "port"}).sequence, 0);
  EXPECT_EQ(positionBelow({"DSB2", "pci-bridge", "port"}).sequence, 1);
  EXPECT_EQ(positionBelow({"DSB2", "pci-bridge", "pci-bridge", "port"}).sequence, 1);
  EXPECT_EQ(positionBelow({"DSB2", "pci-bridge", "pci-bridge", "pci-bridge", "port"}).sequence, 2);
  EXPECT_EQ(
      positionBelow({"DSB2", "pci-bridge", "a pci-bridge", "pci-bridge x", "pci-bridge", "port"})
          .sequence,
      2);
}

TEST(ChainPositionTest, TheBridgeTestComesBeforeTheDownstreamTest) {
  const auto position = positionBelow({"DSB2", "DSB1 pci-bridge", "port"});
  EXPECT_EQ(position.port, "B");
  EXPECT_EQ(position.sequence, 1);
}

TEST(ChainPositionTest, TheWalkEndsAtTheFirstDownstreamBridge) {
  const auto position = positionBelow({"pci-bridge", "DSB1", "DSB3", "pci-bridge", "port"});
  EXPECT_EQ(position.port, "C");
  EXPECT_EQ(position.sequence, 1);
}

TEST(ChainPositionTest, WithoutDownstreamBridgeTheWalkEndsAtTheRoot) {
  const auto position = positionBelow({"apciec0-bridge", "pci-bridge", "pci-bridge", "port"});
  EXPECT_FALSE(position.port);
  EXPECT_EQ(position.sequence, 1);
}

TEST(ChainPositionTest, TheServicesOwnNameDoesNotCount) {
  const auto position = positionBelow({"DSB4", "pci-bridge"});
  EXPECT_EQ(position.port, "D");
  EXPECT_EQ(position.sequence, 0);
}

TEST(ChainPositionTest, NamesThatCannotBeReadArePassedOver) {
  FakeRegistry registry;
  const auto service = registry.addChain(registry.root, {"DSB2", "pci-bridge", "port"});
  registry.failName = true;
  const auto position = findChainPosition(registry, service);
  EXPECT_FALSE(position.port);
  EXPECT_EQ(position.sequence, 0);
  EXPECT_EQ(registry.references(), 0);
}

TEST(ChainPositionTest, HopsOfARealChain) {
  for (int hop = 1; hop <= 6; ++hop) {
    FakeRegistry registry;
    FakeFibreChannelAdapter adapter;
    adapter.hop = hop;
    const auto ports = addFibreChannelAdapter(registry, adapter);
    EXPECT_EQ(findChainPosition(registry, ports[1]).sequence, hop);
  }
}

TEST(ChainPositionTest, BothFamiliesKeepTheLetterTheyHadWhenThereIsNone) {
  ManualDispatch dispatch;
  FakePlatform fake(dispatch);
  const auto lettered = fake.registry.addChain(fake.registry.root, {"DSB2", "pci-bridge", "port"});
  const auto unlettered = fake.registry.addChain(fake.registry.root, {"DSB0", "port"});

  Corvane2Info info(fake.platform());
  EXPECT_EQ(info.sortDeviceSequence(unlettered), 0);
  EXPECT_FALSE(info.devicePort);
  EXPECT_EQ(info.sortDeviceSequence(lettered), 1);
  EXPECT_EQ(info.sortDeviceSequence(unlettered), 0);
  EXPECT_EQ(info.devicePort, "B");
  EXPECT_EQ(info.deviceSequence, 0) << "the caller stores the place";

  Corvane2Device_10GE device;
  EXPECT_EQ(device.sortDeviceSequence(fake.registry, unlettered), 0);
  EXPECT_FALSE(device.devicePort());
  EXPECT_EQ(device.sortDeviceSequence(fake.registry, lettered), 1);
  EXPECT_EQ(device.sortDeviceSequence(fake.registry, unlettered), 0);
  EXPECT_EQ(device.devicePort(), "B");
  EXPECT_FALSE(device.deviceSequence());
}
