#include "ui/controls/Bindings.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <QWheelEvent>

#include "UiTest.h"
#include "fakes/ManualDispatch.h"
#include "ui/controls/PopUpBox.h"

using namespace corvane;

/// Each kind of control in its widget: what it shows, and what a user's action makes of it.
class BindingsTest : public QObject {
  Q_OBJECT

 private slots:
  void aTextFollowsItsFieldAndIsReadWithItsCaption();
  void aTextIsNeverTakenForMarkup();
  void aHiddenFieldIsGone();
  void aHintIsATooltipAndADescription();
  void withoutAHintTheInterfaceFilesTooltipReturns();
  void aFieldMayOutliveItsLabel();

  void theItemsStandInTheOrderForTheEye();
  void aHiddenItemIsNotOffered();
  void aChoiceIsReportedByTheIndexOfTheModel();
  void aRefusedChoiceFallsBack();
  void aValueThatNoItemStandsForIsShownPlainly();
  void aLongPlainValueHasRoom();
  void theWheelChangesNothing();
  void arrowKeysOpenTheMenuRatherThanChoose();
  void aMenuOutOfUseCannotBeOpened();

  void aCheckBoxReportsAndFollows();
  void aToggleShowsWhatTheControlMadeOfTheClick();
  void aMenuActionDoesAsItsButton();
  void aTitleComesFromTheControlIfItHasOne();
  void theStackShowsTheSelectedPage();
  void aBarShowsHowFarItIs();

 private:
  PopUpButton& speedMenu();

  ManualDispatch dispatch_;
  std::unique_ptr<PopUpButton> menu_;
};

