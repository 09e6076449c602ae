#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <QToolButton>

#include "BenchWindow.h"
#include "UiTest.h"
#include "ui/controls/PopUpBox.h"

using namespace corvane;

/// The main window on simulated computers: the table, the pages of every product, and the menus.
class MainWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void withoutAdaptersItSaysWhatToPlugIn();
  void adaptersAreListedInLabelOrder();
  void rowsAreAtLeastFortyPointsHigh();
  void anAdapterPluggedInLaterAppears();
  void theLastAdapterUnpluggedLeavesNoStalePage();
  void aClickOnARowShowsItsPage();
  void arrowKeysWalkTheTable();
  void theSpeedMenuSuitsTheModel_data();
  void theSpeedMenuSuitsTheModel();
  void theTopologyMenuSuitsTheModel_data();
  void theTopologyMenuSuitsTheModel();
  void theQueueDepthMenuSuitsTheDriver_data();
  void theQueueDepthMenuSuitsTheDriver();
  void everyEthernetProductHasItsPages_data();
  void everyEthernetProductHasItsPages();
  void aPortOutOfUseCannotBeChosen();
  void aSpeedChosenIsSetAndShown();
  void thePageButtonsChooseThePages();
  void theMenusDoAsTheButtons();
  void thePagesOfTheViewMenuExcludeEachOther();
  void theWindowGoesToTheFullScreenAndBack();
  void theWindowMenuZoomsAndMinimizes();
  void theDetailsCanBeCopied();
  void theAboutBoxTellsTheVersion();
  void theSupportFolderIsAskedFor();
  void theGeometryIsRemembered();
  void closingTheWindowClosesIt();
};

namespace {
const UiTestRegistration<MainWindowTest> mainWindowTest;

std::function<void(BenchState&)> withAdapter(const QString& product) {
  return [product](BenchState& state) {
    plugAdapter(state, product.toStdString(), 1, 1, std::nullopt);
  };
}

QStringList rows(BenchWindow& shown) {
  const auto* model = shown.widget<QListView>("deviceTable").model();
  QStringList all;
  for (int row = 0; row < model->rowCount(); ++row) all << model->index(row, 0).data().toString();
  return all;
}

QStringList choices(const QComboBox& box) {
  QStringList all;
  for (int row = 0; row < box.count(); ++row) all << box.itemText(row);
  return all;
}

QString page(BenchWindow& shown) {
  return shown.widget<QStackedWidget>("tabView").currentWidget()->objectName();
}

void choose(QComboBox& box, const QString& title) {
  box.setCurrentIndex(box.findText(title));
  emit box.activated(box.currentIndex());
}
}  // namespace

void MainWindowTest::withoutAdaptersItSaysWhatToPlugIn() {
  BenchWindow shown([](BenchState&) {});
  QVERIFY(shown.isDiscovered());
  QVERIFY(shown.window().isVisible());
  QCOMPARE(page(shown), "noAdapterPage");
  QVERIFY(shown.widget<QLabel>("advice").text().contains("Thunderbolt"));
  for (const char* button : {"port1Button", "port2Button", "deviceButton", "refreshButton"}) {
    QVERIFY(!shown.widget<QToolButton>(button).isEnabled());
  }
}

void MainWindowTest::adaptersAreListedInLabelOrder() {
  BenchWindow shown([](BenchState& state) {
    plugAdapter(state, "Corvane3 F2", 2, 1, std::nullopt);
    plugAdapter(state, "Corvane2 16G FC", 1, 2, std::nullopt);
    plugAdapter(state, "Corvane2 10G Base-T", 1, 1, std::nullopt);
  });
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(
      rows(shown),
      QStringList({"Corvane2 10G Base-T\nsequence: A - 1", "Corvane2 16G FC\nsequence: A - 2",
                   "Corvane3 F2\nsequence: B - 1"}),
      patience);
  QCOMPARE(shown.widget<QListView>("deviceTable").currentIndex().row(), 0);
}

void MainWindowTest::rowsAreAtLeastFortyPointsHigh() {
  BenchWindow shown(withAdapter("Corvane2 8G FC"));
  QVERIFY(shown.isDiscovered());
  auto& table = shown.widget<QListView>("deviceTable");
  QTRY_COMPARE_WITH_TIMEOUT(table.model()->rowCount(), 1, patience);
  QCOMPARE(table.sizeHintForRow(0), 40);
}

void MainWindowTest::anAdapterPluggedInLaterAppears() {
  BenchWindow shown([](BenchState&) {});
  QVERIFY(shown.isDiscovered());
  shown.edit(withAdapter("Corvane2 16G FC"));
  QTRY_COMPARE_WITH_TIMEOUT(rows(shown).size(), 1, patience);
  QTRY_COMPARE_WITH_TIMEOUT(page(shown), "fibreChannelPortPage", patience);
}

