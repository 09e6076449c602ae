#include "ProgramFixture.h"
#include "changes/History.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class HistoryCommandTest : public ProgramFixture {
 protected:
  static HistoryEntry entry(const std::string& label, const std::string& WWN) {
    return {"2026-11-21T02:14:07Z", "speed", label, WWN, 1, std::nullopt, "4", "taken"};
  }

  /// A bench keeps the files of its computer in a folder beside it.
  void record(const HistoryEntry& change) const {
    Paths paths;
    paths.home = path("demo.files/Users/user").string();
    ASSERT_TRUE(History(paths).append(change));
  }

  ProgramAnswer history(const std::vector<std::string>& words = {}) const {
    std::vector<std::string> all{"--bench", machine, "history", "--json"};
    all.insert(all.end(), words.begin(), words.end());
    return corvane(all);
  }

  const std::string machine = bench("demo");
  const HistoryEntry first = entry("A - 1", "20:00:00:10:9B:00:00:01");
  const HistoryEntry second = entry("B - 2", "20:00:00:10:9B:00:00:02");
};

std::vector<std::string> labelsOf(const ProgramAnswer& answer) {
  std::vector<std::string> labels;
  for (const auto& change : answer.json()) labels.push_back(change.at("label"));
  return labels;
}

TEST_F(HistoryCommandTest, ListsEveryChangeWithItsKeys) {
  record(first);
  record(second);
  const ProgramAnswer answer = history();
  ASSERT_EQ(answer.status, 0) << answer.errors;
  EXPECT_THAT(labelsOf(answer), ElementsAre("A - 1", "B - 2"));
  const auto change = answer.json().front();
  EXPECT_THAT(keysOf(change),
              ElementsAre("time", "what", "label", "WWN", "port", "from", "to", "outcome"));
  EXPECT_EQ(change.at("port"), 1);
  EXPECT_TRUE(change.at("from").is_null());
  EXPECT_EQ(change.at("to"), "4");
}

TEST_F(HistoryCommandTest, ALabelOrAWWNNamesOneAdapter) {
  record(first);
  record(second);
  for (const char* name : {"b2", "B - 2", "20:00:00:10:9b:00:00:02"}) {
    EXPECT_THAT(labelsOf(history({name})), ElementsAre("B - 2")) << name;
  }
  EXPECT_THAT(labelsOf(history({"C7"})), ElementsAre());
}

TEST_F(HistoryCommandTest, WithoutAChangeTheListIsEmpty) {
  const ProgramAnswer answer = history();
  EXPECT_EQ(answer.status, 0);
  EXPECT_EQ(answer.json(), nlohmann::json::array());
}

TEST_F(HistoryCommandTest, ADumpHasNoHistory) {
  const auto answer = corvane({"--dump", CORVANE_TEST_DATA "/dumps/desktop-2013.txt", "history"});
  EXPECT_EQ(answer.status, 1);
  EXPECT_THAT(answer.errors, HasSubstr("dump"));
}

}  // namespace
