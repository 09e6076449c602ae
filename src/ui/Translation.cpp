#include "ui/Translation.h"

#include <QCoreApplication>
#include <array>

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
    QT_TRANSLATE_NOOP("Controllers", "Name either a bench to run on or a dump to look at."),
    QT_TRANSLATE_NOOP("Controllers", "Name a file in a folder that can be written."),
    QT_TRANSLATE_NOOP("Controllers", "Correct the file at that place; it has not been changed."),
    QT_TRANSLATE_NOOP("Controllers", "Check that the file and its folder can be read and written."),
    QT_TRANSLATE_NOOP("Controllers", "Name a registry dump or a folder of collected logs."),
    QT_TRANSLATE_NOOP("Controllers", "Name a bench with --bench FILE."),
    QT_TRANSLATE_NOOP("Controllers",
                      "Make the folder writable, or name a bench with --bench FILE."),
};

/// Beginnings of texts that go on with a file's name or with a reason.
constexpr std::array controllerBeginnings{
    QT_TRANSLATE_NOOP("Controllers", "Downloading "),
    QT_TRANSLATE_NOOP("Controllers", "Not downloaded: "),
};

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
  for (const char* const beginning : controllerBeginnings) {
    if (text.rfind(beginning, 0) != 0) continue;
    const QString rest = QString::fromStdString(text.substr(std::string(beginning).size()));
    return QCoreApplication::translate(controllerContext, beginning) + rest;
  }
  return QCoreApplication::translate(controllerContext, text.c_str());
}

}  // namespace corvane
