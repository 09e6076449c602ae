#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QToolButton>

#include "BenchWindow.h"
#include "UiTest.h"

using namespace corvane;

/// The window without a mouse: only keys, sent to whatever has the focus.
class KeyboardTest : public QObject {
  Q_OBJECT

 private slots:
  void aSpeedIsSet();
  void aPerformanceModeIsSet();
  void theFocusReturnsToTheModeThatWasOutOfUse();
  void theFocusStaysWhereTheUserWent();
  void anOffloadIsSet();
  void aQueueDepthIsEntered();
  void aHardAddressIsChosen();
  void theTabKeyGoesFromTopToBottom_data();
  void theTabKeyGoesFromTopToBottom();

 private:
  void show(const std::string& product);
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  void goTo(const char* name);
  void chooseItem(const char* box, const QString& title);

  std::unique_ptr<BenchWindow> shown_;
};

namespace {
const UiTestRegistration<KeyboardTest> keyboardTest;
}

void KeyboardTest::show(const std::string& product) {
  shown_.reset();
  shown_ = std::make_unique<BenchWindow>(
      [&product](BenchState& state) { plugAdapter(state, product, 1, 1, std::nullopt); });
  QVERIFY(shown_->isDiscovered());
  shown_->window().activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(&shown_->window(), patience));
  goTo("authView");
  press(Qt::Key_Space);
  QVERIFY(shown_->widget<QToolButton>("authView").isChecked());
}

void KeyboardTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWidget* const popup = QApplication::activePopupWidget();
  QWidget* const window = popup ? popup : QApplication::activeWindow();
  QVERIFY(window);
  QWidget* const focus = popup ? popup->focusWidget() : QApplication::focusWidget();
  QTest::keyClick(focus ? focus : window, key, modifiers);
}

/// Tabs on until that control has the focus.
void KeyboardTest::goTo(const char* name) {
  constexpr int mostSteps = 60;
  for (int step = 0; step < mostSteps; ++step) {
    if (QApplication::focusWidget() && QApplication::focusWidget()->objectName() == name) return;
    press(Qt::Key_Tab);
  }
  QFAIL(name);
}

void KeyboardTest::chooseItem(const char* name, const QString& title) {
  goTo(name);
  auto& box = shown_->widget<QComboBox>(name);
  press(Qt::Key_Space);
  QTRY_VERIFY_WITH_TIMEOUT(box.view()->isVisible(), patience);
  const int wanted = box.findText(title);
  while (box.view()->currentIndex().row() < wanted) QTest::keyClick(box.view(), Qt::Key_Down);
  while (box.view()->currentIndex().row() > wanted) QTest::keyClick(box.view(), Qt::Key_Up);
  QTest::keyClick(box.view(), Qt::Key_Return);
  QTRY_VERIFY_WITH_TIMEOUT(!QApplication::activePopupWidget(), patience);
}

void KeyboardTest::aSpeedIsSet() {
  show("Corvane2 16G FC");
  chooseItem("setSpeed", "8 Gbps");
  QTRY_COMPARE_WITH_TIMEOUT(shown_->widget<QLabel>("currentSpeed").text(), "8 Gbps", patience);
  QCOMPARE(shown_->state().adapters.front().fibreChannelPorts[0].speed, 8000);
}

void KeyboardTest::aPerformanceModeIsSet() {
  show("Corvane2 10G SFP+");
  chooseItem("settingMode", "Server");
  QTRY_VERIFY_WITH_TIMEOUT(!shown_->controls().modeProgress.isRunning(), patience);
  QCOMPARE(shown_->widget<QComboBox>("settingMode").currentText(), "Server");
  shown_->widget<QToolButton>("refreshButton").click();
  QCOMPARE(shown_->widget<QComboBox>("settingMode").currentText(), "Server");
}

void KeyboardTest::theFocusReturnsToTheModeThatWasOutOfUse() {
  show("Corvane2 10G SFP+");
  chooseItem("settingMode", "Server");
  QTRY_VERIFY_WITH_TIMEOUT(!shown_->controls().modeProgress.isRunning(), patience);
  QCOMPARE(shown_->window().focusWidget(), &shown_->widget<QComboBox>("settingMode"));
}

