#include "DeviceMonitorCORVANE2_10GE/SmallTree.h"

using namespace corvane;

namespace {

class SmallTreeTest : public ::testing::Test {
 protected:
  void SetUp() override { initFUCKsmalltree(); }
};

}  // namespace

TEST_F(SmallTreeTest, UnknownAddressGivesTheEmptyText) {
  EXPECT_EQ(getFUCKsmalltree("00:1B:21:AA:BB:CC"), "");
}

TEST_F(SmallTreeTest, AFoundRecordIsTakenOut) {
  saveFUCKsmalltree("a", "12");
  saveFUCKsmalltree("b", "13");
  EXPECT_EQ(getFUCKsmalltree("a"), "12");
  EXPECT_EQ(getFUCKsmalltree("a"), "");
  EXPECT_EQ(getFUCKsmalltree("b"), "13");
}

TEST_F(SmallTreeTest, TheRecordAfterARemovedOneIsSkipped) {
  saveFUCKsmalltree("a", "first");
  saveFUCKsmalltree("a", "second");
  saveFUCKsmalltree("a", "third");
  EXPECT_EQ(getFUCKsmalltree("a"), "third") << "the first and the third are visited";
  EXPECT_EQ(getFUCKsmalltree("a"), "second") << "the second was skipped";
  EXPECT_EQ(getFUCKsmalltree("a"), "");
}

TEST_F(SmallTreeTest, TheLastRecordVisitedCounts) {
  saveFUCKsmalltree("a", "12");
  saveFUCKsmalltree("b", "13");
  saveFUCKsmalltree("a", "14");
  EXPECT_EQ(getFUCKsmalltree("a"), "14");
  EXPECT_EQ(getFUCKsmalltree("a"), "");
}

TEST_F(SmallTreeTest, ASkippedRecordOfAnotherAddressStays) {
  saveFUCKsmalltree("a", "12");
  saveFUCKsmalltree("b", "13");
  EXPECT_EQ(getFUCKsmalltree("a"), "12");
  EXPECT_EQ(getFUCKsmalltree("b"), "13");
}

TEST_F(SmallTreeTest, EachInitialisationReplacesTheList) {
  saveFUCKsmalltree("a", "12");
  initFUCKsmalltree();
  EXPECT_EQ(getFUCKsmalltree("a"), "");
}
