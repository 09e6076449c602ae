#include "ui/WindowSession.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <utility>

#include "AppDelegate.h"
#include "UiTest.h"
#include "platform/bench/file/BenchFile.h"
#include "ui/MainWindow.h"
#include "ui/QtMainQueue.h"
#include "ui/controls/Translation.h"

using namespace corvane;

/// The window with the platform that its options choose.
class WindowSessionTest : public QObject {
  Q_OBJECT

 private slots:
  void theLaunchBeginsOnceTheWindowIsPainted();
  void aLaunchWaitsForNoWindowThatIsNotShown();
  void aProgramAskedForAgainShowsItsWindow();
  void anAdapterThatADumpCannotListIsNamed();
  void anAdapterThatADumpCannotListIsNamedInGerman();
  void aWholeDumpIsShownWithoutRemark();
  void aFileIsOpenedAsADump();

 private:
  static LaunchOptions benchIn(const QTemporaryDir& folder);
};

namespace {
const UiTestRegistration<WindowSessionTest> windowSessionTest;

/// The window of that title that is on show; null when there is none.
QWidget* windowTitled(const QString& title) {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->windowTitle() == title) return window;
  return nullptr;
}

QByteArray textOf(const std::string& path) {
  QFile file(QString::fromStdString(path));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Whether something had happened when a window was painted for the first time.
class FirstPaint : public QObject {
 public:
  FirstPaint(QWidget& window, std::function<bool()> hasHappened)
      : hasHappened_(std::move(hasHappened)) {
    window.installEventFilter(this);
  }

  QString story() const { return story_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint && story_.isEmpty())
      story_ = hasHappened_() ? "painted after" : "painted before";
    return false;
  }

 private:
  const std::function<bool()> hasHappened_;
  QString story_;
};

LaunchOptions dumpOptions(const std::string& name) {
  LaunchOptions options;
  options.dump = CORVANE_TEST_DATA "/dumps/" + name;
  return options;
}
}  // namespace

LaunchOptions WindowSessionTest::benchIn(const QTemporaryDir& folder) {
  LaunchOptions options;
  options.bench = folder.filePath("bench.json").toStdString();
  BenchState state;
  state.clockRate = 1000;
  BenchFile(options.bench).create(state);
  return options;
}

void WindowSessionTest::theLaunchBeginsOnceTheWindowIsPainted() {
  const QTemporaryDir folder;
  QtMainQueue queue;
  LaunchOptions options = benchIn(folder);
  options.journal = folder.filePath("journal").toStdString();
  WindowSession session(options, queue);
  const auto hasAsked = [&options] { return textOf(options.journal).contains("\"script\""); };
  FirstPaint paint(session.window(), hasAsked);
  session.start();
  QVERIFY(!hasAsked());
  QTRY_VERIFY_WITH_TIMEOUT(hasAsked(), patience);
  QCOMPARE(paint.story(), QString("painted before"));
}

void WindowSessionTest::aLaunchWaitsForNoWindowThatIsNotShown() {
  const QTemporaryDir folder;
  QtMainQueue queue;
  WindowSession session(benchIn(folder), queue);
  const QSignalSpy discovered(&session, &WindowSession::discovered);
  session.start();
  session.window().hide();
  QTRY_VERIFY_WITH_TIMEOUT(!discovered.isEmpty(), patience);
}

void WindowSessionTest::aProgramAskedForAgainShowsItsWindow() {
  const QTemporaryDir folder;
  QtMainQueue queue;
  WindowSession session(benchIn(folder), queue);
  session.followReopening();
  const QSignalSpy discovered(&session, &WindowSession::discovered);
  session.start();
  QTRY_VERIFY_WITH_TIMEOUT(!discovered.isEmpty(), patience);
  session.window().close();
  emit qApp->applicationStateChanged(Qt::ApplicationInactive);
  emit qApp->applicationStateChanged(Qt::ApplicationActive);
  QVERIFY2(!session.window().isVisible(), "switching to a program does not ask for its window");
  emit qApp->applicationStateChanged(Qt::ApplicationActive);
  QVERIFY(session.window().isVisible());
  emit qApp->applicationStateChanged(Qt::ApplicationActive);
  QVERIFY(session.window().isVisible());
}

void WindowSessionTest::anAdapterThatADumpCannotListIsNamed() {
  QtMainQueue queue;
  WindowSession session(dumpOptions("desktop-2013-cut.txt"), queue);
  session.start();
  QTRY_VERIFY_WITH_TIMEOUT(session.window().findChild<QMessageBox*>("unlistedAdapters"), patience);
  const auto* const box = session.window().findChild<QMessageBox*>("unlistedAdapters");
  QVERIFY(box->text().startsWith("Corvane2 16G FC at A - 1: attached, but not listed"));
  QVERIFY(box->informativeText().contains("13 lines are cut"));
}

void WindowSessionTest::anAdapterThatADumpCannotListIsNamedInGerman() {
  const Translation translation(QLocale(QLocale::German, QLocale::Germany));
  QtMainQueue queue;
  WindowSession session(dumpOptions("desktop-2013-cut.txt"), queue);
  session.start();
  QTRY_VERIFY_WITH_TIMEOUT(session.window().findChild<QMessageBox*>("unlistedAdapters"), patience);
  const auto* const box = session.window().findChild<QMessageBox*>("unlistedAdapters");
  QVERIFY(box->text().startsWith("Corvane2 16G FC an A - 1: angeschlossen, aber nicht aufgeführt"));
  QVERIFY(box->informativeText().contains("13 Zeilen sind abgeschnitten"));
}

void WindowSessionTest::aWholeDumpIsShownWithoutRemark() {
  QtMainQueue queue;
  WindowSession session(dumpOptions("desktop-2013.txt"), queue);
  session.start();
  QTRY_COMPARE_WITH_TIMEOUT(session.delegate().controls().deviceTable.selectedRow(), 0, patience);
  QVERIFY(!session.window().findChild<QMessageBox*>("unlistedAdapters"));
}

void WindowSessionTest::aFileIsOpenedAsADump() {
  const QTemporaryDir folder;
  QtMainQueue queue;
  WindowSession session(benchIn(folder), queue);
  session.start();
  session.window().findChild<QAction*>("actionOpenRegistryDump")->trigger();
  auto* const panel = session.window().findChild<QFileDialog*>("registryDumpPanel");
  QVERIFY(panel);
  QCOMPARE(panel->fileMode(), QFileDialog::ExistingFile);
  emit panel->fileSelected(CORVANE_TEST_DATA "/dumps/desktop-2013.plist");
  QTRY_VERIFY_WITH_TIMEOUT(windowTitled("desktop-2013.plist (read-only) - CORVANE Utility"),
                           patience);
  panel->close();
}

#include "WindowSessionTest.moc"
