#include "platform/bench/file/BenchFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "TemporaryFolder.h"
#include "fibre_channel/ArbitratedLoopAddresses.h"
#include "platform/bench/file/BenchProducts.h"

using namespace corvane;

namespace {

class BenchFileTest : public testing::Test {
 protected:
  std::string path(const std::string& name = "machine.json") const { return folder_ + "/" + name; }

  BenchFile written(const std::string& text) const {
    std::ofstream(path()) << text;
    return BenchFile(path());
  }

  BenchFileError refusal(const std::string& text) const {
    try {
      parseBench(text, "machine.json");
    } catch (const BenchFileError& error) {
      return error;
    }
    ADD_FAILURE() << "was taken: " << text;
    return BenchFileError(BenchFileError::Kind::Misfit, "", 0, "", "");
  }

  const TemporaryFolder temporary_;
  const std::string folder_ = temporary_.path().string();
};

constexpr const char* smallBench = R"({
  "note": "kept",
  "clockRate": 1000,
  "computer": {"osVersion": "10.8.5"},
  "drivers": {"Corvane2-FC": "2.0.10"},
  "adapters": [
    {
      "product": "Corvane2 8G FC",
      "bridge": 2,
      "hop": 1,
      "nodeWWN": "20:00:00:10:9B:12:34:56",
      "firmware": "2.02",
      "note": "the one in the rack",
      "ports": [
        {"wwpn": "21:00:00:10:9B:12:34:56", "speed": 8000,
         "partner": {"speeds": [4000, 8000], "topology": "arbitrated-loop"}},
        {"wwpn": "21:01:00:10:9B:12:34:56", "link": false}
      ]
    },
    {
      "product": "Corvane3 NBASE-T1",
      "bridge": 3,
      "hop": 2,
      "ports": [{"interface": "en5", "mac": "00:1B:21:AA:BB:CC", "settings": {"RxRingSize": 1024}},
                {"mac": "00:1B:21:AA:BB:CD", "enabled": false}]
    }
  ],
  "disks": [{"name": "disk4", "port": "21:00:00:10:9b:12:34:56",
             "partitions": [{"name": "disk4s1", "mounted": false}]}],
  "faults": {"link-flaps": true, "tool-missing": false}
}
)";

}  // namespace

TEST_F(BenchFileTest, ReadsWhatTheFileSaysAndTheDefaultsOfTheRest) {
  const BenchState state = written(smallBench).load();
  EXPECT_EQ(state.clockRate, 1000);
  EXPECT_EQ(state.computer.osVersion, "10.8.5");
  EXPECT_EQ(state.computer.model, "MacPro6,1");
  EXPECT_EQ(state.drivers.at("Corvane2-FC"), "2.0.10");
  ASSERT_EQ(state.adapters.size(), 2U);
  const BenchAdapter& fibreChannel = state.adapters[0];
  EXPECT_EQ(fibreChannel.note, "the one in the rack");
  EXPECT_EQ(fibreChannel.bridge, 2);
  ASSERT_EQ(fibreChannel.fibreChannelPorts.size(), 2U);
  EXPECT_EQ(fibreChannel.fibreChannelPorts[0].speed, 8000);
  EXPECT_EQ(fibreChannel.fibreChannelPorts[0].partner.speeds, (std::vector<int64_t>{4000, 8000}));
  EXPECT_EQ(fibreChannel.fibreChannelPorts[0].partner.topology, BenchTopology::ArbitratedLoop);
  EXPECT_FALSE(fibreChannel.fibreChannelPorts[0].transceiver.isPresent());
  EXPECT_FALSE(fibreChannel.fibreChannelPorts[1].link);
  EXPECT_EQ(fibreChannel.fibreChannelPorts[1].partner.topology, std::nullopt);
  const BenchAdapter& ethernet = state.adapters[1];
  ASSERT_EQ(ethernet.ethernetPorts.size(), 2U);
  EXPECT_EQ(ethernet.ethernetPorts[0].settings, (BenchDriverSettings{{"RxRingSize", 1024}}));
  EXPECT_EQ(ethernet.ethernetPorts[0].savedSettings, defaultDriverSettings());
  EXPECT_EQ(ethernet.ethernetPorts[1].interface, std::nullopt);
  EXPECT_TRUE(state.hasFault("link-flaps"));
  EXPECT_FALSE(state.hasFault("tool-missing"));
  EXPECT_EQ(state.findEthernetPort("en5")->mac, "00:1B:21:AA:BB:CC");
  EXPECT_EQ(state.findEthernetPort("en9"), nullptr);
}

TEST_F(BenchFileTest, WritesEveryValueItReads) {
  const BenchState state = parseBench(smallBench, "machine.json");
  EXPECT_EQ(parseBench(benchText(state), "machine.json"), state);
}

