#include "ProgramFixture.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class LogsCommandTest : public ProgramFixture {
 protected:
  /// The command lines of a journal, in order.
  std::vector<std::string> shellLines(const std::filesystem::path& file) const {
    std::vector<std::string> lines;
    for (const auto& call : journal(file)) {
      if (call.at("call") == "shell") lines.push_back(call.at("line"));
    }
    return lines;
  }
};

/// What tells the adapters of a list apart, versions left out: a dump knows none.
std::vector<std::string> rowsOf(const nlohmann::ordered_json& list) {
  std::vector<std::string> rows;
  for (const auto& entry : list) {
    rows.push_back(entry.at("Sequence").get<std::string>() + " " +
                   entry.at("ProductType").get<std::string>() + " " +
                   entry.at("WWN").get<std::string>());
  }
  return rows;
}

TEST_F(LogsCommandTest, CollectsWhatADumpIsReadFromAgain) {
  const std::string machine = bench("chain-of-six");
  const auto logs = corvane({"--bench", machine, "logs", "--json", "--to", path("logs").string()});
  ASSERT_EQ(logs.status, 0) << logs.errors;
  const std::filesystem::path folder = logs.json().at("folder").get<std::string>();
  EXPECT_EQ(folder.parent_path(), path("logs"));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "systemLog"));
  EXPECT_TRUE(std::filesystem::is_regular_file(folder / "profiler.spx"));
  const auto there = corvane({"--bench", machine, "list", "--json"});
  const auto again = corvane({"--dump", folder.string(), "list", "--json"});
  ASSERT_EQ(again.status, 0) << again.errors;
  EXPECT_FALSE(there.json().empty());
  EXPECT_EQ(rowsOf(again.json()), rowsOf(there.json()));
}

TEST_F(LogsCommandTest, RunsItsCommandsInOrder) {
  const auto logs =
      corvane({"--bench", bench("demo"), "--journal", path("journal").string(), "logs"});
  ASSERT_EQ(logs.status, 0) << logs.errors;
  EXPECT_THAT(shellLines(path("journal")),
              ElementsAre(HasSubstr("mkdir -pv ~/Desktop/AllLogs/"), HasSubstr("/bin/cp "),
                          HasSubstr("ioreg  -l > ~/Desktop/AllLogs/"),
                          HasSubstr("system_profiler -xml > ~/Desktop/AllLogs/"),
                          "open ~/Desktop/AllLogs/"));
}

TEST_F(LogsCommandTest, LeavesNoFolderWhenThePasswordDialogIsCancelled) {
  const std::string machine = bench("demo");
  ASSERT_EQ(run("corvane-bench", {machine, "os", "10.12.6"}).status, 0);
  ASSERT_EQ(run("corvane-bench", {machine, "fault", "password-cancelled", "on"}).status, 0);
  const auto logs = corvane({"--bench", machine, "logs", "--to", path("logs").string()});
  EXPECT_EQ(logs.status, 1);
  EXPECT_TRUE(std::filesystem::is_empty(path("logs")));
}

TEST_F(LogsCommandTest, AFolderWithoutANameIsRefused) {
  EXPECT_EQ(corvane({"--bench", bench("empty"), "logs", "--to", ""}).status, 2);
}

TEST_F(LogsCommandTest, ADumpHasNoLogs) {
  const auto logs = corvane({"--dump", CORVANE_TEST_DATA "/dumps/desktop-2013.txt", "logs"});
  EXPECT_EQ(logs.status, 1);
  EXPECT_THAT(logs.errors, HasSubstr("a dump cannot be changed"));
}

TEST_F(LogsCommandTest, ADumpShowsNullForWhatTheDriverKnew) {
  const auto shown =
      corvane({"--dump", CORVANE_TEST_DATA "/dumps/desktop-2013.txt", "show", "A1", "--json"});
  ASSERT_EQ(shown.status, 0) << shown.errors;
  const auto adapter = shown.json();
  EXPECT_EQ(adapter["device"]["deviceWWN"], "20:00:00:10:9B:12:34:56");
  EXPECT_TRUE(adapter["device"]["firmwareVersion"].is_null());
  EXPECT_EQ(adapter["ports"][1]["portName"], "22:00:00:10:9B:12:34:56");
  EXPECT_TRUE(adapter["ports"][1]["linkState"].is_null());
  const auto text = corvane({"--dump", CORVANE_TEST_DATA "/dumps/desktop-2013.txt", "show", "A1"});
  EXPECT_THAT(text.output, HasSubstr("firmwareVersion: not read: not in the dump"));
}

TEST_F(LogsCommandTest, ACollectionsListIsTheAnswerAlone) {
  const auto list = corvane({"--dump", CORVANE_TEST_DATA "/dumps/20151104-093000", "list"});
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.output.rfind("image ", 0), 0u) << list.output;
  EXPECT_EQ(list.errors, "");
}

TEST_F(LogsCommandTest, WhatCannotBeReadIsCounted) {
  const auto list = corvane({"--dump", CORVANE_TEST_DATA "/dumps/desktop-2013-cut.txt", "list"});
  EXPECT_EQ(list.status, 0);
  EXPECT_THAT(list.errors, HasSubstr("13 lines are cut"));
}

TEST_F(LogsCommandTest, AnAdapterThatIsAttachedButCannotBeListedIsNamed) {
  const auto cut = corvane({"--dump", CORVANE_TEST_DATA "/dumps/desktop-2013-cut.txt", "list"});
  EXPECT_EQ(cut.status, 0);
  EXPECT_THAT(cut.output, HasSubstr("Corvane2 10G SFP+"));
  EXPECT_THAT(cut.errors, HasSubstr("Corvane2 16G FC at A - 1: attached, but not listed: its ports "
                                    "are not whole in the dump; ask the customer"));
  EXPECT_THAT(cut.errors, HasSubstr("\"ioreg -l -w0\" cuts none"));
  const auto whole = corvane({"--dump", CORVANE_TEST_DATA "/dumps/desktop-2013.txt", "list"});
  EXPECT_EQ(whole.errors, "");
}

TEST_F(LogsCommandTest, AnAdapterWhoseDriverDidNotRunIsNamed) {
  std::string dump = content(CORVANE_TEST_DATA "/dumps/desktop-2013.txt");
  const std::string driver = "com.velmar.Corvane2-FC";
  for (size_t at = dump.find(driver); at != std::string::npos; at = dump.find(driver, at))
    dump.replace(at, driver.size(), "com.example.other");
  std::ofstream(path("ioreg.txt")) << dump;
  const auto list = corvane({"--dump", path("ioreg.txt").string(), "list", "--json"});
  ASSERT_EQ(list.status, 0);
  EXPECT_EQ(list.json().size(), 1u);
  EXPECT_EQ(list.errors,
            "corvane: Corvane2 16G FC at A - 1: attached, but not listed: none of its ports is in "
            "the dump, so its driver did not run\n");
}

TEST_F(LogsCommandTest, OtherFilesAreRefused) {
  const auto list = corvane({"--dump", CORVANE_SOURCE_DIR "/CMakeLists.txt", "list"});
  EXPECT_EQ(list.status, 1);
  EXPECT_THAT(list.errors, HasSubstr("It holds no entry of a device registry."));
  EXPECT_EQ(corvane({"--dump", path("nothing").string(), "list"}).status, 3);
}

}  // namespace
