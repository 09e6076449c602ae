#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "fibre_channel/CorvaneAPIFixture.h"

using namespace corvane;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Bytes = std::vector<uint8_t>;

constexpr RegistryHandle portService = 7;

void putWord(std::span<uint8_t> reply, size_t offset, uint32_t value) {
  for (size_t index = 0; index < 4; ++index) {
    reply[offset + index] = static_cast<uint8_t>(value >> (8 * index));
  }
}

void putBytes(std::span<uint8_t> reply, size_t offset, const Bytes& bytes) {
  std::copy(bytes.begin(), bytes.end(), reply.begin() + static_cast<std::ptrdiff_t>(offset));
}

Bytes textBytes(std::string_view text) {
  return {text.begin(), text.end()};
}

using CorvaneAPITest = CorvaneAPIFixture;

// Reading a port.

class CorvaneAPIInformation : public CorvaneAPITest {
 protected:
  CorvaneAPIInformation() : reply(104) {
    putWord(reply, 0, 0x10DF);
    putWord(reply, 8, 0xE200);
    putBytes(reply, 16, {0x20, 0x00, 0x00, 0x10, 0x9B, 0x12, 0x34, 0x56});
    putBytes(reply, 24, {0x10, 0x00, 0xAB, 0xCD, 0xEF, 0x01, 0x02, 0x03});
    putBytes(reply, 32, textBytes("2.02X11"));
    putWord(reply, 76, 3);
    putWord(reply, 80, 8000);
    putWord(reply, 84, 1);
    putWord(reply, 88, 0xEF);
    putWord(reply, 92, 4000);
    putWord(reply, 96, 5);
    putWord(reply, 100, 32);
  }

  void read() {
    answerWith(reply);
    api.GetCorvaneInfoFunction(portService);
  }

  Bytes reply;
};

TEST_F(CorvaneAPIInformation, AsksWithZerosOverAConnectionOfItsOwn) {
  read();
  EXPECT_THAT(userClient.order(), ElementsAre("open 7", "call 2", "release"));
  ASSERT_EQ(userClient.calls().size(), 1U);
  EXPECT_EQ(userClient.calls()[0].input, Bytes(104));
  EXPECT_EQ(userClient.calls()[0].outputSize, 104U);
  EXPECT_EQ(userClient.openConnections(), 0U);
}

TEST_F(CorvaneAPIInformation, FillsEveryProperty) {
  read();
  EXPECT_EQ(api.pcivendor, 0x10DFU);
  EXPECT_EQ(api.pcidevice, "Velmar Corvane2");
  EXPECT_EQ(api.WWNN, "20:00:00:10:9B:12:34:56");
  EXPECT_EQ(api.WWPN, "10:00:AB:CD:EF:01:02:03");
  EXPECT_EQ(api.fwVer, "2.02X11");
  EXPECT_EQ(api.linkState, 3U);
  EXPECT_EQ(api.portSpeed, 8000U);
  EXPECT_EQ(api.portTopology, 1U);
  EXPECT_EQ(api.hard_alpa, 0xEFU);
  EXPECT_EQ(api.settingSpeed, 4000U);
  EXPECT_EQ(api.settingTopology, 5U);
  EXPECT_EQ(api.queueDepth, 32U);
}

TEST_F(CorvaneAPIInformation, VendorNumberHasAllItsBytes) {
  putWord(reply, 4, 0x12345678);
  read();
  EXPECT_EQ(api.pcivendor, 0x12345678000010DFU);
}

TEST_F(CorvaneAPIInformation, ZeroAndOneMeanAutomaticAndOtherSpeedsStandAsTheyAre) {
  const std::map<uint32_t, uint64_t> expected{{0, 0}, {1, 0}, {2, 2}, {4000, 4000}, {32000, 32000}};
  for (const auto& [reported, speed] : expected) {
    putWord(reply, 80, reported);
    putWord(reply, 92, reported == 1 ? 0 : 1);
    read();
    EXPECT_EQ(api.portSpeed, speed) << reported;
    EXPECT_EQ(api.settingSpeed, 0U) << reported;
    putWord(reply, 80, 2000);
    putWord(reply, 92, reported);
    read();
    EXPECT_EQ(api.portSpeed, 2000U) << reported;
    EXPECT_EQ(api.settingSpeed, speed) << reported;
  }
}

