#include <gmock/gmock.h>

#include <array>
#include <csignal>

#include "ChangingCommandFixture.h"

using namespace corvane;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr const char* address = "00:D0:2E:00:00:50";
constexpr const char* oneModel = "Corvane2 10G SFP+";

using Lines = std::vector<std::string>;

/// `corvane set` on a bench with one 10GbE adapter: port 1 is en5 and holds an optical module on an
/// active link, port 2 is en6 and holds a copper cable on an inactive one.
class TenGigabitSettingsTest : public ChangingCommandFixture {
 protected:
  TenGigabitSettingsTest() : ChangingCommandFixture(1000) { plugIn(oneModel); }

  void plugIn(const std::string& product) {
    auto document = state();
    auto adapter = demoAdapter();
    adapter["product"] = product;
    document["disks"] = nlohmann::ordered_json::array();
    document["adapters"] = nlohmann::ordered_json::array({adapter});
    writeState(document);
  }

  static nlohmann::ordered_json demoAdapter() {
    const auto demo = nlohmann::ordered_json::parse(content(CORVANE_SOURCE_DIR "/bench/demo.json"));
    for (const auto& adapter : demo.at("adapters")) {
      if (adapter.at("product") == oneModel) return adapter;
    }
    return {};
  }

  template <typename Change>
  void changePorts(Change change) {
    auto document = state();
    for (auto& port : document["adapters"][0]["ports"]) change(port);
    writeState(document);
  }

  ProgramAnswer set(int port, const std::string& options) {
    return command("set " + std::string(address) + " --port " + std::to_string(port) + " " +
                   options + " --json");
  }

  nlohmann::ordered_json settings(int port) const {
    return state()["adapters"][0]["ports"][static_cast<size_t>(port - 1)]["settings"];
  }

  void expectRefused(const std::string& options, const std::string& reason) {
    const ProgramAnswer answer = set(1, options);
    EXPECT_EQ(answer.status, 1) << options;
    EXPECT_THAT(answer.json()["error"]["why"].get<std::string>(), HasSubstr(reason)) << options;
    EXPECT_THAT(changingLines(), IsEmpty()) << options;
  }

  // Command lines, in which the places that differ from bench to bench are named by what they are.

  Lines commandLines() const {
    Lines all;
    for (std::string line : texts("shell", "line")) {
      replace(line, path("demo.files/usr/local/bin/corvaneutil").string(), "TOOL");
      replace(line, path("demo.files/private/tmp/corvaneOutput.txt").string(), "OUTPUT");
      all.push_back(line);
    }
    return all;
  }

  static void replace(std::string& line, const std::string& place, const std::string& name) {
    const size_t found = line.find(place);
    if (found != std::string::npos) line.replace(found, place.size(), name);
  }

  static bool isChanging(const std::string& line) {
    return line.find(" set") != std::string::npos || line.find("saveConfig") != std::string::npos;
  }

  Lines changingLines() const {
    Lines all = commandLines();
    all.erase(std::remove_if(all.begin(), all.end(),
                             [](const std::string& line) { return !isChanging(line); }),
              all.end());
    return all;
  }

  /// From the first line that changes something.
  Lines linesFromTheFirstChange() const {
    const Lines all = commandLines();
    return {std::find_if(all.begin(), all.end(), isChanging), all.end()};
  }

  static Lines confirmedWrite(const std::string& interface, const std::string& title,
                              const std::string& value) {
    return {"TOOL " + interface + " set" + title + " " + value,
            "TOOL " + interface + " get" + title + " > OUTPUT"};
  }

  static Lines preset(const std::string& interface, const std::vector<std::string>& values,
                      const std::string& ringCount) {
    const std::array titles = {"RxIntrThrottle", "RxRingSize", "TxIntrThrottle", "TxRingSize"};
    Lines lines;
    for (size_t index = 0; index < titles.size(); ++index) {
      append(lines, confirmedWrite(interface, titles[index], values[index]));
    }
    append(lines, {"TOOL " + interface + " setRxRingCount " + ringCount,
                   "TOOL " + interface + " saveConfig"});
    return lines;
  }

