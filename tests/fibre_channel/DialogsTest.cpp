#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "FCQDepthViewController.h"
#include "MatrixController.h"
#include "OnlyIntegerValueFormatter.h"
#include "fakes/FakePlatform.h"
#include "fakes/ManualDispatch.h"
#include "fibre_channel/ArbitratedLoopAddresses.h"
#include "fibre_channel/ListedFibreChannelAdapter.h"

using namespace corvane;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The entry filter.

class FormatterTest : public testing::Test {
 protected:
  bool accepts(const std::string& text) { return formatter.isPartialStringValid(text); }

  FakePrompts prompts;
  OnlyIntegerValueFormatter formatter{prompts};
};

TEST_F(FormatterTest, AcceptsWhatIsAWholeNumberBelow255) {
  for (const char* text : {"", "0", "1", "25", "254", "0254", "-1", "-999", "007"}) {
    EXPECT_TRUE(accepts(text)) << text;
  }
  EXPECT_EQ(prompts.beeps, 0);
}

TEST_F(FormatterTest, RefusesLongAndLargeInSilence) {
  for (const char* text : {"255", "256", "999", "1234", "00001", "abcde", "255a", "12345"}) {
    EXPECT_FALSE(accepts(text)) << text;
  }
  EXPECT_EQ(prompts.beeps, 0);
}

TEST_F(FormatterTest, BeepsAtWhatIsNoNumber) {
  int refused = 0;
  for (const char* text : {"12a", "a", "-", "1.5", "--1", "1-1", "0x1"}) {
    EXPECT_FALSE(accepts(text)) << text;
    EXPECT_EQ(prompts.beeps, ++refused) << text;
  }
}

TEST_F(FormatterTest, CountsCharactersRatherThanBytes) {
  EXPECT_FALSE(accepts("\u00e9\u00e9\u00e9\u00e9"));
  EXPECT_EQ(prompts.beeps, 1);
  EXPECT_FALSE(accepts("\u00e9\u00e9\u00e9\u00e9\u00e9"));
  EXPECT_EQ(prompts.beeps, 1);
}

class DialogsTest : public testing::Test {
 protected:
  ManualDispatch dispatch;
  FakePlatform fake{dispatch};
  MainWindowControls controls{dispatch};
  ListedFibreChannelAdapter adapter{fake};
};

// The queue-depth sheet.

class QueueDepthSheetTest : public DialogsTest {
 protected:
  std::vector<uint32_t> confirmed;
  FCQDepthViewController sheet{fake.platform(), controls, [this] { return adapter.port(1); },
                               [this](const PortTarget& port, uint32_t depth) {
                                 EXPECT_EQ(port.name(), "B - 2 port 1");
                                 confirmed.push_back(depth);
                               }};
};

TEST_F(QueueDepthSheetTest, OpensFromItsButton) {
  EXPECT_EQ(sheet.QDepthWindow.name(), "FCQDepthViewController");
  EXPECT_FALSE(sheet.QDepthWindow.isLoaded());
  controls.queueDepthButton.click();
  EXPECT_TRUE(sheet.QDepthWindow.isShown());
}

TEST_F(QueueDepthSheetTest, EveryEditPassesTheFilter) {
  sheet.showQDepth();
  for (const char* typed : {"2", "25"}) EXPECT_TRUE(sheet.depthEntry.edit(typed));
  EXPECT_FALSE(sheet.depthEntry.edit("255"));
  EXPECT_EQ(sheet.depthEntry.text(), "25");
  EXPECT_FALSE(sheet.depthEntry.edit("pasted"));
  EXPECT_EQ(sheet.depthEntry.text(), "25");
}

TEST_F(QueueDepthSheetTest, ConfirmingHandsTheNumberOnAndDropsTheSheet) {
  sheet.showQDepth();
  sheet.depthEntry.edit("32");
  sheet.setQDepthSetting();
  EXPECT_THAT(confirmed, ElementsAre(32U));
  EXPECT_FALSE(sheet.QDepthWindow.isShown());
  EXPECT_FALSE(sheet.QDepthWindow.isLoaded());
}

TEST_F(QueueDepthSheetTest, ReturnConfirms) {
  sheet.showQDepth();
  sheet.depthEntry.edit("7");
  sheet.depthEntry.confirm();
  EXPECT_THAT(confirmed, ElementsAre(7U));
}

TEST_F(QueueDepthSheetTest, NothingOrZeroGivesTheMessageAndStays) {
  for (const char* entered : {"", "0", "000"}) {
    sheet.showQDepth();
    sheet.depthEntry.edit(entered);
    sheet.setQDepthSetting();
    EXPECT_EQ(sheet.qDepthSettingErrorMessage.text(), "*Please enter new setting.");
    EXPECT_TRUE(sheet.QDepthWindow.isShown());
  }
  EXPECT_THAT(confirmed, IsEmpty());
}

TEST_F(QueueDepthSheetTest, NegativeNumberIsHandedOnAsItStands) {
  sheet.showQDepth();
  sheet.depthEntry.edit("-5");
  sheet.setQDepthSetting();
  EXPECT_THAT(confirmed, ElementsAre(0xFFFFFFFBU));
}

TEST_F(QueueDepthSheetTest, CancelledSheetStartsFreshAgain) {
  sheet.showQDepth();
  sheet.depthEntry.edit("9");
  sheet.setQDepthSetting();
  sheet.showQDepth();
  sheet.setQDepthSetting();
  sheet.cancelWindow();
  EXPECT_FALSE(sheet.QDepthWindow.isLoaded());
  sheet.showQDepth();
  EXPECT_EQ(sheet.depthEntry.text(), "");
  EXPECT_EQ(sheet.qDepthSettingErrorMessage.text(), "");
  EXPECT_THAT(confirmed, ElementsAre(9U));
}

