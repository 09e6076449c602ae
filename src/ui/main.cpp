#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QMessageBox>
#include <cstdio>
#include <memory>
#include <optional>

#include <sys/stat.h>
#include <unistd.h>

#include "ui/Artwork.h"
#include "ui/QtMainQueue.h"
#include "ui/WindowSession.h"

namespace corvane {

namespace {

LaunchOptions launchOptions(const QApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QApplication::tr(
      "Manages Velmar's Thunderbolt Fibre Channel and 10 Gigabit Ethernet adapters."));
  const QCommandLineOption bench(
      "bench", QApplication::tr("Run on the simulated computer in FILE."), "FILE");
  const QCommandLineOption dump(
      "dump",
      QApplication::tr("Show the computer in a registry dump or a folder of logs, read-only."),
      "PATH");
  const QCommandLineOption journal(
      "journal", QApplication::tr("Append what crosses the platform boundary to FILE."), "FILE");
  parser.addOptions({bench, dump, journal});
  parser.addHelpOption();
  parser.addVersionOption();
  parser.process(application);
  LaunchOptions options;
  options.bench = parser.value(bench).toStdString();
  options.dump = parser.value(dump).toStdString();
  options.journal = parser.value(journal).toStdString();
  return options;
}

/// Whether whoever started the program can read its standard error: it goes to a terminal, or to
/// another program or a file.
bool standardErrorIsRead() {
  struct stat target {};
  if (fstat(STDERR_FILENO, &target) != 0) return false;
  return isatty(STDERR_FILENO) != 0 || S_ISFIFO(target.st_mode) || S_ISREG(target.st_mode);
}

/// On standard error, and in a window for those who started the program by its icon.
void tell(const LaunchFailure& failure) {
  std::fprintf(stderr, "corvane-utility: %s\n%s\n", failure.what(), failure.hint().c_str());
  if (standardErrorIsRead()) return;
  QMessageBox box(QMessageBox::Critical, "CORVANE Utility", QString::fromStdString(failure.what()));
  box.setInformativeText(QString::fromStdString(failure.hint()));
  box.exec();
}

int run(const QApplication& application) {
  QtMainQueue mainQueue;
  std::optional<WindowSession> session;
  try {
    session.emplace(launchOptions(application), mainQueue);
  } catch (const LaunchFailure& failure) {
    tell(failure);
    return static_cast<int>(failure.status());
  }
  session->followReopening();
  session->start();
  return QApplication::exec();
}

}  // namespace

}  // namespace corvane

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName("Velmar");
  QApplication::setApplicationName("CORVANE Utility");
  QApplication::setApplicationVersion(CORVANE_VERSION);
  QApplication::setDesktopFileName("corvane-utility");
#ifdef Q_OS_MACOS
  // A Mac's program goes on without a window until it is quit, and shows it again on request.
  QApplication::setQuitOnLastWindowClosed(false);
#endif
  QApplication::setWindowIcon(corvane::artworkIcon("corvane.icns"));
  return corvane::run(application);
}
