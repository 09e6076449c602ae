#include "cli/answers/CommandOutput.h"

#include <gmock/gmock.h>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <sstream>

namespace corvane {
namespace {

using nlohmann::ordered_json;

class CommandOutputTest : public testing::Test {
 protected:
  int run(const std::vector<std::string>& arguments) {
    return runCommandLine(app, context, arguments);
  }

  void addCommand(const std::string& name, std::function<void()> action) {
    auto* command = app.add_subcommand(name, "a command of the test");
    addJsonFlag(*command, context);
    command->callback(std::move(action));
  }

  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  CommandContext context{.program = "corvane", .in = in, .out = out, .err = err};
  CLI::App app{"test", "corvane"};
};

TEST_F(CommandOutputTest, AnswerAsJsonKeepsTheOrderOfItsKeys) {
  context.json = true;
  printAnswer(context, ordered_json{{"zeta", 1}, {"alpha", "x"}});
  EXPECT_EQ(out.str(), "{\n  \"zeta\": 1,\n  \"alpha\": \"x\"\n}\n");
}

TEST_F(CommandOutputTest, AnswerAsTextAlignsTheSameFields) {
  printAnswer(context, ordered_json{{"id", "fw"}, {"fileCount", 2}, {"none", nullptr}});
  EXPECT_EQ(out.str(), "id:        fw\nfileCount: 2\nnone:      -\n");
}

TEST_F(CommandOutputTest, ArrayOfObjectsBecomesATable) {
  printAnswer(context, ordered_json::parse(R"([{"id":"é","size":10},{"id":"long","size":2}])"));
  EXPECT_EQ(out.str(), "id    size\né     10\nlong  2\n");
}

TEST_F(CommandOutputTest, NestedObjectsAndListsAreIndented) {
  printAnswer(context, ordered_json::parse(R"({"ok":true,"device":{"name":"a","tags":[1,2]}})"));
  EXPECT_EQ(out.str(), "ok: true\ndevice:\n  name: a\n  tags: 1, 2\n");
}

TEST_F(CommandOutputTest, ATextOfSeveralLinesStandsOnOne) {
  printAnswer(context, ordered_json{{"error", "not the correct type for \nthe adapter,\nsorry"}});
  EXPECT_EQ(out.str(), "error: not the correct type for the adapter, sorry\n");
}

TEST_F(CommandOutputTest, AsksWhetherToGoOn) {
  for (const std::string answer : {"y", "Y", "yes"}) {
    in.str(answer + "\n");
    EXPECT_TRUE(askToGoOn(context, {"one", "two"})) << answer;
  }
  for (const std::string answer : {"n\n", "\n", "yes!\n", "YES\n", " y\n", ""}) {
    in.clear();
    in.str(answer);
    err.str("");
    EXPECT_FALSE(askToGoOn(context, {"one", "two"})) << answer;
    EXPECT_EQ(err.str(), "one\ntwo\nGo on? [y/N] ");
  }
  EXPECT_EQ(out.str(), "");
}

TEST_F(CommandOutputTest, AQuestionCannotDriveTheTerminal) {
  askToGoOn(context, {"FW: 1.0\x1b[2J\n2"});
  EXPECT_EQ(err.str(), "FW: 1.0\\x1b[2J 2\nGo on? [y/N] ");
}

TEST_F(CommandOutputTest, TextFromOutsideCannotDriveTheTerminal) {
  printAnswer(context, ordered_json{{"id", "a\x1b[2Jb\xC2\x9Bz"}});
  EXPECT_EQ(out.str(), "id: a\\x1b[2Jb\\u009bz\n");
}

TEST_F(CommandOutputTest, BytesThatAreNotUtf8StillGiveAJsonDocument) {
  context.json = true;
  printAnswer(context, ordered_json{{"id", "\xFE"}});
  EXPECT_EQ(ordered_json::parse(out.str()).at("id"), "\xEF\xBF\xBD");
}

TEST_F(CommandOutputTest, FailureAsTextNamesWhatAndWhyAndThenTheHint) {
  addCommand("go", [] {
    throw CommandFailure(ExitStatus::NotFound, "adapter B2", "is not attached", "Plug it in.");
  });
  EXPECT_EQ(run({"go"}), 3);
  EXPECT_EQ(err.str(), "corvane: adapter B2: is not attached\nPlug it in.\n");
  EXPECT_EQ(out.str(), "");
}

TEST_F(CommandOutputTest, FailureAsJsonStandsBesideTheKeysOfTheCommand) {
  addCommand("go", [] {
    throw CommandFailure(ExitStatus::Failed, "a.pkg", "is damaged", "Fetch it again.",
                         ordered_json{{"status", 19}});
  });
  EXPECT_EQ(run({"go", "--json"}), 1);
  EXPECT_EQ(ordered_json::parse(out.str()),
            ordered_json::parse(R"({"status":19,"error":{"what":"a.pkg","why":"is damaged",
                                    "hint":"Fetch it again."}})"));
  EXPECT_EQ(err.str(), "");
}

TEST_F(CommandOutputTest, UnknownOptionIsAWrongCommandLine) {
  addCommand("go", [] {});
  EXPECT_EQ(run({"go", "--nonsense"}), 2);
  EXPECT_THAT(err.str(), testing::StartsWith("corvane: command line: "));
  EXPECT_THAT(err.str(), testing::HasSubstr("--help"));
}

TEST_F(CommandOutputTest, AnUnknownCommandIsNamed) {
  app.require_subcommand(1);
  app.fallthrough();
  addCommand("list", [] {});
  auto* archive = app.add_subcommand("archive", "has commands of its own");
  archive->require_subcommand(1);
  archive->add_subcommand("verify", "a command of a command");
  EXPECT_EQ(run({"frobnicate"}), 2);
  EXPECT_THAT(err.str(),
              testing::StartsWith("corvane: command line: there is no command \"frobnicate\"\n"));
  EXPECT_EQ(run({"archive", "unpack"}), 2);
  EXPECT_THAT(err.str(), testing::HasSubstr("there is no command \"unpack\""));
  EXPECT_EQ(run({"--frobnicate"}), 2);
  EXPECT_THAT(err.str(), testing::HasSubstr("there is no option \"--frobnicate\""));
  EXPECT_EQ(run({}), 2);
  EXPECT_THAT(err.str(), testing::HasSubstr("A subcommand is required"));
}

TEST_F(CommandOutputTest, WrongCommandLineUnderJsonIsADocumentToo) {
  addCommand("go", [] {});
  EXPECT_EQ(run({"go", "--nonsense", "--json"}), 2);
  EXPECT_EQ(ordered_json::parse(out.str()).at("error").at("what"), "command line");
}

TEST_F(CommandOutputTest, HelpIsAnAnswer) {
  addCommand("go", [] {});
  EXPECT_EQ(run({"go", "--help"}), 0);
  EXPECT_THAT(out.str(), testing::HasSubstr("--json"));
  EXPECT_EQ(err.str(), "");
}

TEST_F(CommandOutputTest, AnUnforeseenExceptionIsReportedNotLost) {
  addCommand("go", [] { throw std::runtime_error("the disk vanished"); });
  EXPECT_EQ(run({"go"}), 1);
  EXPECT_THAT(err.str(), testing::HasSubstr("the disk vanished"));
}

TEST_F(CommandOutputTest, ProgressIsSilentWhenStandardErrorIsNoTerminal) {
  ProgressBar(context, "reading").show(5, 10);
  EXPECT_EQ(err.str(), "");
}

TEST_F(CommandOutputTest, ProgressNeverGoesBackwardsAndIsWiped) {
  context.errorIsTerminal = true;
  {
    ProgressBar bar(context, "reading");
    bar.show(5, 10);
    const std::string half = err.str();
    EXPECT_THAT(half, testing::HasSubstr("50%"));
    bar.show(4, 10);
    EXPECT_EQ(err.str(), half);
    bar.show(0, 0);
    EXPECT_THAT(err.str(), testing::HasSubstr("100%"));
  }
  EXPECT_THAT(err.str(), testing::EndsWith("\r\x1b[K"));
}

}  // namespace
}  // namespace corvane
