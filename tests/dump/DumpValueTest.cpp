#include "platform/dump/DumpValue.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

using Data = PropertyValue::Data;
using Array = PropertyValue::Array;
using Dictionary = PropertyValue::Dictionary;

struct PrintedValue {
  const char* printed;
  PropertyValue value;
};

class WholeDumpValue : public testing::TestWithParam<PrintedValue> {};

TEST_P(WholeDumpValue, IsReadWithoutLoss) {
  DumpProblems problems;
  const auto value = readDumpValue(GetParam().printed, problems);
  ASSERT_TRUE(value.has_value()) << GetParam().printed;
  EXPECT_EQ(*value, GetParam().value) << value->description();
  EXPECT_EQ(problems, DumpProblems{});
}

INSTANTIATE_TEST_SUITE_P(Numbers, WholeDumpValue,
                         testing::Values(PrintedValue{"0", int64_t{0}},
                                         PrintedValue{"4294967295", int64_t{4294967295}},
                                         PrintedValue{"18446744073709551516", int64_t{-100}},
                                         PrintedValue{"0x1f", int64_t{31}},
                                         PrintedValue{"0xffffffffffffff9c", int64_t{-100}},
                                         PrintedValue{"Yes", true}, PrintedValue{"No", false}));

INSTANTIATE_TEST_SUITE_P(
    Texts, WholeDumpValue,
    testing::Values(PrintedValue{"\"\"", ""}, PrintedValue{"\"IOPP\"", "IOPP"},
                    PrintedValue{"\"say \"hello\" \\ there\"", "say \"hello\" \\ there"},
                    PrintedValue{"\"one\n}\nthree\"", "one\n}\nthree"},
                    PrintedValue{"\"costs 5$\"", "costs 5$"},
                    PrintedValue{"\"Gr\xC3\xBC\xC3\x9F\"", "Gr\xC3\xBC\xC3\x9F"},
                    PrintedValue{"\"SMCPolledInterface is not serializable\"",
                                 "SMCPolledInterface is not serializable"}));

INSTANTIATE_TEST_SUITE_P(
    DataForms, WholeDumpValue,
    testing::Values(PrintedValue{"<>", Data{}}, PrintedValue{"<86800000>", Data{0x86, 0x80, 0, 0}},
                    PrintedValue{"<0A>", Data{0x0A}},
                    PrintedValue{"<\"pci-bridge\">",
                                 Data{'p', 'c', 'i', '-', 'b', 'r', 'i', 'd', 'g', 'e'}},
                    PrintedValue{"<\"a\",\"b\">", Data{'a', 0, 'b'}},
                    PrintedValue{"<\"a\",\"\",\"b\">", Data{'a', 0, 0, 'b'}},
                    PrintedValue{"<\"a\"b>c\">", Data{'a', '"', 'b', '>', 'c'}}));

INSTANTIATE_TEST_SUITE_P(
    Collections, WholeDumpValue,
    testing::Values(
        PrintedValue{"{}", Dictionary{}}, PrintedValue{"()", Array{}}, PrintedValue{"[]", Array{}},
        PrintedValue{"{\"a\"=2,\"b\"={}}", Dictionary{{"a", int64_t{2}}, {"b", Dictionary{}}}},
        PrintedValue{"(1,2)", Array{int64_t{1}, int64_t{2}}},
        PrintedValue{"[\"x\",\"y\"]", Array{"x", "y"}},
        PrintedValue{"({\"a\"=\"b\"},Yes,<01>)", Array{Dictionary{{"a", "b"}}, true, Data{1}}},
        PrintedValue{"{\"a\"=\"say \"x\" twice\",\"b\"=No}",
                     Dictionary{{"a", "say \"x\" twice"}, {"b", false}}},
        PrintedValue{
            "{\"Node World Wide Name\"=<200000109b123456>,\"n\"=<\"ab\">}",
            Dictionary{{"Node World Wide Name", Data{0x20, 0, 0, 0x10, 0x9b, 0x12, 0x34, 0x56}},
                       {"n", Data{'a', 'b'}}}},
        PrintedValue{"{\"a b, \"c\" \"=1}", Dictionary{{"a b, \"c\" ", int64_t{1}}}},
        PrintedValue{"(\"a,b\",\"c)d\")", Array{"a,b", "c)d"}}));

