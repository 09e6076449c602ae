#include "platform/bench/BenchUserClient.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include "bench/BenchMachineFixture.h"
#include "platform/bench/BenchEdits.h"
#include "platform/bench/BenchFirmwareImage.h"
#include "platform/bench/BenchProducts.h"
#include "platform/bench/LittleEndian.h"

using namespace corvane;

namespace {

/// Sleeps by moving the test's clock.
class BenchTestDispatch final : public Dispatch {
 public:
  explicit BenchTestDispatch(std::atomic<int64_t>& clock) : clock_(clock) {}

  void asyncMain(std::function<void()> work) override { work(); }
  void syncMain(std::function<void()> work) override { work(); }
  void asyncGlobal(QueuePriority, std::function<void()> work) override { work(); }
  std::unique_ptr<DispatchGroup> createGroup() override { return nullptr; }
  void sleep(std::chrono::milliseconds duration) override {
    clock_ += duration.count();
    slept += duration;
    if (onSleep) onSleep();
  }
  bool isMain() const override { return true; }

  std::chrono::milliseconds slept{0};
  std::function<void()> onSleep;

 private:
  std::atomic<int64_t>& clock_;
};

using Bytes = std::vector<uint8_t>;

Bytes bytesOfNumber(uint64_t value, size_t size) {
  Bytes bytes(size);
  writeLittleEndian(bytes, 0, size, value);
  return bytes;
}

class BenchUserClientTest : public BenchMachineFixture {
 protected:
  /// Switches on a bench with one adapter of that product, and opens its first port's service.
  void begin(
      const std::string& product,
      const std::function<void(BenchState&)>& change = [](BenchState&) {}) {
    BenchState state;
    state.drivers = {{"Corvane2-FC", "2.0.10"}};
    plugAdapter(state, product, 1, 1, "20:00:00:10:9B:12:34:56");
    state.adapters[0].firmware = "2.02a1";
    change(state);
    registry_ = std::make_unique<BenchRegistry>(switchOn(state));
    client_ = std::make_unique<BenchUserClient>(*machine_, *registry_, dispatch_, log_);
    service_ = findService(0);
  }

  void TearDown() override {
    if (registry_) {
      for (const RegistryHandle service : found_) registry_->release(service);
      EXPECT_EQ(registry_->referenceCount(), 0U);
    }
    if (client_) {
      EXPECT_EQ(client_->connectionCount(), 0U);
    }
    client_.reset();
    registry_.reset();
    BenchMachineFixture::TearDown();
  }

  RegistryHandle findService(size_t number) {
    auto port = registry_->createNotificationPort();
    SharedDictionary matching = registry_->createMutableDictionary();
    (*matching)["IOPropertyMatch"] =
        PropertyValue::Dictionary{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}};
    RegistryHandle iterator = 0;
    registry_->addMatchingNotification(
        *port, firstMatchNotification, matching, [](void*, RegistryHandle) {}, nullptr, iterator);
    std::vector<RegistryHandle> services;
    while (const RegistryHandle service = registry_->next(iterator)) services.push_back(service);
    registry_->release(iterator);
    found_.insert(found_.end(), services.begin(), services.end());
    return services.at(number);
  }

  /// One call over a connection of its own. The reply is kept in reply_.
  Status call(uint32_t selector, const Bytes& input, std::optional<size_t> outputSize = {}) {
    UserClientConnection connection = 0;
    const Status opened = client_->open(service_, 0, connection);
    reply_.assign(outputSize.value_or(input.size()), 0xAA);
    size_t size = reply_.size();
    const Status status = client_->callStructMethod(connection, selector, input, reply_, size);
    if (opened == statusSuccess) {
      EXPECT_EQ(client_->release(connection), statusSuccess);
    }
    return status;
  }

  uint64_t field(size_t offset, size_t width) const {
    return readLittleEndian(reply_, offset, width);
  }

  Status readInformation() { return call(2, Bytes(104)); }

  bool isLinkUp() {
    EXPECT_EQ(readInformation(), statusSuccess);
    return field(76, 4) == 0;
  }

  BenchFibreChannelPort port() { return file().load().adapters[0].fibreChannelPorts[0]; }

  Status flash(const Bytes& image) {
    Bytes input(16);
    writeLittleEndian(input, 0, 4, image.size());
    writeLittleEndian(input, 8, 8, reinterpret_cast<uintptr_t>(image.data()));
    return call(3, input);
  }

  static Bytes image(int generation, const std::string& version, size_t size = 1000) {
    return makeFirmwareImage({generation, version}, Bytes(size, 0x5A));
  }

