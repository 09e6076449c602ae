#include <fmt/format.h>

#include <algorithm>

#include "diagnosis/CaseFile.h"
#include "diagnosis/RuleTable.h"

using namespace corvane;
using nlohmann::json;

namespace {

/// A finding as the cases write it.
std::string lineOf(std::string_view code, std::string_view severity, const json& label,
                   const json& port) {
  return fmt::format("{} {} {} {}", code, severity, label.dump(), port.dump());
}

std::vector<std::string> expectedFindings(const json& expected) {
  std::vector<std::string> lines;
  for (const json& each : expected.at("findings"))
    lines.push_back(lineOf(each.at("code").get<std::string>(),
                           each.at("severity").get<std::string>(), each.at("label"),
                           each.at("port")));
  return lines;
}

std::vector<std::string> foundFindings(const Diagnosis& diagnosis) {
  std::vector<std::string> lines;
  for (const Finding& each : diagnosis.findings)
    lines.push_back(lineOf(each.code, nameOf(each.severity),
                           each.label ? json(*each.label) : json(),
                           each.port ? json(*each.port) : json()));
  return lines;
}

json badSegments(const PortDiagnosis& port) {
  json bad = json::array();
  for (const PathStation& station : port.path)
    if (station.state == SegmentState::Bad) bad.push_back(nameOf(station.segment));
  return bad;
}

json foundPorts(const Diagnosis& diagnosis) {
  json ports = json::object();
  for (const AdapterDiagnosis& adapter : diagnosis.adapters)
    for (const PortDiagnosis& port : adapter.ports)
      ports[fmt::format("{}/{}", adapter.label, port.port)] = {{"verdict", nameOf(port.verdict)},
                                                               {"bad", badSegments(port)}};
  return ports;
}

class CasesTest : public ::testing::TestWithParam<json> {};

}  // namespace

TEST_P(CasesTest, FindsWhatIsThereAndNothingElse) {
  const json& each = GetParam();
  const ComputerReading reading = readingOf(each.at("facts"));
  const Diagnosis diagnosis = diagnose(reading, memoryOf(each.at("memory"), reading));
  const json& expected = each.at("expect");
  EXPECT_EQ(foundFindings(diagnosis), expectedFindings(expected)) << each.at("title");
  EXPECT_EQ(nameOf(diagnosis.verdict), expected.at("verdict").get<std::string>());
  EXPECT_EQ(diagnosis.verdict == Verdict::Problem ? 1 : 0, expected.at("exit").get<int>());
  EXPECT_EQ(foundPorts(diagnosis), expected.at("ports"));
}

TEST_P(CasesTest, EverySentenceIsWhole) {
  const json& each = GetParam();
  const ComputerReading reading = readingOf(each.at("facts"));
  for (const Finding& finding : diagnose(reading, memoryOf(each.at("memory"), reading)).findings) {
    EXPECT_TRUE(finding.text.ends_with('.')) << finding.text;
    EXPECT_TRUE(finding.remedy.ends_with('.')) << finding.remedy;
    EXPECT_EQ(finding.text.find_first_of("{}"), std::string::npos) << finding.text;
    EXPECT_EQ(finding.text.find("  "), std::string::npos) << finding.text;
  }
}

INSTANTIATE_TEST_SUITE_P(All, CasesTest,
                         ::testing::ValuesIn(caseCollection().at("cases").get<std::vector<json>>()),
                         [](const auto& instance) {
                           std::string name = instance.param.at("id");
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

TEST(RuleTable, CodesAreUniqueAndNamesFitTables) {
  std::map<std::string_view, int> codes;
  std::map<std::string_view, int> names;
  for (const Rule& rule : allRules()) {
    EXPECT_EQ(++codes[rule.code], 1) << rule.code;
    EXPECT_EQ(++names[rule.name], 1) << rule.name;
    EXPECT_LE(rule.name.size(), longestRuleName) << rule.name;
    EXPECT_EQ(&ruleOf(rule.code), &rule);
  }
  EXPECT_THROW(ruleOf("no-such-rule"), std::logic_error);
}
