#include <chrono>
#include <csignal>
#include <sstream>
#include <thread>

#include "ProgramFixture.h"

using namespace corvane;
using ::testing::ElementsAre;

namespace {

class WatchCommandTest : public ProgramFixture {
 protected:
  /// Starts a watch in the background, which ends by itself should the test fail.
  void watch(const std::string& file) {
    const std::string line =
        commandLine("corvane", {"--bench", file, "watch", "--json", "--seconds", "60"}) + " >" +
        shellPath(path("watched")) + " 2>/dev/null & echo $! >" + shellPath(path("pid"));
    ASSERT_EQ(std::system(line.c_str()), 0);
  }

  std::vector<nlohmann::ordered_json> told() const {
    std::istringstream lines(content(path("watched")));
    std::vector<nlohmann::ordered_json> events;
    for (std::string line; std::getline(lines, line) && lines.good();)
      events.push_back(nlohmann::ordered_json::parse(line));
    return events;
  }

  /// Waits until so many events were told.
  void waitForEvents(size_t count) const {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (told().size() < count && std::chrono::steady_clock::now() < limit)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    ASSERT_GE(told().size(), count);
  }

  void interrupt() const { ASSERT_EQ(kill(std::stoi(content(path("pid"))), SIGINT), 0); }
};

}  // namespace

TEST_F(WatchCommandTest, TellsOfAdaptersThatComeAndGo) {
  const std::string file = bench("products/corvane2-16g-fc");
  watch(file);
  waitForEvents(1);
  ASSERT_EQ(
      run("corvane-bench", {file, "plug", "Corvane3 F2", "--bridge", "4", "--hop", "1"}).status, 0);
  waitForEvents(2);
  ASSERT_EQ(run("corvane-bench", {file, "unplug", "D1"}).status, 0);
  waitForEvents(3);
  interrupt();

  const auto events = told();
  EXPECT_THAT(keysOf(events[0]), ElementsAre("event", "object", "Sequence", "ProductType"));
  EXPECT_EQ(events[0].at("event"), "Corvane2Appeared");
  EXPECT_EQ(events[1].at("event"), "Corvane3Appeared");
  EXPECT_EQ(events[1].at("Sequence"), "D - 1");
  EXPECT_EQ(events[2].at("event"), "Corvane2Disppeared");
  EXPECT_EQ(events[2].at("object"), events[1].at("object"));
  EXPECT_EQ(events[2].at("Sequence"), "D - 1");
  EXPECT_EQ(events[2].at("ProductType"), "Corvane3 F2");
}

TEST_F(WatchCommandTest, EndsAfterItsTime) {
  const auto answer =
      corvane({"--bench", bench("products/corvane3-f2"), "watch", "--json", "--seconds", "0.5"});
  EXPECT_EQ(answer.status, 0);
  EXPECT_EQ(answer.json().at("event"), "Corvane3Appeared");
}

TEST_F(WatchCommandTest, AnInterruptEndsItWithStatusZero) {
  const std::string line = "timeout --signal INT --preserve-status 1 " +
                           commandLine("corvane", {"--bench", bench("empty"), "watch"}) +
                           " >/dev/null 2>&1";
  EXPECT_EQ(std::system(line.c_str()), 0);
}

TEST_F(WatchCommandTest, ATimeThatIsNoneIsRefused) {
  EXPECT_EQ(corvane({"--bench", bench("empty"), "watch", "--seconds", "0"}).status, 2);
  EXPECT_EQ(corvane({"--bench", bench("empty"), "watch", "--seconds", "soon"}).status, 2);
}