void KeyboardTest::theFocusStaysWhereTheUserWent() {
  show("Corvane2 10G SFP+");
  goTo("settingMode");
  PopUpButton& mode = shown_->controls().settingMode;
  mode.suspend();
  goTo("deviceTable");
  mode.resume();
  QVERIFY(shown_->widget<QComboBox>("settingMode").isEnabled());
  QCOMPARE(QApplication::focusWidget(), &shown_->widget<QListView>("deviceTable"));
}

void KeyboardTest::anOffloadIsSet() {
  show("Corvane2 10G SFP+");
  auto& offload = shown_->widget<QCheckBox>("enableTCPipv4");
  const bool before = offload.isChecked();
  goTo("enableTCPipv4");
  press(Qt::Key_Space);
  QCOMPARE(offload.isChecked(), !before);
  const auto settings = shown_->state().adapters.front().ethernetPorts[0].settings;
  QCOMPARE(settings.at("TCPipv4ChecksumEnable"), before ? 1 : 2);
}

void KeyboardTest::aQueueDepthIsEntered() {
  show("Corvane2 8G FC");
  QTest::keyClick(&shown_->window(), Qt::Key_3, Qt::ControlModifier);
  goTo("queueDepthButton");
  press(Qt::Key_Space);
  QVERIFY(shown_->isOpen("FCQDepthViewController"));
  auto& entry = shown_->widget<QLineEdit>("setQDepthSetting");
  QTRY_VERIFY_WITH_TIMEOUT(entry.hasFocus(), patience);
  QTest::keyClicks(&entry, "64");
  press(Qt::Key_Return);
  QTRY_VERIFY_WITH_TIMEOUT(!shown_->isOpen("FCQDepthViewController"), patience);
  QCOMPARE(shown_->state().adapters.front().fibreChannelPorts[0].queueDepth, 64);
}

void KeyboardTest::aHardAddressIsChosen() {
  show("Corvane2 8G FC");
  goTo("chooseALPA");
  press(Qt::Key_Space);
  QVERIFY(shown_->isOpen("MatrixTable"));
  QTRY_VERIFY_WITH_TIMEOUT(shown_->widget<QWidget>("MatrixTable").isActiveWindow(), patience);
  goTo("alpa_EF");
  press(Qt::Key_Right);
  press(Qt::Key_Down);
  QCOMPARE(QApplication::focusWidget()->objectName(), "alpa_CE");
  press(Qt::Key_Return);
  QCOMPARE(shown_->widget<QLabel>("idLabel").text(), "CE");
  QVERIFY2(shown_->isOpen("MatrixTable"), "the first Return chooses, the second confirms");
  press(Qt::Key_Return);
  QVERIFY(!shown_->isOpen("MatrixTable"));
  QTRY_COMPARE_WITH_TIMEOUT(shown_->state().adapters.front().fibreChannelPorts[0].hardAlpa, 0xCE,
                            patience);
}

void KeyboardTest::theTabKeyGoesFromTopToBottom_data() {
  QTest::addColumn<QString>("product");
  QTest::addColumn<QString>("page");
  QTest::addColumn<QStringList>("order");
  QTest::newRow("Fibre Channel port")
      << "Corvane2 8G FC"
      << "port1Button"
      << QStringList{"setSpeed", "setTopology", "chooseALPA", "SFPInfoButton", "SFPHelpButton"};
  QTest::newRow("Fibre Channel device")
      << "Corvane2 8G FC"
      << "deviceButton" << QStringList{"setQueueDepth", "queueDepthButton"};
  QTest::newRow("10GbE port") << "Corvane2 10G SFP+"
                              << "port1Button"
                              << QStringList{"settingMode", "enableTCPipv4", "enableRSC"};
}

void KeyboardTest::theTabKeyGoesFromTopToBottom() {
  QFETCH(QString, product);
  QFETCH(QString, page);
  QFETCH(QStringList, order);
  show(product.toStdString());
  shown_->widget<QToolButton>(page.toUtf8()).click();
  order =
      QStringList{"deviceTable", "port1Button", "port2Button", "deviceButton", "refreshButton"} +
      order + QStringList{"authView", "downloadLogs", "updateFW", "checkUpdate"};
  goTo(order.front().toUtf8());
  QStringList reached;
  for (qsizetype step = 0; step < order.size(); ++step) {
    reached << QApplication::focusWidget()->objectName();
    press(Qt::Key_Tab);
  }
  QCOMPARE(reached, order);
  QCOMPARE(QApplication::focusWidget()->objectName(), order.front());
}

#include "KeyboardTest.moc"
