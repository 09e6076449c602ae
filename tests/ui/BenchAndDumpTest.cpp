#include "ui/WindowSession.h"

#include <QAbstractButton>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "AppDelegate.h"
#include "UiTest.h"
#include "platform/bench/file/BenchEdits.h"
#include "platform/bench/file/BenchFile.h"
#include "ui/MainWindow.h"
#include "ui/QtMainQueue.h"
#include "ui/pages/NoAdapterPage.h"

using namespace corvane;

/// The window as the program opens it: on a bench with its menu, on a dump without, and the way
/// from one to the other.
class BenchAndDumpTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();

  void theBenchMenuPlugsIn();
  void theBenchMenuUnplugs();
  void theBenchMenuUnplugsTheOneThatWasNamed();
  void theBenchMenuStandsBeforeTheWindowMenu();
  void theBenchMenuDropsALink();
  void theBenchMenuShowsTheFile();
  void aBenchThatCannotBeReadIsSaidInTheMenu();
  void onADumpThereIsNoBenchMenuAndNothingToChange();
  void aDumpWithoutAdaptersAsksForNoneToBeConnected();
  void aSupportFolderOpensInAWindowOfItsOwn();
  void aFolderWithoutADumpIsRefused();
  void aClosedSupportFolderIsForgotten();

 private:
  void open(const LaunchOptions& options, int adapters);
  QMenu* benchMenu() { return session_->window().findChild<QMenu*>("menuBench"); }
  QMenu* subMenu(int place);
  BenchState bench() const { return BenchFile(benchPath()).load(); }
  std::string benchPath() const { return folder_->filePath("bench.json").toStdString(); }
  QString dumpFolder() const { return folder_->filePath("AllLogs"); }
  void writeDump();
  void openSupportFolder(const QString& path);
  QPointer<MainWindow> dumpWindow();

  std::unique_ptr<QTemporaryDir> folder_;
  QtMainQueue queue_;
  std::unique_ptr<WindowSession> session_;
};

namespace {

const UiTestRegistration<BenchAndDumpTest> benchAndDumpTest;

constexpr int dumpedAdapters = 2;

QAction* actionNamed(const QMenu& menu, const QString& text) {
  for (QAction* action : menu.actions()) {
    if (action->text() == text) return action;
  }
  return nullptr;
}

int rowsOf(MainWindow& window) {
  return window.findChild<QListView*>("deviceTable")->model()->rowCount();
}

}  // namespace

void BenchAndDumpTest::init() {
  folder_ = std::make_unique<QTemporaryDir>();
  BenchState state;
  state.clockRate = 1000;
  state.drivers = {{"Corvane2-FC", "2.0.10"}};
  plugAdapter(state, "Corvane2 8G FC", 1, 1, std::nullopt);
  BenchFile(benchPath()).create(state);
  LaunchOptions options;
  options.bench = benchPath();
  open(options, 1);
}

void BenchAndDumpTest::cleanup() {
  session_.reset();
  folder_.reset();
}

void BenchAndDumpTest::open(const LaunchOptions& options, int adapters) {
  session_.reset();
  session_ = std::make_unique<WindowSession>(options, queue_);
  session_->start();
  QTRY_COMPARE_WITH_TIMEOUT(rowsOf(session_->window()), adapters, patience);
}

/// One of the menus in the bench menu, as it is when the user opens it.
QMenu* BenchAndDumpTest::subMenu(int place) {
  emit benchMenu()->aboutToShow();
  return benchMenu()->actions().at(place)->menu();
}

void BenchAndDumpTest::theBenchMenuPlugsIn() {
  QMenu* const place = subMenu(0)->actions().front()->menu();
  QCOMPARE(place->title(), "At A - 2");
  actionNamed(*place, "Corvane3 F2")->trigger();
  QTRY_COMPARE_WITH_TIMEOUT(rowsOf(session_->window()), 2, patience);
  QCOMPARE(bench().adapters.back().product, std::string("Corvane3 F2"));
  QCOMPARE(bench().adapters.back().hop, 2);
}