namespace {
const UiTestRegistration<BindingsTest> bindingsTest;

QStringList titles(const QComboBox& box) {
  QStringList all;
  for (int row = 0; row < box.count(); ++row) all << box.itemText(row);
  return all;
}

void wheelOver(QWidget& widget) {
  QWheelEvent event({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &event);
}
}  // namespace

PopUpButton& BindingsTest::speedMenu() {
  menu_ = std::make_unique<PopUpButton>(dispatch_, "setSpeed");
  menu_->setItems(
      {{0, "Automatic"}, {2000, "2 Gbps"}, {4000, "4 Gbps"}, {16000, "16 Gbps"}, {8000, "8 Gbps"}});
  return *menu_;
}

void BindingsTest::aTextFollowsItsFieldAndIsReadWithItsCaption() {
  TextField field(dispatch_, "WWNN");
  QLabel label;
  label.setAccessibleName("Port name");
  bind(field, label);
  field.setText("21:00:00:10");
  QCOMPARE(label.text(), "21:00:00:10");
  QCOMPARE(label.accessibleName(), "Port name: 21:00:00:10");
}

void BindingsTest::aTextIsNeverTakenForMarkup() {
  TextField field(dispatch_, "VendorNameInfo");
  QLabel label;
  label.setTextFormat(Qt::PlainText);
  field.setHint("<b>not bold</b>");
  bind(field, label);
  field.setText("<img src=x>");
  QCOMPARE(label.text(), "<img src=x>");
  QCOMPARE(label.toolTip(), "&lt;b&gt;not bold&lt;/b&gt;");
}

void BindingsTest::aHiddenFieldIsGone() {
  TextField field(dispatch_, "SFPErrorMessage");
  QWidget window;
  QLabel label(&window);
  bind(field, label);
  window.show();
  QVERIFY(label.isVisible());
  field.setHidden(true);
  QVERIFY(!label.isVisible());
}

void BindingsTest::aHintIsATooltipAndADescription() {
  Button control(dispatch_, "updateFW");
  QPushButton button;
  bind(control, button);
  control.setHint("Open the lock first.");
  QCOMPARE(button.toolTip(), "Open the lock first.");
  QCOMPARE(button.accessibleDescription(), "Open the lock first.");
}

void BindingsTest::withoutAHintTheInterfaceFilesTooltipReturns() {
  Button control(dispatch_, "refreshButton");
  QPushButton button;
  button.setToolTip("Read this port again");
  bind(control, button);
  control.setHint("Nothing to read");
  control.setHint("");
  QCOMPARE(button.toolTip(), "Read this port again");
}

void BindingsTest::aFieldMayOutliveItsLabel() {
  TextField field(dispatch_, "WWNN");
  auto label = std::make_unique<QLabel>();
  bind(field, *label);
  label.reset();
  field.setText("later");
  QCOMPARE(field.text(), std::string("later"));
}

void BindingsTest::theItemsStandInTheOrderForTheEye() {
  PopUpBox box;
  bind(speedMenu(), box);
  QCOMPARE(titles(box), QStringList({"Automatic", "2 Gbps", "4 Gbps", "8 Gbps", "16 Gbps"}));
}

void BindingsTest::aHiddenItemIsNotOffered() {
  PopUpBox box;
  PopUpButton& menu = speedMenu();
  bind(menu, box);
  menu.setItemHidden(3, true);
  QCOMPARE(titles(box), QStringList({"Automatic", "2 Gbps", "4 Gbps", "8 Gbps"}));
  menu.setItemHidden(3, false);
  QCOMPARE(box.count(), 5);
}

void BindingsTest::aChoiceIsReportedByTheIndexOfTheModel() {
  PopUpBox box;
  PopUpButton& menu = speedMenu();
  int64_t tag = -1;
  menu.setAction([&tag](PopUpButton& chosen) { tag = chosen.selectedTag().value(); });
  bind(menu, box);
  emit box.activated(box.findText("16 Gbps"));
  QCOMPARE(tag, 16000);
  QCOMPARE(menu.selectedIndex().value(), size_t{3});
  QCOMPARE(box.currentText(), "16 Gbps");
}

void BindingsTest::aRefusedChoiceFallsBack() {
  PopUpBox box;
  PopUpButton& menu = speedMenu();
  menu.setAction([](PopUpButton& chosen) { chosen.selectItemWithTag(0); });
  bind(menu, box);
  box.setCurrentIndex(box.findText("8 Gbps"));
  emit box.activated(box.currentIndex());
  QCOMPARE(box.currentText(), "Automatic");
}

void BindingsTest::aValueThatNoItemStandsForIsShownPlainly() {
  PopUpBox box;
  PopUpButton& menu = speedMenu();
  bind(menu, box);
  menu.showPlainValue("16 Gbps");
  QCOMPARE(box.currentIndex(), -1);
  QCOMPARE(box.placeholderText(), "16 Gbps");
  QCOMPARE(box.accessibleDescription(), "16 Gbps");

  menu.selectItemWithTag(8000);
  menu.setItemHidden(4, true);
  QCOMPARE(box.currentIndex(), -1);
  QCOMPARE(box.placeholderText(), "8 Gbps");
}

void BindingsTest::aLongPlainValueHasRoom() {
  PopUpBox box;
  PopUpButton& menu = speedMenu();
  bind(menu, box);
  box.show();
  const std::string text = "a value longer than any of the choices";
  menu.showPlainValue(text);
  QVERIFY(box.sizeHint().width() > box.fontMetrics().horizontalAdvance(text.c_str()));
  QVERIFY(box.minimumSizeHint().width() > box.fontMetrics().horizontalAdvance(text.c_str()));
}

void BindingsTest::theWheelChangesNothing() {
  PopUpBox box;
  PopUpButton& menu = speedMenu();
  menu.selectItemWithTag(2000);
  int choices = 0;
  menu.setAction([&choices](PopUpButton&) { ++choices; });
  bind(menu, box);
  box.show();
  box.setFocus();
  wheelOver(box);
  QCOMPARE(choices, 0);
  QCOMPARE(box.currentText(), "2 Gbps");
}

void BindingsTest::arrowKeysOpenTheMenuRatherThanChoose() {
  PopUpBox box;
  PopUpButton& menu = speedMenu();
  menu.selectItemWithTag(2000);
  int choices = 0;
  menu.setAction([&choices](PopUpButton&) { ++choices; });
  bind(menu, box);
  box.show();
  QVERIFY(QTest::qWaitForWindowExposed(&box, patience));
  QTest::keyClick(&box, Qt::Key_Down);
  QVERIFY(box.view()->isVisible());
  QCOMPARE(choices, 0);
  QTest::keyClick(box.view(), Qt::Key_Down);
  QTest::keyClick(box.view(), Qt::Key_Return);
  QCOMPARE(choices, 1);
  QCOMPARE(menu.selectedTag().value(), 4000);
}

void BindingsTest::aMenuOutOfUseCannotBeOpened() {
  PopUpBox box;
  PopUpButton& menu = speedMenu();
  bind(menu, box);
  menu.setEnabled(false);
  QVERIFY(!box.isEnabled());
  menu.setEnabled(true);
  menu.suspend();
  QVERIFY(!box.isEnabled());
  menu.resume();
  QVERIFY(box.isEnabled());
}

void BindingsTest::aCheckBoxReportsAndFollows() {
  CheckBox control(dispatch_, "enableRSC");
  int changes = 0;
  control.setAction([&changes](CheckBox&) { ++changes; });
  QCheckBox box;
  bind(control, box);
  box.click();
  QVERIFY(control.isOn());
  QCOMPARE(changes, 1);
  control.setOn(false);
  QVERIFY(!box.isChecked());
  QCOMPARE(changes, 1);
}

void BindingsTest::aToggleShowsWhatTheControlMadeOfTheClick() {
  Button control(dispatch_, "port1Button");
  control.setOn(true);
  QPushButton button;
  button.setCheckable(true);
  bind(control, button);
  button.click();
  QVERIFY(button.isChecked());
  control.setOn(false);
  QVERIFY(!button.isChecked());
}

void BindingsTest::aMenuActionDoesAsItsButton() {
  Button control(dispatch_, "refreshButton");
  int clicks = 0;
  control.setAction([&clicks](Button&) { ++clicks; });
  QPushButton button;
  QAction action;
  bind(control, button, &action);
  action.trigger();
  button.click();
  QCOMPARE(clicks, 2);
  control.setEnabled(false);
  QVERIFY(!action.isEnabled());
  control.setEnabled(true);
  control.setHidden(true);
  QVERIFY(!action.isVisible());
}

void BindingsTest::aTitleComesFromTheControlIfItHasOne() {
  Button control(dispatch_, "downloadLogs");
  QPushButton button("Collect Logs");
  bind(control, button);
  QCOMPARE(button.text(), "Collect Logs");
  control.setTitle("Copying...");
  QCOMPARE(button.text(), "Copying...");
  control.setTitle("");
  QCOMPARE(button.text(), "Collect Logs");
}

void BindingsTest::theStackShowsTheSelectedPage() {
  TabView control(dispatch_, "tabView");
  QStackedWidget pages;
  pages.addWidget(new QWidget);
  pages.addWidget(new QWidget);
  bind(control, pages);
  control.selectTabViewItemAtIndex(1);
  QCOMPARE(pages.currentIndex(), 1);
}

void BindingsTest::aBarShowsHowFarItIs() {
  ProgressIndicator control(dispatch_, "logProgress");
  QWidget window;
  QProgressBar bar(&window);
  bind(control, bar);
  QVERIFY(!bar.isVisibleTo(&window));
  control.start();
  QVERIFY(bar.isVisibleTo(&window));
  QCOMPARE(bar.maximum(), 0);
  control.setFraction(0.25);
  QCOMPARE(bar.value() * 4, bar.maximum());
  control.stop();
  QVERIFY(!bar.isVisibleTo(&window));
}

#include "BindingsTest.moc"
