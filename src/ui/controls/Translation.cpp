#include "ui/controls/Translation.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <array>
#include <vector>

#include "launch/LaunchFailure.h"
#include "ui/controls/FindingTexts.h"

namespace corvane {

namespace {

constexpr const char* controllerContext = "Controllers";

/// What the controllers say in their own words, for the translators. They know no toolkit, so their
/// texts are translated where they are shown.
[[maybe_unused]] constexpr std::array controllerTexts{
    QT_TRANSLATE_NOOP("Controllers", "Click the lock to make changes."),
    QT_TRANSLATE_NOOP("Controllers", "The installed driver is too old for this setting."),
    QT_TRANSLATE_NOOP("Controllers", "A registry dump cannot be changed."),
    QT_TRANSLATE_NOOP("Controllers", "None"),
    QT_TRANSLATE_NOOP("Controllers", "not in the dump"),
    QT_TRANSLATE_NOOP("Controllers", "Making the folder…"),
    QT_TRANSLATE_NOOP("Controllers", "Collecting the unified log…"),
    QT_TRANSLATE_NOOP("Controllers", "Copying the system log…"),
    QT_TRANSLATE_NOOP("Controllers", "Reading the device registry…"),
    QT_TRANSLATE_NOOP("Controllers", "Profiling the system…"),
    QT_TRANSLATE_NOOP("Controllers", "Showing the folder…"),
    QT_TRANSLATE_NOOP("Controllers", "Please select a Fibre Channel adapter first."),
    QT_TRANSLATE_NOOP("Controllers", "Tick what is to be installed."),
    QT_TRANSLATE_NOOP("Controllers", "Wait until the firmware update from a file has ended."),
    QT_TRANSLATE_NOOP(
        "Controllers",
        "The SFP button describes the transceiver module in this port. It cannot be used while the "
        "cage is empty, while the module does not suit the adapter, or with a driver too old to "
        "read modules.\n\n"
        "Use modules made for Fibre Channel: 4 and 8 Gb/s for 8G adapters, 4, 8 and 16 Gb/s for "
        "16G adapters. Modules for Ethernet and for 1, 2 or 10 Gb/s do not suit.\n\n"
        "Short wave modules need multimode fibre, long wave modules single-mode fibre, and both "
        "ends of a cable need the same kind. If there is no link, clean the connectors and choose "
        "the speed and topology of the other side, or Automatic."),
    QT_TRANSLATE_NOOP("Controllers", "The adapter has gone. Nothing was updated."),
    QT_TRANSLATE_NOOP(
        "Controllers",
        "Nothing was updated. Open the lock, or wait until the other update has ended."),
    QT_TRANSLATE_NOOP("Controllers", "it was cancelled"),
    QT_TRANSLATE_NOOP("Controllers", "the transfer failed"),
    QT_TRANSLATE_NOOP("Controllers", "the transfer library could not be initialised"),
    QT_TRANSLATE_NOOP("Controllers", "the catalogue names no file"),
    QT_TRANSLATE_NOOP("Controllers", "the catalogue's file name is too long"),
    QT_TRANSLATE_NOOP("Controllers", "the catalogue's file name begins with \"-\""),
    QT_TRANSLATE_NOOP("Controllers", "the catalogue's file name would leave its folder"),
    QT_TRANSLATE_NOOP("Controllers",
                      "the catalogue's file name has characters other than letters, digits, "
                      "\".\", \"_\", \"-\" and \"+\""),
    QT_TRANSLATE_NOOP("Controllers",
                      "the catalogue's file name is kept for a file of the utility's own"),
    QT_TRANSLATE_NOOP("Controllers", "none of its ports is in the dump, so its driver did not run"),
    QT_TRANSLATE_NOOP("Controllers",
                      "its ports are not whole in the dump; ask the customer for a whole one"),
    QT_TRANSLATE_NOOP("Controllers", "It holds no entry of a device registry."),
    QT_TRANSLATE_NOOP("Controllers",
                      "It is a property list in binary form; \"plutil -convert xml1\" makes it "
                      "readable."),
    QT_TRANSLATE_NOOP("Controllers", "It is a property list that is not well formed."),
    QT_TRANSLATE_NOOP("Controllers", "It is a property list, but of no device registry."),
    QT_TRANSLATE_NOOP("Controllers", "It is larger than 4 GB."),
    QT_TRANSLATE_NOOP("Controllers", "It cannot be read."),
    QT_TRANSLATE_NOOP("Controllers", "There is no such file."),
    QT_TRANSLATE_NOOP("Controllers", "there is no such file or folder"),
    QT_TRANSLATE_NOOP("Controllers", "there is no such bench"),
    QT_TRANSLATE_NOOP("Controllers", "cannot stand beside --dump"),
    QT_TRANSLATE_NOOP("Controllers", "neither XDG_DATA_HOME nor HOME names a folder"),
    QT_TRANSLATE_NOOP("Controllers", "the user's own bench"),
    QT_TRANSLATE_NOOP("Controllers", "Name either a bench to run on or a dump to look at."),
    QT_TRANSLATE_NOOP("Controllers", "Name a file in a folder that can be written."),
    QT_TRANSLATE_NOOP("Controllers", "Correct the file at that place; it has not been changed."),
    QT_TRANSLATE_NOOP("Controllers", "Check that the file and its folder can be read and written."),
    QT_TRANSLATE_NOOP("Controllers", "Name a registry dump or a folder of collected logs."),
    QT_TRANSLATE_NOOP("Controllers", "Name a bench with --bench FILE."),
    QT_TRANSLATE_NOOP("Controllers",
                      "Make the folder writable, or name a bench with --bench FILE."),
};

/// Texts in which names, counts and reasons of the moment stand: a whole text fits at most one.
constexpr std::array controllerPatterns{
    QT_TRANSLATE_NOOP("Controllers", "Downloading %1"),
    QT_TRANSLATE_NOOP("Controllers", "Not downloaded: %1"),
    QT_TRANSLATE_NOOP("Controllers", "%1 at %2: attached, but not listed: %3"),
    QT_TRANSLATE_NOOP("Controllers", "%1 line is cut (\"ioreg -l -w0\" cuts none)"),
    QT_TRANSLATE_NOOP("Controllers", "%1 lines are cut (\"ioreg -l -w0\" cuts none)"),
    QT_TRANSLATE_NOOP("Controllers", "%1 line cannot be read"),
    QT_TRANSLATE_NOOP("Controllers", "%1 lines cannot be read"),
    QT_TRANSLATE_NOOP("Controllers", "%1 value cannot be read"),
    QT_TRANSLATE_NOOP("Controllers", "%1 values cannot be read"),
    QT_TRANSLATE_NOOP("Controllers", "%1 value is redacted"),
    QT_TRANSLATE_NOOP("Controllers", "%1 values are redacted"),
    QT_TRANSLATE_NOOP("Controllers", "The folder holds no %1."),
    QT_TRANSLATE_NOOP("Controllers", "The folder holds %1 collections; open one of them."),
    QT_TRANSLATE_NOOP("Controllers", "the journal cannot be opened: %1"),
    QT_TRANSLATE_NOOP("Controllers", "Write one with \"corvane-bench new %1\"."),
};

/// One of the patterns, ready to be compared with a text.
struct Pattern {
  explicit Pattern(const char* pattern) : source(pattern) {
    static const QRegularExpression place(R"(\\%\d)");
    expression.setPattern(QRegularExpression::anchoredPattern(
        QRegularExpression::escape(source).replace(place, "(.+)")));
    expression.setPatternOptions(QRegularExpression::DotMatchesEverythingOption);
  }

