#include <fstream>

#include "bench/BenchUserClientFixture.h"

using namespace corvane;

namespace {

class BenchUserClientTest : public BenchUserClientFixture {};

}  // namespace

TEST_F(BenchUserClientTest, PortInformationIsTheWholeStructure) {
  begin("Corvane2 8G FC", [](BenchState& state) {
    BenchFibreChannelPort& port = state.adapters[0].fibreChannelPorts[0];
    port.speed = 4000;
    port.hardAlpa = 0xEF;
    port.queueDepth = 64;
    port.topology = BenchTopology::ArbitratedLoop;
    port.partner.topology = BenchTopology::ArbitratedLoop;
  });
  ASSERT_EQ(readInformation(), statusSuccess);
  EXPECT_EQ(field(0, 8), 0x10DFU);
  EXPECT_EQ(field(8, 8), 0xE200U);
  EXPECT_EQ(dataText(std::span(reply_).subspan(16, 8)), "<20000010 9b123456>");
  EXPECT_EQ(dataText(std::span(reply_).subspan(24, 8)), "<21000010 9b123456>");
  EXPECT_STREQ(reinterpret_cast<const char*>(reply_.data() + 32), "2.02a1");
  EXPECT_EQ(field(76, 4), 0U);
  EXPECT_EQ(field(80, 4), 4000U);
  EXPECT_EQ(field(84, 4), 1U);
  EXPECT_EQ(field(88, 4), 0xEFU);
  EXPECT_EQ(field(92, 4), 4000U);
  EXPECT_EQ(field(96, 4), 1U);
  EXPECT_EQ(field(100, 4), 64U);
}

TEST_F(BenchUserClientTest, AThirdGenerationAdapterHasAnotherController) {
  begin("Corvane3 F2");
  ASSERT_EQ(readInformation(), statusSuccess);
  EXPECT_EQ(field(8, 8), 0xE300U);
  EXPECT_EQ(field(92, 4), 1U) << "the 16G firmware reports 1 for automatic";
}

TEST_F(BenchUserClientTest, TheLongestFirmwareTextIsTerminated) {
  begin("Corvane2 8G FC",
        [](BenchState& state) { state.adapters[0].firmware = std::string(43, 'x'); });
  ASSERT_EQ(readInformation(), statusSuccess);
  EXPECT_EQ(reply_[32 + 42], 'x');
  EXPECT_EQ(reply_[32 + 43], 0);
}

TEST_F(BenchUserClientTest, SizesOtherThanTheStructuresAreRefused) {
  begin("Corvane2 8G FC");
  const std::map<uint32_t, size_t> sizes = {{2, 104}, {3, 16},   {5, 2}, {6, 8},
                                            {7, 4},   {13, 104}, {15, 4}};
  for (const auto& [selector, size] : sizes) {
    EXPECT_EQ(call(selector, Bytes(size + 1), size), statusBadArgument) << selector;
    EXPECT_EQ(call(selector, Bytes(size - 1), size), statusBadArgument) << selector;
    EXPECT_EQ(call(selector, Bytes(size), size + 1), statusBadArgument) << selector;
    EXPECT_EQ(call(selector, Bytes(size), size - 1), statusBadArgument) << selector;
    EXPECT_EQ(call(selector, Bytes(), size), statusBadArgument) << selector;
  }
}

TEST_F(BenchUserClientTest, UnknownSelectorsAreUnsupported) {
  begin("Corvane2 8G FC");
  for (const uint32_t selector : {0U, 1U, 4U, 8U, 12U, 14U, 16U, 0xFFFFFFFFU}) {
    EXPECT_EQ(call(selector, Bytes(104)), statusUnsupported) << selector;
  }
}

TEST_F(BenchUserClientTest, OnlyAPortServiceIsOpenedAndOnlyWithTheOneType) {
  begin("Corvane2 8G FC");
  UserClientConnection connection = 7;
  EXPECT_EQ(client_->open(0, 0, connection), statusNoDevice);
  EXPECT_EQ(connection, 0U);
  EXPECT_EQ(client_->open(service_, 1, connection), statusUnsupported);
  RegistryHandle parent = 0;
  ASSERT_EQ(registry_->parentEntry(service_, servicePlane, parent), statusSuccess);
  EXPECT_EQ(client_->open(parent, 0, connection), statusNoDevice);
  registry_->release(parent);
}

