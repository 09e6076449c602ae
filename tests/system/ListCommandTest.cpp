#include "ProgramFixture.h"

using namespace corvane;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

using ListCommandTest = ProgramFixture;

struct ProductBenchRow {
  const char* bench;
  const char* product;
  const char* family;
  const char* image;
};

class ListProductTest : public ProgramFixture,
                        public ::testing::WithParamInterface<ProductBenchRow> {};

}  // namespace

TEST_F(ListCommandTest, ListsTheDemoBenchInOrderOfTheLabels) {
  const auto answer = corvane({"--bench", bench("demo"), "list", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  std::vector<std::string> labels;
  for (const auto& entry : answer.json()) {
    EXPECT_THAT(keysOf(entry), ElementsAre("image", "WWN", "Sequence", "Version", "ProductType",
                                           "pcidebug", "family", "ports"));
    labels.push_back(entry.at("Sequence"));
  }
  EXPECT_THAT(labels, ElementsAre("A - 1", "A - 2", "B - 1", "B - 2", "C - 1", "D - 1"));
}

TEST_P(ListProductTest, EachProductIsRecognised) {
  const auto answer =
      corvane({"--bench", bench(std::string("products/") + GetParam().bench), "list", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  ASSERT_EQ(answer.json().size(), 1U);
  const auto entry = answer.json().at(0);
  EXPECT_EQ(entry.at("ProductType"), GetParam().product);
  EXPECT_EQ(entry.at("family"), GetParam().family);
  EXPECT_EQ(entry.at("image"), GetParam().image);
}

INSTANTIATE_TEST_SUITE_P(
    Products, ListProductTest,
    ::testing::Values(
        ProductBenchRow{"corvane2-8g-fc", "Corvane2 8G FC", "FC", "corvane2_2.icns"},
        ProductBenchRow{"corvane2-16g-fc", "Corvane2 16G FC", "FC", "corvane2_2.icns"},
        ProductBenchRow{"corvane3-8g-fc", "Corvane3 8G FC", "FC", "corvane3_2.icns"},
        ProductBenchRow{"corvane3-f2", "Corvane3 F2", "FC", "corvane3_2.icns"},
        ProductBenchRow{"corvane2-10g-base-t", "Corvane2 10G Base-T", "10GbE", "corvane2_2.icns"},
        ProductBenchRow{"corvane2-10g-sfp-plus", "Corvane2 10G SFP+", "10GbE", "corvane2_2.icns"},
        ProductBenchRow{"corvane3-nbase-t1", "Corvane3 NBASE-T1", "10GbE", "corvane3_2.icns"},
        ProductBenchRow{"corvane3-10g-base-t", "Corvane3 10G Base-T", "10GbE", "corvane3_2.icns"},
        ProductBenchRow{"corvane3-10g-sfp-plus", "Corvane3 10G SFP+", "10GbE", "corvane3_2.icns"}));

TEST_F(ListCommandTest, AnEmptyBenchIsAnEmptyArray) {
  const auto answer = corvane({"--bench", bench("empty"), "list", "--json"});
  EXPECT_EQ(answer.status, 0) << answer.errors;
  EXPECT_EQ(answer.json(), nlohmann::ordered_json::array());
}

TEST_F(ListCommandTest, WithoutAdaptersTheTextAnswerIsEmptyAndANoteSaysSo) {
  const auto answer = corvane({"--bench", bench("empty"), "list"});
  EXPECT_EQ(answer.status, 0);
  EXPECT_EQ(answer.output, "");
  EXPECT_EQ(answer.errors, "corvane: list: there is no adapter\n");
}

TEST_F(ListCommandTest, ARegistryThatRefusesIsAFailureAndNoEmptyList) {
  const std::string file = bench("demo");
  ASSERT_EQ(run("corvane-bench", {file, "fault", "notifications-refused", "on"}).status, 0);
  const auto list = corvane({"--bench", file, "list", "--json"});
  EXPECT_EQ(list.status, 1);
  EXPECT_EQ(list.json().at("error").at("why"),
            "the system refused to tell which adapters are attached");
  const auto show = corvane({"--bench", file, "show", "A1"});
  EXPECT_EQ(show.status, 1) << "not the status of an adapter that is not there";
}

TEST_F(ListCommandTest, AnEmptyNameIsNoBench) {
  for (const char* option : {"--bench", "--dump", "--journal"}) {
    const auto answer = corvane({option, "", "list"});
    EXPECT_EQ(answer.status, 2) << option;
    EXPECT_THAT(answer.errors, HasSubstr("the name is empty"));
  }
}

TEST_F(ListCommandTest, AFullChainIsNumberedAlongIt) {
  const auto answer = corvane({"--bench", bench("chain-of-six"), "list", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  std::vector<std::string> numbers;
  for (const auto& entry : answer.json())
    numbers.push_back(entry.at("Sequence").get<std::string>().substr(4));
  EXPECT_THAT(numbers, ElementsAre("1", "2", "3", "4", "5", "6"));
}

TEST_F(ListCommandTest, SixtyFourAdaptersAreListed) {
  const auto answer = corvane({"--bench", bench("sixty-four"), "list", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  const auto entries = answer.json();
  EXPECT_EQ(entries.size(), 64U);
  EXPECT_TRUE(std::is_sorted(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
    return a.at("Sequence").template get<std::string>() <
           b.at("Sequence").template get<std::string>();
  }));
}

TEST_F(ListCommandTest, TextShowsTheSameFields) {
  const auto answer = corvane({"--bench", bench("products/corvane3-f2"), "list"});
  EXPECT_EQ(answer.status, 0);
  EXPECT_THAT(answer.output, HasSubstr("Sequence"));
  EXPECT_THAT(answer.output, HasSubstr("Corvane3 F2"));
}

TEST_F(ListCommandTest, TheOptionsMayStandOnEitherSideOfTheCommand) {
  const std::string file = bench("empty");
  EXPECT_EQ(corvane({"list", "--json", "--bench", file}).output, "[]\n");
  EXPECT_EQ(corvane({"--json", "--bench", file, "list"}).output, "[]\n");
}

TEST_F(ListCommandTest, TheEnvironmentNamesTheBench) {
  const std::string line = "CORVANE_BENCH=" + shellPath(bench("empty")) + " " +
                           shellPath(std::string(CORVANE_BINARY_DIR) + "/bin/corvane") +
                           " list --json >" + shellPath(path("out")) + " 2>/dev/null";
  EXPECT_EQ(std::system(line.c_str()), 0);
  EXPECT_EQ(content(path("out")), "[]\n");
}

TEST_F(ListCommandTest, WithoutBenchTheUsersOwnIsMadeFromTheDemo) {
  const auto answer = corvane({"list", "--json"});
  ASSERT_EQ(answer.status, 0) << answer.errors;
  EXPECT_EQ(answer.json().size(), 6U);
  EXPECT_TRUE(std::filesystem::exists(path("corvane") / "bench.json"));
}

TEST_F(ListCommandTest, AMissingBenchIsNotFound) {
  const auto answer = corvane({"--bench", path("none.json").string(), "list"});
  EXPECT_EQ(answer.status, 3);
  EXPECT_THAT(answer.errors, HasSubstr("corvane: "));
  EXPECT_EQ(answer.output, "");
}

TEST_F(ListCommandTest, ABenchThatDoesNotFitIsRefusedAndKept) {
  const std::string file = bench("empty");
  auto state = nlohmann::ordered_json::parse(content(file));
  state["clockRate"] = "fast";
  const std::string text = state.dump(2);
  std::ofstream(file) << text;
  const auto answer = corvane({"--bench", file, "list", "--json"});
  EXPECT_EQ(answer.status, 1);
  const auto error = answer.json().at("error");
  EXPECT_THAT(keysOf(error), ElementsAre("what", "why", "hint"));
  EXPECT_THAT(error.at("why").get<std::string>(), HasSubstr("clockRate"));
  EXPECT_EQ(content(file), text);
}

TEST_F(ListCommandTest, AWrongCommandLineIsToldApart) {
  EXPECT_EQ(corvane({}).status, 2);
  EXPECT_EQ(corvane({"frobnicate"}).status, 2);
  EXPECT_EQ(corvane({"list", "--frobnicate"}).status, 2);
  EXPECT_EQ(corvane({"set"}).status, 2);
  EXPECT_EQ(corvane({"--bench", bench("empty"), "--dump", "x", "list"}).status, 2);
}

TEST_F(ListCommandTest, VersionAndHelp) {
  const auto version = corvane({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.output, "corvane 1.0.0.0\n");
  for (const char* command : {"list", "show", "watch", "archive", "sfp"})
    EXPECT_EQ(corvane({command, "--help"}).status, 0) << command;
}

TEST_F(ListCommandTest, TheJournalShowsTheLaunchInOrder) {
  const auto file = path("journal").string();
  ASSERT_EQ(
      corvane({"--bench", bench("products/corvane2-16g-fc"), "--journal", file, "list"}).status, 0);
  const auto lines = journal(file);
  ASSERT_GE(lines.size(), 5U);
  EXPECT_EQ(lines[0].at("call"), "script");
  EXPECT_EQ(lines[0].at("script"),
            "do shell script \"chmod +s /usr/local/bin/corvaneutil \" with administrator "
            "privileges");
  EXPECT_EQ(lines[1].at("call"), "post");
  EXPECT_EQ(lines[1].at("name"), "Corvane2Appeared");
  for (size_t at = 2; at < 8; at += 3) {
    EXPECT_EQ(lines[at].at("call"), "open");
    EXPECT_EQ(lines[at + 1].at("call"), "userClient");
    EXPECT_EQ(lines[at + 1].at("selector"), 2);
    EXPECT_EQ(lines[at + 1].at("input").get<std::string>(), std::string(208, '0'));
    EXPECT_EQ(lines[at + 1].at("output").get<std::string>().size(), 208U);
    EXPECT_EQ(lines[at + 2].at("call"), "release");
  }
}