TEST_F(BenchFileTest, AChangeKeepsWhatItDoesNotTouch) {
  const BenchFile file = written(smallBench);
  BenchState expected = file.load();
  expected.adapters[0].fibreChannelPorts[0].hardAlpa = 0xEF;
  file.update([](BenchState& state) { state.adapters[0].fibreChannelPorts[0].hardAlpa = 0xEF; });
  EXPECT_EQ(file.load(), expected);
}

TEST_F(BenchFileTest, NothingIsWrittenWhenNothingChanges) {
  const BenchFile file = written(smallBench);
  file.update([](BenchState&) {});
  EXPECT_EQ(file.text(), smallBench);
}

TEST_F(BenchFileTest, NothingIsWrittenWhenTheChangeThrows) {
  const BenchFile file = written(smallBench);
  EXPECT_THROW(file.update([](BenchState& state) {
    state.adapters.clear();
    throw std::logic_error("changed my mind");
  }),
               std::logic_error);
  EXPECT_EQ(file.text(), smallBench);
}

TEST_F(BenchFileTest, AChangeThatWouldNotFitIsRefusedAndTheFileKept) {
  const BenchFile file = written(smallBench);
  EXPECT_THROW(file.update([](BenchState& state) { state.adapters[0].product = "Corvane4"; }),
               BenchFileError);
  EXPECT_EQ(file.text(), smallBench);
}

TEST_F(BenchFileTest, AFileThatDoesNotFitIsNeverOverwritten) {
  const std::string broken = "{\"adapters\": [], \"colour\": 1}";
  const BenchFile file = written(broken);
  EXPECT_THROW(file.update([](BenchState& state) { state.clockRate = 5; }), BenchFileError);
  EXPECT_THROW(file.set("/clockRate", "5"), BenchFileError);
  EXPECT_THROW(file.create(BenchState{}), BenchFileError);
  EXPECT_EQ(file.text(), broken);
}

TEST_F(BenchFileTest, AMissingFileIsToldFromABrokenOne) {
  try {
    BenchFile(path("nowhere.json")).load();
    FAIL();
  } catch (const BenchFileError& error) {
    EXPECT_EQ(error.kind(), BenchFileError::Kind::Missing);
  }
}

TEST_F(BenchFileTest, ANewFileHoldsTheStateGiven) {
  BenchState state;
  state.clockRate = 7;
  const BenchFile file(path("new.json"));
  file.create(state);
  EXPECT_EQ(file.load(), state);
  EXPECT_EQ(file.folder(), BenchFile(path("new.files")).path());
}

TEST_F(BenchFileTest, SetChangesOneFieldByItsPointer) {
  const BenchFile file = written(smallBench);
  file.set("/adapters/0/ports/1/link", "true");
  file.set("/computer/osVersion", "\"14.3\"");
  file.set("/adapters/1/ports/0/interface", "en7");
  const BenchState state = file.load();
  EXPECT_TRUE(state.adapters[0].fibreChannelPorts[1].link);
  EXPECT_EQ(state.computer.osVersion, "14.3");
  EXPECT_EQ(state.adapters[1].ethernetPorts[0].interface, "en7");
  EXPECT_EQ(state.note, "kept");
}

TEST_F(BenchFileTest, SetTakesAsTextWhatDoesNotFitAsJson) {
  const BenchFile file = written(smallBench);
  file.set("/computer/osVersion", "12.6");
  EXPECT_EQ(file.load().computer.osVersion, "12.6");
}

TEST_F(BenchFileTest, SetRefusesWhatDoesNotFitAndWhatIsNoPlace) {
  const BenchFile file = written(smallBench);
  EXPECT_THROW(file.set("/clockRate", "fast"), BenchFileError);
  EXPECT_THROW(file.set("/adapters/0/ports/0/speed", "3000"), BenchFileError);
  EXPECT_THROW(file.set("clockRate", "1"), BenchFileError);
  EXPECT_THROW(file.set("/adapters/first", "1"), BenchFileError);
  EXPECT_THROW(file.set("/note/inside", "1"), BenchFileError);
  EXPECT_EQ(file.text(), smallBench);
}

