#include "cli/bench/BenchCommand.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

#include "TemporaryFolder.h"
#include "cli/answers/CommandOutput.h"
#include "cli/bench/FolderServer.h"
#include "platform/bench/file/BenchDemo.h"
#include "platform/bench/file/BenchFile.h"
#include "platform/bench/file/BenchFirmwareImage.h"
#include "platform/posix/CurlTransfer.h"

using namespace corvane;

namespace {

using testing::HasSubstr;

struct BenchCommandRun {
  int status = -1;
  std::string out;
  std::string err;
};

class BenchCommandsTest : public testing::Test {
 protected:
  static BenchCommandRun run(const std::vector<std::string>& arguments) {
    std::istringstream in;
    std::ostringstream answer;
    std::ostringstream errors;
    CommandContext context{.program = "corvane-bench", .in = in, .out = answer, .err = errors};
    CLI::App app{"test", "corvane-bench"};
    BenchOptions options;
    addBenchCommands(app, context, options);
    const int status = runCommandLine(app, context, arguments);
    return {status, answer.str(), errors.str()};
  }

  /// Runs a command on the bench.
  BenchCommandRun runOn(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), bench_);
    return run(arguments);
  }

  /// Runs a command on the bench that must be done without a word on standard error.
  void done(const std::vector<std::string>& arguments) const {
    const BenchCommandRun result = runOn(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
  }

  void makeDemo() const { ASSERT_EQ(run({"new", bench_}).status, 0); }

  BenchState state() const { return BenchFile(bench_).load(); }

  static std::string textOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  }

  const TemporaryFolder temporary_;
  const std::string folder_ = temporary_.path().string();
  const std::string bench_ = folder_ + "/machine.json";
};

}  // namespace

TEST_F(BenchCommandsTest, NewWritesTheDemoOrAnEmptyBenchAndNeverOverwrites) {
  EXPECT_EQ(run({"new", bench_}).status, 0);
  EXPECT_EQ(state(), demoBench());
  const std::string before = textOf(bench_);
  const BenchCommandRun again = run({"new", bench_, "--from", "empty"});
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("already"));
  EXPECT_EQ(textOf(bench_), before);
  const std::string other = folder_ + "/other.json";
  EXPECT_EQ(run({"new", other, "--from", "empty"}).status, 0);
  EXPECT_EQ(BenchFile(other).load(), BenchState{});
  EXPECT_EQ(run({"new", folder_ + "/third.json", "--from", "nothing"}).status, 2);
}

TEST_F(BenchCommandsTest, ShowPrintsTheFile) {
  makeDemo();
  const BenchCommandRun shown = runOn({"show"});
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(shown.out, textOf(bench_));
}

TEST_F(BenchCommandsTest, PlugTellsTheLabelAndUnplugTakesIt) {
  makeDemo();
  EXPECT_EQ(runOn({"plug", "Corvane3 F2", "--bridge", "5", "--hop", "1", "--wwn",
                   "20:00:00:10:9B:AA:00:01"})
                .out,
            "label: E - 1\n");
  EXPECT_EQ(state().adapters.back().nodeWWN, "20:00:00:10:9B:AA:00:01");
  done({"unplug", "E - 1"});
  EXPECT_FALSE(state().adapters.back().attached);
  const BenchCommandRun json =
      runOn({"plug", "--json", "Corvane3 F2", "--bridge", "5", "--hop", "2"});
  EXPECT_EQ(nlohmann::json::parse(json.out), (nlohmann::json{{"label", "E - 2"}}));
  EXPECT_EQ(runOn({"plug", "Corvane3 F2", "--bridge", "5", "--hop", "2"}).status, 1);
  EXPECT_EQ(runOn({"plug", "Corvane3 F3", "--bridge", "6", "--hop", "1"}).status, 1);
  EXPECT_EQ(runOn({"plug", "Corvane3 F2", "--bridge", "60", "--hop", "1"}).status, 1);
  EXPECT_EQ(runOn({"plug", "Corvane3 F2", "--hop", "1"}).status, 2);
  EXPECT_EQ(runOn({"unplug", "I9"}).status, 3);
}