TEST_F(BenchUserClientTest, AConnectionEndsWithItsRelease) {
  begin("Corvane2 8G FC");
  UserClientConnection connection = 0;
  ASSERT_EQ(client_->open(service_, 0, connection), statusSuccess);
  EXPECT_EQ(client_->connectionCount(), 1U);
  EXPECT_EQ(client_->release(connection), statusSuccess);
  EXPECT_EQ(client_->release(connection), statusBadArgument);
  Bytes reply(104);
  size_t size = reply.size();
  EXPECT_EQ(client_->callStructMethod(connection, 2, Bytes(104), reply, size), statusBadArgument);
}

TEST_F(BenchUserClientTest, ThePortThatIsUnpluggedMeanwhileIsNoDevice) {
  begin("Corvane2 8G FC");
  const std::map<uint32_t, Bytes> requests = {{2, Bytes(104)},  {5, Bytes(2)},
                                              {6, Bytes(8)},    {7, bytesOfNumber(0xEF, 4)},
                                              {13, Bytes(104)}, {15, bytesOfNumber(1, 4)}};
  change([](BenchState& state) { unplugAdapter(state.adapters[0]); });
  for (const auto& [selector, request] : requests) {
    EXPECT_EQ(call(selector, request), statusNoDevice) << selector;
  }
}

TEST_F(BenchUserClientTest, FaultsRefuseTheOpeningOrOneSelector) {
  begin("Corvane2 8G FC");
  change([](BenchState& state) { state.faults = {"driver-refuses-open"}; });
  UserClientConnection connection = 0;
  EXPECT_EQ(client_->open(service_, 0, connection), statusFailure);
  EXPECT_EQ(connection, 0U);
  const std::map<uint32_t, size_t> sizes = {{2, 104}, {3, 16},   {5, 2}, {6, 8},
                                            {7, 4},   {13, 104}, {15, 4}};
  for (const auto& [refused, refusedSize] : sizes) {
    const std::string fault = "driver-refuses-selector-" + std::to_string(refused);
    change([&](BenchState& state) { state.faults = {fault}; });
    EXPECT_EQ(call(refused, Bytes(refusedSize)), statusFailure) << refused;
    if (refused != 2) {
      EXPECT_EQ(readInformation(), statusSuccess);
    }
  }
}

TEST_F(BenchUserClientTest, EachModelTakesItsOwnSpeeds) {
  const std::map<std::string, std::vector<uint64_t>> taken = {
      {"Corvane2 8G FC", {0, 2000, 4000, 8000}},
      {"Corvane3 8G FC", {0, 2000, 4000, 8000}},
      {"Corvane2 16G FC", {1, 2000, 4000, 8000, 16000}},
      {"Corvane3 F2", {1, 4000, 8000, 16000}}};
  for (const auto& [product, speeds] : taken) {
    begin(product);
    for (const uint64_t speed : {0U, 1U, 2U, 1000U, 2000U, 4000U, 8000U, 10000U, 16000U, 32000U}) {
      const bool isTaken = std::find(speeds.begin(), speeds.end(), speed) != speeds.end();
      const int64_t before = port().speed;
      EXPECT_EQ(call(6, bytesOfNumber(speed, 8)), isTaken ? statusSuccess : statusBadArgument)
          << product << " " << speed;
      const int64_t configured = speed == 1 ? 0 : static_cast<int64_t>(speed);
      EXPECT_EQ(port().speed, isTaken ? configured : before);
    }
    end();
  }
}

TEST_F(BenchUserClientTest, BytesBehindTheSpeedMustBeZero) {
  begin("Corvane2 8G FC");
  EXPECT_EQ(call(6, bytesOfNumber((uint64_t{1} << 32U) + 8000, 8)), statusBadArgument);
  EXPECT_EQ(port().speed, 0);
}

