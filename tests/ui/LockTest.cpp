#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "BenchWindow.h"
#include "UiTest.h"
#include "ui/sheets/PasswordSheet.h"

using namespace corvane;

/// The lock, the password sheet behind it, and every control that it guards.
class LockTest : public QObject {
  Q_OBJECT

 private slots:
  void itIsClosedAtTheStart();
  void openItEnablesWhatChangesAnAdapter();
  void closedAgainItDisablesThemAndSaysWhy();
  void theMenusFollowTheLock();
  void openItLeavesTheModeAloneWithAnOldDriver();
  void coalescingThatTheDriverDoesNotKnowIsHidden();
  void aCancelledPasswordLeavesItClosed();
  void withoutAPasswordThereIsNothingToConfirm();
  void aRefusalOfTheComputerLeavesItClosed();

 private:
  void show(
      const std::string& product,
      const std::function<void(BenchState&)>& prepare = [](BenchState&) {});
  void clickLock(const std::function<void(PasswordSheet&)>& answer);
  QWidget& control(const char* name) { return shown_->widget<QWidget>(name); }

  std::unique_ptr<BenchWindow> shown_;
};

namespace {

const UiTestRegistration<LockTest> lockTest;

/// What the lock guards, whatever adapter is on show.
constexpr std::array guardedControls{
    "setSpeed",   "setTopology",      "checkUpdate", "updateFW",      "setQueueDepth",
    "chooseALPA", "queueDepthButton", "settingMode", "enableTCPipv4", "enableRSC"};

void giveAPassword(PasswordSheet& sheet) {
  QTest::keyClicks(sheet.findChild<QLineEdit*>("password"), "secret");
  QTest::keyClick(&sheet, Qt::Key_Return);
}

}  // namespace

void LockTest::show(const std::string& product, const std::function<void(BenchState&)>& prepare) {
  shown_.reset();
  shown_ = std::make_unique<BenchWindow>([&](BenchState& state) {
    plugAdapter(state, product, 1, 1, std::nullopt);
    prepare(state);
  });
  shown_->bench().setPasswordPrompt([this] { return PasswordSheet::ask(&shown_->window()); });
  QVERIFY(shown_->isDiscovered());
}

void LockTest::clickLock(const std::function<void(PasswordSheet&)>& answer) {
  bool isAsked = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* const sheet = qobject_cast<PasswordSheet*>(QApplication::activeModalWidget());
    isAsked = sheet != nullptr;
    if (sheet) answer(*sheet);
  });
  shown_->widget<QToolButton>("authView").click();
  QVERIFY(isAsked);
}

void LockTest::itIsClosedAtTheStart() {
  show("Corvane2 10G SFP+");
  QVERIFY(!shown_->widget<QToolButton>("authView").isChecked());
  for (const char* name : guardedControls) {
    QVERIFY2(!control(name).isEnabled(), name);
    QCOMPARE(control(name).toolTip(), "Click the lock to make changes.");
    QCOMPARE(control(name).accessibleDescription(), "Click the lock to make changes.");
  }
  for (const char* name : {"downloadLogs", "refreshButton", "port1Button", "deviceTable"}) {
    QVERIFY2(control(name).isEnabled(), name);
  }
}

void LockTest::openItEnablesWhatChangesAnAdapter() {
  show("Corvane2 10G SFP+");
  clickLock(giveAPassword);
  QVERIFY(shown_->widget<QToolButton>("authView").isChecked());
  QCOMPARE(shown_->widget<QToolButton>("authView").text(),
           "Click the lock to prevent further changes.");
  for (const char* name : guardedControls) {
    QVERIFY2(control(name).isEnabled(), name);
    QVERIFY2(control(name).toolTip() != "Click the lock to make changes.", name);
  }
}

void LockTest::closedAgainItDisablesThemAndSaysWhy() {
  show("Corvane2 10G SFP+");
  clickLock(giveAPassword);
  shown_->widget<QToolButton>("authView").click();
  QVERIFY(!shown_->widget<QToolButton>("authView").isChecked());
  for (const char* name : guardedControls) {
    QVERIFY2(!control(name).isEnabled(), name);
    QCOMPARE(control(name).toolTip(), "Click the lock to make changes.");
  }
}

void LockTest::theMenusFollowTheLock() {
  show("Corvane2 8G FC");
  const auto action = [this](const char* name) {
    return shown_->window().findChild<QAction*>(name);
  };
  QVERIFY(!action("actionUpdateFirmware")->isEnabled());
  QVERIFY(!action("actionCheckUpdates")->isEnabled());
  QVERIFY(!action("actionLock")->isChecked());
  clickLock(giveAPassword);
  QVERIFY(action("actionUpdateFirmware")->isEnabled());
  QVERIFY(action("actionCheckUpdates")->isEnabled());
  QVERIFY(action("actionLock")->isChecked());
}

void LockTest::openItLeavesTheModeAloneWithAnOldDriver() {
  show("Corvane2 10G SFP+", [](BenchState& state) { state.drivers["Corvane2-10GE"] = "1.3.5"; });
  clickLock(giveAPassword);
  QVERIFY(control("setSpeed").isEnabled());
  QVERIFY(!control("settingMode").isEnabled());
  QCOMPARE(control("settingMode").toolTip(), "The installed driver is too old for this setting.");
}

void LockTest::coalescingThatTheDriverDoesNotKnowIsHidden() {
  show("Corvane2 10G SFP+", [](BenchState& state) {
    for (BenchEthernetPort& port : state.adapters.front().ethernetPorts) {
      port.settings.erase("RSCEnable");
    }
  });
  QVERIFY(control("enableRSC").isHidden());
  clickLock(giveAPassword);
  QVERIFY(control("enableRSC").isHidden());
  QVERIFY(control("enableTCPipv4").isEnabled());
  shown_->widget<QToolButton>("authView").click();
  QVERIFY(control("enableRSC").isHidden());
}

void LockTest::aCancelledPasswordLeavesItClosed() {
  show("Corvane2 8G FC");
  clickLock([](PasswordSheet& sheet) { QTest::keyClick(&sheet, Qt::Key_Escape); });
  QVERIFY(!shown_->widget<QToolButton>("authView").isChecked());
  QVERIFY(!control("setSpeed").isEnabled());
  clickLock([](PasswordSheet& sheet) { sheet.findChild<QPushButton*>("cancelButton")->click(); });
  QVERIFY(!shown_->widget<QToolButton>("authView").isChecked());
  QVERIFY(!control("setSpeed").isEnabled());
}

void LockTest::withoutAPasswordThereIsNothingToConfirm() {
  show("Corvane2 8G FC");
  clickLock([](PasswordSheet& sheet) {
    QVERIFY(!sheet.findChild<QPushButton*>("okButton")->isEnabled());
    QCOMPARE(sheet.findChild<QLineEdit*>("password")->echoMode(), QLineEdit::Password);
    QTest::keyClick(&sheet, Qt::Key_Return);
    QVERIFY(sheet.isVisible());
    sheet.reject();
  });
  QVERIFY(!shown_->widget<QToolButton>("authView").isChecked());
}

void LockTest::aRefusalOfTheComputerLeavesItClosed() {
  show("Corvane2 8G FC", [](BenchState& state) { state.faults.insert("password-cancelled"); });
  shown_->widget<QToolButton>("authView").click();
  QVERIFY(!shown_->widget<QToolButton>("authView").isChecked());
  QVERIFY(!control("setSpeed").isEnabled());
}

#include "LockTest.moc"