void MainWindowTest::theLastAdapterUnpluggedLeavesNoStalePage() {
  BenchWindow shown(withAdapter("Corvane2 16G FC"));
  QVERIFY(shown.isDiscovered());
  QTRY_VERIFY_WITH_TIMEOUT(!shown.widget<QLabel>("WWNN").text().isEmpty(), patience);
  shown.edit([](BenchState& state) { unplugAdapter(state.adapters.front()); });
  QTRY_COMPARE_WITH_TIMEOUT(page(shown), "noAdapterPage", patience);
  QCOMPARE(rows(shown).size(), 0);
  QCOMPARE(shown.widget<QLabel>("WWNN").text(), "");
}

void MainWindowTest::aClickOnARowShowsItsPage() {
  BenchWindow shown([](BenchState& state) {
    plugAdapter(state, "Corvane2 16G FC", 1, 1, std::nullopt);
    plugAdapter(state, "Corvane2 10G Base-T", 1, 2, std::nullopt);
  });
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(rows(shown).size(), 2, patience);
  auto& table = shown.widget<QListView>("deviceTable");
  const QPoint second = table.visualRect(table.model()->index(1, 0)).center();
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, second);
  QCOMPARE(page(shown), "tenGigabitPortPage");
  QCOMPARE(shown.delegate().state().intSelectRow, 1);
}

void MainWindowTest::arrowKeysWalkTheTable() {
  BenchWindow shown([](BenchState& state) {
    plugAdapter(state, "Corvane2 10G Base-T", 1, 1, std::nullopt);
    plugAdapter(state, "Corvane2 16G FC", 1, 2, std::nullopt);
  });
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(rows(shown).size(), 2, patience);
  auto& table = shown.widget<QListView>("deviceTable");
  QTest::keyClick(&table, Qt::Key_Down);
  QCOMPARE(page(shown), "fibreChannelPortPage");
  QTest::keyClick(&table, Qt::Key_Up);
  QCOMPARE(page(shown), "tenGigabitPortPage");
}

void MainWindowTest::theSpeedMenuSuitsTheModel_data() {
  QTest::addColumn<QString>("product");
  QTest::addColumn<QStringList>("speeds");
  const QStringList eight{"Automatic", "2 Gbps", "4 Gbps", "8 Gbps"};
  QTest::newRow("Corvane2 8G FC") << "Corvane2 8G FC" << eight;
  QTest::newRow("Corvane3 8G FC") << "Corvane3 8G FC" << eight;
  QTest::newRow("Corvane2 16G FC") << "Corvane2 16G FC" << eight + QStringList{"16 Gbps"};
  QTest::newRow("Corvane3 F2") << "Corvane3 F2"
                               << QStringList({"Automatic", "4 Gbps", "8 Gbps", "16 Gbps"});
}

void MainWindowTest::theSpeedMenuSuitsTheModel() {
  QFETCH(QString, product);
  QFETCH(QStringList, speeds);
  BenchWindow shown(withAdapter(product));
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(choices(shown.widget<QComboBox>("setSpeed")), speeds, patience);
}

void MainWindowTest::theTopologyMenuSuitsTheModel_data() {
  QTest::addColumn<QString>("product");
  QTest::addColumn<QStringList>("topologies");
  const QStringList both{"Point to Point", "Arbitrated Loop"};
  QTest::newRow("Corvane2 8G FC") << "Corvane2 8G FC" << both;
  QTest::newRow("Corvane3 8G FC") << "Corvane3 8G FC" << both;
  QTest::newRow("Corvane2 16G FC") << "Corvane2 16G FC" << both.mid(0, 1);
  QTest::newRow("Corvane3 F2") << "Corvane3 F2" << both.mid(0, 1);
}

void MainWindowTest::theTopologyMenuSuitsTheModel() {
  QFETCH(QString, product);
  QFETCH(QStringList, topologies);
  BenchWindow shown(withAdapter(product));
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(choices(shown.widget<QComboBox>("setTopology")), topologies, patience);
}

void MainWindowTest::theQueueDepthMenuSuitsTheDriver_data() {
  QTest::addColumn<QString>("driver");
  QTest::addColumn<int>("items");
  QTest::newRow("2.0.7") << "2.0.7" << 6;
  QTest::newRow("2.0.8") << "2.0.8" << 8;
  QTest::newRow("2.0.10") << "2.0.10" << 8;
  QTest::newRow("1.9.9") << "1.9.9" << 6;
}

