#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>

#include "OnlyIntegerValueFormatter.h"
#include "UiTest.h"
#include "fakes/FakePrompts.h"
#include "fakes/ManualDispatch.h"
#include "ui/controls/Bindings.h"

using namespace corvane;

/// The queue-depth entry: whatever way a text comes in, the filter has the last word.
class EntryFieldTest : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();

  void typedDigitsAreTaken();
  void aNumberTooLargeIsRefusedAtItsLastDigit_data();
  void aNumberTooLargeIsRefusedAtItsLastDigit();
  void whatIsNoNumberIsRefusedWithOneBeep();
  void aPasteIsFilteredAsAWhole();
  void anInputMethodIsFiltered();
  void aCompositionInProgressIsLeftAlone();
  void aRefusedEditKeepsTheCursor();
  void theFieldCanBeEmptied();
  void undoGoesBackToAnAcceptedText();
  void returnConfirmsOnce();
  void aTextSetByTheProgramShows();

 private:
  std::unique_ptr<ManualDispatch> dispatch_;
  std::unique_ptr<FakePrompts> prompts_;
  std::unique_ptr<OnlyIntegerValueFormatter> formatter_;
  std::unique_ptr<EntryField> field_;
  std::unique_ptr<QLineEdit> entry_;
};

namespace {
const UiTestRegistration<EntryFieldTest> entryFieldTest;

void commitByInputMethod(QWidget& widget, const QString& text) {
  QInputMethodEvent event;
  event.setCommitString(text);
  QApplication::sendEvent(&widget, &event);
}
}  // namespace

void EntryFieldTest::init() {
  dispatch_ = std::make_unique<ManualDispatch>();
  prompts_ = std::make_unique<FakePrompts>();
  formatter_ = std::make_unique<OnlyIntegerValueFormatter>(*prompts_);
  field_ = std::make_unique<EntryField>(*dispatch_, "setQDepthSetting");
  field_->setFilter(
      [this](const std::string& proposed) { return formatter_->isPartialStringValid(proposed); });
  entry_ = std::make_unique<QLineEdit>();
  bind(*field_, *entry_);
  entry_->show();
}

void EntryFieldTest::cleanup() {
  entry_.reset();
}

void EntryFieldTest::typedDigitsAreTaken() {
  QTest::keyClicks(entry_.get(), "254");
  QCOMPARE(entry_->text(), "254");
  QCOMPARE(field_->text(), std::string("254"));
  QCOMPARE(prompts_->beeps, 0);
}

void EntryFieldTest::aNumberTooLargeIsRefusedAtItsLastDigit_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("kept");
  QTest::newRow("255") << "255"
                       << "25";
  QTest::newRow("1234") << "1234"
                        << "123";
  QTest::newRow("00012") << "00012"
                         << "0001";
}

void EntryFieldTest::aNumberTooLargeIsRefusedAtItsLastDigit() {
  QFETCH(QString, typed);
  QFETCH(QString, kept);
  QTest::keyClicks(entry_.get(), typed);
  QCOMPARE(entry_->text(), kept);
  QCOMPARE(field_->text(), kept.toStdString());
  QCOMPARE(prompts_->beeps, 0);
}

void EntryFieldTest::whatIsNoNumberIsRefusedWithOneBeep() {
  QTest::keyClicks(entry_.get(), "12a");
  QCOMPARE(entry_->text(), "12");
  QCOMPARE(prompts_->beeps, 1);
}

void EntryFieldTest::aPasteIsFilteredAsAWhole() {
  QTest::keyClicks(entry_.get(), "1");
  for (const char* text : {"999", "x", "2\n3", "12345"}) {
    QApplication::clipboard()->setText(text);
    entry_->paste();
    QCOMPARE(entry_->text(), "1");
  }
  QApplication::clipboard()->setText("28");
  entry_->paste();
  QCOMPARE(entry_->text(), "128");
  entry_->selectAll();
  QApplication::clipboard()->setText("-12");
  entry_->paste();
  QCOMPARE(entry_->text(), "-12");
}

void EntryFieldTest::anInputMethodIsFiltered() {
  commitByInputMethod(*entry_, "12");
  QCOMPARE(entry_->text(), "12");
  commitByInputMethod(*entry_, QString::fromUtf8("三"));
  QCOMPARE(entry_->text(), "12");
  QCOMPARE(prompts_->beeps, 1);
  commitByInputMethod(*entry_, "99");
  QCOMPARE(entry_->text(), "12");
}

void EntryFieldTest::aCompositionInProgressIsLeftAlone() {
  QInputMethodEvent composing("san", {});
  QApplication::sendEvent(entry_.get(), &composing);
  QCOMPARE(entry_->text(), "");
  QCOMPARE(prompts_->beeps, 0);
}

void EntryFieldTest::aRefusedEditKeepsTheCursor() {
  QTest::keyClicks(entry_.get(), "123");
  entry_->setCursorPosition(1);
  QTest::keyClicks(entry_.get(), "9");
  QCOMPARE(entry_->text(), "123");
  QCOMPARE(entry_->cursorPosition(), 1);
}

void EntryFieldTest::theFieldCanBeEmptied() {
  QTest::keyClicks(entry_.get(), "12");
  entry_->selectAll();
  QTest::keyClick(entry_.get(), Qt::Key_Delete);
  QCOMPARE(field_->text(), std::string());
}

void EntryFieldTest::undoGoesBackToAnAcceptedText() {
  QTest::keyClicks(entry_.get(), "12");
  entry_->undo();
  QCOMPARE(field_->text(), entry_->text().toStdString());
  QVERIFY(entry_->text().size() < 2);
}

void EntryFieldTest::returnConfirmsOnce() {
  int confirmations = 0;
  field_->setAction([&confirmations](EntryField&) { ++confirmations; });
  QTest::keyClick(entry_.get(), Qt::Key_Return);
  QTest::keyClick(entry_.get(), Qt::Key_Enter);
  QCOMPARE(confirmations, 2);
}

void EntryFieldTest::aTextSetByTheProgramShows() {
  field_->setText("7");
  QCOMPARE(entry_->text(), "7");
}

#include "EntryFieldTest.moc"