TEST_F(CorvaneAPIInformation, QueueDepthOfZeroMeans512) {
  putWord(reply, 100, 0);
  read();
  EXPECT_EQ(api.queueDepth, 512U);
  putWord(reply, 100, 1);
  read();
  EXPECT_EQ(api.queueDepth, 1U);
}

TEST_F(CorvaneAPIInformation, OnlyTheLowBitsOfTheDeviceNumberCount) {
  putWord(reply, 12, 0xFFFFFFFF);
  read();
  EXPECT_EQ(api.pcidevice, "Velmar Corvane2");
  putWord(reply, 8, 0xE201);
  read();
  EXPECT_EQ(api.pcidevice, "Unknow");
}

TEST_F(CorvaneAPIInformation, FirmwareTextWithoutTerminatorEndsWithItsField) {
  putBytes(reply, 32, Bytes(44, 'v'));
  read();
  EXPECT_EQ(api.fwVer, std::string(44, 'v'));
}

TEST_F(CorvaneAPIInformation, LeavesTheHardAddressCheckToThePages) {
  api.hardAPLA_check = 9;
  read();
  EXPECT_EQ(api.hardAPLA_check, 9U);
}

TEST_F(CorvaneAPIInformation, RefusedCallReadsAsZeros) {
  read();
  refuseCalls();
  api.GetCorvaneInfoFunction(portService);
  EXPECT_EQ(api.linkState, 0U);
  EXPECT_EQ(api.portSpeed, 0U);
  EXPECT_EQ(api.settingSpeed, 0U);
  EXPECT_EQ(api.portTopology, 0U);
  EXPECT_EQ(api.settingTopology, 0U);
  EXPECT_EQ(api.pcivendor, 0U);
  EXPECT_EQ(api.hard_alpa, 0U);
  EXPECT_EQ(api.queueDepth, 512U);
  EXPECT_EQ(api.WWNN, "00:00:00:00:00:00:00:00");
  EXPECT_EQ(api.WWPN, "00:00:00:00:00:00:00:00");
  EXPECT_EQ(api.fwVer, "");
  EXPECT_EQ(api.pcidevice, "Unknow");
}

TEST_F(CorvaneAPIInformation, RefusedOpeningReadsAsZerosToo) {
  userClient.openStatus = statusFailure;
  read();
  EXPECT_EQ(api.queueDepth, 512U);
  EXPECT_EQ(api.pcidevice, "Unknow");
  EXPECT_THAT(userClient.calls(), IsEmpty());
}

// Reading the transceiver.

class CorvaneAPITransceiver : public CorvaneAPITest {
 protected:
  CorvaneAPITransceiver() : reply(104) {
    reply[0] = 3;
    reply[2] = 7;
    reply[11] = 1;
    reply[12] = 85;
    putBytes(reply, 20, textBytes("VELMAR OPTICS   "));
    putBytes(reply, 40, textBytes("VO-8G-SW        "));
    putBytes(reply, 56, textBytes("A   "));
    putBytes(reply, 68, textBytes("S0012345        "));
    putBytes(reply, 84, textBytes("110419"));
    putWord(reply, 96, 1);
  }

  int64_t read(uint32_t portIndex = 0) {
    answerWith(reply);
    return api.GetCorvaneSFP(portService, portIndex);
  }

  Bytes reply;
};

TEST_F(CorvaneAPITransceiver, SendsThePortIndexAlone) {
  read(1);
  EXPECT_THAT(userClient.order(), ElementsAre("open 7", "call 13", "release"));
  Bytes expected(104);
  expected[100] = 1;
  EXPECT_EQ(userClient.calls()[0].input, expected);
  EXPECT_EQ(userClient.calls()[0].outputSize, 104U);
}

