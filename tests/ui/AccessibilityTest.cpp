#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QTest>

#include "BenchWindow.h"
#include "UiTest.h"

using namespace corvane;

/// What a screen reader, a keyboard and large letters need, on every page and sheet.
class AccessibilityTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void cleanupTestCase();

  void everyControlHasANameAndARole_data() { addPages(); }
  void everyControlHasANameAndARole();
  void theTabKeyReachesEveryControl();
  void nothingIsCutOffAtTwiceTheSize_data() { addPages(); }
  void nothingIsCutOffAtTwiceTheSize();

  void everySheetsControlHasANameAndARole_data() { addSheets(); }
  void everySheetsControlHasANameAndARole();
  void theTabKeyReachesEverySheetsControl_data() { addSheets(); }
  void theTabKeyReachesEverySheetsControl();
  void nothingOfASheetIsCutOffAtTwiceTheSize_data() { addSheets(); }
  void nothingOfASheetIsCutOffAtTwiceTheSize();

 private:
  static void addPages();
  static void addSheets();
  QWidget& openSheet(const QByteArray& name);
  void closeSheet(const QByteArray& name);

  std::unique_ptr<BenchWindow> shown_;
};

namespace {
const UiTestRegistration<AccessibilityTest> accessibilityTest;

bool isControl(const QWidget& widget) {
  return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
         qobject_cast<const QLineEdit*>(&widget);
}

QList<QWidget*> controlsOf(QWidget& window) {
  QList<QWidget*> controls;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const bool isOurs = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
    if (isOurs && isControl(*widget)) controls << widget;
  }
  return controls;
}

/// The application's letters at twice their size, for as long as the object lives.
class LargeLetters {
 public:
  LargeLetters() : before_(QApplication::font()) {
    QFont large = before_;
    large.setPointSizeF(before_.pointSizeF() * 2);
    QApplication::setFont(large);
  }
  ~LargeLetters() { QApplication::setFont(before_); }

  LargeLetters(const LargeLetters&) = delete;
  LargeLetters& operator=(const LargeLetters&) = delete;

 private:
  const QFont before_;
};

bool hasRoom(const QLabel& label) {
  if (label.wordWrap()) return label.height() >= label.heightForWidth(label.width());
  const int width = label.fontMetrics().horizontalAdvance(QString(label.text()).remove('&'));
  return label.width() >= width && label.height() >= label.fontMetrics().height();
}

/// The names of the texts and controls on show that have less room than they need.
QStringList cutOff(QWidget& window) {
  QStringList names;
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && !label->text().isEmpty() && !hasRoom(*label)) {
      names << label->objectName();
    }
  }
  for (const QWidget* control : controlsOf(window)) {
    const QSize needed = control->minimumSizeHint();
    if (control->isVisible() &&
        (control->width() < needed.width() || control->height() < needed.height())) {
      names << control->objectName();
    }
  }
  return names;
}

InterfaceWindow& sheetWindow(AppDelegate& delegate, const QByteArray& name) {
  if (name == "SFPController") return delegate.sfpController().SFPWindow;
  if (name == "MatrixTable") return delegate.matrixController().matrixWindow;
  if (name == "FCQDepthViewController") return delegate.queueDepthController().QDepthWindow;
  if (name == "OnlineUpdate") return delegate.onlineUpdate().controls().updateWindow;
  return delegate.aboutDialog().window;
}
}  // namespace

void AccessibilityTest::addPages() {
  QTest::addColumn<int>("page");
  QTest::newRow("no adapter") << 0;
  QTest::newRow("Fibre Channel port") << 1;
  QTest::newRow("Fibre Channel device") << 2;
  QTest::newRow("10GbE port") << 3;
  QTest::newRow("10GbE device") << 4;
}

void AccessibilityTest::initTestCase() {
  shown_ = std::make_unique<BenchWindow>([](BenchState&) {});
  QVERIFY(shown_->isDiscovered());
}

