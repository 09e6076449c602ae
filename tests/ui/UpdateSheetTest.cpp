#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <cstdlib>

#include "BenchWindow.h"
#include "UiTest.h"
#include "fakes/LoopbackServer.h"

using namespace corvane;

/// The sheet of updates as a table to read and to tick, and the messages around it.
class UpdateSheetTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();

  void itHasThreeColumns();
  void onlyTheTickCanBeEdited();
  void theSpaceKeyTicks();
  void theSpaceKeyTicksFromAnyCellOfTheRow();
  void aClickAnywhereInTheCellTicks();
  void theBoxStandsAloneInTheMiddleOfItsCell();
  void everyCellHasRoomForItsText();
  void aSelectedRowIsDescribed();
  void theStateSaysWhatToDo();
  void nothingTickedIsSaid();
  void anUpToDateSystemIsSaid();
  void aMissingNetworkIsSaid();
  void cancellingEmptiesTheList();
  void firmwareIsInstalledToTheEnd();

 private:
  void show(const std::function<void(BenchState&)>& prepare = [](BenchState&) {});
  void offer(const std::string& version);
  void openSheet();
  QStringList modalAlertDuring(const std::function<void()>& act);
  QTableView& table() { return shown_->widget<QTableView>("updateTable"); }
  QModelIndex cell(int row, int column) { return table().model()->index(row, column); }

  std::unique_ptr<LoopbackServer> server_;
  std::unique_ptr<BenchWindow> shown_;
};

namespace {

const UiTestRegistration<UpdateSheetTest> updateSheetTest;

std::string firmwareRule(const std::string& version) {
  return "<plist version=\"1.0\"><dict><key>Rules</key><array><dict><key>ProductID</key><string>"
         "Corvane_FW_8G</string><key>Version</key><string>" +
         version +
         "</string><key>FileName</key><string>fw8.pkg</string><key>Info</key><string>Faster "
         "links.</string></dict></array></dict></plist>";
}

}  // namespace

void UpdateSheetTest::init() {
  server_ = std::make_unique<LoopbackServer>();
}

void UpdateSheetTest::cleanup() {
  shown_.reset();
  server_.reset();
}

void UpdateSheetTest::show(const std::function<void(BenchState&)>& prepare) {
  shown_ = std::make_unique<BenchWindow>([&](BenchState& state) {
    plugAdapter(state, "Corvane2 8G FC", 1, 1, "20:00:00:10:9B:00:00:10");
    plugAdapter(state, "Corvane2 8G FC", 1, 2, "20:00:00:10:9B:00:00:20");
    state.application.plistURL = server_->url();
    prepare(state);
  });
  QVERIFY(shown_->isDiscovered());
  shown_->widget<QWidget>("authView").setFocus();
  QTest::keyClick(&shown_->widget<QWidget>("authView"), Qt::Key_Space);
}

void UpdateSheetTest::offer(const std::string& version) {
  server_->serve("/10.11/CorvaneOnlineInfo.plist", firmwareRule(version));
}

void UpdateSheetTest::openSheet() {
  offer("11.4.204.0");
  show();
  QTest::mouseClick(&shown_->widget<QPushButton>("checkUpdate"), Qt::LeftButton);
  QVERIFY(shown_->isOpen("OnlineUpdate"));
}

/// Message and text of the alert that keeps `act` waiting.
QStringList UpdateSheetTest::modalAlertDuring(const std::function<void()>& act) {
  QStringList said;
  QTimer poll;
  connect(&poll, &QTimer::timeout, this, [&] {
    QWidget* const alert = QApplication::activeModalWidget();
    if (!alert || alert->objectName() != "modalAlert") return;
    poll.stop();
    said = {alert->findChild<QLabel*>("message")->text(),
            alert->findChild<QLabel*>("informativeText")->text(),
            alert->findChild<QPushButton*>("alertButton0")->text()};
    alert->findChild<QPushButton*>("alertButton0")->click();
  });
  poll.start(5);
  act();
  return said;
}