void BenchAndDumpTest::theBenchMenuUnplugs() {
  actionNamed(*subMenu(1), "A - 1  Corvane2 8G FC")->trigger();
  QTRY_COMPARE_WITH_TIMEOUT(rowsOf(session_->window()), 0, patience);
  QVERIFY(!bench().adapters.front().attached);
  QVERIFY(!subMenu(1)->isEnabled());
}

void BenchAndDumpTest::theBenchMenuUnplugsTheOneThatWasNamed() {
  BenchFile(benchPath()).update([](BenchState& state) {
    plugAdapter(state, "Corvane2 8G FC", 10, 1, std::nullopt);
    plugAdapter(state, "Corvane3 F2", 11, 1, std::nullopt);
  });
  actionNamed(*subMenu(1), "(null) - 1  Corvane3 F2")->trigger();
  QVERIFY(bench().adapters[1].attached);
  QVERIFY(!bench().adapters[2].attached);
}

void BenchAndDumpTest::theBenchMenuStandsBeforeTheWindowMenu() {
  QStringList titles;
  for (const QAction* menu : session_->window().menuBar()->actions()) titles << menu->text();
  titles.replaceInStrings("&", "");
  QCOMPARE(titles, QStringList({"File", "Edit", "View", "Adapter", "Bench", "Window", "Help"}));
}

void BenchAndDumpTest::theBenchMenuDropsALink() {
  QAction* const link = actionNamed(*subMenu(2), "A - 1  Corvane2 8G FC  port 2");
  QVERIFY(link->isChecked());
  link->trigger();
  QVERIFY(!bench().adapters.front().fibreChannelPorts[1].link);
  QVERIFY(bench().adapters.front().fibreChannelPorts[0].link);
  const auto readPort2 = [this] {
    session_->window().findChild<QAbstractButton*>("port2Button")->click();
    return session_->window().findChild<QLabel*>("currentSpeed")->text();
  };
  QTRY_COMPARE_WITH_TIMEOUT(readPort2(), "No Link", patience);
  actionNamed(*subMenu(2), "A - 1  Corvane2 8G FC  port 2")->trigger();
  QVERIFY(bench().adapters.front().fibreChannelPorts[1].link);
}

void BenchAndDumpTest::theBenchMenuShowsTheFile() {
  session_->window().findChild<QAction*>("actionShowBenchFile")->trigger();
  auto* const text = session_->window().findChild<QPlainTextEdit*>("benchFileText");
  QVERIFY(text && text->isVisible());
  QVERIFY(text->isReadOnly());
  QCOMPARE(text->toPlainText().toStdString(), BenchFile(benchPath()).text());
  QPointer<QWidget> window = text->window();
  QTest::keyClick(window, Qt::Key_Escape);
  QTRY_VERIFY_WITH_TIMEOUT(!window, patience);
}

void BenchAndDumpTest::aBenchThatCannotBeReadIsSaidInTheMenu() {
  QFile file(QString::fromStdString(benchPath()));
  QVERIFY(file.open(QIODevice::WriteOnly));
  file.write("{");
  file.close();
  emit benchMenu()->aboutToShow();
  QAction* const problem = benchMenu()->actions().front();
  QVERIFY(!problem->isEnabled());
  QVERIFY2(problem->text().contains("bench.json"), problem->text().toUtf8());
}

/// A dump as support gets it: one registry text in a folder of collected logs.
void BenchAndDumpTest::writeDump() {
  QVERIFY(QDir().mkpath(dumpFolder()));
  QVERIFY(QFile::copy(QStringLiteral(CORVANE_TEST_DATA "/dumps/20151104-093000/ioreg.txt"),
                      dumpFolder() + "/ioreg.txt"));
}