TEST_F(BenchUserClientTest, TopologyIsTheSecondByte) {
  begin("Corvane3 8G FC");
  EXPECT_EQ(call(5, {0, 1}), statusSuccess);
  EXPECT_EQ(port().topology, BenchTopology::ArbitratedLoop);
  EXPECT_EQ(call(5, {0, 2}), statusBadArgument);
  EXPECT_EQ(call(5, {1, 0}), statusBadArgument);
  EXPECT_EQ(port().topology, BenchTopology::ArbitratedLoop);
  EXPECT_EQ(call(5, {0, 0}), statusSuccess);
  EXPECT_EQ(port().topology, BenchTopology::PointToPoint);
}

TEST_F(BenchUserClientTest, ThereIsNoLoopOn16GModels) {
  for (const std::string product : {"Corvane2 16G FC", "Corvane3 F2"}) {
    begin(product);
    EXPECT_EQ(call(5, {0, 1}), statusUnsupported) << product;
    EXPECT_EQ(call(5, {0, 0}), statusSuccess) << product;
    end();
  }
}

TEST_F(BenchUserClientTest, OnlyValidLoopAddressesAreTaken) {
  begin("Corvane2 8G FC");
  size_t taken = 0;
  for (uint64_t address = 0; address < 256; ++address) {
    if (call(7, bytesOfNumber(address, 4)) != statusSuccess) continue;
    ++taken;
    EXPECT_EQ(port().hardAlpa, static_cast<int64_t>(address));
  }
  EXPECT_EQ(taken, 126U);
  EXPECT_EQ(call(7, bytesOfNumber(0x1EF, 4)), statusBadArgument);
}

TEST_F(BenchUserClientTest, QueueDepthIsKeptAndLeavesTheLinkAlone) {
  begin("Corvane2 8G FC");
  EXPECT_EQ(call(15, bytesOfNumber(254, 4)), statusSuccess);
  EXPECT_EQ(port().queueDepth, 254);
  EXPECT_TRUE(isLinkUp());
  EXPECT_EQ(field(100, 4), 254U);
  EXPECT_EQ(call(15, bytesOfNumber(0, 4)), statusBadArgument);
  EXPECT_EQ(call(15, bytesOfNumber(4097, 4)), statusBadArgument);
  EXPECT_EQ(call(15, bytesOfNumber(0xFFFFFFFF, 4)), statusBadArgument);
  EXPECT_EQ(port().queueDepth, 254);
}

TEST_F(BenchUserClientTest, AChangeDropsTheLinkForFourSeconds) {
  begin("Corvane2 8G FC");
  const std::map<uint32_t, Bytes> changes = {
      {5, {0, 0}}, {6, bytesOfNumber(4000, 8)}, {7, bytesOfNumber(0xEF, 4)}};
  for (const auto& [selector, request] : changes) {
    EXPECT_TRUE(isLinkUp());
    ASSERT_EQ(call(selector, request), statusSuccess);
    EXPECT_FALSE(isLinkUp()) << selector;
    EXPECT_EQ(field(80, 4), 0U);
    clock_ += 3999;
    EXPECT_FALSE(isLinkUp()) << selector;
    clock_ += 1;
    EXPECT_TRUE(isLinkUp()) << selector;
  }
  EXPECT_EQ(field(80, 4), 4000U);
}

TEST_F(BenchUserClientTest, TheDropLastsByTheBenchsClock) {
  begin("Corvane2 8G FC", [](BenchState& state) { state.clockRate = 1000; });
  ASSERT_EQ(call(6, bytesOfNumber(4000, 8)), statusSuccess);
  EXPECT_FALSE(isLinkUp());
  clock_ += 4;
  EXPECT_TRUE(isLinkUp());
}