void UpdateSheetTest::itHasThreeColumns() {
  openSheet();
  const QAbstractItemModel& model = *table().model();
  QCOMPARE(model.columnCount(), 3);
  QCOMPARE(model.rowCount(), 2);
  QStringList headers;
  for (int column = 0; column < 3; ++column) {
    headers << model.headerData(column, Qt::Horizontal).toString();
  }
  QCOMPARE(headers, QStringList({"Install", "Update", "Version"}));
  QCOMPARE(cell(0, 0).data(Qt::CheckStateRole).toInt(), static_cast<int>(Qt::Unchecked));
  QCOMPARE(cell(0, 1).data().toString(), "FW(8G) 20:00:00:10:9B:00:00:10(A - 1)");
  QCOMPARE(cell(1, 1).data().toString(), "FW(8G) 20:00:00:10:9B:00:00:20(A - 2)");
  QCOMPARE(cell(0, 2).data().toString(), "11.4.204.0");
}

void UpdateSheetTest::onlyTheTickCanBeEdited() {
  openSheet();
  QAbstractItemModel& model = *table().model();
  QVERIFY(cell(0, 0).flags() & Qt::ItemIsUserCheckable);
  for (int column : {1, 2}) {
    QVERIFY(!(cell(0, column).flags() & (Qt::ItemIsUserCheckable | Qt::ItemIsEditable)));
    QVERIFY(!model.setData(cell(0, column), "other"));
    QVERIFY(!model.setData(cell(0, column), Qt::Checked, Qt::CheckStateRole));
  }
  QVERIFY(model.setData(cell(1, 0), Qt::Checked, Qt::CheckStateRole));
  QVERIFY(shown_->delegate().onlineUpdate().updateItem()[1].isSelect);
  QVERIFY(!shown_->delegate().onlineUpdate().updateItem()[0].isSelect);
  QCOMPARE(cell(1, 0).data(Qt::CheckStateRole).toInt(), static_cast<int>(Qt::Checked));
}

void UpdateSheetTest::theSpaceKeyTicks() {
  openSheet();
  table().setCurrentIndex(cell(0, 0));
  QTest::keyClick(&table(), Qt::Key_Space);
  QVERIFY(shown_->delegate().onlineUpdate().updateItem()[0].isSelect);
  QTest::keyClick(&table(), Qt::Key_Space);
  QVERIFY(!shown_->delegate().onlineUpdate().updateItem()[0].isSelect);
}

void UpdateSheetTest::theSpaceKeyTicksFromAnyCellOfTheRow() {
  openSheet();
  QTRY_VERIFY_WITH_TIMEOUT(table().hasFocus(), patience);
  table().setCurrentIndex(cell(1, 2));
  QTest::keyClick(&table(), Qt::Key_Space);
  QVERIFY(shown_->delegate().onlineUpdate().updateItem()[1].isSelect);
  QVERIFY(!shown_->delegate().onlineUpdate().updateItem()[0].isSelect);
}

void UpdateSheetTest::aClickAnywhereInTheCellTicks() {
  openSheet();
  const QRect tick = table().visualRect(cell(1, 0));
  for (const QPoint& place :
       {tick.topLeft() + QPoint(2, 2), tick.center(), tick.bottomRight() - QPoint(2, 2)}) {
    const bool before = shown_->delegate().onlineUpdate().updateItem()[1].isSelect;
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(shown_->delegate().onlineUpdate().updateItem()[1].isSelect, !before);
  }
  QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                    table().visualRect(cell(0, 1)).center());
  QVERIFY(!shown_->delegate().onlineUpdate().updateItem()[0].isSelect);
}

void UpdateSheetTest::theBoxStandsAloneInTheMiddleOfItsCell() {
  openSheet();
  table().setCurrentIndex(cell(1, 1));
  const QRect tick = table().visualRect(cell(0, 0));
  const QImage picture = table().viewport()->grab(tick).toImage();
  const int middle = picture.height() / 2;
  const QRgb background = picture.pixel(2, middle);
  int left = 2;
  while (left < picture.width() && picture.pixel(left, middle) == background) ++left;
  int right = picture.width() - 3;
  while (right > left && picture.pixel(right, middle) == background) --right;
  QVERIFY2(right > left, "no box is drawn");
  const int leftMargin = left;
  const int rightMargin = picture.width() - 1 - right;
  QVERIFY2(std::abs(leftMargin - rightMargin) <= 2,
           qPrintable(QString("%1 and %2").arg(leftMargin).arg(rightMargin)));
}

