#include <QApplication>
#include <QCommandLineParser>
#include <QListView>
#include <QPalette>
#include <QTest>
#include <cstdio>

#include "AppDelegate.h"
#include "ui/MainWindow.h"
#include "ui/QtMainQueue.h"
#include "ui/WindowSession.h"

namespace {

using namespace corvane;

constexpr int patience = 30000;

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

/// Takes the pages of each adapter of a bench, and the dialogs, into a folder.
class Photographer {
 public:
  Photographer(WindowSession& session, const QString& folder, const QString& suffix)
      : session_(session), folder_(folder), suffix_(suffix) {}

  bool takeAll() {
    if (!allAdaptersAreShown()) return false;
    const auto entries = session_.delegate().state().CorvaneList.entries();
    for (size_t row = 0; row < entries.size(); ++row) {
      const QString product = QString::fromStdString(entries[row].ProductType).replace(' ', '-');
      session_.delegate().selectRow(static_cast<int64_t>(row));
      take(product.toLower() + "-port");
      controls().deviceButton.click();
      take(product.toLower() + "-device");
    }
    return true;
  }

 private:
  MainWindowControls& controls() { return session_.delegate().controls(); }

  bool allAdaptersAreShown() {
    bool discovered = false;
    session_.delegate().whenDiscovered([&discovered] { discovered = true; });
    session_.start();
    return QTest::qWaitFor([&discovered] { return discovered; }, patience);
  }

  void take(const QString& name) {
    QApplication::processEvents();
    session_.window().grab().save(folder_ + "/" + name + suffix_ + ".png");
  }

  WindowSession& session_;
  QString folder_;
  QString suffix_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName("Velmar");
  QApplication::setApplicationName("CORVANE Utility screenshots");
  QCommandLineParser parser;
  parser.addPositionalArgument("BENCH", "the simulated computer to show");
  parser.addPositionalArgument("FOLDER", "where the pictures go");
  parser.addOption({"dark", "with a dark palette"});
  parser.addHelpOption();
  parser.process(application);
  const QStringList arguments = parser.positionalArguments();
  if (arguments.size() != 2) parser.showHelp(2);
  const bool dark = parser.isSet("dark");
  if (dark) QApplication::setPalette(darkPalette());

  QtMainQueue queue;
  LaunchOptions options;
  options.bench = arguments[0].toStdString();
  try {
    WindowSession session(options, queue);
    return Photographer(session, arguments[1], dark ? "-dark" : "").takeAll() ? 0 : 1;
  } catch (const LaunchFailure& failure) {
    std::fprintf(stderr, "%s\n%s\n", failure.what(), failure.hint().c_str());
    return static_cast<int>(failure.status());
  }
}
