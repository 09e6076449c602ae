#include "cli/Verbs.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/answers/CommandOutput.h"

using namespace corvane;
using nlohmann::ordered_json;

namespace {

class SFPCommandTest : public testing::Test {
 protected:
  ~SFPCommandTest() override { std::filesystem::remove(path); }

  void write(const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

  /// The identification of a 10 Gb/s module, whose speed does not suit.
  static std::string dumpOfWrongClass() {
    std::string bytes(96, '\0');
    bytes[0] = 3;
    bytes[2] = 0x22;
    bytes[11] = 6;
    bytes[12] = 103;
    return bytes;
  }

  int run(const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments{"sfp", path};
    arguments.insert(arguments.end(), options.begin(), options.end());
    CommandContext context{.program = "corvane", .in = in, .out = out, .err = err};
    CLI::App app;
    addSFPCommand(app, context);
    return runCommandLine(app, context, arguments);
  }

  std::string path = testing::TempDir() + "corvane_sfp_" +
                     testing::UnitTest::GetInstance()->current_test_info()->name();
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
};

TEST_F(SFPCommandTest, JsonHasTheResultAndElevenTexts) {
  std::string dump = dumpOfWrongClass();
  dump[12] = 85;
  dump.replace(20, 16, "VELMAR OPTICS   ");
  dump.replace(84, 8, "11041922");
  write(dump + std::string(160, 'x'));
  EXPECT_EQ(run({"--json"}), 0);
  EXPECT_EQ(ordered_json::parse(out.str()),
            (ordered_json{{"result", 0},
                          {"Transceiver", "SFP"},
                          {"Connector", "22"},
                          {"TransceiverCode", "00-00-00-00-00-00-00-00"},
                          {"SerialEncoding", "6"},
                          {"Bitrate", "8 Gb/s"},
                          {"VendorName", "VELMAR OPTICS   "},
                          {"VendorOUI", "00-00-00"},
                          {"VendorPN", ""},
                          {"VendorRev", ""},
                          {"VendorSN", ""},
                          {"ManuData", "11-04-19"}}));
}

TEST_F(SFPCommandTest, TextsThatAreNotSetAreNull) {
  write(dumpOfWrongClass());
  EXPECT_EQ(run({"--json"}), 0);
  const auto answer = ordered_json::parse(out.str());
  EXPECT_EQ(answer["result"], 2);
  EXPECT_EQ(answer["Bitrate"], "10 Gb/s");
  EXPECT_TRUE(answer["VendorName"].is_null());
  EXPECT_TRUE(answer["ManuData"].is_null());
}

TEST_F(SFPCommandTest, TextHasALineForEachField) {
  write(dumpOfWrongClass());
  EXPECT_EQ(run(), 0);
  EXPECT_NE(out.str().find("Bitrate:         10 Gb/s\n"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("VendorName:      -\n"), std::string::npos) << out.str();
}

TEST_F(SFPCommandTest, BytesThatAreNoTextStayPrintable) {
  std::string dump = dumpOfWrongClass();
  dump[12] = 85;
  dump.replace(20, 16, std::string(16, '\xFF'));
  dump[40] = '\x1B';
  write(dump);
  EXPECT_EQ(run({"--json"}), 0);
  EXPECT_TRUE(ordered_json::accept(out.str()));
  out.str("");
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(out.str().find('\x1B'), std::string::npos);
}

TEST_F(SFPCommandTest, ShortDumpFails) {
  write(std::string(95, '\0'));
  EXPECT_EQ(run(), 1);
  EXPECT_EQ(out.str(), "");
  EXPECT_NE(err.str().find("holds 95 bytes, but a module's identification has 96"),
            std::string::npos)
      << err.str();
}

TEST_F(SFPCommandTest, MissingFileIsNotFound) {
  EXPECT_EQ(run(), 3);
  EXPECT_NE(err.str().find("corvane: " + path + ": "), std::string::npos) << err.str();
}

TEST_F(SFPCommandTest, FileThatMustNotBeReadFails) {
  if (geteuid() == 0) GTEST_SKIP() << "everything may be read";
  std::ofstream(path) << "secret";
  chmod(path.c_str(), 0);
  EXPECT_EQ(run(), 1);
}

TEST_F(SFPCommandTest, FolderFails) {
  path = testing::TempDir();
  EXPECT_EQ(run(), 1);
  path.clear();
}

}  // namespace