TEST_F(QueueDepthSheetTest, WishToCloseCancels) {
  sheet.showQDepth();
  sheet.QDepthWindow.requestClose();
  EXPECT_FALSE(sheet.QDepthWindow.isLoaded());
}

// The AL_PA sheet.

class MatrixTest : public DialogsTest {
 protected:
  std::vector<uint64_t> confirmed;
  MatrixController matrix{fake.platform(), controls, [this] { return adapter.port(2); },
                          [this](const PortTarget& port, uint64_t alpa) {
                            EXPECT_EQ(port.name(), "B - 2 port 2");
                            confirmed.push_back(alpa);
                          }};
};

TEST_F(MatrixTest, OpensFromItsButtonWithNothingChosen) {
  EXPECT_EQ(matrix.matrixWindow.name(), "MatrixTable");
  EXPECT_EQ(matrix.selectALPA, 0U);
  EXPECT_EQ(matrix.portFlag, 0);
  controls.chooseALPA.click();
  EXPECT_TRUE(matrix.matrixWindow.isShown());
  EXPECT_EQ(matrix.idLabel.text(), "");
}

TEST_F(MatrixTest, ChoiceIsShownPaddedToTwoPlaces) {
  matrix.choosePortALPA();
  matrix.selectMatrix(0xEF);
  EXPECT_EQ(matrix.idLabel.text(), "EF");
  EXPECT_EQ(matrix.selectALPA, 0xEFU);
  matrix.selectMatrix(0x01);
  EXPECT_EQ(matrix.idLabel.text(), " 1");
  EXPECT_EQ(matrix.selectALPA, 1U);
}

TEST_F(MatrixTest, ConfirmingHandsTheChoiceOnOnce) {
  matrix.choosePortALPA();
  matrix.selectMatrix(0xE8);
  matrix.selectPortALPA();
  EXPECT_THAT(confirmed, ElementsAre(0xE8U));
  EXPECT_EQ(matrix.selectALPA, 0U);
  EXPECT_FALSE(matrix.matrixWindow.isShown());
  matrix.choosePortALPA();
  matrix.selectPortALPA();
  EXPECT_THAT(confirmed, ElementsAre(0xE8U));
}

TEST_F(MatrixTest, ConfirmingNothingClosesAndSendsNothing) {
  matrix.choosePortALPA();
  matrix.selectPortALPA();
  EXPECT_FALSE(matrix.matrixWindow.isShown());
  EXPECT_THAT(confirmed, IsEmpty());
}

TEST_F(MatrixTest, CancelledChoiceIsForgotten) {
  matrix.choosePortALPA();
  matrix.selectMatrix(0xE8);
  matrix.matrixWindow.requestClose();
  EXPECT_FALSE(matrix.matrixWindow.isLoaded());
  matrix.choosePortALPA();
  EXPECT_EQ(matrix.idLabel.text(), "");
  matrix.selectPortALPA();
  EXPECT_THAT(confirmed, IsEmpty());
}

// Whether a byte's 8b/10b transmission character has as many ones as zeros, from the 5b/6b and
// 3b/4b tables of FC-PH.
bool keepsDisparity(unsigned byte) {
  const std::set<unsigned> unbalancedFive{0, 1, 2, 4, 8, 15, 16, 23, 24, 27, 29, 30, 31};
  const std::set<unsigned> unbalancedThree{0, 4, 7};
  return unbalancedFive.count(byte & 0x1F) == unbalancedThree.count(byte >> 5);
}

TEST(ArbitratedLoopAddresses, AreTheDisparityKeepingValuesBelowTheReservedOnes) {
  constexpr unsigned highestAddress = 0xEF;
  std::vector<uint8_t> expected;
  for (unsigned value = highestAddress; value > 0; --value) {
    if (keepsDisparity(value)) expected.push_back(static_cast<uint8_t>(value));
  }
  EXPECT_EQ(expected.size(), 126U);
  EXPECT_TRUE(std::equal(expected.begin(), expected.end(), arbitratedLoopAddresses.begin(),
                         arbitratedLoopAddresses.end()));
}

TEST(ArbitratedLoopAddresses, FillTheirMatrix) {
  EXPECT_EQ(addressMatrixRows * addressMatrixColumns, 126U);
}

// What the sheets are for.

TEST_F(QueueDepthSheetTest, NamesItsPortAndClosesWhenThatGoes) {
  sheet.showQDepth();
  EXPECT_EQ(sheet.QDepthWindow.subject(), "B - 2 port 1");
  sheet.letGoOfDeparted();
  EXPECT_TRUE(sheet.QDepthWindow.isShown());
  adapter.unplug();
  sheet.letGoOfDeparted();
  EXPECT_FALSE(sheet.QDepthWindow.isLoaded());
}

TEST_F(QueueDepthSheetTest, DoesNotOpenWithoutAPort) {
  adapter.unplug();
  sheet.showQDepth();
  EXPECT_FALSE(sheet.QDepthWindow.isLoaded());
}

TEST_F(MatrixTest, NamesItsPortAndClosesWhenThatGoes) {
  matrix.choosePortALPA();
  EXPECT_EQ(matrix.matrixWindow.subject(), "B - 2 port 2");
  matrix.selectMatrix(0xEF);
  adapter.unplug();
  matrix.letGoOfDeparted();
  EXPECT_FALSE(matrix.matrixWindow.isLoaded());
  EXPECT_THAT(confirmed, IsEmpty());
}

}  // namespace
