#include "ui/Translation.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <memory>

#include "BenchWindow.h"
#include "UiTest.h"

using namespace corvane;

/// The window in the user's language.
class TranslationTest : public QObject {
  Q_OBJECT

 private slots:
  void theSystemsLanguageChooses_data();
  void theSystemsLanguageChooses();
  void theWindowSpeaksGerman();
  void theControllersSpeakGerman();
  void theToolkitsButtonsSpeakGerman();
  void fixedTextsStayAsTheyAre_data();
  void fixedTextsStayAsTheyAre();
  void aTextWithANameKeepsTheName();
  void withoutALanguageEverythingIsEnglish();
};

namespace {

const UiTestRegistration<TranslationTest> translationTest;

const QLocale german(QLocale::German, QLocale::Germany);

std::unique_ptr<BenchWindow> germanWindow() {
  return std::make_unique<BenchWindow>(
      [](BenchState& state) { plugAdapter(state, "Corvane2 16G FC", 1, 1, std::nullopt); });
}

}  // namespace

void TranslationTest::theSystemsLanguageChooses_data() {
  QTest::addColumn<QLocale>("locale");
  QTest::addColumn<bool>("translated");
  QTest::newRow("German") << german << true;
  QTest::newRow("Austrian German") << QLocale(QLocale::German, QLocale::Austria) << true;
  QTest::newRow("English") << QLocale(QLocale::English, QLocale::UnitedStates) << false;
  QTest::newRow("no translation") << QLocale(QLocale::Japanese, QLocale::Japan) << false;
  QTest::newRow("none") << QLocale::c() << false;
}

void TranslationTest::theSystemsLanguageChooses() {
  QFETCH(QLocale, locale);
  QFETCH(bool, translated);
  const Translation translation(locale);
  QCOMPARE(translation.isInstalled(), translated);
}

void TranslationTest::theWindowSpeaksGerman() {
  const Translation translation(german);
  const auto shown = germanWindow();
  QVERIFY(shown->isDiscovered());
  QCOMPARE(shown->widget<QToolButton>("port2Button").text(), "Anschluss 2");
  QCOMPARE(shown->widget<QMenu>("menuFile").title(), "&Datei");
  QCOMPARE(shown->widget<QLabel>("currentSpeedCaption").text(), "Aktuelle Geschwindigkeit");
  QCOMPARE(shown->widget<QToolButton>("authView").text(),
           "Zum Bearbeiten auf das Schloss klicken.");
}

void TranslationTest::theControllersSpeakGerman() {
  const Translation translation(german);
  const auto shown = germanWindow();
  QVERIFY(shown->isDiscovered());
  QCOMPARE(shown->widget<QWidget>("setSpeed").toolTip(), "Zum Bearbeiten auf das Schloss klicken.");
  shown->controls().SFPHelpButton.setHidden(false);
  shown->controls().SFPHelpButton.click();
  QVERIFY(shown->widget<QLabel>("helpText").text().startsWith("Die SFP-Schaltfläche beschreibt"));
}

void TranslationTest::theToolkitsButtonsSpeakGerman() {
  const Translation translation(german);
  const QDialogButtonBox box(QDialogButtonBox::Cancel | QDialogButtonBox::Close);
  QCOMPARE(box.button(QDialogButtonBox::Cancel)->text().remove('&'), "Abbrechen");
  QCOMPARE(box.button(QDialogButtonBox::Close)->text().remove('&'), "Schließen");
}

void TranslationTest::fixedTextsStayAsTheyAre_data() {
  QTest::addColumn<QString>("text");
  for (const char* text :
       {"No Link", "Loading Setting...", "Automatic", "Point to Point", "Arbitrated Loop", "N/A",
        "Unknow", "Warning", "Ok", "OK", "Cancel", "Finish", "Your system is up to date!",
        "Your file can not be verified, please try again.", "You don't select any device!!",
        "*Please enter new setting.", "Update FW is running, Please wait...", "Version 1.0.0.0"}) {
    QTest::newRow(text) << text;
  }
}

void TranslationTest::fixedTextsStayAsTheyAre() {
  QFETCH(QString, text);
  const Translation translation(german);
  QCOMPARE(shownText(text.toStdString()), text);
}

void TranslationTest::aTextWithANameKeepsTheName() {
  const Translation translation(german);
  QCOMPARE(shownText("Downloading fw8.pkg"), "Wird heruntergeladen: fw8.pkg");
  QCOMPARE(shownText("Not downloaded: HTTP 404"), "Nicht heruntergeladen: HTTP 404");
}

void TranslationTest::withoutALanguageEverythingIsEnglish() {
  { const Translation passing(german); }
  QCOMPARE(shownText("not in the dump"), "not in the dump");
  QCOMPARE(shownText(""), "");
}

#include "TranslationTest.moc"
