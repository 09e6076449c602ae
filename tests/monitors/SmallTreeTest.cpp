#include "DeviceMonitorCORVANE2_10GE/SmallTree.h"

using namespace corvane;

namespace {

class SmallTreeTest : public ::testing::Test {
 protected:
  SmallTree tree;
};

}  // namespace

TEST_F(SmallTreeTest, UnknownAddressGivesTheEmptyText) {
  EXPECT_EQ(getFUCKsmalltree(tree, "00:1B:21:AA:BB:CC"), "");
}

TEST_F(SmallTreeTest, AFoundRecordIsTakenOut) {
  saveFUCKsmalltree(tree, "a", "12");
  saveFUCKsmalltree(tree, "b", "13");
  EXPECT_EQ(getFUCKsmalltree(tree, "a"), "12");
  EXPECT_EQ(getFUCKsmalltree(tree, "a"), "");
  EXPECT_EQ(getFUCKsmalltree(tree, "b"), "13");
}

TEST_F(SmallTreeTest, TheRecordAfterARemovedOneIsSkipped) {
  saveFUCKsmalltree(tree, "a", "first");
  saveFUCKsmalltree(tree, "a", "second");
  saveFUCKsmalltree(tree, "a", "third");
  EXPECT_EQ(getFUCKsmalltree(tree, "a"), "third") << "the first and the third are visited";
  EXPECT_EQ(getFUCKsmalltree(tree, "a"), "second") << "the second was skipped";
  EXPECT_EQ(getFUCKsmalltree(tree, "a"), "");
}

TEST_F(SmallTreeTest, TheLastRecordVisitedCounts) {
  saveFUCKsmalltree(tree, "a", "12");
  saveFUCKsmalltree(tree, "b", "13");
  saveFUCKsmalltree(tree, "a", "14");
  EXPECT_EQ(getFUCKsmalltree(tree, "a"), "14");
  EXPECT_EQ(getFUCKsmalltree(tree, "a"), "");
}

TEST_F(SmallTreeTest, ASkippedRecordOfAnotherAddressStays) {
  saveFUCKsmalltree(tree, "a", "12");
  saveFUCKsmalltree(tree, "b", "13");
  EXPECT_EQ(getFUCKsmalltree(tree, "a"), "12");
  EXPECT_EQ(getFUCKsmalltree(tree, "b"), "13");
}

TEST_F(SmallTreeTest, EachListIsItsOwn) {
  saveFUCKsmalltree(tree, "a", "12");
  SmallTree another;
  EXPECT_EQ(getFUCKsmalltree(another, "a"), "");
  EXPECT_EQ(getFUCKsmalltree(tree, "a"), "12");
}