  static Lines savedWrite(const std::string& interface, const std::string& title,
                          const std::string& value) {
    Lines lines = confirmedWrite(interface, title, value);
    append(lines, {"TOOL " + interface + " saveConfig"});
    return lines;
  }

  /// The port's page; `moduleTries` is how often the module is asked for.
  static Lines page(int port, size_t moduleTries) {
    const std::string interface = port == 1 ? "en5" : "en6";
    const std::string status = "ifconfig " + interface + "|grep status > OUTPUT";
    Lines lines(moduleTries, "TOOL " + interface + " getSFPModule > OUTPUT");
    for (const char* title : {"RxIntrThrottle", "RxRingSize", "TxIntrThrottle", "TxRingSize",
                              "RxRingCount", "TCPipv4ChecksumEnable"}) {
      lines.push_back("TOOL " + interface + " get" + title + " > OUTPUT");
    }
    append(lines, {"TOOL all getRSCEnable > OUTPUT", "TOOL " + interface + " getRSCEnable > OUTPUT",
                   status});
    if (port == 1) append(lines, {status, "ifconfig en5 > OUTPUT|grep media"});
    append(lines, {"ifconfig " + interface + " > OUTPUT"});
    return lines;
  }

  static void append(Lines& lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
  }
};

class EveryModelTest : public TenGigabitSettingsTest,
                       public testing::WithParamInterface<const char*> {};

TEST_P(EveryModelTest, AllThreeSettingsAreWrittenInOrderSavedAndReadAgain) {
  plugIn(GetParam());
  const bool hasModules = GetParam() == std::string(oneModel);
  for (const int port : {1, 2}) {
    const std::string interface = port == 1 ? "en5" : "en6";
    const ProgramAnswer answer = set(port, "--mode server --checksum off --rsc off");
    ASSERT_EQ(answer.status, 0) << answer.errors;
    const size_t triesOnThisPort = port == 1 ? 2 : 3;
    Lines expected = preset(interface, {"8000", "512", "16000", "1024"}, "8");
    append(expected, savedWrite(interface, "TCPipv4ChecksumEnable", "1"));
    append(expected, savedWrite(interface, "RSCEnable", "0"));
    append(expected, page(port, hasModules ? triesOnThisPort : 10));
    EXPECT_THAT(linesFromTheFirstChange(), ElementsAreArray(expected));
    EXPECT_EQ(answer.json()["port"], port);
    EXPECT_EQ(answer.json()["mode"], "server");
    EXPECT_EQ(answer.json()["tcpipv4"]["state"], false);
    EXPECT_EQ(answer.json()["rsc"]["state"], false);
    EXPECT_EQ(answer.json()["module"]["hidden"], !hasModules);
  }
}

INSTANTIATE_TEST_SUITE_P(Models, EveryModelTest,
                         testing::Values("Corvane2 10G Base-T", "Corvane2 10G SFP+",
                                         "Corvane3 NBASE-T1", "Corvane3 10G Base-T",
                                         "Corvane3 10G SFP+"));

TEST_F(TenGigabitSettingsTest, EveryModeWritesItsPreset) {
  const auto presetLines = [this] {
    Lines lines = linesFromTheFirstChange();
    lines.resize(10);
    return lines;
  };
  ASSERT_EQ(set(1, "--mode low-latency").status, 0);
  EXPECT_EQ(presetLines(), preset("en5", {"4000", "512", "8000", "1024"}, "1"));
  EXPECT_EQ(settings(1)["RxIntrThrottle"], 4000);
  ASSERT_EQ(set(1, "--mode high-throughput").status, 0);
  EXPECT_EQ(presetLines(), preset("en5", {"12000", "1024", "24000", "2048"}, "1"));
  EXPECT_EQ(settings(1)["TxRingSize"], 2048);
  ASSERT_EQ(set(1, "--mode balanced").status, 0);
  EXPECT_EQ(presetLines(), preset("en5", {"8000", "512", "16000", "1024"}, "1"));
  EXPECT_EQ(settings(2)["RxIntrThrottle"], 8000);
}

