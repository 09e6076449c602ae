#include <QAbstractItemView>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "BenchWindow.h"
#include "UiTest.h"
#include "fibre_channel/ArbitratedLoopAddresses.h"
#include "ui/controls/PopUpBox.h"

using namespace corvane;

/// The sheets of the Fibre Channel pages, from opening to both ends.
class DialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();

  void theMatrixOffersTheStandardsAddressesInOrder();
  void aChosenAddressIsShownAndSent();
  void theMatrixWithoutAChoiceSendsNothing();
  void theMatrixCanBeCancelled();
  void sheetsNameTheirPortAndCloseWhenItGoes();
  void anOpenMenuClosesWhenItsPortGoes();
  void theMatrixIsFreshEachTime();
  void theQueueDepthIsSentThroughThePortOnShow();
  void anEmptyQueueDepthKeepsTheSheet();
  void returnInTheEntryConfirmsOnce();
  void theQueueDepthCanBeCancelled();
  void theTransceiverSheetShowsItsTexts();
  void theHelpOpensAtItsButton();

 private:
  QAbstractButton& button(const char* dialog, const char* name) {
    return *shown_->widget<QWidget>(dialog).findChild<QAbstractButton*>(name);
  }
  void open(Button& control, const char* dialog);

  std::unique_ptr<BenchWindow> shown_;
};

namespace {
const UiTestRegistration<DialogsTest> dialogsTest;
}

void DialogsTest::init() {
  shown_ = std::make_unique<BenchWindow>(
      [](BenchState& state) { plugAdapter(state, "Corvane2 8G FC", 1, 1, std::nullopt); });
  QVERIFY(shown_->isDiscovered());
}

void DialogsTest::cleanup() {
  shown_.reset();
}

void DialogsTest::open(Button& control, const char* dialog) {
  control.setHidden(false);
  control.clearOutOfUse(OutOfUse::Locked);
  control.click();
  QVERIFY(shown_->isOpen(dialog));
  QCOMPARE(shown_->widget<QWidget>(dialog).windowModality(), Qt::WindowModal);
}

void DialogsTest::theMatrixOffersTheStandardsAddressesInOrder() {
  open(shown_->controls().chooseALPA, "MatrixTable");
  auto* const matrix = shown_->window().findChild<QGridLayout*>("matrixGrid");
  for (size_t place = 0; place < arbitratedLoopAddresses.size(); ++place) {
    const auto row = static_cast<int>(place / addressMatrixColumns);
    const auto column = static_cast<int>(place % addressMatrixColumns);
    auto* const cell = qobject_cast<QToolButton*>(matrix->itemAtPosition(row, column)->widget());
    QCOMPARE(cell->property("tag").toUInt(), uint{arbitratedLoopAddresses[place]});
    QCOMPARE(cell->text(),
             QString("%1").arg(arbitratedLoopAddresses[place], 2, 16, QChar('0')).toUpper());
  }
  QCOMPARE(matrix->count(), static_cast<int>(arbitratedLoopAddresses.size()));
}

void DialogsTest::aChosenAddressIsShownAndSent() {
  open(shown_->controls().chooseALPA, "MatrixTable");
  QTest::mouseClick(&button("MatrixTable", "alpa_01"), Qt::LeftButton);
  QCOMPARE(shown_->widget<QLabel>("idLabel").text(), " 1");
  QTest::mouseClick(&button("MatrixTable", "alpa_E8"), Qt::LeftButton);
  QCOMPARE(shown_->widget<QLabel>("idLabel").text(), "E8");
  QTest::mouseClick(&button("MatrixTable", "selectButton"), Qt::LeftButton);
  QVERIFY(!shown_->isOpen("MatrixTable"));
  QTRY_COMPARE_WITH_TIMEOUT(shown_->state().adapters.front().fibreChannelPorts[0].hardAlpa, 0xE8,
                            20000);
  QTRY_VERIFY_WITH_TIMEOUT(shown_->widget<QLabel>("hardALPA").text().contains("E8"), patience);
}

void DialogsTest::theMatrixWithoutAChoiceSendsNothing() {
  open(shown_->controls().chooseALPA, "MatrixTable");
  QTest::mouseClick(&button("MatrixTable", "selectButton"), Qt::LeftButton);
  QVERIFY(!shown_->isOpen("MatrixTable"));
  QCOMPARE(shown_->state().adapters.front().fibreChannelPorts[0].hardAlpa, 0);
}

void DialogsTest::theMatrixCanBeCancelled() {
  open(shown_->controls().chooseALPA, "MatrixTable");
  QTest::mouseClick(&button("MatrixTable", "alpa_E8"), Qt::LeftButton);
  QTest::mouseClick(&button("MatrixTable", "cancelButton"), Qt::LeftButton);
  QVERIFY(!shown_->isOpen("MatrixTable"));
  open(shown_->controls().chooseALPA, "MatrixTable");
  QTest::keyClick(&shown_->widget<QWidget>("MatrixTable"), Qt::Key_Escape);
  QVERIFY(!shown_->isOpen("MatrixTable"));
  QCOMPARE(shown_->state().adapters.front().fibreChannelPorts[0].hardAlpa, 0);
}

