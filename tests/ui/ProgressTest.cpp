#include <QAbstractButton>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "BenchWindow.h"
#include "UiTest.h"

using namespace corvane;

/// What a person sees and can do while a setting or an update is on its way.
class ProgressTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();

  void aSettingOnItsWayMovesAndLeavesTheWindowUsable();
  void aPortUnpluggedMeanwhileEndsQuietly();
  void anUpdateAsksBeforeItStarts();
  void closingDuringAnUpdateAsks();
  void aSecondUpdateCannotBeStarted();
  void aFileThatIsNoPackageIsRefused();

 private:
  void chooseSpeed(const QString& title);
  void chooseFile(const QString& path);
  void startUpdate();
  QWidget* sheet() { return shown_->window().findChild<QWidget*>("alertSheet"); }
  QString sheetText() { return sheet()->findChild<QLabel*>("informativeText")->text(); }

  std::unique_ptr<BenchWindow> shown_;
};

namespace {

const UiTestRegistration<ProgressTest> progressTest;

/// Seconds of the bench in a second: slow enough to see what happens on the way.
constexpr double slowClock = 10;

const QString goodPackage = QStringLiteral(CORVANE_BENCH_SAMPLES "/packages/corvane2-11.4.204.pkg");

QImage pictureOf(QWidget& widget) {
  return widget.grab().toImage();
}

}  // namespace

void ProgressTest::init() {
  shown_ = std::make_unique<BenchWindow>([](BenchState& state) {
    state.clockRate = slowClock;
    plugAdapter(state, "Corvane2 16G FC", 1, 1, std::nullopt);
    plugAdapter(state, "Corvane2 8G FC", 1, 2, std::nullopt);
  });
  QVERIFY(shown_->isDiscovered());
  shown_->widget<QAbstractButton>("authView").click();
}

void ProgressTest::cleanup() {
  shown_.reset();
}

void ProgressTest::chooseSpeed(const QString& title) {
  auto& speeds = shown_->widget<QComboBox>("setSpeed");
  speeds.setCurrentIndex(speeds.findText(title));
  emit speeds.activated(speeds.currentIndex());
}

void ProgressTest::aSettingOnItsWayMovesAndLeavesTheWindowUsable() {
  auto& bar = shown_->widget<QProgressBar>("portProgress");
  QVERIFY(!bar.isVisible());
  chooseSpeed("8 Gbps");
  QTRY_COMPARE_WITH_TIMEOUT(shown_->widget<QLabel>("currentSpeed").text(), "Loading Setting...",
                            patience);
  QCOMPARE(shown_->widget<QLabel>("currentTopology").text(), "Loading Setting...");
  QVERIFY(bar.isVisible());
  const QImage before = pictureOf(bar);
  QTRY_VERIFY_WITH_TIMEOUT(pictureOf(bar) != before, patience);
  shown_->widget<QAbstractButton>("deviceButton").click();
  QCOMPARE(shown_->controls().tabView.selectedIndex(), 2);
  shown_->widget<QAbstractButton>("port1Button").click();
  QTRY_COMPARE_WITH_TIMEOUT(shown_->widget<QLabel>("currentSpeed").text(), "8 Gbps", patience);
  QTRY_VERIFY_WITH_TIMEOUT(!bar.isVisible(), patience);
}

void ProgressTest::aPortUnpluggedMeanwhileEndsQuietly() {
  chooseSpeed("4 Gbps");
  QTRY_COMPARE_WITH_TIMEOUT(shown_->widget<QLabel>("currentSpeed").text(), "Loading Setting...",
                            patience);
  shown_->edit([](BenchState& state) { unplugAdapter(state.adapters.front()); });
  QTRY_COMPARE_WITH_TIMEOUT(shown_->controls().deviceTable.selectedRow(), 0, patience);
  QTRY_COMPARE_WITH_TIMEOUT(shown_->delegate().state().CorvaneList.count(), size_t{1}, patience);
  QTRY_VERIFY_WITH_TIMEOUT(!shown_->controls().portProgress.isRunning(), patience);
  QVERIFY(!QApplication::activeModalWidget());
  QTRY_VERIFY_WITH_TIMEOUT(shown_->widget<QLabel>("currentSpeed").text() != "Loading Setting...",
                           patience);
}

