#include <QApplication>
#include <QCommandLineParser>
#include <QPalette>
#include <cstdio>

#include "AppDelegate.h"
#include "Photographer.h"
#include "ui/QtMainQueue.h"
#include "ui/WindowSession.h"
#include "ui/controls/Translation.h"

namespace {

using namespace corvane;

QPalette darkPalette() {
  const QColor text(235, 236, 238);
  const QColor faint(125, 127, 132);
  QPalette palette(QColor(60, 62, 67), QColor(45, 47, 51));
  palette.setColor(QPalette::Base, QColor(30, 31, 34));
  palette.setColor(QPalette::AlternateBase, QColor(38, 39, 43));
  palette.setColor(QPalette::Highlight, QColor(48, 110, 190));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, faint);
  }
  return palette;
}

QFont enlarged(QFont font, double percent) {
  font.setPointSizeF(font.pointSizeF() * percent / 100);
  return font;
}

LaunchOptions launchOptions(const QString& path, bool isDump) {
  LaunchOptions options;
  (isDump ? options.dump : options.bench) = path.toStdString();
  return options;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName("Velmar");
  QApplication::setApplicationName("CORVANE Utility screenshots");
  QCommandLineParser parser;
  parser.addPositionalArgument("SOURCE", "the simulated computer or the dump to show");
  parser.addPositionalArgument("FOLDER", "where the pictures go");
  parser.addOption({"dark", "with a dark palette"});
  parser.addOption({"dump", "SOURCE is a dump"});
  parser.addOption({"language", "in this language", "LANGUAGE", "en"});
  parser.addOption({"percent", "with letters of this size", "PERCENT", "100"});
  parser.addOption({"suffix", "what the names of the pictures end in", "TEXT"});
  parser.addOption(
      {"package", "also a change in progress and an update from this package", "FILE"});
  parser.addHelpOption();
  parser.process(application);
  const QStringList arguments = parser.positionalArguments();
  if (arguments.size() != 2) parser.showHelp(2);
  if (parser.isSet("dark")) QApplication::setPalette(darkPalette());
  QApplication::setFont(enlarged(QApplication::font(), parser.value("percent").toDouble()));
  const Translation translation{QLocale(parser.value("language"))};

  QtMainQueue queue;
  const bool isDump = parser.isSet("dump");
  try {
    WindowSession session(launchOptions(arguments[0], isDump), queue);
    Photographer photographer(session, arguments[1], parser.value("suffix"));
    if (!photographer.start()) return 1;
    photographer.takePages();
    if (isDump || session.delegate().state().CorvaneList.count() == 0) return 0;
    photographer.openLock();
    photographer.takePages("open-");
    photographer.takeSheets();
    if (parser.isSet("package") && !photographer.takeWork(parser.value("package"))) return 1;
    photographer.takeUpdates();
    return 0;
  } catch (const LaunchFailure& failure) {
    std::fprintf(stderr, "%s\n%s\n", failure.what(), failure.hint().c_str());
    return static_cast<int>(failure.status());
  }
}