void AccessibilityTest::cleanupTestCase() {
  shown_.reset();
}

void AccessibilityTest::everyControlHasANameAndARole() {
  QFETCH(int, page);
  shown_->controls().tabView.selectTabViewItemAtIndex(page);
  for (QWidget* control : controlsOf(shown_->window())) {
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(control);
    const QByteArray name = control->objectName().toUtf8();
    QVERIFY2(accessible, name);
    QVERIFY2(!accessible->text(QAccessible::Name).isEmpty(), name);
    QVERIFY2(accessible->role() != QAccessible::NoRole, name);
  }
}

void AccessibilityTest::theTabKeyReachesEveryControl() {
  QSet<QWidget*> reached;
  QWidget* widget = &shown_->window();
  do {
    reached << widget;
    widget = widget->nextInFocusChain();
  } while (widget != &shown_->window());
  for (QWidget* control : controlsOf(shown_->window())) {
    QVERIFY2(reached.contains(control), control->objectName().toUtf8());
    QVERIFY2((control->focusPolicy() & Qt::TabFocus) != 0, control->objectName().toUtf8());
  }
}

void AccessibilityTest::nothingIsCutOffAtTwiceTheSize() {
  QFETCH(int, page);
  const LargeLetters large;
  shown_->controls().tabView.selectTabViewItemAtIndex(page);
  shown_->window().resize(shown_->window().minimumSizeHint().expandedTo({1400, 900}));
  QTRY_COMPARE_WITH_TIMEOUT(cutOff(shown_->window()), QStringList(), patience);
}

void AccessibilityTest::addSheets() {
  QTest::addColumn<QByteArray>("name");
  for (const char* name :
       {"SFPController", "MatrixTable", "FCQDepthViewController", "OnlineUpdate", "AboutDialog"}) {
    QTest::newRow(name) << QByteArray(name);
  }
}

QWidget& AccessibilityTest::openSheet(const QByteArray& name) {
  InterfaceWindow& window = sheetWindow(shown_->delegate(), name);
  window.load();
  window.show();
  return shown_->widget<QWidget>(name);
}

void AccessibilityTest::closeSheet(const QByteArray& name) {
  sheetWindow(shown_->delegate(), name).drop();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void AccessibilityTest::everySheetsControlHasANameAndARole() {
  QFETCH(QByteArray, name);
  QWidget& sheet = openSheet(name);
  QVERIFY(!sheet.windowTitle().isEmpty());
  QVERIFY(!controlsOf(sheet).isEmpty());
  for (QWidget* control : controlsOf(sheet)) {
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(control);
    QVERIFY2(accessible, control->objectName().toUtf8());
    QVERIFY2(!accessible->text(QAccessible::Name).isEmpty(), control->objectName().toUtf8());
    QVERIFY2(accessible->role() != QAccessible::NoRole, control->objectName().toUtf8());
  }
  closeSheet(name);
}

void AccessibilityTest::theTabKeyReachesEverySheetsControl() {
  QFETCH(QByteArray, name);
  QWidget& sheet = openSheet(name);
  QSet<QWidget*> reached;
  for (QWidget* widget = sheet.nextInFocusChain(); widget != &sheet;
       widget = widget->nextInFocusChain()) {
    reached << widget;
  }
  for (QWidget* control : controlsOf(sheet)) {
    QVERIFY2(reached.contains(control), control->objectName().toUtf8());
    QVERIFY2((control->focusPolicy() & Qt::TabFocus) != 0, control->objectName().toUtf8());
  }
  closeSheet(name);
}

void AccessibilityTest::nothingOfASheetIsCutOffAtTwiceTheSize() {
  QFETCH(QByteArray, name);
  const LargeLetters large;
  QWidget& sheet = openSheet(name);
  QTRY_COMPARE_WITH_TIMEOUT(cutOff(sheet), QStringList(), patience);
  closeSheet(name);
}

#include "AccessibilityTest.moc"