TEST_F(BenchFileTest, RefusalsNameLineFieldAndReason) {
  struct Case {
    std::string text;
    size_t line;
    std::string field;
    std::string reason;
  };
  const std::string port = R"({"wwpn": "21:00:00:10:9B:12:34:56"})";
  const auto adapter = [](const std::string& fields) {
    return R"({"adapters": [{"product": "Corvane2 8G FC", "nodeWWN": "20:00:00:10:9B:12:34:56", )" +
           fields + "}]}";
  };
  const std::vector<Case> cases = {
      {"", 1, "", "is no JSON"},
      {"{\n\"adapters\": [],\n}", 3, "", "is no JSON"},
      {"[]", 1, "", "must be of type object"},
      {"{\n}", 1, "", "lacks the field \"adapters\""},
      {"{\"adapters\": [],\n\"clockRate\": 0\n}", 2, "/clockRate", "must be at least 0.01"},
      {"{\"adapters\": [],\n\"clockRate\": 2e6}", 2, "/clockRate", "must be at most 1000000"},
      {"{\"adapters\": [],\n\n\"clockRate\":\n\"quick\"}", 4, "/clockRate",
       "must be of type number"},
      {"{\"adapters\": [],\n\"speed/~\": 1}", 2, "/speed~1~0", "is no field of a bench"},
      {"{\"adapters\": [],\n\"faults\": {\"link-flap\": true}}", 2, "/faults/link-flap",
       "is no field"},
      {"{\"adapters\": [],\n\"note\": \"a\",\n\"note\": \"b\"}", 2, "/note", "stands twice"},
      {"{\"adapters\": [{\"product\":\n\"Corvane4\"}]}", 2, "/adapters/0/product",
       "must be one of"},
      {"{\"adapters\": [\n{\"bridge\": 1}]}", 2, "/adapters/0", "lacks the field \"product\""},
      {adapter("\n\"bridge\": 14, \"hop\": 1, \"ports\": [" + port + "]"), 2, "/adapters/0/bridge",
       "at most 13"},
      {adapter("\"bridge\": 1,\n\"hop\": 1.5, \"ports\": [" + port + "]"), 2, "/adapters/0/hop",
       "type integer"},
      {adapter("\"bridge\": 1, \"hop\": 1,\n\"ports\": []"), 2, "/adapters/0/ports",
       "at least 1 items"},
      {adapter("\"bridge\": 1, \"hop\": 1, \"ports\": [" + port + ",\n" + port + "]"), 2,
       "/adapters/0/ports/1/wwpn", "is taken by /adapters/0/ports/0/wwpn"},
      {adapter("\"bridge\": 1, \"hop\": 1, \"ports\": [{\n\"wwpn\": \"21:00\"}]"), 2,
       "/adapters/0/ports/0/wwpn", "must match"},
      {adapter("\"bridge\": 1, \"hop\": 1, \"ports\": [{\"wwpn\": "
               "\"21:00:00:10:9B:12:34:56\",\n\"speed\": 16000}]"),
       2, "/adapters/0/ports/0/speed", "does not run at 16000"},
      {adapter("\"bridge\": 1, \"hop\": 1, \"ports\": [{\"wwpn\": "
               "\"21:00:00:10:9B:12:34:56\",\n\"mac\": \"\"}]"),
       2, "/adapters/0/ports/0/mac", "is no field"},
      {"{\"adapters\": [],\n\"disks\": [{\"name\": \"disk1\",\n\"port\": "
       "\"21:00:00:10:9B:12:34:56\"}]}",
       3, "/disks/0/port", "no adapter has a port"},
      {"{\"adapters\": [], \"disks\": [{\"name\": \"disk1\"},\n{\"name\": \"disk1\"}]}", 2,
       "/disks/1/name", "is taken by /disks/0/name"},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.text);
    const BenchFileError error = refusal(expected.text);
    EXPECT_EQ(error.kind(), BenchFileError::Kind::Misfit);
    EXPECT_EQ(error.line(), expected.line);
    EXPECT_EQ(error.field(), expected.field);
    EXPECT_NE(error.reason().find(expected.reason), std::string::npos) << error.reason();
  }
}

TEST_F(BenchFileTest, TwoAdaptersInOnePlaceAreRefusedUnlessOneIsNotAttached) {
  const auto bench = [](const std::string& attached) {
    return R"({"adapters": [
      {"product": "Corvane3 NBASE-T1", "bridge": 1, "hop": 1, "ports": [{"mac": "00:1B:21:00:00:01"}]},
      {"product": "Corvane3 NBASE-T1", "bridge": 1, "hop": 1, "attached": )" +
           attached + R"(, "ports": [{"mac": "00:1B:21:00:00:02"}]}]})";
  };
  EXPECT_EQ(refusal(bench("true")).field(), "/adapters/1/hop");
  EXPECT_NO_THROW(parseBench(bench("false"), "machine.json"));
}

TEST_F(BenchFileTest, TheMessageIsOneLineForAPerson) {
  const BenchFileError error = refusal("{\n\"adapters\": 1}");
  EXPECT_STREQ(error.what(), "machine.json:2: /adapters: must be of type array, but is 1");
}