void BenchAndDumpTest::onADumpThereIsNoBenchMenuAndNothingToChange() {
  QVERIFY(benchMenu());
  writeDump();
  LaunchOptions options;
  options.dump = dumpFolder().toStdString();
  open(options, dumpedAdapters);
  QVERIFY(!benchMenu());
  for (const char* name : {"setSpeed", "setTopology", "updateFW", "checkUpdate", "setQueueDepth",
                           "settingMode", "enableTCPipv4", "authView", "downloadLogs"}) {
    auto* const control = session_->window().findChild<QWidget*>(name);
    QVERIFY2(!control->isEnabled(), name);
    QCOMPARE(control->toolTip(), "A registry dump cannot be changed.");
  }
  QTRY_COMPARE_WITH_TIMEOUT(session_->window().findChild<QLabel*>("currentSpeed")->text(),
                            "not in the dump", patience);
  QVERIFY(session_->window().windowTitle().startsWith("AllLogs (read-only)"));
}

void BenchAndDumpTest::aDumpWithoutAdaptersAsksForNoneToBeConnected() {
  LaunchOptions options;
  options.dump = CORVANE_TEST_DATA "/dumps/nothing-matched.txt";
  open(options, 0);
  const auto* const page = session_->window().findChild<NoAdapterPage*>();
  QVERIFY(page->isVisible());
  QCOMPARE(page->findChild<QLabel*>("title")->text(), "No adapter is in this dump");
  QVERIFY(!page->findChild<QLabel*>("advice")->text().contains("Connect"));
}

void BenchAndDumpTest::openSupportFolder(const QString& path) {
  session_->window().findChild<QAction*>("actionOpenSupportFolder")->trigger();
  auto* const panel = session_->window().findChild<QFileDialog*>("supportFolderPanel");
  QVERIFY(panel && panel->isVisible());
  QCOMPARE(panel->fileMode(), QFileDialog::Directory);
  panel->findChild<QLineEdit*>("fileNameEdit")->setText(path);
  QMetaObject::invokeMethod(panel, "accept");
}

QPointer<MainWindow> BenchAndDumpTest::dumpWindow() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* const window = qobject_cast<MainWindow*>(widget);
    if (window && window != &session_->window()) return window;
  }
  return nullptr;
}

void BenchAndDumpTest::aSupportFolderOpensInAWindowOfItsOwn() {
  writeDump();
  openSupportFolder(dumpFolder());
  QTRY_VERIFY_WITH_TIMEOUT(dumpWindow(), patience);
  QVERIFY(dumpWindow()->isVisible());
  QTRY_COMPARE_WITH_TIMEOUT(rowsOf(*dumpWindow()), dumpedAdapters, patience);
  QVERIFY(!dumpWindow()->findChild<QWidget*>("authView")->isEnabled());
  QVERIFY(session_->window().findChild<QWidget*>("authView")->isEnabled());
}

void BenchAndDumpTest::aFolderWithoutADumpIsRefused() {
  QVERIFY(QDir().mkpath(dumpFolder()));
  openSupportFolder(dumpFolder());
  QMessageBox* box = nullptr;
  QTRY_VERIFY_WITH_TIMEOUT((box = session_->window().findChild<QMessageBox*>()) != nullptr,
                           patience);
  QVERIFY2(box->text().contains("AllLogs"), box->text().toUtf8());
  QCOMPARE(box->informativeText(), "Name a registry dump or a folder of collected logs.");
  QVERIFY(!dumpWindow());
  box->accept();
}

void BenchAndDumpTest::aClosedSupportFolderIsForgotten() {
  writeDump();
  openSupportFolder(dumpFolder());
  QTRY_VERIFY_WITH_TIMEOUT(dumpWindow(), patience);
  const QPointer<MainWindow> dump = dumpWindow();
  QVERIFY(dump->close());
  QTRY_VERIFY_WITH_TIMEOUT(!dump, patience);
  QVERIFY(session_->window().isVisible());
}

#include "BenchAndDumpTest.moc"