void ProgressTest::chooseFile(const QString& path) {
  shown_->widget<QAbstractButton>("updateFW").click();
  QPointer<QFileDialog> panel = &shown_->widget<QFileDialog>("openPanel");
  QCOMPARE(panel->labelText(QFileDialog::Accept), "Select");
  panel->findChild<QLineEdit*>("fileNameEdit")->setText(path);
  QMetaObject::invokeMethod(panel, "accept");
  QTRY_VERIFY_WITH_TIMEOUT(!panel, patience);
}

void ProgressTest::anUpdateAsksBeforeItStarts() {
  chooseFile(goodPackage);
  QTRY_VERIFY_WITH_TIMEOUT(sheet() && sheet()->isVisible(), patience);
  QCOMPARE(sheet()->findChild<QLabel*>("message")->text(), "Note");
  QCOMPARE(sheetText(),
           "The new FW version: 11.4.204 \n\nUpdate FW will terminat all I/O access, if you want "
           "continue please click\"Ok\" or click\"Cancel\" exit");
  sheet()->findChild<QPushButton*>("alertButton1")->click();
  QTRY_VERIFY_WITH_TIMEOUT(!shown_->isOpen("alertSheet"), patience);
  QVERIFY(!shown_->delegate().firmwareUpdate().isRunning());
}

void ProgressTest::startUpdate() {
  chooseFile(goodPackage);
  QTRY_VERIFY_WITH_TIMEOUT(sheet() && sheet()->isVisible(), patience);
  sheet()->findChild<QPushButton*>("alertButton0")->click();
  QTRY_VERIFY_WITH_TIMEOUT(sheet() && sheetText() == "Update FW is running, Please wait...",
                           patience);
}

void ProgressTest::closingDuringAnUpdateAsks() {
  startUpdate();
  QString question;
  QTimer::singleShot(0, qApp, [&question] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    question = box->text();
    box->reject();
  });
  QVERIFY(!shown_->window().close());
  QCOMPARE(question, "The update is still running.");
  QVERIFY(shown_->window().isVisible());
  QTRY_COMPARE_WITH_TIMEOUT(sheetText(), "Please restart device to launch new FW !", patience);
  sheet()->findChild<QPushButton*>("alertButton0")->click();
  QTRY_VERIFY_WITH_TIMEOUT(!shown_->isOpen("alertSheet"), patience);
  QVERIFY(shown_->window().close());
}

void ProgressTest::aSecondUpdateCannotBeStarted() {
  startUpdate();
  QVERIFY(!shown_->widget<QAbstractButton>("updateFW").isEnabled());
  QVERIFY(!shown_->window().findChild<QAction*>("actionUpdateFirmware")->isEnabled());
  shown_->delegate().firmwareUpdate().updateFW();
  QVERIFY(!shown_->isOpen("openPanel"));
  QTRY_COMPARE_WITH_TIMEOUT(sheetText(), "Please restart device to launch new FW !", patience);
  sheet()->findChild<QPushButton*>("alertButton0")->click();
  QTRY_VERIFY_WITH_TIMEOUT(shown_->widget<QAbstractButton>("updateFW").isEnabled(), patience);
}

void ProgressTest::aFileThatIsNoPackageIsRefused() {
  QString text;
  QString title;
  auto* const poll = new QTimer(this);
  connect(poll, &QTimer::timeout, this, [&] {
    QWidget* const alert = QApplication::activeModalWidget();
    if (!alert || alert->objectName() != "modalAlert") return;
    poll->stop();
    text = alert->findChild<QLabel*>("informativeText")->text();
    title = alert->findChild<QLabel*>("message")->text();
    alert->findChild<QPushButton*>("alertButton0")->click();
  });
  poll->start(5);
  chooseFile(QStringLiteral(CORVANE_BENCH_SAMPLES "/packages/truncated.pkg"));
  QTRY_COMPARE_WITH_TIMEOUT(text, "Your file can not be verified, please try again.", patience);
  QCOMPARE(title, "Warning");
  delete poll;
}

#include "ProgressTest.moc"