void MainWindowTest::theQueueDepthMenuSuitsTheDriver() {
  QFETCH(QString, driver);
  QFETCH(int, items);
  BenchWindow shown([&driver](BenchState& state) {
    state.drivers["Corvane2-FC"] = driver.toStdString();
    plugAdapter(state, "Corvane2 8G FC", 1, 1, std::nullopt);
  });
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(rows(shown).size(), 1, patience);
  shown.widget<QToolButton>("deviceButton").click();
  const auto& depths = shown.widget<QComboBox>("setQueueDepth");
  QTRY_COMPARE_WITH_TIMEOUT(depths.count(), items, patience);
  QCOMPARE(depths.currentText(), "512");
  QCOMPARE(depths.itemText(0), "16");
}

void MainWindowTest::everyEthernetProductHasItsPages_data() {
  QTest::addColumn<QString>("product");
  for (const char* product : {"Corvane2 10G Base-T", "Corvane2 10G SFP+", "Corvane3 10G Base-T",
                              "Corvane3 10G SFP+", "Corvane3 NBASE-T1"}) {
    QTest::newRow(product) << product;
  }
}

void MainWindowTest::everyEthernetProductHasItsPages() {
  QFETCH(QString, product);
  BenchWindow shown(withAdapter(product));
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(page(shown), "tenGigabitPortPage", patience);
  QTRY_VERIFY_WITH_TIMEOUT(!shown.widget<QLabel>("enName").text().isEmpty(), patience);
  QCOMPARE(choices(shown.widget<QComboBox>("settingMode")),
           QStringList({"Low Latency", "Balanced", "High Throughput", "Server"}));
  QCOMPARE(shown.widget<QLabel>("MTUvalue").text(), "1500");
  shown.widget<QToolButton>("deviceButton").click();
  QCOMPARE(page(shown), "tenGigabitDevicePage");
  QCOMPARE(shown.widget<QLabel>("productType10G").text(), product);
  QCOMPARE(shown.widget<QLabel>("drvVer_10GE").text(), "1.4.6");
}

void MainWindowTest::aPortOutOfUseCannotBeChosen() {
  BenchWindow shown([](BenchState& state) {
    plugAdapter(state, "Corvane2 10G Base-T", 1, 1, std::nullopt);
    state.adapters.front().ethernetPorts[0].enabled = false;
  });
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(rows(shown).size(), 1, patience);
  QTRY_VERIFY_WITH_TIMEOUT(shown.widget<QToolButton>("port2Button").isChecked(), patience);
  QVERIFY(!shown.widget<QToolButton>("port1Button").isEnabled());
}

void MainWindowTest::aSpeedChosenIsSetAndShown() {
  BenchWindow shown(withAdapter("Corvane2 16G FC"));
  QVERIFY(shown.isDiscovered());
  auto& speeds = shown.widget<QComboBox>("setSpeed");
  QTRY_VERIFY_WITH_TIMEOUT(speeds.count() > 0, patience);
  shown.delegate().controls().setSpeed.clearOutOfUse(OutOfUse::Locked);
  auto& label = shown.widget<QLabel>("currentSpeed");
  choose(speeds, "4 Gbps");
  QTRY_COMPARE_WITH_TIMEOUT(label.text(), "4 Gbps", patience);
  QCOMPARE(speeds.currentText(), "4 Gbps");
  QCOMPARE(shown.state().adapters.front().fibreChannelPorts[0].speed, 4000);
}

void MainWindowTest::thePageButtonsChooseThePages() {
  BenchWindow shown(withAdapter("Corvane2 16G FC"));
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(page(shown), "fibreChannelPortPage", patience);
  const QString first = shown.widget<QLabel>("WWNN").text();
  QTest::mouseClick(&shown.widget<QToolButton>("port2Button"), Qt::LeftButton);
  QVERIFY(shown.widget<QLabel>("WWNN").text() != first);
  QVERIFY(shown.widget<QToolButton>("port2Button").isChecked());
  QVERIFY(!shown.widget<QToolButton>("port1Button").isChecked());
  QTest::mouseClick(&shown.widget<QToolButton>("deviceButton"), Qt::LeftButton);
  QCOMPARE(page(shown), "fibreChannelDevicePage");
  QTest::mouseClick(&shown.widget<QToolButton>("deviceButton"), Qt::LeftButton);
  QVERIFY(shown.widget<QToolButton>("deviceButton").isChecked());
}

void MainWindowTest::theMenusDoAsTheButtons() {
  BenchWindow shown(withAdapter("Corvane2 16G FC"));
  QVERIFY(shown.isDiscovered());
  QTRY_COMPARE_WITH_TIMEOUT(page(shown), "fibreChannelPortPage", patience);
  auto* const device = shown.window().findChild<QAction*>("actionDevice");
  QVERIFY(device->isEnabled());
  device->trigger();
  QCOMPARE(page(shown), "fibreChannelDevicePage");
  QVERIFY(device->isChecked());
  QTest::keyClick(&shown.window(), Qt::Key_1, Qt::ControlModifier);
  QCOMPARE(page(shown), "fibreChannelPortPage");
}

