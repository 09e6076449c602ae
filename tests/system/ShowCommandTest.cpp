#include "ProgramFixture.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

using ShowCommandTest = ProgramFixture;

}  // namespace

TEST_F(ShowCommandTest, AFibreChannelAdapter) {
  const auto answer = corvane({"--bench", bench("demo"), "show", "A - 2", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  const auto shown = answer.json();
  EXPECT_THAT(keysOf(shown), ElementsAre("family", "device", "ports"));
  EXPECT_EQ(shown.at("family"), "FC");
  EXPECT_THAT(keysOf(shown.at("device")),
              ElementsAre("driverVersion", "firmwareVersion", "pendingFirmware", "deviceWWN",
                          "productType", "queueDepth"));
  EXPECT_EQ(shown.at("device").at("driverVersion"), "2.0.10");
  EXPECT_EQ(shown.at("device").at("firmwareVersion"), "10.0.803.15");
  EXPECT_EQ(shown.at("device").at("deviceWWN"), "20:00:00:10:9B:00:00:20");
  EXPECT_EQ(shown.at("device").at("queueDepth"), 256);
  ASSERT_EQ(shown.at("ports").size(), 2U);
  const auto port = shown.at("ports").at(0);
  EXPECT_THAT(keysOf(port),
              ElementsAre("port", "portName", "currentSpeed", "currentTopology", "settingSpeed",
                          "settingTopology", "speedItems", "topologyItems", "linkState",
                          "pcivendor", "pcidevice", "hard_alpa", "queueDepth", "sfp"));
  EXPECT_EQ(port.at("port"), 1);
  EXPECT_EQ(port.at("portName"), "21:00:00:10:9B:00:00:20");
  EXPECT_EQ(port.at("currentSpeed"), "16 Gbps");
  EXPECT_EQ(port.at("pcidevice"), "Velmar Corvane2");
  EXPECT_EQ(port.at("linkState"), 0);
  EXPECT_THAT(keysOf(port.at("sfp")),
              ElementsAre("result", "error", "infoEnabled", "checksums", "Transceiver", "Connector",
                          "TransceiverCode", "SerialEncoding", "Bitrate", "VendorName", "VendorOUI",
                          "VendorPN", "VendorRev", "VendorSN", "ManuData"));
  EXPECT_EQ(port.at("sfp").at("result"), 0);
  EXPECT_EQ(port.at("sfp").at("infoEnabled"), true);
}

TEST_F(ShowCommandTest, ALinkThatIsDownAndAModuleThatDoesNotSuit) {
  const auto answer = corvane({"--bench", bench("demo"), "show", "a2", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  const auto port = answer.json().at("ports").at(1);
  EXPECT_EQ(port.at("currentSpeed"), "No Link");
  EXPECT_EQ(port.at("currentTopology"), "No Link");
  EXPECT_NE(port.at("linkState"), 0);
  EXPECT_EQ(port.at("sfp").at("result"), 2);
  EXPECT_THAT(port.at("sfp").at("error").get<std::string>(), HasSubstr("not the correct type"));
  EXPECT_EQ(port.at("sfp").at("infoEnabled"), false);
  EXPECT_EQ(port.at("sfp").at("VendorName"), nullptr);
}

TEST_F(ShowCommandTest, A10GbEAdapter) {
  const auto answer = corvane({"--bench", bench("demo"), "show", "C1", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  const auto shown = answer.json();
  EXPECT_EQ(shown.at("family"), "10GbE");
  EXPECT_THAT(keysOf(shown.at("device")), ElementsAre("driverVersion", "productType"));
  const auto port = shown.at("ports").at(0);
  EXPECT_THAT(keysOf(port), ElementsAre("port", "macAddress", "enName", "enStatus", "MTU", "mode",
                                        "settingModeEnabled", "tcpipv4", "rsc", "module"));
  EXPECT_EQ(port.at("macAddress"), "00:D0:2E:00:00:50");
  EXPECT_EQ(port.at("enName"), "en5");
  EXPECT_THAT(keysOf(port.at("tcpipv4")), ElementsAre("state", "enabled"));
  EXPECT_THAT(keysOf(port.at("rsc")), ElementsAre("state", "enabled", "hidden"));
  EXPECT_THAT(keysOf(port.at("module")), ElementsAre("class", "name", "warning", "hidden"));
}

TEST_F(ShowCommandTest, APortThatIsNotEnabledIsOutOfReach) {
  const auto answer = corvane({"--bench", bench("demo"), "show", "D - 1", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  const auto ports = answer.json().at("ports");
  EXPECT_FALSE(ports.at(0).contains("accessible"));
  EXPECT_EQ(ports.at(1).at("accessible"), false);
  EXPECT_EQ(ports.at(1).at("macAddress"), "00:D0:2E:00:00:61");
}

TEST_F(ShowCommandTest, EveryFormOfTheLabelIsUnderstood) {
  const std::string file = bench("demo");
  for (const char* label : {"B - 1", "B1", "b1", "b - 1", "20:00:00:10:9B:00:00:30",
                            "20:00:00:10:9b:00:00:30", "21:01:00:10:9B:00:00:30"}) {
    const auto answer = corvane({"--bench", file, "show", label, "--json"});
    ASSERT_EQ(answer.status, 0) << label << answer.errors;
    EXPECT_EQ(answer.json().at("device").at("productType"), "Corvane3 F2") << label;
  }
  for (const char* label : {"00:D0:2E:00:00:50", "00:d0:2e:00:00:51"})
    EXPECT_EQ(corvane({"--bench", file, "show", label}).status, 0) << label;
}

TEST_F(ShowCommandTest, AnUnknownLabelIsNotFound) {
  const std::string file = bench("demo");
  for (const char* label : {"Z - 9", "A", "", " - ", "20:00"}) {
    const auto answer = corvane({"--bench", file, "show", label});
    EXPECT_EQ(answer.status, 3) << label;
    EXPECT_THAT(answer.errors, HasSubstr("there is no such adapter"));
  }
}

TEST_F(ShowCommandTest, ALabelThatFitsTwoAdaptersIsRefused) {
  const std::string file = bench("demo");
  auto state = nlohmann::ordered_json::parse(content(file));
  // Two chains behind host ports that have no letter.
  state["adapters"] = {state["adapters"][0], state["adapters"][2]};
  state["adapters"][0]["bridge"] = 0;
  state["adapters"][1]["bridge"] = 10;
  state["disks"] = nlohmann::ordered_json::array();
  std::ofstream(file) << state.dump(2);
  const auto answer = corvane({"--bench", file, "show", "(null) - 1", "--json"});
  EXPECT_EQ(answer.status, 1);
  const std::string why = answer.json().at("error").at("why");
  EXPECT_THAT(why, HasSubstr("several adapters"));
  EXPECT_THAT(why, HasSubstr("20:00:00:10:9B:00:00:10"));
  EXPECT_THAT(why, HasSubstr("20:00:00:10:9B:00:00:30"));
}

TEST_F(ShowCommandTest, TextShowsEachPortUnderAHeading) {
  const auto answer = corvane({"--bench", bench("demo"), "show", "B2"});
  EXPECT_EQ(answer.status, 0);
  EXPECT_THAT(answer.output, HasSubstr("port 1:"));
  EXPECT_THAT(answer.output, HasSubstr("port 2:"));
  EXPECT_THAT(answer.output, HasSubstr("Corvane3 8G FC"));
}
