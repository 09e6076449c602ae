#include <gmock/gmock.h>

#include "ChangingCommandFixture.h"

using namespace corvane;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// What a change aims at while adapters come and go: the demo bench at real time, so that the wait
/// for a link leaves time for that.
class ChangeTargetTest : public ChangingCommandFixture {
 protected:
  ChangeTargetTest() : ChangingCommandFixture(1) { writeOutInFull(); }

  /// Starts `corvane set` in the background and waits until its speed was sent.
  void begin(const std::string& words) {
    const std::string line = "{ " + commandLine("corvane", arguments(words)) + " >" +
                             shellPath(path("set.out")) + " 2>" + shellPath(path("set.err")) +
                             " </dev/null; echo $? >" + shellPath(path("ended")) + "; } &";
    ASSERT_EQ(std::system(line.c_str()), 0);
    waitUntil([this] { return !sent(6).empty(); });
  }

  /// The exit status of what begin() started.
  int end() {
    waitUntil([this] { return content(path("ended")).ends_with('\n'); });
    return std::stoi(content(path("ended")));
  }

  void plugAnotherAdapter() {
    EXPECT_EQ(run("corvane-bench", {benchPath(), "plug", "Corvane3 F2", "--bridge", "1", "--hop",
                                    "3", "--wwn", "20:00:00:10:9B:00:00:99"})
                  .status,
              0);
  }

  void unplug(const std::string& label) {
    EXPECT_EQ(run("corvane-bench", {benchPath(), "unplug", label}).status, 0);
  }

  nlohmann::ordered_json port(const std::string& wwn, size_t index) const {
    const auto all = state();
    for (const auto& adapter : all["adapters"])
      if (adapter.value("nodeWWN", "") == wwn) return adapter["ports"][index];
    return {};
  }
};

constexpr const char* a1 = "20:00:00:10:9B:00:00:10";
constexpr const char* a2 = "20:00:00:10:9B:00:00:20";
constexpr const char* b2 = "20:00:00:10:9B:00:00:40";

TEST_F(ChangeTargetTest, EverySettingReachesThePortNamedWhileAnotherAdapterComes) {
  const auto before = port(a1, 0);
  begin("set B2 --port 2 --speed 4 --topology loop --queue-depth 33");
  plugAnotherAdapter();
  EXPECT_EQ(end(), 0) << content(path("set.err"));
  const auto changed = port(b2, 1);
  EXPECT_EQ(changed["speed"], 4000);
  EXPECT_EQ(changed["topology"], "arbitrated-loop");
  EXPECT_EQ(changed["queueDepth"], 33);
  const auto after = port(a1, 0);
  for (const char* field : {"speed", "topology", "queueDepth"})
    EXPECT_EQ(after.value(field, nlohmann::ordered_json()),
              before.value(field, nlohmann::ordered_json()))
        << field;
}

TEST_F(ChangeTargetTest, AnAdapterThatGoesIsNamedAndNoOtherIsChanged) {
  const auto before = port(a2, 0);
  begin("set A1 --port 1 --speed 4 --alpa ef");
  unplug("A1");
  EXPECT_EQ(end(), 1);
  EXPECT_THAT(content(path("set.err")), HasSubstr("A1: --speed 4: the adapter has gone meanwhile"));
  EXPECT_EQ(port(a2, 0), before);
}

TEST_F(ChangeTargetTest, AnUnrelatedAdapterMayComeAndGo) {
  begin("set B1 --port 1 --speed 8");
  unplug("A2");
  plugAnotherAdapter();
  EXPECT_EQ(end(), 0) << content(path("set.err"));
}

/// A change counts as made only when the tool, asked, says so.
class UnreadableToolTest : public ChangingCommandFixture {
 protected:
  UnreadableToolTest() : ChangingCommandFixture(1000) {}

  void expectRefused(const std::string& reason) {
    const ProgramAnswer answer = command("set C1 --port 1 --checksum off");
    EXPECT_EQ(answer.status, 1);
    EXPECT_THAT(answer.errors, HasSubstr(reason));
    EXPECT_EQ(answer.output, "");
    for (const std::string& line : texts("shell", "line"))
      EXPECT_THAT(line, testing::Not(HasSubstr(" set"))) << "nothing was written";
  }
};

TEST_F(UnreadableToolTest, AToolThatIsMissingChangesNothing) {
  switchFault("tool-missing");
  expectRefused("not installed");
}

TEST_F(UnreadableToolTest, AToolThatAnswersRubbishChangesNothing) {
  switchFault("tool-rubbish");
  expectRefused("makes no sense");
}

TEST_F(UnreadableToolTest, ADriverThatIsTooOldChangesNothing) {
  auto document = state();
  document["drivers"]["Corvane2-10GE"] = "1.3.5";
  writeState(document);
  expectRefused("the driver is too old");
}

TEST_F(UnreadableToolTest, WhatWasNotReadIsNull) {
  switchFault("tool-missing");
  const auto shown = command("show C1 --json").json();
  for (const auto& port : shown["ports"]) {
    EXPECT_EQ(port["mode"], nullptr);
    EXPECT_EQ(port["tcpipv4"]["state"], nullptr);
    EXPECT_EQ(port["rsc"]["state"], nullptr);
    EXPECT_EQ(port["module"]["class"], nullptr);
  }
  EXPECT_EQ(shown["ports"][0]["MTU"], 9000) << "ifconfig still answers";
}

TEST_F(UnreadableToolTest, EachPortIsReadOnce) {
  command("show A1 --json");
  EXPECT_THAT(sent(13), SizeIs(4)) << "two for each port with a module";
  EXPECT_THAT(sent(2), SizeIs(8 + 2)) << "each port once when it is listed, these two when shown";
}

}  // namespace