  const char* source;
  QRegularExpression expression;
};

const std::vector<Pattern>& patterns() {
  static const std::vector<Pattern> all = [] {
    std::vector<Pattern> every(controllerPatterns.begin(), controllerPatterns.end());
    for (const char* text : findingTexts) every.emplace_back(text);
    return every;
  }();
  return all;
}

QString translated(const std::string& text) {
  return QCoreApplication::translate(controllerContext, text.c_str());
}

/// The pattern's translation with what stands in the places, itself shown in the user's language.
QString filled(const QString& pattern, const QRegularExpressionMatch& places) {
  QStringList pieces = pattern.split('%');
  QString text = pieces.takeFirst();
  for (const QString& piece : pieces) {
    const QString content = places.captured(piece.front().digitValue());
    text += shownText(content.toStdString()) + piece.mid(1);
  }
  return text;
}

bool isEnglish(const QString& language) {
  return QLocale(language).language() == QLocale::English;
}

}  // namespace

// The user's languages are tried in their order. English needs no file: the texts are written in
// it, and a language that comes after it is not what the user wants to read.
Translation::Translation(const QLocale& locale) {
  for (const QString& language : locale.uiLanguages()) {
    if (isEnglish(language)) return;
    if (load(language)) break;
  }
  if (!isInstalled()) return;
  QCoreApplication::installTranslator(&toolkitTexts_);
  QCoreApplication::installTranslator(&ownTexts_);
}

bool Translation::load(const QString& language) {
  const QString code = QLocale(language).name().section('_', 0, 0);
  return ownTexts_.load(":/translations/corvane_" + code) &&
         toolkitTexts_.load(":/translations/qtbase_" + code);
}

QString shownText(const std::string& text) {
  if (text.empty()) return {};
  const QString whole = QString::fromStdString(text);
  for (const Pattern& pattern : patterns()) {
    const auto places = pattern.expression.match(whole);
    if (places.hasMatch()) return filled(translated(pattern.source), places);
  }
  return translated(text);
}

QString shownList(const std::string& texts) {
  QStringList shown;
  for (const QString& text : QString::fromStdString(texts).split(", ")) {
    shown.append(shownText(text.toStdString()));
  }
  return shown.join(", ");
}

QString shownFailure(const LaunchFailure& failure) {
  return shownText(failure.subject()) + ": " + shownText(failure.reason());
}

}  // namespace corvane