TEST_F(TenGigabitSettingsTest, OnIsTwoForTheChecksumAndOneForCoalescing) {
  changePorts([](auto& port) {
    port["settings"]["TCPipv4ChecksumEnable"] = 1;
    port["settings"]["RSCEnable"] = 0;
  });
  const ProgramAnswer answer = set(2, "--checksum on --rsc on");
  ASSERT_EQ(answer.status, 0) << answer.errors;
  EXPECT_THAT(changingLines(),
              ElementsAre("TOOL en6 setTCPipv4ChecksumEnable 2", "TOOL en6 saveConfig",
                          "TOOL en6 setRSCEnable 1", "TOOL en6 saveConfig"));
  EXPECT_EQ(answer.json()["tcpipv4"]["state"], true);
  EXPECT_EQ(answer.json()["rsc"]["state"], true);
  EXPECT_EQ(settings(1)["RSCEnable"], 0);
}

TEST_F(TenGigabitSettingsTest, TheNextProgramSeesTheSetting) {
  ASSERT_EQ(set(1, "--mode low-latency --checksum off").status, 0);
  const ProgramAnswer shown = command("show " + std::string(address) + " --json");
  ASSERT_EQ(shown.status, 0) << shown.errors;
  EXPECT_EQ(shown.json()["ports"][0]["mode"], "low-latency");
  EXPECT_EQ(shown.json()["ports"][0]["tcpipv4"]["state"], false);
  EXPECT_EQ(shown.json()["ports"][1]["mode"], "balanced");
}

TEST_F(TenGigabitSettingsTest, ADriverWithoutCoalescingDoesNotOfferIt) {
  changePorts([](auto& port) {
    port["settings"].erase("RSCEnable");
    port["savedSettings"].erase("RSCEnable");
  });
  expectRefused("--rsc on", "does not offer it");
  expectRefused("--checksum off --rsc off", "does not offer it");
}

TEST_F(TenGigabitSettingsTest, AnOldDriverOffersNoMode) {
  auto document = state();
  document["drivers"]["Corvane2-10GE"] = "1.3.5";
  writeState(document);
  expectRefused("--mode server", "the driver is too old");
}

TEST_F(TenGigabitSettingsTest, ASettingThatIsNotTakenIsAFailure) {
  switchFault("tool-rubbish");
  const ProgramAnswer answer = set(1, "--mode server");
  EXPECT_EQ(answer.status, 1);
  EXPECT_THAT(answer.json()["error"]["why"].get<std::string>(), HasSubstr("makes no sense"));
}

// A preset is several commands of the adapter's tool, of which no part must be left.
TEST_F(TenGigabitSettingsTest, AnInterruptLetsAPresetComeToItsEnd) {
  const std::string line =
      "exec " +
      commandLine("corvane", arguments("set " + std::string(address) + " --port 1 --mode server")) +
      " >/dev/null 2>&1 </dev/null";
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
    _exit(127);
  }
  waitUntil([this] {
    const auto told = texts("shell", "line");
    return std::any_of(told.begin(), told.end(), [](const std::string& each) {
      return each.find(" set") != std::string::npos;
    });
  });
  kill(child, SIGTERM);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(isDoneOrOvertaken(status, SIGTERM)) << status;
  EXPECT_THAT(texts("shell", "line"), testing::Contains(HasSubstr("saveConfig")));
}

TEST_F(TenGigabitSettingsTest, WithoutAnAdministratorNothingIsChanged) {
  switchFault("password-cancelled");
  expectRefused("--mode server", "needs an administrator");
}

}  // namespace