void MainWindowTest::thePagesOfTheViewMenuExcludeEachOther() {
  BenchWindow shown(withAdapter("Corvane2 8G FC"));
  QVERIFY(shown.isDiscovered());
  const auto chosen = [&shown] {
    QStringList names;
    for (const char* name : {"actionPort1", "actionPort2", "actionDevice"}) {
      const auto& action = shown.widget<QAction>(name);
      if (action.isChecked()) names << name;
      if (!action.actionGroup() || !action.actionGroup()->isExclusive()) names << "not exclusive";
    }
    return names;
  };
  for (const char* name : {"actionDevice", "actionPort2", "actionPort1", "actionPort1"}) {
    shown.widget<QAction>(name).trigger();
    QCOMPARE(chosen(), QStringList(name));
  }
}

void MainWindowTest::theWindowGoesToTheFullScreenAndBack() {
  BenchWindow shown([](BenchState&) {});
  auto& action = shown.widget<QAction>("actionFullScreen");
  QCOMPARE(action.text(), "Enter &Full Screen");
  action.trigger();
  QVERIFY(shown.window().isFullScreen());
  QCOMPARE(action.text(), "Exit &Full Screen");
  shown.window().setWindowState(Qt::WindowNoState);
  QCOMPARE(action.text(), "Enter &Full Screen");
}

void MainWindowTest::theWindowMenuZoomsAndMinimizes() {
  BenchWindow shown([](BenchState&) {});
  auto& zoom = shown.widget<QAction>("actionZoom");
  zoom.trigger();
  QVERIFY(shown.window().isMaximized());
  zoom.trigger();
  QVERIFY(!shown.window().isMaximized());
  shown.widget<QAction>("actionMinimize").trigger();
  QVERIFY(shown.window().isMinimized());
}

void MainWindowTest::theDetailsCanBeCopied() {
  BenchWindow shown(withAdapter("Corvane2 16G FC"));
  QVERIFY(shown.isDiscovered());
  QTRY_VERIFY_WITH_TIMEOUT(!shown.widget<QLabel>("WWNN").text().isEmpty(), patience);
  shown.window().findChild<QAction*>("actionCopyDetails")->trigger();
  const QString copied = QApplication::clipboard()->text();
  QVERIFY(copied.contains("Port name: " + shown.widget<QLabel>("WWNN").text()));
  QVERIFY(copied.contains("Speed: Automatic"));
}

void MainWindowTest::theAboutBoxTellsTheVersion() {
  BenchWindow shown([](BenchState& state) { state.application.version = "1.2.3.4"; });
  QVERIFY(shown.isDiscovered());
  shown.window().findChild<QAction*>("actionAbout")->trigger();
  QVERIFY(shown.isOpen("AboutDialog"));
  QCOMPARE(shown.widget<QLabel>("labelUtilityName").text(), "CORVANE Utility");
  QCOMPARE(shown.widget<QLabel>("labelVersion").text(), "Version 1.2.3.4");
  shown.window().findChild<QAction*>("actionAbout")->trigger();
  QVERIFY(shown.isOpen("AboutDialog"));
  QTest::keyClick(&shown.widget<QWidget>("AboutDialog"), Qt::Key_Escape);
  QTRY_VERIFY_WITH_TIMEOUT(!shown.isOpen("AboutDialog"), patience);
  QVERIFY(!shown.delegate().aboutDialog().window.isLoaded());
}

void MainWindowTest::theSupportFolderIsAskedFor() {
  BenchWindow shown([](BenchState&) {});
  QSignalSpy asked(&shown.window(), &MainWindow::openSupportFolderRequested);
  shown.window().findChild<QAction*>("actionOpenSupportFolder")->trigger();
  QCOMPARE(asked.count(), 1);
}

void MainWindowTest::theGeometryIsRemembered() {
  const QSize size(910, 600);
  {
    BenchWindow shown([](BenchState&) {});
    shown.window().rememberGeometry("geometryTest");
    shown.window().resize(size);
    shown.window().close();
  }
  BenchWindow again([](BenchState&) {});
  again.window().rememberGeometry("geometryTest");
  QCOMPARE(again.window().size(), size);
  QSettings kept;
  kept.beginGroup("geometryTest");
  QCOMPARE(kept.allKeys(), QStringList({"geometry", "splitter"}));
}

void MainWindowTest::closingTheWindowClosesIt() {
  BenchWindow shown([](BenchState&) {});
  QVERIFY(shown.window().close());
  QVERIFY(!shown.window().isVisible());
  QVERIFY(!shown.delegate().mainWindow().isShown());
  shown.delegate().applicationShouldHandleReopen(false);
  QVERIFY(shown.window().isVisible());
}

#include "MainWindowTest.moc"