void DialogsTest::sheetsNameTheirPortAndCloseWhenItGoes() {
  open(shown_->controls().chooseALPA, "MatrixTable");
  QVERIFY(shown_->widget<QWidget>("MatrixTable").windowTitle().endsWith(" - A - 1 port 1"));
  shown_->edit([](BenchState& state) { plugAdapter(state, "Corvane3 F2", 1, 2, std::nullopt); });
  QTRY_COMPARE_WITH_TIMEOUT(shown_->delegate().state().CorvaneList.count(), size_t{2}, patience);
  QVERIFY(shown_->isOpen("MatrixTable"));
  shown_->edit([](BenchState& state) { unplugAdapter(state.adapters.front()); });
  QTRY_VERIFY_WITH_TIMEOUT(!shown_->isOpen("MatrixTable"), patience);
}

void DialogsTest::anOpenMenuClosesWhenItsPortGoes() {
  shown_->controls().setSpeed.clearOutOfUse(OutOfUse::Locked);
  auto& box = shown_->widget<PopUpBox>("setSpeed");
  box.showPopup();
  QVERIFY(shown_->controls().setSpeed.isOpen());
  shown_->edit([](BenchState& state) { unplugAdapter(state.adapters.front()); });
  QTRY_VERIFY_WITH_TIMEOUT(!shown_->controls().setSpeed.isOpen(), patience);
  QTRY_VERIFY_WITH_TIMEOUT(!box.view()->isVisible(), patience);
}

void DialogsTest::theMatrixIsFreshEachTime() {
  open(shown_->controls().chooseALPA, "MatrixTable");
  QTest::mouseClick(&button("MatrixTable", "alpa_E8"), Qt::LeftButton);
  QTest::mouseClick(&button("MatrixTable", "cancelButton"), Qt::LeftButton);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  open(shown_->controls().chooseALPA, "MatrixTable");
  QVERIFY(!button("MatrixTable", "alpa_E8").isChecked());
  QCOMPARE(shown_->widget<QLabel>("idLabel").text(), "");
}

void DialogsTest::theQueueDepthIsSentThroughThePortOnShow() {
  shown_->widget<QToolButton>("port2Button").click();
  open(shown_->controls().queueDepthButton, "FCQDepthViewController");
  QTest::keyClicks(&shown_->widget<QLineEdit>("setQDepthSetting"), "254");
  QTest::mouseClick(&button("FCQDepthViewController", "confirmButton"), Qt::LeftButton);
  QVERIFY(!shown_->isOpen("FCQDepthViewController"));
  const auto ports = shown_->state().adapters.front().fibreChannelPorts;
  QCOMPARE(ports[1].queueDepth, 254);
  QCOMPARE(ports[0].queueDepth, 0);
}

void DialogsTest::anEmptyQueueDepthKeepsTheSheet() {
  open(shown_->controls().queueDepthButton, "FCQDepthViewController");
  for (const char* typed : {"", "0"}) {
    QTest::keyClicks(&shown_->widget<QLineEdit>("setQDepthSetting"), typed);
    QTest::mouseClick(&button("FCQDepthViewController", "confirmButton"), Qt::LeftButton);
    QVERIFY(shown_->isOpen("FCQDepthViewController"));
    QCOMPARE(shown_->widget<QLabel>("qDepthSettingErrorMessage").text(),
             "*Please enter new setting.");
  }
}

void DialogsTest::returnInTheEntryConfirmsOnce() {
  open(shown_->controls().queueDepthButton, "FCQDepthViewController");
  auto& entry = shown_->widget<QLineEdit>("setQDepthSetting");
  QTest::keyClicks(&entry, "17");
  QTest::keyClick(&entry, Qt::Key_Return);
  QVERIFY(!shown_->isOpen("FCQDepthViewController"));
  QCOMPARE(shown_->state().adapters.front().fibreChannelPorts[0].queueDepth, 17);
}

void DialogsTest::theQueueDepthCanBeCancelled() {
  open(shown_->controls().queueDepthButton, "FCQDepthViewController");
  QTest::keyClicks(&shown_->widget<QLineEdit>("setQDepthSetting"), "17");
  QTest::keyClick(&shown_->widget<QLineEdit>("setQDepthSetting"), Qt::Key_Escape);
  QVERIFY(!shown_->isOpen("FCQDepthViewController"));
  QCOMPARE(shown_->state().adapters.front().fibreChannelPorts[0].queueDepth, 0);
}

void DialogsTest::theTransceiverSheetShowsItsTexts() {
  open(shown_->controls().SFPInfoButton, "SFPController");
  shown_->delegate().sfpController().VendorNameInfo.setText("VELMAR          ");
  QCOMPARE(shown_->widget<QLabel>("VendorNameInfo").text(), "VELMAR          ");
  QCOMPARE(shown_->widget<QLabel>("VendorNameInfo").accessibleName(),
           "Vendor name: VELMAR          ");
  QTest::mouseClick(&button("SFPController", "closeButton"), Qt::LeftButton);
  QVERIFY(!shown_->isOpen("SFPController"));
  QVERIFY(!shown_->delegate().sfpController().SFPWindow.isLoaded());
}

void DialogsTest::theHelpOpensAtItsButton() {
  QTest::mouseClick(&shown_->widget<QToolButton>("SFPHelpButton"), Qt::LeftButton);
  QVERIFY(shown_->isOpen("helpPopover"));
  QVERIFY(!shown_->widget<QLabel>("helpText").text().isEmpty());
  QTest::keyClick(&shown_->widget<QWidget>("helpPopover"), Qt::Key_Escape);
  QVERIFY(!shown_->isOpen("helpPopover"));
  QTest::mouseClick(&shown_->widget<QToolButton>("SFPHelpButton"), Qt::LeftButton);
  QVERIFY(shown_->isOpen("helpPopover"));
}

#include "DialogsTest.moc"
