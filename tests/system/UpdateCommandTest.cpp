#include <csignal>
#include <thread>

#include "ProgramFixture.h"
#include "fakes/LoopbackServer.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

constexpr const char* eightGigabitName = "20:00:00:10:9B:00:00:10";
constexpr const char* catalogueName = "/10.11/CorvaneOnlineInfo.plist";

/// Runs `corvane update` on the demo bench.
class UpdateCommandTest : public ProgramFixture {
 protected:
  UpdateCommandTest() : benchPath(bench("demo")) {}

  ProgramAnswer update(const std::vector<std::string>& arguments) const {
    std::vector<std::string> all = {"--bench", benchPath, "--journal", path("journal").string(),
                                    "update"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return corvane(all);
  }

  void change(const std::vector<std::string>& arguments) const {
    std::vector<std::string> all = {benchPath};
    all.insert(all.end(), arguments.begin(), arguments.end());
    const auto answer = run("corvane-bench", all);
    ASSERT_EQ(answer.status, 0) << answer.errors;
  }

  /// What the journal holds of volumes, transfers and alerts, in order, repeats left out.
  std::vector<std::string> steps() const {
    std::vector<std::string> steps;
    for (const auto& line : journal(path("journal"))) {
      const std::string call = line["call"];
      if (call == "unmount" || call == "mount") steps.push_back(call);
      if (call == "userClient" && line["selector"] == 3) steps.push_back("transfer");
      if (call == "alert") steps.push_back(line["message"]);
    }
    steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
    return steps;
  }

  const std::string benchPath;
};

TEST_F(UpdateCommandTest, ChecksTheShippedCatalogue) {
  const auto answer = update({"check", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  const auto candidates = answer.json();
  ASSERT_EQ(candidates.size(), 1U);
  EXPECT_THAT(keysOf(candidates[0]),
              ElementsAre("updateName", "deviceWWN", "currentVer", "updateDescription"));
  EXPECT_EQ(candidates[0]["updateName"], "FW(8G) 20:00:00:10:9B:00:00:10(A - 1)");
  EXPECT_EQ(candidates[0]["deviceWWN"], eightGigabitName);
  EXPECT_EQ(candidates[0]["currentVer"], "11.4.204.0");
}

TEST_F(UpdateCommandTest, PrintsNothingButTheAnswer) {
  const auto answer = update({"check"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  EXPECT_THAT(answer.output, HasSubstr("FW(8G)"));
  EXPECT_THAT(answer.output, ::testing::Not(HasSubstr("PING")));
}

TEST_F(UpdateCommandTest, InstallsFirmwareWithTheVolumesOffline) {
  const auto answer = update({"install", "--yes", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  EXPECT_EQ(answer.json()[0]["deviceWWN"], eightGigabitName);
  EXPECT_THAT(steps(), ElementsAre("Wait", "unmount", "Wait", "transfer", "Finish", "mount"));
  EXPECT_THAT(content(benchPath), HasSubstr("\"pendingFirmware\": \"11.4.204\""));
}

TEST_F(UpdateCommandTest, NothingIsInstalledWithoutAnAnswer) {
  const auto answer = update({"install"});
  EXPECT_EQ(answer.status, 1);
  EXPECT_THAT(answer.errors, HasSubstr("--yes"));
  EXPECT_TRUE(journal(path("journal")).empty());
}

TEST_F(UpdateCommandTest, OnlyChoosesByNameOrLabel) {
  EXPECT_EQ(update({"install", "--yes", "--only", "A1"}).status, 0);
  const auto other = update({"install", "--yes", "--only", "A - 2"});
  EXPECT_EQ(other.status, 3);
  EXPECT_THAT(other.errors, HasSubstr("no update for it"));
  EXPECT_EQ(update({"install", "--yes", "--only", "Z9"}).status, 3);
}

TEST_F(UpdateCommandTest, InstallsSoftware) {
  change({"set", "/application/version", "0.9.0.0"});
  const auto answer = update({"install", "--yes", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  EXPECT_EQ(answer.json()[0]["updateName"], "CORVANE Utility");
  EXPECT_TRUE(answer.json()[0]["deviceWWN"].is_null());
  EXPECT_TRUE(steps().empty());
}

TEST_F(UpdateCommandTest, WithoutANetworkItFails) {
  change({"fault", "no-network", "on"});
  const auto answer = update({"check", "--json"});
  EXPECT_EQ(answer.status, 1);
  EXPECT_EQ(answer.json()["error"]["why"], "the network does not answer");
}

TEST_F(UpdateCommandTest, AnImageThatIsRefusedFails) {
  change({"fault", "firmware-refused", "on"});
  const auto answer = update({"install", "--yes"});
  EXPECT_EQ(answer.status, 1);
  EXPECT_THAT(answer.errors, HasSubstr("refused the image"));
}

TEST_F(UpdateCommandTest, AServerWithoutACatalogueFails) {
  LoopbackServer server;
  server.fail(catalogueName, 404);
  const auto answer = update({"check", "--json", "--server", server.url()});
  EXPECT_EQ(answer.status, 1);
  EXPECT_EQ(answer.json()["error"]["what"], server.url(catalogueName));
  EXPECT_THAT(answer.json()["error"]["why"].get<std::string>(), HasSubstr("404"));
}

TEST_F(UpdateCommandTest, APackageThatBreaksOffIsNotInstalled) {
  LoopbackServer server;
  server.serve(catalogueName,
               content(std::string(CORVANE_SOURCE_DIR) + "/bench/update" + catalogueName));
  server.cut("/10.11/Corvane2-FW-8G-11.4.204.pkg", "half a package", 33'804);
  const auto answer = update({"install", "--yes", "--server", server.url() + "/"});
  EXPECT_EQ(answer.status, 1);
  EXPECT_THAT(answer.errors, HasSubstr("the download failed"));
  EXPECT_THAT(steps(), ElementsAre("Wait", "unmount", "Wait", "Finish", "mount"));
}

TEST_F(UpdateCommandTest, APackageThatIsNoneIsNotSent) {
  LoopbackServer server;
  server.serve(catalogueName,
               content(std::string(CORVANE_SOURCE_DIR) + "/bench/update" + catalogueName));
  server.serve("/10.11/Corvane2-FW-8G-11.4.204.pkg", "<html>Sign in to this network</html>");
  const auto answer = update({"install", "--yes", "--json", "--server", server.url()});
  EXPECT_EQ(answer.status, 1);
  EXPECT_THAT(answer.json()["error"]["why"].get<std::string>(),
              HasSubstr("the package cannot be used: status 0x"));
  EXPECT_THAT(steps(), ElementsAre("Wait", "unmount", "Wait", "Finish", "mount"));
}

TEST_F(UpdateCommandTest, AFileNameThatLeavesItsFolderIsRefusedBeforeAnythingIsAsked) {
  LoopbackServer server;
  std::string catalogue =
      content(std::string(CORVANE_SOURCE_DIR) + "/bench/update" + catalogueName);
  const std::string name = "Corvane2-FW-8G-11.4.204.pkg";
  catalogue.replace(catalogue.find(name), name.size(), "../../../escaped.pkg");
  server.serve(catalogueName, catalogue);
  const auto answer = update({"install", "--yes", "--server", server.url()});
  EXPECT_EQ(answer.status, 1);
  EXPECT_THAT(answer.errors, HasSubstr("would leave its folder"));
  EXPECT_THAT(server.requests(), ::testing::Each(catalogueName));
}

TEST_F(UpdateCommandTest, AFolderThatIsServedIsAskedLikeAnyOtherServer) {
  const std::string served = path("served").string();
  const std::string bench = std::string(CORVANE_BINARY_DIR) + "/bin/corvane-bench";
  const std::string start = "{ " + shellPath(bench) + " serve " +
                            shellPath(std::string(CORVANE_SOURCE_DIR) + "/bench/update") + " >" +
                            shellPath(served) + " & echo $! >" + shellPath(path("server")) +
                            "; wait $!; echo $? >" + shellPath(path("ended")) + "; } 2>/dev/null &";
  ASSERT_EQ(std::system(start.c_str()), 0);
  waitUntil([&] { return content(served).ends_with("/\n"); });
  const std::string told = content(served);
  const std::string url = told.substr(5, told.size() - 6);
  const auto answer = update({"install", "--yes", "--json", "--server", url});
  kill(std::stoi(content(path("server"))), SIGTERM);
  waitUntil([&] { return content(path("ended")).ends_with('\n'); });
  EXPECT_EQ(content(path("ended")), "0\n");
  ASSERT_EQ(answer.status, 0) << answer.errors;
  EXPECT_EQ(answer.json()[0]["deviceWWN"], eightGigabitName);
}

TEST_F(UpdateCommandTest, AnInterruptEndsTheDownloadAndLeavesNothingBehind) {
  LoopbackServer server;
  const std::string package = "/10.11/Corvane2-FW-8G-11.4.204.pkg";
  server.serve(catalogueName,
               content(std::string(CORVANE_SOURCE_DIR) + "/bench/update" + catalogueName));
  server.stall(package, "half a package");
  const std::string start =
      commandLine("corvane", {"--bench", benchPath, "--journal", path("journal").string(), "update",
                              "install", "--yes", "--server", server.url()}) +
      " >/dev/null 2>" + shellPath(path("err")) + " & echo $! >" + shellPath(path("pid")) +
      "; wait $!; echo $? >" + shellPath(path("status"));
  std::thread run([&start] { std::system(start.c_str()); });
  const auto isAsked = [&] {
    const auto requests = server.requests();
    return std::find(requests.begin(), requests.end(), package) != requests.end();
  };
  waitUntil(isAsked);
  kill(std::stoi(content(path("pid"))), SIGINT);
  run.join();
  EXPECT_EQ(content(path("status")), "1\n");
  EXPECT_THAT(content(path("err")), HasSubstr("the download failed: it was cancelled"));
  EXPECT_TRUE(steps().empty());
  for (const auto& file : std::filesystem::directory_iterator(path("demo.files/private/tmp"))) {
    EXPECT_THAT(file.path().filename().string(), ::testing::Not(HasSubstr("corvane-")));
  }
}

TEST_F(UpdateCommandTest, AnUpToDateSystemIsAnEmptyList) {
  LoopbackServer server;
  server.serve(catalogueName,
               "<plist version=\"1.0\"><dict><key>Rules</key><array/></dict></plist>");
  const auto answer = update({"install", "--yes", "--json", "--server", server.url()});
  EXPECT_EQ(answer.status, 0) << answer.errors;
  EXPECT_TRUE(answer.json().empty());
  EXPECT_THAT(answer.errors, HasSubstr("up to date"));
}

TEST_F(UpdateCommandTest, TheWrongCommandLineIsTold) {
  EXPECT_EQ(update({}).status, 2);
  EXPECT_EQ(update({"check", "--only", "A1"}).status, 2);
}

}  // namespace
