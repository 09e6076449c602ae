#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QMovie>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>

#include "UiTest.h"
#include "ui/QtPrompts.h"
#include "ui/sheets/AlertSheet.h"

using namespace corvane;

/// Alerts and panels, from opening to each end.
class PromptsTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();

  void aSheetShowsItsContentOnItsWindow();
  void aSheetReportsTheButtonPressed_data();
  void aSheetReportsTheButtonPressed();
  void theFirstButtonIsTheDefault();
  void escapePressesTheLastButton();
  void theCloseButtonPressesTheLastButton();
  void aSheetChangesInPlace();
  void aDisabledButtonCannotBePressed();
  void aWaitingSheetMovesAndHasNoButtons();
  void aWaitingSheetAsksBeforeItIsLeft();
  void whoInsistsOnLeavingEndsTheApplication();
  void keepingWaitingChangesNothing();
  void progressIsShownWhileWaiting();
  void theProgramEndsASheet();
  void aSheetMayBeShownAgainFromItsEnd();
  void updateSheetsHangOnTheUpdateWindow();
  void aModalAlertReturnsItsButton();
  void aModalAlertWithoutButtonsHasAWayOut();
  void theOpenPanelGivesTheFileChosen();
  void theOpenPanelGivesNothingWhenCancelled();

 private:
  AlertSheet* sheet() const { return window_->findChild<AlertSheet*>("alertSheet"); }
  void show(const AlertContent& content);

  std::unique_ptr<QWidget> window_;
  std::unique_ptr<QtPrompts> prompts_;
  int identity_ = 0;
  int code_ = 0;
};

namespace {
const UiTestRegistration<PromptsTest> promptsTest;

AlertContent question() {
  return {"Note", "The new FW version: 2.03", {{"OK"}, {"Cancel"}}, "corvane_warning.icns"};
}

AlertContent waiting() {
  AlertContent content{
      "Wait", "Update FW is running, Please wait...", {{"OK"}, {"Cancel"}}, "loading7.gif"};
  for (AlertButton& button : content.buttons) button.hidden = true;
  return content;
}

QPushButton* buttonOf(QWidget* view, int index) {
  return view->findChild<QPushButton*>("alertButton" + QString::number(index));
}

void press(const QMessageBox& box, const QString& title) {
  for (QAbstractButton* button : box.buttons()) {
    if (button->text() == title) button->click();
  }
}

/// Has `act` done with the modal dialog of type View once it is open.
template <typename View, typename Act>
void whenModal(Act act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* const view = qobject_cast<View*>(QApplication::activeModalWidget());
    QVERIFY(view);
    act(view);
  });
}
}  // namespace

void PromptsTest::init() {
  window_ = std::make_unique<QWidget>();
  prompts_ = std::make_unique<QtPrompts>();
  prompts_->setMainWindow(window_.get());
  code_ = 0;
  window_->show();
}

void PromptsTest::cleanup() {
  prompts_.reset();
  window_.reset();
}

void PromptsTest::show(const AlertContent& content) {
  prompts_->showAlertSheet(&identity_, content, SheetParent::MainWindow,
                           [this](int code) { code_ = code; });
}

void PromptsTest::aSheetShowsItsContentOnItsWindow() {
  show(question());
  QVERIFY(sheet()->isVisible());
  QCOMPARE(sheet()->windowModality(), Qt::WindowModal);
  QCOMPARE(sheet()->findChild<QLabel*>("message")->text(), "Note");
  QCOMPARE(sheet()->findChild<QLabel*>("informativeText")->text(), "The new FW version: 2.03");
  QCOMPARE(buttonOf(sheet(), 0)->text(), "OK");
  QCOMPARE(buttonOf(sheet(), 1)->text(), "Cancel");
  QVERIFY(!sheet()->findChild<QLabel*>("icon")->pixmap().isNull());
}

void PromptsTest::aSheetReportsTheButtonPressed_data() {
  QTest::addColumn<int>("button");
  QTest::addColumn<int>("code");
  QTest::newRow("first") << 0 << 1000;
  QTest::newRow("second") << 1 << 1001;
}

void PromptsTest::aSheetReportsTheButtonPressed() {
  QFETCH(int, button);
  QFETCH(int, code);
  show(question());
  QTest::mouseClick(buttonOf(sheet(), button), Qt::LeftButton);
  QCOMPARE(code_, code);
  QVERIFY(!sheet() || !sheet()->isVisible());
}

void PromptsTest::theFirstButtonIsTheDefault() {
  show(question());
  QTest::keyClick(sheet(), Qt::Key_Return);
  QCOMPARE(code_, 1000);
}

void PromptsTest::escapePressesTheLastButton() {
  show(question());
  QTest::keyClick(sheet(), Qt::Key_Escape);
  QCOMPARE(code_, 1001);
}

void PromptsTest::theCloseButtonPressesTheLastButton() {
  show(question());
  sheet()->close();
  QCOMPARE(code_, 1001);
}

void PromptsTest::aSheetChangesInPlace() {
  show(question());
  AlertSheet* const before = sheet();
  AlertContent finish{
      "Finish", "Please restart device to launch new FW !", {{"OK"}, {"Cancel"}}, "loading7.gif"};
  finish.buttons[1].hidden = true;
  show(finish);
  QCOMPARE(sheet(), before);
  QCOMPARE(window_->findChildren<AlertSheet*>().size(), 1);
  QCOMPARE(sheet()->findChild<QLabel*>("message")->text(), "Finish");
  QVERIFY(buttonOf(sheet(), 0)->isVisible());
  QVERIFY(!buttonOf(sheet(), 1)->isVisible());
  QTest::keyClick(sheet(), Qt::Key_Escape);
  QCOMPARE(code_, 1000);
}