void UpdateSheetTest::everyCellHasRoomForItsText() {
  openSheet();
  for (int column = 0; column < 3; ++column) {
    QVERIFY(table().columnWidth(column) >= table().sizeHintForIndex(cell(0, column)).width());
    QVERIFY(table().columnWidth(column) >= table().horizontalHeader()->sectionSizeHint(column));
  }
}

void UpdateSheetTest::aSelectedRowIsDescribed() {
  openSheet();
  auto& description = shown_->widget<QPlainTextEdit>("updateMessage");
  QCOMPARE(table().currentIndex(), cell(0, 0));
  QCOMPARE(description.toPlainText(), "Faster links.");
  const TableView& chosen = shown_->delegate().onlineUpdate().controls().updateTable;
  QCOMPARE(chosen.selectedRow(), 0);
  table().selectRow(1);
  QCOMPARE(chosen.selectedRow(), 1);
  QCOMPARE(description.toPlainText(), "Faster links.");
  QVERIFY(description.isReadOnly());
}

void UpdateSheetTest::theStateSaysWhatToDo() {
  openSheet();
  QCOMPARE(shown_->widget<QLabel>("updateState").text(), "Tick what is to be installed.");
}

void UpdateSheetTest::nothingTickedIsSaid() {
  openSheet();
  const QStringList said =
      modalAlertDuring([this] { shown_->widget<QPushButton>("updateButton").click(); });
  QCOMPARE(said, QStringList({"Error", "You don't select any device!!", "Ok"}));
  QVERIFY(shown_->isOpen("OnlineUpdate"));
}

void UpdateSheetTest::anUpToDateSystemIsSaid() {
  offer("0.0.0.0");
  show();
  const QStringList said =
      modalAlertDuring([this] { shown_->widget<QPushButton>("checkUpdate").click(); });
  QCOMPARE(said, QStringList({"Warning", "Your system is up to date!", "Ok"}));
  QVERIFY(!shown_->isOpen("OnlineUpdate"));
}

void UpdateSheetTest::aMissingNetworkIsSaid() {
  show([](BenchState& state) { state.faults.insert("no-network"); });
  const QStringList said =
      modalAlertDuring([this] { shown_->widget<QPushButton>("checkUpdate").click(); });
  QCOMPARE(said,
           QStringList({"Waring", "Connot connect to network, please try again later !", "Ok"}));
  QVERIFY(!shown_->isOpen("OnlineUpdate"));
}

void UpdateSheetTest::cancellingEmptiesTheList() {
  openSheet();
  shown_->widget<QPushButton>("cancelButton").click();
  QVERIFY(!shown_->isOpen("OnlineUpdate"));
  QVERIFY(shown_->delegate().onlineUpdate().updateItem().empty());
}

void UpdateSheetTest::firmwareIsInstalledToTheEnd() {
  QFile package(QStringLiteral(CORVANE_BENCH_SAMPLES "/packages/corvane2-11.4.204.pkg"));
  QVERIFY(package.open(QIODevice::ReadOnly));
  server_->serve("/10.11/fw8.pkg", package.readAll().toStdString());
  openSheet();
  table().model()->setData(cell(1, 0), Qt::Checked, Qt::CheckStateRole);
  shown_->widget<QPushButton>("updateButton").click();
  const auto finished = [this] {
    for (const QWidget* sheet : shown_->window().findChildren<QWidget*>("alertSheet")) {
      if (sheet->findChild<QLabel*>("message")->text() != "Finish") continue;
      return sheet->findChild<QLabel*>("informativeText")->text();
    }
    return QString();
  };
  QTRY_COMPARE_WITH_TIMEOUT(finished(),
                            "Update firmware successfully, please un-plug thunderbolt cable and "
                            "restart device to launch new version!",
                            30000);
  QVERIFY(!shown_->isOpen("OnlineUpdate"));
  QVERIFY(!shown_->state().adapters[0].pendingFirmware);
  QCOMPARE(shown_->state().adapters[1].pendingFirmware.value_or(""), std::string("11.4.204"));
}

#include "UpdateSheetTest.moc"
