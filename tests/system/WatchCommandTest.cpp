#include <sys/stat.h>

#include <csignal>
#include <sstream>

#include "ProgramFixture.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

namespace {

class WatchCommandTest : public ProgramFixture {
 protected:
  /// Starts `corvane watch` in the background, which ends by itself should the test fail.
  void watch(std::vector<std::string> arguments) {
    const std::vector<std::string> command{"watch", "--seconds", "120"};
    arguments.insert(arguments.end(), command.begin(), command.end());
    const std::string line = "{ " + commandLine("corvane", arguments) + " >" +
                             shellPath(path("watched")) + " 2>/dev/null & echo $! >" +
                             shellPath(path("pid")) + "; wait $!; echo $? >" +
                             shellPath(path("status")) + "; } &";
    ASSERT_EQ(std::system(line.c_str()), 0);
    waitUntil([this] { return content(path("pid")).ends_with('\n'); });
  }

  /// The complete lines told so far.
  std::vector<std::string> lines() const {
    std::istringstream output(content(path("watched")));
    std::vector<std::string> lines;
    for (std::string line; std::getline(output, line) && output.good();) lines.push_back(line);
    return lines;
  }

  std::vector<nlohmann::ordered_json> told() const {
    std::vector<nlohmann::ordered_json> events;
    for (const std::string& line : lines()) events.push_back(nlohmann::ordered_json::parse(line));
    return events;
  }

  /// Waits until so many events were told.
  void waitForEvents(size_t count) const {
    waitUntil([&] { return lines().size() >= count; });
  }

  int watcher() const { return std::stoi(content(path("pid"))); }

  void interrupt() const { ASSERT_EQ(kill(watcher(), SIGINT), 0); }

  /// Whether an interrupt would not end the watch at once.
  bool catchesInterrupts() const {
    constexpr uint64_t interruptBit = uint64_t{1} << (SIGINT - 1);
    const std::string status = content("/proc/" + std::to_string(watcher()) + "/status");
    const std::string heading = "SigCgt:";
    const size_t place = status.find(heading);
    return place != std::string::npos &&
           (std::stoull(status.substr(place + heading.size()), nullptr, 16) & interruptBit) != 0;
  }

  /// The exit status of the watch, once it has ended.
  std::string endedWith() const {
    waitUntil([this] { return content(path("status")).ends_with('\n'); });
    std::string status = content(path("status"));
    status.pop_back();
    return status;
  }
};

}  // namespace

TEST_F(WatchCommandTest, TellsOfAdaptersThatComeAndGo) {
  const std::string file = bench("products/corvane2-16g-fc");
  watch({"--bench", file, "--json"});
  waitForEvents(1);
  ASSERT_EQ(
      run("corvane-bench", {file, "plug", "Corvane3 F2", "--bridge", "4", "--hop", "1"}).status, 0);
  waitForEvents(2);
  ASSERT_EQ(run("corvane-bench", {file, "unplug", "D1"}).status, 0);
  waitForEvents(3);
  interrupt();
  EXPECT_EQ(endedWith(), "0");

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
}

TEST_F(WatchCommandTest, EndsWhereNothingCanBeFollowed) {
  const std::string file = bench("empty");
  ASSERT_EQ(run("corvane-bench", {file, "fault", "notifications-refused", "on"}).status, 0);
  const auto answer = corvane({"--bench", file, "watch", "--seconds", "600"});
  EXPECT_EQ(answer.status, 1);
  EXPECT_EQ(answer.errors,
            "corvane: discovery: the system refused to tell which adapters are attached\n"
            "Try again; the system log tells which of its calls failed.\n");
}

TEST_F(WatchCommandTest, AnInterruptEndsItWithStatusZero) {
  watch({"--bench", bench("products/corvane3-f2"), "--json"});
  waitForEvents(1);
  interrupt();
  EXPECT_EQ(endedWith(), "0");
}

// The journal is a pipe that nobody reads yet, so the watch is still on its way to the first event.
TEST_F(WatchCommandTest, AnInterruptWhileItBeginsEndsItWithStatusZero) {
  const std::string pipe = path("journal").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
  watch({"--bench", bench("empty"), "--journal", pipe});
  waitUntil([this] { return catchesInterrupts(); });
  interrupt();
  std::ifstream reader(pipe);
  EXPECT_EQ(endedWith(), "0");
}

TEST_F(WatchCommandTest, ANameFromOutsideCannotDriveTheTerminal) {
  std::string dump = content(CORVANE_TEST_DATA "/dumps/desktop-2013.txt");
  const std::string name = "<200000109b123456>";
  for (size_t at = dump.find(name); at != std::string::npos; at = dump.find(name, at))
    dump.replace(at, name.size(), "\"\x1b[2J000010345678\"");
  std::ofstream(path("ioreg.txt")) << dump;
  watch({"--dump", path("ioreg.txt").string()});
  waitForEvents(2);
  interrupt();
  EXPECT_EQ(endedWith(), "0");
  EXPECT_THAT(lines(), UnorderedElementsAre(
                           "Corvane2Appeared  \\x1b[:2J:00:00:10:34:56:78  A - 1  Corvane2 16G FC",
                           "Corvane2Appeared_10GE  163  A - 2  Corvane2 10G SFP+"));
}

TEST_F(WatchCommandTest, ATimeThatIsNoneIsRefused) {
  EXPECT_EQ(corvane({"--bench", bench("empty"), "watch", "--seconds", "0"}).status, 2);
  EXPECT_EQ(corvane({"--bench", bench("empty"), "watch", "--seconds", "soon"}).status, 2);
}