TEST_F(BenchFileTest, WritersInSeveralProcessesAndThreadsNeverLoseAChange) {
  const BenchFile file(path());
  file.create(BenchState{});
  constexpr int processes = 2;
  constexpr int changes = 20;
  const auto change = [&file] {
    for (int count = 0; count < changes; ++count) {
      file.update([](BenchState& state) {
        BenchNetworkInterface interface;
        const size_t number = state.networkInterfaces.size();
        interface.name = "en" + std::to_string(number);
        interface.mac = "00:00:00:00:00:" + std::to_string(10 + number);
        state.networkInterfaces.push_back(interface);
        if (state.networkInterfaces.size() > 60) state.networkInterfaces.clear();
        state.application.plistURL += "x";
      });
    }
  };
  file.update([](BenchState& state) { state.application.plistURL.clear(); });
  std::vector<pid_t> children;
  for (int count = 0; count < processes; ++count) {
    const pid_t child = fork();
    if (child == 0) {
      change();
      _exit(0);
    }
    children.push_back(child);
  }
  std::thread first(change);
  std::thread second(change);
  first.join();
  second.join();
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(file.load().application.plistURL.size(), size_t{changes * (processes + 2)});
}

TEST_F(BenchFileTest, AWriterThatIsKilledLeavesAWholeFileAndNoLock) {
  const BenchFile file = written(smallBench);
  const pid_t child = fork();
  if (child == 0) {
    for (int64_t depth = 0;; depth = (depth + 1) % 4096) {
      file.update([depth](BenchState& state) {
        state.adapters[0].fibreChannelPorts[0].queueDepth = depth;
      });
    }
  }
  for (int count = 0; count < 30; ++count) EXPECT_NO_THROW(file.load());
  kill(child, SIGKILL);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(file.load().note, "kept");
  file.update([](BenchState& state) { state.note = "still writable"; });
  EXPECT_EQ(file.load().note, "still writable");
}

TEST_F(BenchFileTest, LeavingsOfAKilledWriterAreNoHindrance) {
  const BenchFile file = written(smallBench);
  std::ofstream(path() + ".new") << "{\"adapters\": [half";
  EXPECT_EQ(file.load().note, "kept");
  file.update([](BenchState& state) { state.note = "new"; });
  EXPECT_EQ(file.load().note, "new");
}

TEST_F(BenchFileTest, ALinkInPlaceOfTheFileWrittenAsideIsNotFollowed) {
  const BenchFile file = written(smallBench);
  std::ofstream(path("precious")) << "precious";
  std::filesystem::create_symlink(path("precious"), path() + ".new");
  EXPECT_THROW(file.update([](BenchState& state) { state.note = "new"; }), BenchFileError);
  std::ostringstream text;
  text << std::ifstream(path("precious")).rdbuf();
  EXPECT_EQ(text.str(), "precious");
}

TEST_F(BenchFileTest, ABenchReachedThroughALinkStaysALink) {
  const BenchFile file = written(smallBench);
  std::filesystem::create_symlink(path(), path("link.json"));
  const BenchFile linked(path("link.json"));
  linked.update([](BenchState& state) { state.note = "through the link"; });
  EXPECT_TRUE(std::filesystem::is_symlink(path("link.json")));
  EXPECT_EQ(file.load().note, "through the link");
}

TEST(BenchProducts, ThereAreNineAndTheSpeedsFollowTheModel) {
  EXPECT_EQ(benchProducts().size(), 9U);
  EXPECT_EQ(findBenchProduct("Corvane2"), nullptr);
  EXPECT_FALSE(supportsSpeed(*findBenchProduct("Corvane2 8G FC"), 16000));
  EXPECT_TRUE(supportsSpeed(*findBenchProduct("Corvane2 8G FC"), 2000));
  EXPECT_TRUE(supportsSpeed(*findBenchProduct("Corvane2 16G FC"), 16000));
  EXPECT_FALSE(supportsSpeed(*findBenchProduct("Corvane3 F2"), 2000));
  EXPECT_FALSE(supportsSpeed(*findBenchProduct("Corvane3 F2"), 10000));
}

// The bench works them out; the utility has them in a table.
TEST(BenchProducts, TheLoopAddressesAreTheUtilitys) {
  constexpr uint64_t beyondEveryAddress = 0x1FF;
  for (uint64_t number = 0; number <= beyondEveryAddress; ++number) {
    const bool isInTable = std::find(arbitratedLoopAddresses.begin(), arbitratedLoopAddresses.end(),
                                     number) != arbitratedLoopAddresses.end();
    EXPECT_EQ(isLoopAddress(number), isInTable) << number;
  }
}