TEST_F(BenchCommandsTest, NothingIsGuessedBetweenTwoAdapters) {
  run({"new", bench_, "--from", "empty"});
  for (const char* bridge : {"11", "12"}) {
    EXPECT_EQ(runOn({"plug", "Corvane3 F2", "--bridge", bridge, "--hop", "1"}).status, 0);
  }
  const auto refused = runOn({"unplug", "(null) - 1"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("fits several adapters"));
  for (const BenchAdapter& adapter : state().adapters) EXPECT_TRUE(adapter.attached);
  EXPECT_EQ(runOn({"unplug", state().adapters[0].nodeWWN}).status, 0);
  EXPECT_FALSE(state().adapters[0].attached);
}

TEST_F(BenchCommandsTest, AnUnknownProductIsAnsweredWithThoseThereAre) {
  run({"new", bench_, "--from", "empty"});
  const auto refused = runOn({"plug", "Corvane9", "--bridge", "1", "--hop", "1"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("\"Corvane2 8G FC\", "));
  EXPECT_THAT(refused.err, HasSubstr("\"Corvane3 F2\""));
}

TEST_F(BenchCommandsTest, ACommandWithoutAnAnswerIsAnEmptyDocumentUnderJson) {
  EXPECT_EQ(run({"new", bench_, "--json"}).out, "{}\n");
  EXPECT_EQ(runOn({"unplug", "A1", "--json"}).out, "{}\n");
  EXPECT_EQ(runOn({"os", "10.12.6"}).out, "");
}

TEST_F(BenchCommandsTest, LinkGoesDownAndComesBackAtTheSpeedGiven) {
  makeDemo();
  done({"link", "A1", "--port", "1", "down"});
  EXPECT_FALSE(state().adapters[0].fibreChannelPorts[0].link);
  done({"link", "a - 1", "up", "--port", "1", "--speed", "4000"});
  EXPECT_TRUE(state().adapters[0].fibreChannelPorts[0].link);
  EXPECT_EQ(state().adapters[0].fibreChannelPorts[0].partner.speeds, std::vector<int64_t>{4000});
  EXPECT_EQ(runOn({"link", "A1", "--port", "x", "up"}).status, 2);
  for (const char* port : {"3", "0", "-1"}) {
    EXPECT_EQ(runOn({"link", "A1", "--port", port, "up"}).status, 3) << port;
    EXPECT_EQ(runOn({"sfp", "A1", "--port", port, "none"}).status, 3) << port;
  }
  EXPECT_EQ(runOn({"link", "A1", "--port", "1", "sideways"}).status, 2);
  EXPECT_EQ(runOn({"link", "A1", "--port", "1", "up", "--speed", "3000"}).status, 1);
  EXPECT_EQ(runOn({"link", "C1", "--port", "1", "up", "--speed", "4000"}).status, 1);
}

TEST_F(BenchCommandsTest, SfpTakesADumpOrNone) {
  makeDemo();
  const std::string dump = std::string(CORVANE_SOURCE_DIR) + "/bench/transceivers/copper.bin";
  done({"sfp", "B1", "--port", "2", dump});
  EXPECT_EQ(state().adapters[2].fibreChannelPorts[1].transceiver.hex.substr(0, 6), "030421");
  done({"sfp", "B1", "--port", "2", "none"});
  EXPECT_FALSE(state().adapters[2].fibreChannelPorts[1].transceiver.isPresent());
  EXPECT_EQ(runOn({"sfp", "B1", "--port", "2", folder_ + "/nowhere"}).status, 3);
  std::ofstream(folder_ + "/short") << std::string(95, 'x');
  EXPECT_EQ(runOn({"sfp", "B1", "--port", "2", folder_ + "/short"}).status, 1);
  EXPECT_EQ(runOn({"sfp", "C1", "--port", "1", dump}).status, 1);
}

TEST_F(BenchCommandsTest, DriverSystemAndFaultChange) {
  makeDemo();
  done({"driver", "Corvane-FC", "1.1.0"});
  EXPECT_EQ(state().drivers.at("Corvane-FC"), "1.1.0");
  done({"driver", "Corvane-FC", "none"});
  EXPECT_EQ(state().drivers.count("Corvane-FC"), 0U);
  done({"os", "10.8.5"});
  EXPECT_EQ(state().computer.osVersion, "10.8.5");
  done({"fault", "link-flaps", "on"});
  EXPECT_TRUE(state().hasFault("link-flaps"));
  done({"fault", "link-flaps", "off"});
  EXPECT_FALSE(state().hasFault("link-flaps"));
  const BenchCommandRun unknown = runOn({"fault", "link-flap", "on"});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_THAT(unknown.err, HasSubstr("/faults/link-flap: is no field of a bench"));
  EXPECT_EQ(runOn({"driver", "Corvane9", "1.0"}).status, 1);
}

TEST_F(BenchCommandsTest, SetChangesAnyField) {
  makeDemo();
  done({"set", "/clockRate", "1000"});
  EXPECT_EQ(state().clockRate, 1000);
  done({"set", "/adapters/0/ports/0/link", "false"});
  EXPECT_FALSE(state().adapters[0].fibreChannelPorts[0].link);
  const BenchCommandRun refused = runOn({"set", "/clockRate", "-1"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("/clockRate: must be at least"));
  EXPECT_EQ(state().clockRate, 1000);
}

TEST_F(BenchCommandsTest, EveryCommandRefusesABenchThatDoesNotFit) {
  const std::string broken = "{\n\"adapters\": [],\n\"colour\": 1\n}";
  std::ofstream(bench_) << broken;
  const std::vector<std::vector<std::string>> commands = {
      {"show"},
      {"set", "/clockRate", "1"},
      {"plug", "Corvane3 F2", "--bridge", "1", "--hop", "1"},
      {"unplug", "A1"},
      {"link", "A1", "--port", "1", "up"},
      {"sfp", "A1", "--port", "1", "none"},
      {"driver", "Corvane-FC", "none"},
      {"os", "14.3"},
      {"fault", "link-flaps", "off"}};
  for (const auto& command : commands) {
    const BenchCommandRun result = runOn(command);
    EXPECT_EQ(result.status, 1) << command[0];
    EXPECT_THAT(result.err, HasSubstr("line 3: /colour: is no field of a bench")) << command[0];
    EXPECT_EQ(textOf(bench_), broken);
  }
}

TEST_F(BenchCommandsTest, AMissingBenchAndAMissingNameAreToldApart) {
  EXPECT_EQ(runOn({"show"}).status, 3);
  EXPECT_EQ(runOn({"unplug", "A1"}).status, 3);
  EXPECT_EQ(runOn({"set", "/clockRate", "1"}).status, 3);
  EXPECT_FALSE(std::filesystem::exists(bench_ + ".lock"));
  EXPECT_EQ(run({"show"}).status, 2);
  EXPECT_EQ(run({bench_}).status, 2);
  EXPECT_EQ(run({}).status, 2);
}

TEST_F(BenchCommandsTest, ImageWritesWhatAnAdapterTakes) {
  const std::string path = folder_ + "/image";
  EXPECT_EQ(
      run({"image", path, "--generation", "3", "--firmware-version", "11.4", "--size", "5000"})
          .status,
      0);
  const std::string text = textOf(path);
  BenchFirmwareImage image;
  EXPECT_EQ(checkFirmwareImage(std::vector<uint8_t>(text.begin(), text.end()), image),
            std::nullopt);
  EXPECT_EQ(image, (BenchFirmwareImage{3, "11.4"}));
  EXPECT_EQ(text.size(), 5000 + benchFirmwareHeaderSize);
  EXPECT_EQ(run({"image", path, "--generation", "4", "--firmware-version", "1"}).status, 2);
  EXPECT_EQ(
      run({"image", path, "--generation", "2", "--firmware-version", std::string(32, '1')}).status,
      2);
  EXPECT_EQ(
      run({"image", folder_ + "/no/image", "--generation", "2", "--firmware-version", "1"}).status,
      1);
}

TEST_F(BenchCommandsTest, TheServerHandsOutTheFolderAndNothingElse) {
  std::filesystem::create_directories(folder_ + "/served/12.6.1");
  std::ofstream(folder_ + "/served/12.6.1/CorvaneOnlineInfo.plist") << "catalogue";
  std::ofstream(folder_ + "/secret") << "secret";
  FolderServer server(folder_ + "/served", 0);
  std::thread thread([&server] { server.run(); });
  setenv("no_proxy", "127.0.0.1", 1);
  CurlTransfer transfer;
  const auto fetch = [&](const std::string& path) {
    const auto handle = transfer.createHandle();
    const std::string target = folder_ + "/got";
    std::FILE* stream = std::fopen(target.c_str(), "wb");
    handle->setUrl(server.url() + path);
    handle->setWrite([](const void* buffer, size_t size, size_t count,
                        std::FILE* file) { return std::fwrite(buffer, size, count, file); },
                     stream);
    const int result = handle->perform();
    std::fclose(stream);
    return result == 0 ? textOf(target) : std::string("refused");
  };
  EXPECT_EQ(fetch("12.6.1/CorvaneOnlineInfo.plist"), "catalogue");
  EXPECT_EQ(fetch("nowhere"), "refused");
  EXPECT_EQ(fetch("%2e%2e/secret"), "refused");
  server.stop();
  thread.join();
}

TEST_F(BenchCommandsTest, ServeRefusesAFolderThatIsNotThereAndAPortThatIsTaken) {
  EXPECT_EQ(run({"serve", folder_ + "/nowhere"}).status, 3);
  const FolderServer server(folder_, 0);
  const std::string url = server.url();
  const std::string port = url.substr(url.rfind(':') + 1, url.size() - url.rfind(':') - 2);
  EXPECT_EQ(run({"serve", folder_, "--port", port}).status, 1);
  EXPECT_EQ(run({"serve", folder_, "--port", "65536"}).status, 2);
}

TEST_F(BenchCommandsTest, ServeEndsWhenItIsInterrupted) {
  int pipe[2];
  ASSERT_EQ(::pipe(pipe), 0);
  const std::string program = std::string(CORVANE_BINARY_DIR) + "/bin/corvane-bench";
  const pid_t child = fork();
  if (child == 0) {
    dup2(pipe[1], STDOUT_FILENO);
    execl(program.c_str(), program.c_str(), "serve", folder_.c_str(), nullptr);
    _exit(127);
  }
  close(pipe[1]);
  char address[64] = {};
  EXPECT_GT(read(pipe[0], address, sizeof address - 1), 0);
  EXPECT_THAT(address, HasSubstr("url: http://127.0.0.1:"));
  kill(child, SIGTERM);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  close(pipe[0]);
}
