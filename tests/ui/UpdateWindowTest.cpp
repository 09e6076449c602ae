#include <QDialog>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <filesystem>

#include "BenchWindow.h"
#include "UiTest.h"
#include "fakes/LoopbackServer.h"

using namespace corvane;

/// The update window on a simulated computer whose update server is told how to behave.
class UpdateWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();
  void theCandidatesAreListed();
  void theMainWindowIsServedWhileTheCatalogueArrives();
  void aSilentDownloadCanBeCancelled();
  void escapeCancelsTheDownloadOfFirmware();
  void escapeClosesTheWindowWhenNothingGoesOn();

 private:
  void open(const std::string& installedVersion);
  void tickFirst();
  void duringDownload(const char* path, std::function<void()> act);
  OnlineUpdate& update() { return shown_->delegate().onlineUpdate(); }
  bool hasOpenedAnImage();

  std::unique_ptr<LoopbackServer> server_;
  std::unique_ptr<BenchWindow> shown_;
};

namespace {

const UiTestRegistration<UpdateWindowTest> updateWindowTest;

constexpr const char* catalogue = "/10.11/CorvaneOnlineInfo.plist";
constexpr const char* image = "/10.11/CORVANE_Utility.dmg";
constexpr const char* package = "/10.11/fw8.pkg";

/// Below the time after which a silent server is given up.
constexpr qint64 promptly = 25'000;

std::string rule(const std::string& product, const std::string& version, const std::string& file) {
  return "<dict><key>ProductID</key><string>" + product + "</string><key>Version</key><string>" +
         version + "</string><key>FileName</key><string>" + file +
         "</string><key>Info</key><string>What is new</string></dict>";
}

std::string rules() {
  return "<plist version=\"1.0\"><dict><key>Rules</key><array>" +
         rule("Corvane_SW", "2.0.0.0", "CORVANE_Utility.dmg") +
         rule("Corvane_FW_8G", "99.0.0.0", "fw8.pkg") + "</array></dict></plist>";
}

}  // namespace

void UpdateWindowTest::init() {
  server_ = std::make_unique<LoopbackServer>();
  server_->serve(catalogue, rules());
}

void UpdateWindowTest::cleanup() {
  shown_.reset();
  server_.reset();
}

void UpdateWindowTest::open(const std::string& installedVersion) {
  shown_ = std::make_unique<BenchWindow>([&](BenchState& state) {
    plugAdapter(state, "Corvane2 8G FC", 1, 1, std::nullopt);
    state.application.version = installedVersion;
    state.application.plistURL = server_->url();
  });
  QVERIFY(shown_->isDiscovered());
  update().whileDownloading([this] { shown_->queue().serveWindow(); });
  update().checkUpdate();
  QVERIFY(shown_->isOpen("OnlineUpdate"));
}

void UpdateWindowTest::tickFirst() {
  update().tableViewSetObjectValueForTableColumn(PropertyValue(1), "selected", 0);
}

/// Acts once, as soon as the server has been asked for that file.
void UpdateWindowTest::duringDownload(const char* path, std::function<void()> act) {
  auto* const poll = new QTimer(this);
  connect(poll, &QTimer::timeout, this, [this, poll, path, act = std::move(act)] {
    const auto requests = server_->requests();
    if (std::find(requests.begin(), requests.end(), path) == requests.end()) return;
    poll->stop();
    poll->deleteLater();
    act();
  });
  poll->start(1);
}

bool UpdateWindowTest::hasOpenedAnImage() {
  return std::filesystem::exists(std::filesystem::path(shown_->bench().file().folder()) /
                                 "opened.txt");
}

void UpdateWindowTest::theCandidatesAreListed() {
  open("1.0.0.0");
  const auto& table = shown_->widget<QTableView>("updateTable");
  QCOMPARE(table.model()->rowCount(), 1);
  QCOMPARE(table.model()->index(0, 1).data().toString(), QString("CORVANE Utility"));
  QCOMPARE(table.model()->index(0, 2).data().toString(), QString("2.0.0.0"));
}

void UpdateWindowTest::theMainWindowIsServedWhileTheCatalogueArrives() {
  server_->trickle(catalogue, rules(), std::chrono::milliseconds(3));
  bool isServedMeanwhile = false;
  duringDownload(catalogue, [&] { isServedMeanwhile = !shown_->isOpen("OnlineUpdate"); });
  open("1.0.0.0");
  QVERIFY(isServedMeanwhile);
}

void UpdateWindowTest::aSilentDownloadCanBeCancelled() {
  server_->stall(image, "first bytes");
  open("1.0.0.0");
  tickFirst();
  bool isProgressShown = false;
  bool isUpdateOffered = true;
  duringDownload(image, [&] {
    isProgressShown = shown_->widget<QProgressBar>("updateProgress").isVisible();
    isUpdateOffered = shown_->widget<QPushButton>("updateButton").isEnabled();
    QTest::mouseClick(&shown_->widget<QPushButton>("cancelButton"), Qt::LeftButton);
  });
  QElapsedTimer time;
  time.start();
  update().selectUpdate();
  QVERIFY(time.elapsed() < promptly);
  QVERIFY(isProgressShown);
  QVERIFY(!isUpdateOffered);
  QVERIFY(update().lastInstallation().download.cancelled);
  QVERIFY(!shown_->isOpen("OnlineUpdate"));
  QVERIFY(!hasOpenedAnImage());
}

void UpdateWindowTest::escapeCancelsTheDownloadOfFirmware() {
  server_->stall(package, "first bytes");
  open("9.0.0.0");
  tickFirst();
  bool isOpenMeanwhile = false;
  QElapsedTimer time;
  time.start();
  update().selectUpdate();
  duringDownload(package, [&] {
    QTest::keyClick(&shown_->widget<QDialog>("OnlineUpdate"), Qt::Key_Escape);
    isOpenMeanwhile = shown_->isOpen("OnlineUpdate");
  });
  QVERIFY(QTest::qWaitFor([this] { return !update().isInstalling(); }, patience));
  QVERIFY(time.elapsed() < promptly);
  QVERIFY(isOpenMeanwhile);
  QVERIFY(!shown_->isOpen("OnlineUpdate"));
  QVERIFY(!shown_->isOpen("alertSheet"));
  QVERIFY(update().lastInstallation().download.cancelled);
}

void UpdateWindowTest::escapeClosesTheWindowWhenNothingGoesOn() {
  open("1.0.0.0");
  QTest::keyClick(&shown_->widget<QDialog>("OnlineUpdate"), Qt::Key_Escape);
  QVERIFY(!shown_->isOpen("OnlineUpdate"));
  QCOMPARE(update().numberOfRowsInTableView(), 0);
}

#include "UpdateWindowTest.moc"
