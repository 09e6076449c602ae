#include <gmock/gmock.h>

#include "ChangingCommandFixture.h"

using namespace corvane;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// `corvane set` on the demo bench: A1 is a Corvane2 8G FC, A2 a Corvane2 16G FC, B1 a Corvane3 F2,
/// B2 a Corvane3 8G FC, C1 and D1 are 10GbE adapters.
class FibreChannelSettingsTest : public ChangingCommandFixture {
 protected:
  FibreChannelSettingsTest() : ChangingCommandFixture(200) {}

  void expectRefused(const std::string& arguments, const std::string& reason) {
    const ProgramAnswer run = command("set " + arguments);
    EXPECT_EQ(run.status, 1) << arguments << "\n" << run.errors;
    EXPECT_THAT(run.errors, HasSubstr(reason)) << arguments;
    EXPECT_EQ(run.output, "") << arguments;
    for (const int selector : {5, 6, 7, 15}) EXPECT_THAT(sent(selector), IsEmpty()) << arguments;
  }
};

TEST_F(FibreChannelSettingsTest, SpeedIsSentKeptAndPrinted) {
  const ProgramAnswer run = command("set A1 --port 1 --speed 4 --json");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_THAT(sent(6), ElementsAre("a00f000000000000"));
  EXPECT_EQ(run.json()["port"], 1);
  EXPECT_EQ(run.json()["settingSpeed"], 4000);
  EXPECT_EQ(run.json()["currentSpeed"], "4 Gbps");
  EXPECT_EQ(state()["adapters"][0]["ports"][0]["speed"], 4000);
}

TEST_F(FibreChannelSettingsTest, AutomaticIsOneOn16GAdaptersAndZeroOnOthers) {
  ASSERT_EQ(command("set B1 --port 1 --speed auto").status, 0);
  EXPECT_THAT(sent(6), ElementsAre("0100000000000000"));
  ASSERT_EQ(command("set B2 --port 1 --speed auto").status, 0);
  EXPECT_THAT(sent(6), ElementsAre("0000000000000000"));
}

TEST_F(FibreChannelSettingsTest, TopologyIsSentToThePortNamed) {
  const ProgramAnswer run = command("set 20:00:00:10:9B:00:00:10 --port 2 --topology ptp --json");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_THAT(sent(5), ElementsAre("0000"));
  EXPECT_EQ(run.json()["port"], 2);
  EXPECT_EQ(run.json()["settingTopology"], 0);
}

TEST_F(FibreChannelSettingsTest, HardAddressIsSentAndPrinted) {
  const ProgramAnswer run = command("set A1 --port 2 --alpa e8 --json");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_THAT(sent(7), ElementsAre("e8000000"));
  EXPECT_EQ(run.json()["hard_alpa"], 0xE8);
}

TEST_F(FibreChannelSettingsTest, SeveralSettingsAreMadeOneAfterAnother) {
  const ProgramAnswer run = command("set A1 --port 2 --speed 2 --topology loop --json");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_THAT(sent(6), ElementsAre("d007000000000000"));
  EXPECT_THAT(sent(5), ElementsAre("0001"));
  EXPECT_EQ(run.json()["settingSpeed"], 2000);
  EXPECT_EQ(run.json()["settingTopology"], 1);
}

TEST_F(FibreChannelSettingsTest, QueueDepthOfTheMenuGoesThroughTheFirstPort) {
  const ProgramAnswer run = command("set A1 --queue-depth 64 --json");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_THAT(sent(15), ElementsAre("40000000"));
  EXPECT_EQ(run.json()["port"], 1);
  EXPECT_EQ(run.json()["queueDepth"], 64);
}

TEST_F(FibreChannelSettingsTest, QueueDepthOfTheSheetGoesThroughThePortNamed) {
  const ProgramAnswer run = command("set A1 --port 2 --queue-depth 33 --json");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_THAT(sent(15), ElementsAre("21000000"));
  EXPECT_EQ(run.json()["port"], 2);
  EXPECT_EQ(run.json()["queueDepth"], 33);
}

