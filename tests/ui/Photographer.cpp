#include "Photographer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "AppDelegate.h"
#include "ui/MainWindow.h"

namespace corvane {

namespace {

constexpr int patience = 30000;
constexpr int settlingTime = 50;
constexpr int sheetTop = 60;
constexpr int margin = 24;

/// The window with a sheet hanging in it, as the screen would show them.
QPixmap composed(const QPixmap& window, const QPixmap& sheet) {
  const QSize size(std::max(window.width(), sheet.width() + 2 * margin),
                   std::max(window.height(), sheet.height() + sheetTop + margin));
  QPixmap picture(size);
  picture.fill(QApplication::palette().color(QPalette::Window));
  QPainter painter(&picture);
  painter.drawPixmap(0, 0, window);
  painter.fillRect(picture.rect(), QColor(0, 0, 0, 70));
  const QRect place(QPoint((size.width() - sheet.width()) / 2, sheetTop), sheet.size());
  painter.drawPixmap(place, sheet);
  painter.setPen(QApplication::palette().color(QPalette::Mid));
  painter.drawRect(place.adjusted(-1, -1, 0, 0));
  return picture;
}

}  // namespace

Photographer::Photographer(WindowSession& session, QString folder, QString suffix)
    : session_(session), folder_(std::move(folder)), suffix_(std::move(suffix)) {}

bool Photographer::start() {
  const QSignalSpy discovered(&session_, &WindowSession::discovered);
  session_.start();
  const bool isReady = QTest::qWaitFor([&discovered] { return !discovered.isEmpty(); }, patience);
  QTest::qWait(settlingTime);
  return isReady;
}

void Photographer::takePages(const QString& prefix) {
  const auto entries = session_.delegate().state().CorvaneList.entries();
  if (entries.empty()) take(prefix + "no-adapter");
  for (size_t row = 0; row < entries.size(); ++row) {
    const QString product = QString::fromStdString(entries[row].ProductType).replace(' ', '-');
    session_.delegate().selectRow(static_cast<int64_t>(row));
    take(prefix + product.toLower() + "-port");
    controls().deviceButton.click();
    take(prefix + product.toLower() + "-device");
  }
}

void Photographer::openLock() {
  QTimer::singleShot(settlingTime, &session_.window(), [this] {
    take("password");
    topDialog()->findChild<QLineEdit*>()->setText("bench");
    press("PasswordSheet", "okButton");
  });
  controls().authView.click();
}

void Photographer::takeSheets() {
  selectProduct("Corvane2 8G FC");
  controls().SFPInfoButton.click();
  take("transceiver");
  press("SFPController", "closeButton");
  controls().chooseALPA.click();
  take("address-matrix");
  press("MatrixTable", "cancelButton");
  controls().deviceButton.click();
  controls().queueDepthButton.click();
  take("queue-depth");
  press("FCQDepthViewController", "confirmButton");
  take("queue-depth-problem");
  press("FCQDepthViewController", "cancelButton");
  controls().port1Button.click();
  controls().SFPHelpButton.click();
  takePopover("help");
  for (const char* menu :
       {"menuFile", "menuEdit", "menuView", "menuAdapter", "menuBench", "menuWindow", "menuHelp"}) {
    takeMenu(menu, menu);
  }
  session_.delegate().showAbout();
  take("about");
  press("AboutDialog", "closeButton");
  session_.window().findChild<QAction*>("actionShowBenchFile")->trigger();
  take("bench-file");
  topDialog()->close();
}

bool Photographer::takeWork(const QString& package) {
  selectProduct("Corvane2 8G FC");
  controls().setSpeed.choose(controls().setSpeed.items().size() - 1);
  QTest::qWait(settlingTime * 4);
  take("setting-in-progress");
  if (!QTest::qWaitFor([this] { return !controls().portProgress.isRunning(); }, patience)) {
    return false;
  }
  controls().updateFW.click();
  QTest::qWait(settlingTime);
  auto* const panel = session_.window().findChild<QFileDialog*>("openPanel");
  panel->findChild<QLineEdit*>("fileNameEdit")->setText(package);
  QMetaObject::invokeMethod(panel, "accept");
  if (!QTest::qWaitFor([this] { return topDialog() != nullptr; }, patience)) return false;
  take("firmware-question");
  topDialog()->findChild<QAbstractButton*>("alertButton0")->click();
  QTest::qWait(settlingTime * 4);
  take("firmware-in-progress");
  const auto isFinished = [this] {
    auto* const button = topDialog() ? topDialog()->findChild<QWidget*>("alertButton0") : nullptr;
    return button && button->isVisible();
  };
  if (!QTest::qWaitFor(isFinished, patience)) return false;
  take("firmware-finished");
  topDialog()->findChild<QAbstractButton*>("alertButton0")->click();
  return true;
}

void Photographer::takeUpdates() {
  controls().checkUpdate.click();
  QTest::qWait(settlingTime);
  auto* const table = session_.window().findChild<QTableView*>("updateTable");
  if (!table) return;
  table->selectRow(0);
  take("updates");
  press("OnlineUpdate", "cancelButton");
}

MainWindowControls& Photographer::controls() {
  return session_.delegate().controls();
}

bool Photographer::selectProduct(const std::string& product) {
  const auto entries = session_.delegate().state().CorvaneList.entries();
  const auto found = std::find_if(entries.begin(), entries.end(), [&product](const auto& entry) {
    return entry.ProductType == product;
  });
  if (found == entries.end()) return false;
  session_.delegate().selectRow(found - entries.begin());
  return true;
}

void Photographer::take(const QString& name) {
  QTest::qWait(settlingTime);
  const QPixmap window = session_.window().grab();
  const QWidget* const dialog = topDialog();
  save(dialog ? composed(window, const_cast<QWidget*>(dialog)->grab()) : window, name);
}

void Photographer::takeMenu(const char* objectName, const QString& name) {
  auto* const menu = session_.window().findChild<QMenu*>(objectName);
  if (!menu) return;
  emit menu->aboutToShow();
  menu->popup(session_.window().mapToGlobal(QPoint(margin, margin)));
  QTest::qWait(settlingTime);
  save(menu->grab(), name);
  menu->close();
}

void Photographer::takePopover(const QString& name) {
  QTest::qWait(settlingTime);
  QWidget* const popover = topDialog();
  save(popover->grab(), name);
  popover->close();
}

void Photographer::save(const QPixmap& picture, const QString& name) const {
  picture.save(folder_ + "/" + name + suffix_ + ".png");
}

QWidget* Photographer::topDialog() const {
  for (QDialog* dialog : session_.window().findChildren<QDialog*>()) {
    if (dialog->isVisible()) return dialog;
  }
  return nullptr;
}

void Photographer::press(const char* dialog, const char* button) {
  session_.window().findChild<QWidget*>(dialog)->findChild<QAbstractButton*>(button)->click();
  QTest::qWait(settlingTime);
}

}  // namespace corvane