  BenchTestDispatch dispatch_{clock_};
  std::unique_ptr<BenchRegistry> registry_;
  std::unique_ptr<BenchUserClient> client_;
  std::vector<RegistryHandle> found_;
  RegistryHandle service_ = 0;
  Bytes reply_;
};

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
    TearDown();
    found_.clear();
    SetUp();
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
    TearDown();
    found_.clear();
    SetUp();
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
  Bytes request(104);
  writeLittleEndian(request, 100, 4, 1);
  EXPECT_EQ(call(13, request), statusSuccess);
  writeLittleEndian(request, 100, 4, 2);
  EXPECT_EQ(call(13, request), statusBadArgument);
}

TEST_F(BenchUserClientTest, FlashedFirmwareRunsAfterTheNextPluggingIn) {
  begin("Corvane2 8G FC");
  EXPECT_EQ(flash(image(2, "2.10")), statusSuccess);
  EXPECT_EQ(file().load().adapters[0].pendingFirmware, "2.10");
  ASSERT_EQ(readInformation(), statusSuccess);
  EXPECT_STREQ(reinterpret_cast<const char*>(reply_.data() + 32), "2.02a1");
  change([](BenchState& state) {
    unplugAdapter(state.adapters[0]);
    plugAdapter(state, "Corvane2 8G FC", 1, 1, {});
  });
  EXPECT_EQ(file().load().adapters[0].firmware, "2.10");
  EXPECT_EQ(file().load().adapters[0].pendingFirmware, std::nullopt);
}

TEST_F(BenchUserClientTest, FlashingTakesTimeByItsSize) {
  begin("Corvane2 8G FC");
  ASSERT_EQ(flash(image(2, "2.10", 256 * 100)), statusSuccess);
  EXPECT_EQ(dispatch_.slept.count(), 2100);
  dispatch_.slept = {};
  ASSERT_EQ(flash(image(2, "2.10", 256 * 1000)), statusSuccess);
  EXPECT_EQ(dispatch_.slept.count(), 3000);
}

TEST_F(BenchUserClientTest, BadImagesAreTurnedAway) {
  begin("Corvane2 8G FC");
  const Bytes good = image(2, "2.10");
  Bytes wrongMagic = good;
  wrongMagic[0] ^= 1;
  Bytes wrongChecksum = good;
  wrongChecksum.back() ^= 1;
  const Bytes cut(good.begin(), good.end() - 1);
  const Bytes headerCut(good.begin(), good.begin() + 51);
  Bytes endlessVersion = good;
  std::fill_n(endlessVersion.begin() + 12, 32, uint8_t{'9'});
  for (const Bytes& bad : {wrongMagic, wrongChecksum, cut, headerCut, endlessVersion}) {
    EXPECT_EQ(flash(bad), statusBadArgument);
  }
  EXPECT_EQ(flash(image(3, "2.10")), statusUnsupported) << "for the other generation";
  EXPECT_EQ(flash({}), statusBadArgument);
  EXPECT_EQ(file().load().adapters[0].pendingFirmware, std::nullopt);
}

TEST_F(BenchUserClientTest, AnImageThatChangesDuringTheFlashingIsNotTaken) {
  begin("Corvane2 8G FC");
  Bytes changing = image(2, "2.10");
  dispatch_.onSleep = [&changing, once = true]() mutable {
    if (std::exchange(once, false)) changing.back() ^= 1;
  };
  EXPECT_EQ(flash(changing), statusFailure);
}

TEST_F(BenchUserClientTest, FaultsOfTheFlashing) {
  begin("Corvane2 8G FC", [](BenchState& state) { state.faults = {"firmware-refused"}; });
  EXPECT_EQ(flash(image(2, "2.10")), statusFailure);
  EXPECT_EQ(file().load().adapters[0].pendingFirmware, std::nullopt);
  change([](BenchState& state) { state.faults = {"unplugged-while-flashing"}; });
  EXPECT_EQ(flash(image(2, "2.10")), statusNoDevice);
  EXPECT_FALSE(file().load().adapters[0].attached);
  EXPECT_EQ(file().load().adapters[0].firmware, "2.02a1");
}

TEST_F(BenchUserClientTest, AnAdapterPulledOutDuringTheFlashingKeepsItsFirmware) {
  begin("Corvane2 8G FC");
  dispatch_.onSleep = [this] {
    change([](BenchState& state) { unplugAdapter(state.adapters[0]); });
  };
  EXPECT_EQ(flash(image(2, "2.10")), statusNoDevice);
  EXPECT_EQ(file().load().adapters[0].firmware, "2.02a1");
}