TEST_F(FibreChannelSettingsTest, WhatThePageDoesNotOfferIsRefusedBeforeAnythingIsSent) {
  expectRefused("A1 --port 1 --speed 16", "does not offer it");
  expectRefused("B1 --port 1 --speed 2", "does not offer it");
  expectRefused("A2 --port 1 --topology loop", "does not offer it");
  expectRefused("B1 --port 1 --alpa EF", "does not offer it");
  expectRefused("A1 --port 1 --alpa 03", "no address of an arbitrated loop");
  expectRefused("A1 --port 1 --alpa 00", "no address of an arbitrated loop");
  expectRefused("A1 --queue-depth 33", "does not offer it");
  expectRefused("A1 --port 1 --queue-depth 255", "a number from 1 to 254");
  expectRefused("A1 --port 1 --queue-depth 0", "a number from 1 to 254");
  expectRefused("A1 --port 1 --speed 4 --topology loop --alpa 00", "no address");
  expectRefused("C1 --port 1 --speed 4", "no such setting");
  expectRefused("A1 --port 1 --mode server", "no such setting");
}

TEST_F(FibreChannelSettingsTest, LargeQueueDepthsNeedANewDriver) {
  auto document = state();
  document["drivers"]["Corvane2-FC"] = "2.0.7";
  writeState(document);
  expectRefused("A1 --queue-depth 1024", "does not offer it");
}

TEST_F(FibreChannelSettingsTest, WrongCommandLines) {
  for (const char* arguments :
       {"set A1 --port 1", "set A1 --speed 4", "set A1 --port x --speed 4",
        "set A1 --port 1 --speed 5", "set A1 --port 1 --topology ring", "set A1 --port 1 --alpa xy",
        "set A1 --port 1 --speed 4 --mode server", "set --port 1 --speed 4"}) {
    EXPECT_EQ(command(arguments).status, 2) << arguments;
  }
}

TEST_F(FibreChannelSettingsTest, AdapterOrPortThatIsNotThere) {
  for (const char* arguments :
       {"set Z9 --port 1 --speed 4", "set A1 --port 3 --speed 4", "set A1 --port 0 --speed 4"}) {
    EXPECT_EQ(command(arguments).status, 3) << arguments;
  }
  EXPECT_THAT(command("set A1 --port 3 --speed 4").errors, HasSubstr("there is no port 3"));
  EXPECT_THAT(sent(6), IsEmpty());
}

TEST_F(FibreChannelSettingsTest, RefusalByTheDriverIsAFailure) {
  switchFault("driver-refuses-selector-6");
  const ProgramAnswer run = command("set A1 --port 1 --speed 4 --json");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(sent(6), ElementsAre("a00f000000000000"));
  EXPECT_THAT(std::string(run.json()["error"]["why"]), HasSubstr("has not taken it"));
  EXPECT_NE(run.json()["settingSpeed"], 4000);
}

// The assertion stops the program, which still answers its caller.
TEST_F(FibreChannelSettingsTest, QueueDepthWithoutAConnectionStopsWithItsAssertion) {
  switchFault("driver-refuses-open");
  const ProgramAnswer run = command("set A1 --queue-depth 64 --json");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.json()["error"]["why"],
            "Assertion failure in set_queue_depth:qDepth:, CorvaneAPI:435: KERN_SUCCESS == kr");
  EXPECT_THAT(sent(15), IsEmpty());
  EXPECT_THAT(command("set A1 --queue-depth 64").errors, HasSubstr("KERN_SUCCESS == kr"));
}

TEST_F(FibreChannelSettingsTest, WithoutAnAdministratorNothingIsChanged) {
  switchFault("password-cancelled");
  expectRefused("A1 --port 1 --speed 4", "needs an administrator");
}

TEST_F(FibreChannelSettingsTest, NextProgramSeesTheSetting) {
  ASSERT_EQ(command("set A2 --port 1 --speed 8").status, 0);
  const ProgramAnswer run = command("show A2 --json");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_EQ(run.json()["ports"][0]["settingSpeed"], 8000);
}

TEST_F(FibreChannelSettingsTest, ReadingThePortSendsItsIndexAndPrintsTheSizesOfSettings) {
  const ProgramAnswer run = command("set A1 --port 2 --topology ptp");
  ASSERT_EQ(run.status, 0) << run.errors;
  EXPECT_THAT(run.output, HasSubstr("structureOutputSize=2(Byte)\n"));
  for (const std::string& input : sent(13)) {
    ASSERT_EQ(input.size(), 208U);
    EXPECT_TRUE(input.substr(200, 2) == "00" || input.substr(200, 2) == "01");
  }
  EXPECT_THAT(sent(13), testing::Not(IsEmpty()));
}

}  // namespace