TEST_F(BenchUserClientTest, SpeedIsNegotiatedWithThePartner) {
  begin("Corvane2 8G FC", [](BenchState& state) {
    state.adapters[0].fibreChannelPorts[0].partner.speeds = {2000, 4000, 16000};
  });
  EXPECT_TRUE(isLinkUp());
  EXPECT_EQ(field(80, 4), 4000U) << "the fastest that both have";
  ASSERT_EQ(call(6, bytesOfNumber(8000, 8)), statusSuccess);
  clock_ += 10000;
  EXPECT_FALSE(isLinkUp()) << "the partner does not run at 8 Gb/s";
  EXPECT_EQ(field(92, 4), 8000U);
  ASSERT_EQ(call(6, bytesOfNumber(2000, 8)), statusSuccess);
  clock_ += 4000;
  EXPECT_TRUE(isLinkUp());
  EXPECT_EQ(field(80, 4), 2000U);
}

TEST_F(BenchUserClientTest, ThePartnersTopologyHasToAgree) {
  begin("Corvane2 8G FC", [](BenchState& state) {
    state.adapters[0].fibreChannelPorts[0].partner.topology = BenchTopology::ArbitratedLoop;
  });
  EXPECT_FALSE(isLinkUp());
  ASSERT_EQ(call(5, {0, 1}), statusSuccess);
  clock_ += 4000;
  EXPECT_TRUE(isLinkUp());
}

TEST_F(BenchUserClientTest, NoCableAndNoModuleMeanNoLink) {
  begin("Corvane2 8G FC");
  EXPECT_TRUE(isLinkUp());
  change([](BenchState& state) { state.adapters[0].fibreChannelPorts[0].link = false; });
  EXPECT_FALSE(isLinkUp());
  change([](BenchState& state) {
    state.adapters[0].fibreChannelPorts[0].link = true;
    state.adapters[0].fibreChannelPorts[0].transceiver = {};
  });
  EXPECT_FALSE(isLinkUp());
}

TEST_F(BenchUserClientTest, AFlappingLinkGoesAndComes) {
  begin("Corvane2 8G FC", [](BenchState& state) { state.faults = {"link-flaps"}; });
  const bool first = isLinkUp();
  clock_ += 2000;
  EXPECT_EQ(isLinkUp(), !first);
  clock_ += 2000;
  EXPECT_EQ(isLinkUp(), first);
}

TEST_F(BenchUserClientTest, TheTransceiverIsGivenWithItsFlag) {
  begin("Corvane2 8G FC");
  ASSERT_EQ(call(13, Bytes(104)), statusSuccess);
  EXPECT_EQ(reply_[0], 3);
  EXPECT_EQ(reply_[12], 85);
  EXPECT_EQ(field(96, 4), 1U);
  change([](BenchState& state) { state.adapters[0].fibreChannelPorts[0].transceiver = {}; });
  ASSERT_EQ(call(13, Bytes(104)), statusSuccess);
  EXPECT_EQ(reply_, Bytes(104));
}

TEST_F(BenchUserClientTest, TheTransceiverIsReadFromAFileBesideTheBench) {
  begin("Corvane2 8G FC");
  std::ofstream(folder_ + "/module.bin") << std::string(96, 'm') << "behind";
  change([](BenchState& state) {
    state.adapters[0].fibreChannelPorts[0].transceiver = {"module.bin", ""};
  });
  ASSERT_EQ(call(13, Bytes(104)), statusSuccess);
  EXPECT_EQ(reply_[95], 'm');
  EXPECT_EQ(field(96, 4), 1U);
  std::ofstream(folder_ + "/module.bin") << std::string(95, 'm');
  ASSERT_EQ(call(13, Bytes(104)), statusSuccess);
  EXPECT_EQ(reply_, Bytes(104));
  EXPECT_NE(log_.text().find("module.bin cannot be read"), std::string::npos);
}

TEST_F(BenchUserClientTest, ATransceiverIsAskedForByPortIndex) {
  begin("Corvane2 8G FC");
  constexpr StructureField portIndex{"port index", 100, 4};
  Bytes request(104);
  putNumber(request, portIndex, 1);
  EXPECT_EQ(call(13, request), statusSuccess);
  putNumber(request, portIndex, 2);
  EXPECT_EQ(call(13, request), statusBadArgument);
}
