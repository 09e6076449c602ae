#include "ui/controls/Translation.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <memory>

#include "BenchWindow.h"
#include "UiTest.h"
#include "launch/LaunchFailure.h"
#include "platform/dump/DumpProblems.h"

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
  void aTextWithNamesKeepsTheNames_data();
  void aTextWithNamesKeepsTheNames();
  void theRemarkOnADumpSpeaksGerman();
  void aFailedLaunchIsToldInGerman();
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

void TranslationTest::aTextWithNamesKeepsTheNames_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("shown");
  QTest::newRow("file") << "Downloading fw8.pkg"
                        << "Wird heruntergeladen: fw8.pkg";
  QTest::newRow("place") << "Downloading %1%2.pkg"
                         << "Wird heruntergeladen: %1%2.pkg";
  QTest::newRow("data") << "Not downloaded: HTTP 404"
                        << "Nicht heruntergeladen: HTTP 404";
  QTest::newRow("reason") << "Not downloaded: the catalogue names no file"
                          << "Nicht heruntergeladen: der Katalog nennt keine Datei";
  QTest::newRow("adapter") << "Corvane3 F2 at (null) - 2: attached, but not listed: none of its "
                              "ports is in the dump, so its driver did not run"
                           << "Corvane3 F2 an (null) - 2: angeschlossen, aber nicht aufgeführt: "
                              "keiner seiner Anschlüsse steht im Auszug, sein Treiber lief also "
                              "nicht";
  QTest::newRow("count") << "The folder holds 3 collections; open one of them."
                         << "Der Ordner enthält 3 Sammlungen; öffnen Sie eine davon.";
  QTest::newRow("nothing in the place") << "Downloading "
                                        << "Downloading ";
}

void TranslationTest::aTextWithNamesKeepsTheNames() {
  QFETCH(QString, text);
  QFETCH(QString, shown);
  QCOMPARE(shownText(text.toStdString()), text);
  const Translation translation(german);
  QCOMPARE(shownText(text.toStdString()), shown);
}

void TranslationTest::theRemarkOnADumpSpeaksGerman() {
  DumpProblems problems;
  problems.cutLines = 13;
  problems.unreadableValues = 1;
  const Translation translation(german);
  QCOMPARE(shownList(problems.summary()),
           "13 Zeilen sind abgeschnitten („ioreg -l -w0“ schneidet keine ab), 1 Wert ist nicht "
           "lesbar");
}

void TranslationTest::aFailedLaunchIsToldInGerman() {
  const LaunchFailure failure(LaunchExitStatus::NotFound, "nowhere.json", "there is no such bench",
                              "Write one with \"corvane-bench new nowhere.json\".");
  const Translation translation(german);
  QCOMPARE(shownFailure(failure), "nowhere.json: es gibt keinen solchen Prüfstand");
  QCOMPARE(shownText(failure.hint()), "Schreiben Sie einen mit „corvane-bench new nowhere.json“.");
}

void TranslationTest::withoutALanguageEverythingIsEnglish() {
  { const Translation passing(german); }
  QCOMPARE(shownText("not in the dump"), "not in the dump");
  QCOMPARE(shownText(""), "");
}

#include "TranslationTest.moc"
