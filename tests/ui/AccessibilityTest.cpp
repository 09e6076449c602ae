#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QFont>
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
  void cleanup() { QApplication::setFont(originalFont_); }

 private:
  static void addPages();

  const QFont originalFont_ = QApplication::font();
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

bool showsItsWholeText(const QLabel& label) {
  if (label.wordWrap() || label.text().isEmpty()) return true;
  const QFontMetrics letters = label.fontMetrics();
  return label.width() >= letters.horizontalAdvance(QString(label.text()).remove('&')) &&
         label.height() >= letters.ascent();
}

bool showsItselfWhole(const QWidget& control) {
  const QSize least = control.minimumSizeHint();
  return control.width() >= least.width() && control.height() >= least.height();
}

/// The names of the labels and controls on show that are smaller than what they hold.
QStringList cutOff(QWidget& window) {
  QStringList names;
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && !showsItsWholeText(*label)) names << label->objectName();
  }
  for (const QWidget* control : controlsOf(window)) {
    if (control->isVisible() && !showsItselfWhole(*control)) names << control->objectName();
  }
  return names;
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
  QFont large = originalFont_;
  large.setPointSizeF(originalFont_.pointSizeF() * 2);
  QApplication::setFont(large);
  shown_->controls().tabView.selectTabViewItemAtIndex(page);
  shown_->window().resize(shown_->window().minimumSizeHint().expandedTo({1400, 900}));
  // The layouts take the new font in over several turns of the event loop.
  QTRY_COMPARE(cutOff(shown_->window()), QStringList());
}

#include "AccessibilityTest.moc"