TEST_F(CorvaneAPITransceiver, UsableModuleSetsAllTexts) {
  EXPECT_EQ(read(), 0);
  EXPECT_EQ(api.Transceiver, "SFP");
  EXPECT_EQ(api.Connector, "LC");
  EXPECT_EQ(api.TransceiverCode, "00-00-00-00-00-00-00-00");
  EXPECT_EQ(api.SerialEncoding, "8B10B");
  EXPECT_EQ(api.Bitrate, "8 Gb/s");
  EXPECT_EQ(api.VendorName, "VELMAR OPTICS   ");
  EXPECT_EQ(api.VendorOUI, "00-00-00");
  EXPECT_EQ(api.VendorPN, "VO-8G-SW        ");
  EXPECT_EQ(api.VendorRev, "A   ");
  EXPECT_EQ(api.VendorSN, "S0012345        ");
  EXPECT_EQ(api.ManuData, "11-04-19");
  EXPECT_THAT(log.lines(), ElementsAre("sfp_pOut->BitRate_100mbs/10  == 8"));
  EXPECT_EQ(log.outputText(), "");
}

TEST_F(CorvaneAPITransceiver, EmptyCageChangesNothing) {
  read();
  log.clear();
  reply[2] = 1;
  putWord(reply, 96, 0);
  EXPECT_EQ(read(), 1);
  EXPECT_EQ(api.Connector, "LC");
  EXPECT_EQ(api.VendorName, "VELMAR OPTICS   ");
  EXPECT_EQ(log.outputText(), "No SFP connect \n");
  EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(CorvaneAPITransceiver, NothingIsSetBeforeAModuleWasRead) {
  putWord(reply, 96, 0);
  EXPECT_EQ(read(), 1);
  EXPECT_FALSE(api.Transceiver);
  EXPECT_FALSE(api.ManuData);
}

TEST_F(CorvaneAPITransceiver, WrongModuleKeepsTheFormerVendor) {
  read();
  log.clear();
  reply[2] = 1;
  reply[12] = 21;
  putBytes(reply, 20, textBytes("OTHER           "));
  putBytes(reply, 84, textBytes("200101"));
  EXPECT_EQ(read(), 2);
  EXPECT_EQ(api.Connector, "SC");
  EXPECT_EQ(api.Bitrate, "2 Gb/s");
  EXPECT_EQ(api.VendorName, "VELMAR OPTICS   ");
  EXPECT_EQ(api.VendorSN, "S0012345        ");
  EXPECT_EQ(api.ManuData, "11-04-19");
  EXPECT_THAT(log.lines(), ElementsAre("sfp_pOut->BitRate_100mbs/10  == 2"));
}

TEST_F(CorvaneAPITransceiver, RefusedCallReadsAsAnEmptyCage) {
  refuseCalls();
  EXPECT_EQ(api.GetCorvaneSFP(portService, 0), 1);
  EXPECT_EQ(log.outputText(), "No SFP connect \n");
}

// Changing settings.

struct SettingCase {
  const char* name;
  uint32_t selector;
  Bytes input;
  std::function<int64_t(const CorvaneAPI&)> apply;
};

class CorvaneAPISetting : public CorvaneAPITest, public testing::WithParamInterface<SettingCase> {};

TEST_P(CorvaneAPISetting, SendsItsBytesAndPrintsItsSize) {
  const SettingCase& setting = GetParam();
  EXPECT_EQ(setting.apply(api), 0);
  EXPECT_THAT(userClient.order(),
              ElementsAre("open 7", "call " + std::to_string(setting.selector), "release"));
  EXPECT_EQ(userClient.calls()[0].input, setting.input);
  EXPECT_EQ(userClient.calls()[0].outputSize, setting.input.size());
  EXPECT_EQ(log.outputText(),
            "structureOutputSize=" + std::to_string(setting.input.size()) + "(Byte)\n");
}

TEST_P(CorvaneAPISetting, PrintsBetweenOpeningAndCalling) {
  userClient.answer = [this](RegistryHandle, uint32_t, std::span<const uint8_t>,
                             std::span<uint8_t>) {
    EXPECT_NE(log.outputText(), "");
    return statusSuccess;
  };
  GetParam().apply(api);
  EXPECT_EQ(userClient.calls().size(), 1U);
}

TEST_P(CorvaneAPISetting, RefusalIsOne) {
  refuseCalls();
  EXPECT_EQ(GetParam().apply(api), 1);
  EXPECT_EQ(userClient.openConnections(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    All, CorvaneAPISetting,
    testing::Values(
        SettingCase{"topologyPointToPoint",
                    5,
                    {0, 0},
                    [](const CorvaneAPI& api) { return api.setTopologyFunction(portService, 0); }},
        SettingCase{"topologyLoop",
                    5,
                    {0, 1},
                    [](const CorvaneAPI& api) { return api.setTopologyFunction(portService, 1); }},
        SettingCase{
            "topologyLowByte",
            5,
            {0, 0x34},
            [](const CorvaneAPI& api) { return api.setTopologyFunction(portService, 0x1234); }},
        SettingCase{"speed8G",
                    6,
                    {0x40, 0x1F, 0, 0, 0, 0, 0, 0},
                    [](const CorvaneAPI& api) { return api.setSpeedFunction(portService, 8000); }},
        SettingCase{"speedAutomaticOf16G",
                    6,
                    {1, 0, 0, 0, 0, 0, 0, 0},
                    [](const CorvaneAPI& api) { return api.setSpeedFunction(portService, 1); }},
        SettingCase{
            "speedLowWord",
            6,
            {0xEF, 0xBE, 0xAD, 0xDE, 0, 0, 0, 0},
            [](const CorvaneAPI& api) { return api.setSpeedFunction(portService, 0x12DEADBEEFU); }},
        SettingCase{
            "hardAlpa",
            7,
            {0xEF, 0, 0, 0},
            [](const CorvaneAPI& api) { return api.setHardAlpaFunction(portService, 0xEF); }},
        SettingCase{"queueDepth",
                    15,
                    {0x20, 0, 0, 0},
                    [](const CorvaneAPI& api) { return api.set_queue_depth(portService, 32); }},
        SettingCase{"queueDepthNegative",
                    15,
                    {0xFB, 0xFF, 0xFF, 0xFF},
                    [](const CorvaneAPI& api) {
                      return api.set_queue_depth(portService, static_cast<uint32_t>(-5));
                    }}),
    [](const auto& setting) { return setting.param.name; });

TEST_F(CorvaneAPITest, ThreeSettersGoOnWithoutAConnection) {
  userClient.openStatus = statusFailure;
  EXPECT_EQ(api.setTopologyFunction(portService, 1), 1);
  EXPECT_EQ(api.setSpeedFunction(portService, 8000), 1);
  EXPECT_EQ(api.setHardAlpaFunction(portService, 1), 1);
  EXPECT_THAT(userClient.order(), ElementsAre("open 7", "call 5", "release", "open 7", "call 6",
                                              "release", "open 7", "call 7", "release"));
}

TEST_F(CorvaneAPITest, QueueDepthWithoutAConnectionStopsTheProgram) {
  userClient.openStatus = statusFailure;
  try {
    api.set_queue_depth(portService, 32);
    FAIL() << "went on";
  } catch (const FakeAssertionFailure& failure) {
    EXPECT_STREQ(failure.what(), "KERN_SUCCESS == kr set_queue_depth:qDepth: CorvaneAPI:435");
  }
  EXPECT_THAT(userClient.calls(), IsEmpty());
  EXPECT_EQ(log.outputText(), "");
}

}  // namespace
