#include <gmock/gmock.h>

#include "cli/bench-tools/FileOpener.h"
#include "cli/bench-tools/NetworkPing.h"
#include "cli/bench-tools/SystemLogArchive.h"
#include "cli/bench-tools/SystemProfile.h"
#include "cli/bench-tools/ToolBench.h"

namespace corvane {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string textOfFile(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

using NetworkPingTest = ToolBench;

TEST_F(NetworkPingTest, EveryHostAnswers) {
  const ToolAnswer answer = networkPing(bench, {"-c1", "-s1", "example.com"});
  EXPECT_EQ(answer.status, 0);
  EXPECT_THAT(answer.output, HasSubstr("PING example.com"));
}

TEST_F(NetworkPingTest, WithoutANetworkNoHostIsKnown) {
  setFault("no-network");
  const ToolAnswer answer = networkPing(bench, {"-c1", "-s1", "example.com"});
  EXPECT_EQ(answer.status, 68);
  EXPECT_EQ(answer.error, "ping: cannot resolve example.com: Unknown host\n");
}

TEST_F(NetworkPingTest, NeedsAHost) {
  EXPECT_EQ(networkPing(bench, {}).status, 64);
  EXPECT_EQ(networkPing(bench, {"-c1"}).status, 64);
}

using FileOpenerTest = ToolBench;

TEST_F(FileOpenerTest, RecordsWhatWasOpenedInOrder) {
  const std::string first = folder.path().string() + "/";
  const std::string second = bench.path();
  EXPECT_EQ(fileOpener(bench, {first}).status, 0);
  EXPECT_EQ(fileOpener(bench, {second}).status, 0);
  EXPECT_EQ(textOfFile(std::filesystem::path(bench.folder()) / "opened.txt"),
            first + "\n" + second + "\n");
}

TEST_F(FileOpenerTest, RefusesWhatIsNotThere) {
  const ToolAnswer answer = fileOpener(bench, {"/nowhere/at all"});
  EXPECT_EQ(answer.status, 1);
  EXPECT_EQ(answer.error, "The file /nowhere/at all does not exist.\n");
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(bench.folder()) / "opened.txt"));
}

TEST_F(FileOpenerTest, TakesOneFile) {
  EXPECT_EQ(fileOpener(bench, {}).status, 1);
  EXPECT_EQ(fileOpener(bench, {"/", "/tmp"}).status, 1);
}

using SystemProfileTest = ToolBench;

TEST_F(SystemProfileTest, IsAPropertyListThatNamesTheComputerAndItsAdapters) {
  const ToolAnswer answer = systemProfile(bench, {"-xml"});
  EXPECT_EQ(answer.status, 0);
  for (const char* text :
       {"<?xml version=\"1.0\"", "SPHardwareDataType", "MacPro6,1", "12.6.1", "SPEthernetDataType",
        "Corvane2 10G SFP+", "en5", "00:1B:21:AA:BB:CD", "SPFibreChannelDataType"}) {
    EXPECT_THAT(answer.output, HasSubstr(text));
  }
}

TEST_F(SystemProfileTest, LeavesOutWhatIsNotPluggedIn) {
  bench.update([](BenchState& state) { state.adapters[0].attached = false; });
  EXPECT_THAT(systemProfile(bench, {"-xml"}).output, Not(HasSubstr("SFP+")));
}

TEST_F(SystemProfileTest, KnowsOneForm) {
  EXPECT_EQ(systemProfile(bench, {}).status, 1);
}

using SystemLogArchiveTest = ToolBench;

TEST_F(SystemLogArchiveTest, IsWrittenIntoTheFolder) {
  const ToolAnswer answer =
      systemLogArchive(bench, {"collect", "--output", folder.path().string() + "/"});
  EXPECT_EQ(answer.status, 0);
  EXPECT_THAT(textOfFile(folder.path() / "system_logs.logarchive/Info.plist"), HasSubstr("12.6.1"));
}

TEST_F(SystemLogArchiveTest, NeedsAFolderThatIsThere) {
  const ToolAnswer answer =
      systemLogArchive(bench, {"collect", "--output", (folder.path() / "none").string()});
  EXPECT_EQ(answer.status, 73);
  EXPECT_THAT(answer.error, HasSubstr("Could not create archive"));
}

TEST_F(SystemLogArchiveTest, KnowsCollectOnly) {
  EXPECT_EQ(systemLogArchive(bench, {"show"}).status, 64);
  EXPECT_EQ(systemLogArchive(bench, {}).status, 64);
}

}  // namespace
}  // namespace corvane