void PromptsTest::aDisabledButtonCannotBePressed() {
  AlertContent content = question();
  content.buttons[0].enabled = false;
  show(content);
  QTest::mouseClick(buttonOf(sheet(), 0), Qt::LeftButton);
  QTest::keyClick(sheet(), Qt::Key_Return);
  QCOMPARE(code_, 0);
  QVERIFY(sheet()->isVisible());
}

void PromptsTest::aWaitingSheetMovesAndHasNoButtons() {
  show(waiting());
  QVERIFY(sheet()->isWaiting());
  QVERIFY(prompts_->isWaiting());
  const QMovie* movie = sheet()->findChild<QLabel*>("icon")->movie();
  QVERIFY(movie);
  QCOMPARE(movie->state(), QMovie::Running);
  QVERIFY(movie->frameCount() > 1);
}

void PromptsTest::aWaitingSheetAsksBeforeItIsLeft() {
  show(waiting());
  bool asked = false;
  whenModal<QMessageBox>([&asked](QMessageBox* question) {
    asked = true;
    press(*question, "Keep Waiting");
  });
  QTest::keyClick(sheet(), Qt::Key_Escape);
  QVERIFY(asked);
  QVERIFY(sheet()->isVisible());
}

void PromptsTest::whoInsistsOnLeavingEndsTheApplication() {
  show(waiting());
  whenModal<QMessageBox>([](QMessageBox* question) { press(*question, "Quit Anyway"); });
  QTest::keyClick(sheet(), Qt::Key_Escape);
  bool ended = true;
  QTimer::singleShot(1000, sheet(), [&ended] {
    ended = false;
    QCoreApplication::exit();
  });
  QCoreApplication::exec();
  QVERIFY(ended);
}

void PromptsTest::keepingWaitingChangesNothing() {
  show(waiting());
  whenModal<QMessageBox>([](QMessageBox* question) {
    QCOMPARE(question->defaultButton()->text(), "Keep Waiting");
    QTest::keyClick(question, Qt::Key_Escape);
  });
  QVERIFY(!prompts_->askToLeave());
  QCOMPARE(code_, 0);
}

void PromptsTest::progressIsShownWhileWaiting() {
  show(waiting());
  auto* const bar = sheet()->findChild<QProgressBar*>("progress");
  QVERIFY(!bar->isVisible());
  prompts_->showAlertProgress(&identity_, 0.5);
  QVERIFY(bar->isVisible());
  QCOMPARE(bar->value() * 2, bar->maximum());
  prompts_->showAlertProgress(&identity_, std::nullopt);
  QCOMPARE(bar->maximum(), 0);
  show(question());
  QVERIFY(!bar->isVisible());
}

void PromptsTest::theProgramEndsASheet() {
  show(question());
  prompts_->endAlertSheet(&identity_);
  QCOMPARE(code_, alertEndedByProgram);
  prompts_->endAlertSheet(&identity_);
  QVERIFY(!prompts_->isWaiting());
}

void PromptsTest::aSheetMayBeShownAgainFromItsEnd() {
  prompts_->showAlertSheet(&identity_, question(), SheetParent::MainWindow,
                           [this](int) { show(waiting()); });
  QTest::mouseClick(buttonOf(sheet(), 0), Qt::LeftButton);
  QVERIFY(prompts_->isWaiting());
}

void PromptsTest::updateSheetsHangOnTheUpdateWindow() {
  QWidget update;
  prompts_->setUpdateWindow(&update);
  update.show();
  prompts_->showAlertSheet(&identity_, waiting(), SheetParent::UpdateWindow, {});
  QVERIFY(!sheet());
  QVERIFY(update.findChild<AlertSheet*>("alertSheet")->isVisible());
}

void PromptsTest::aModalAlertReturnsItsButton() {
  whenModal<AlertSheet>([](AlertSheet* alert) { buttonOf(alert, 1)->click(); });
  QCOMPARE(prompts_->showModalAlert(question()), 1001);
}

void PromptsTest::aModalAlertWithoutButtonsHasAWayOut() {
  whenModal<AlertSheet>([](AlertSheet* alert) { QTest::keyClick(alert, Qt::Key_Escape); });
  QCOMPARE(prompts_->showModalAlert({"Warning", "Text", {}, ""}), 1000);
}

void PromptsTest::theOpenPanelGivesTheFileChosen() {
  QTemporaryFile file;
  QVERIFY(file.open());
  std::vector<std::string> paths{"nothing yet"};
  OpenPanelRequest request;
  request.prompt = "Select";
  prompts_->showOpenPanel(request,
                          [&paths](std::vector<std::string> chosen) { paths = std::move(chosen); });
  auto* const panel = window_->findChild<QFileDialog*>("openPanel");
  QVERIFY(panel->isVisible());
  QCOMPARE(panel->windowModality(), Qt::WindowModal);
  QCOMPARE(panel->labelText(QFileDialog::Accept), "Select");
  QCOMPARE(panel->fileMode(), QFileDialog::ExistingFile);
  panel->selectFile(file.fileName());
  QMetaObject::invokeMethod(panel, "accept");
  QCOMPARE(paths, std::vector<std::string>{file.fileName().toStdString()});
}

void PromptsTest::theOpenPanelGivesNothingWhenCancelled() {
  std::vector<std::string> paths{"nothing yet"};
  prompts_->showOpenPanel({},
                          [&paths](std::vector<std::string> chosen) { paths = std::move(chosen); });
  window_->findChild<QFileDialog*>("openPanel")->reject();
  QVERIFY(paths.empty());
}

#include "PromptsTest.moc"
