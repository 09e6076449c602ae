#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "BenchWindow.h"
#include "UiTest.h"
#include "ui/sheets/AlertSheet.h"

using namespace corvane;

/// The update of an adapter's firmware from a package, in the window.
class FirmwareWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void thePackageReachesTheAdapter();
  void aCancelledConfirmationTouchesNothing();
  void closingTheWindowAsksWhileTheUpdateRuns();

 private:
  void choosePackage();
  void press(int button);
  QString message();
  int questionsWhileClosing(BenchWindow& shown);

  std::unique_ptr<BenchWindow> shown_;
};

namespace {

const UiTestRegistration<FirmwareWindowTest> firmwareWindowTest;

/// Slow enough for the flashing to be seen.
void plugInSlowly(BenchState& state) {
  state.clockRate = 10;
  plugAdapter(state, "Corvane2 8G FC", 1, 1, std::nullopt);
}

}  // namespace

void FirmwareWindowTest::choosePackage() {
  shown_ = std::make_unique<BenchWindow>(plugInSlowly);
  QVERIFY(shown_->isDiscovered());
  shown_->controls().updateFW.clearOutOfUse(OutOfUse::Locked);
  shown_->widget<QPushButton>("updateFW").click();
  auto& panel = shown_->widget<QFileDialog>("openPanel");
  panel.selectFile(CORVANE_PACKAGES "/corvane2-11.4.204.pkg");
  QMetaObject::invokeMethod(&panel, "accept");
  QTRY_COMPARE_WITH_TIMEOUT(message(), QString("Note"), patience);
}

QString FirmwareWindowTest::message() {
  const auto* const sheet = shown_->window().findChild<AlertSheet*>("alertSheet");
  return sheet && sheet->isVisible() ? sheet->findChild<QLabel*>("message")->text() : QString();
}

void FirmwareWindowTest::press(int button) {
  auto& sheet = shown_->widget<AlertSheet>("alertSheet");
  sheet.findChild<QPushButton*>("alertButton" + QString::number(button))->click();
}

void FirmwareWindowTest::thePackageReachesTheAdapter() {
  choosePackage();
  press(0);
  QTRY_COMPARE_WITH_TIMEOUT(message(), QString("Wait"), patience);
  QVERIFY(!shown_->widget<QPushButton>("updateFW").isEnabled());
  QTRY_COMPARE_WITH_TIMEOUT(message(), QString("Finish"), patience);
  press(0);
  QCOMPARE(message(), QString());
  QVERIFY(shown_->widget<QPushButton>("updateFW").isEnabled());
  QVERIFY(shown_->state().adapters.front().pendingFirmware == "11.4.204");
}

void FirmwareWindowTest::aCancelledConfirmationTouchesNothing() {
  choosePackage();
  press(1);
  QCOMPARE(message(), QString());
  QVERIFY(!shown_->delegate().firmwareUpdate().isRunning());
  QVERIFY(shown_->window().close());
  QVERIFY(!shown_->state().adapters.front().pendingFirmware);
}

/// Wishes to close the window and answers each question with "Keep Waiting".
int FirmwareWindowTest::questionsWhileClosing(BenchWindow& shown) {
  int asked = 0;
  QTimer answer;
  connect(&answer, &QTimer::timeout, [&asked, &shown] {
    // A sheet that comes up meanwhile lies above the question, so it is asked for by its name.
    auto* const question = shown.window().findChild<QMessageBox*>("leaveQuestion");
    if (!question || !question->isVisible()) return;
    ++asked;
    question->defaultButton()->click();
  });
  answer.start(0);
  shown.window().close();
  return asked;
}

void FirmwareWindowTest::closingTheWindowAsksWhileTheUpdateRuns() {
  choosePackage();
  press(0);
  // The sheet that waits is not there yet, but the update is.
  QCOMPARE(questionsWhileClosing(*shown_), 1);
  QVERIFY(shown_->window().isVisible());
  QTRY_COMPARE_WITH_TIMEOUT(message(), QString("Wait"), patience);
  QCOMPARE(questionsWhileClosing(*shown_), 1);
  QVERIFY(shown_->window().isVisible());
  QTRY_COMPARE_WITH_TIMEOUT(message(), QString("Finish"), patience);
  QCOMPARE(questionsWhileClosing(*shown_), 0);
  QVERIFY(!shown_->window().isVisible());
}

#include "FirmwareWindowTest.moc"