class UnreadableDumpValue : public testing::TestWithParam<const char*> {};

TEST_P(UnreadableDumpValue, IsSkippedAndCountedOnce) {
  DumpProblems problems;
  EXPECT_FALSE(readDumpValue(GetParam(), problems).has_value());
  EXPECT_EQ(problems, DumpProblems{.unreadableValues = 1});
}

INSTANTIATE_TEST_SUITE_P(Forms, UnreadableDumpValue,
                         testing::Values("", " ", "\"", "\"open", "<", "<12", "<123>", "<zz>",
                                         "<\"a\"", "Yesterday", "Nothing", "0x", "12 apples",
                                         "99999999999999999999", "-5", "?", "<>x", "{}x", "<*z>"));

TEST(CutDumpValue, IsSkippedAndCountedAsCut) {
  for (const char* printed : {"\"com.velmar.C$", "<2000$", "12$", "Ye$", "$", "<\"ab$"}) {
    DumpProblems problems;
    EXPECT_FALSE(readDumpValue(printed, problems).has_value()) << printed;
    EXPECT_EQ(problems, DumpProblems{.cutLines = 1}) << printed;
  }
}

TEST(CutDumpValue, KeepsTheWholeMembersOfACollection) {
  DumpProblems problems;
  const auto value =
      readDumpValue("{\"Node World Wide Name\"=<2000>,\"x\"={\"y\"=1,\"z\"=12$", problems);
  ASSERT_TRUE(value.has_value());
  EXPECT_EQ(*value, PropertyValue(Dictionary{{"Node World Wide Name", Data{0x20, 0}},
                                             {"x", Dictionary{{"y", int64_t{1}}}}}));
  EXPECT_EQ(problems, DumpProblems{.cutLines = 1});
}

TEST(CutDumpValue, ShowsWhatIsLeftOfTheLastDataOfADictionary) {
  DumpProblems problems;
  const auto value =
      readDumpValue("{\"a\"=<2000>,\"Port World Wide Name\"=<2100001b32a$", problems);
  ASSERT_TRUE(value.has_value());
  EXPECT_EQ(*value, PropertyValue(Dictionary{{"a", Data{0x20, 0}},
                                             {"Port World Wide Name", "<2100001b 32a*>"}}));
  EXPECT_EQ(problems, DumpProblems{.cutLines = 1});
  for (const char* printed : {"{\"a\"=<$", "{\"a\"=<\"bc$", "{\"a\"=<21xy$", "{\"a\"=<21"})
    EXPECT_EQ(readDumpValue(printed, problems), PropertyValue(Dictionary{})) << printed;
}

TEST(SpoiltDumpValue, LosesOneMemberOnly) {
  DumpProblems problems;
  const auto value = readDumpValue("{\"a\"=?,\"b\"=2}", problems);
  ASSERT_TRUE(value.has_value());
  EXPECT_EQ(*value, PropertyValue(Dictionary{{"b", int64_t{2}}}));
  EXPECT_EQ(problems, DumpProblems{.unreadableValues = 1});
}

TEST(RedactedDumpValue, ShowsWhatIsLeftInTheDataTextForm) {
  DumpProblems problems;
  const auto value = readDumpValue("<20000010********>", problems);
  ASSERT_TRUE(value.has_value());
  EXPECT_EQ(*value, PropertyValue("<20000010 ********>"));
  EXPECT_EQ(problems, DumpProblems{.redactedValues = 1});
}

TEST(DumpValueNesting, EndsAtABound) {
  std::string deep(100000, '(');
  DumpProblems problems;
  const auto value = readDumpValue(deep, problems);
  EXPECT_TRUE(value.has_value());
  EXPECT_EQ(problems, DumpProblems{.unreadableValues = 1});
}

TEST(DumpValueTime, IsLinearForLongSpoiltLines) {
  std::string line = "{";
  for (int member = 0; member < 200000; ++member) line += "\"a\"=<12,\"b\"=\"x,";
  DumpProblems problems;
  readDumpValue(line, problems);
  EXPECT_GT(problems.unreadableValues, 1u);
}

}  // namespace
