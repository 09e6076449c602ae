#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QMessageBox>
#include <cstdio>
#include <memory>
#include <optional>

#include <sys/stat.h>
#include <unistd.h>

#include "ui/QtMainQueue.h"
#include "ui/WindowSession.h"
#include "ui/controls/Artwork.h"
#include "ui/controls/Translation.h"

namespace corvane {

namespace {

/// The command line of the program.
class CommandLine {
 public:
  CommandLine() {
    parser_.setApplicationDescription(QCoreApplication::translate(
        "CommandLine",
        "Manages Velmar's Thunderbolt Fibre Channel and 10 Gigabit Ethernet "
        "adapters."));
    parser_.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser_.addOptions({bench_, dump_, journal_});
    parser_.addHelpOption();
    parser_.addVersionOption();
  }

  /// What is wrong with the arguments; empty when nothing is.
  QString problem(const QStringList& arguments) {
    if (!parser_.parse(arguments)) return parser_.errorText();
    if (parser_.positionalArguments().isEmpty()) return {};
    return QCoreApplication::translate("CommandLine", "Unexpected argument '%1'.")
        .arg(parser_.positionalArguments().front());
  }

  /// What the arguments ask to be told instead of opening a window; empty when they do not.
  QString answer(const QStringList& arguments) {
    parser_.parse(arguments);
    if (parser_.isSet("version")) {
      return QCoreApplication::applicationName() + ' ' + QCoreApplication::applicationVersion() +
             '\n';
    }
    return parser_.isSet("help") || parser_.isSet("help-all") ? parser_.helpText() : QString();
  }

  /// The options of the arguments parsed last.
  LaunchOptions options() const {
    LaunchOptions options;
    options.bench = parser_.value(bench_).toStdString();
    options.dump = parser_.value(dump_).toStdString();
    options.journal = parser_.value(journal_).toStdString();
    return options;
  }

 private:
  const QCommandLineOption bench_{
      "bench", QCoreApplication::translate("CommandLine", "Run on the simulated computer in FILE."),
      "FILE"};
  const QCommandLineOption dump_{
      "dump",
      QCoreApplication::translate(
          "CommandLine", "Show the computer in a registry dump or a folder of logs, read-only."),
      "PATH"};
  const QCommandLineOption journal_{
      "journal",
      QCoreApplication::translate("CommandLine",
                                  "Append what crosses the platform boundary to FILE."),
      "FILE"};
  QCommandLineParser parser_;
};

void nameApplication() {
  QCoreApplication::setOrganizationName("Velmar");
  QCoreApplication::setApplicationName("CORVANE Utility");
  QCoreApplication::setApplicationVersion(CORVANE_VERSION);
}

/// Answers what needs no window, and so no display. True when the arguments asked for it.
bool answered(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const Translation translation{QLocale()};
  const QString answer = CommandLine().answer(QCoreApplication::arguments());
  std::fputs(answer.toLocal8Bit().constData(), stdout);
  return !answer.isEmpty();
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
  QMessageBox box(QMessageBox::Critical, "CORVANE Utility", shownFailure(failure));
  box.setInformativeText(shownText(failure.hint()));
  box.exec();
}

int run() {
  CommandLine commandLine;
  const QString problem = commandLine.problem(QCoreApplication::arguments());
  if (!problem.isEmpty()) {
    std::fprintf(stderr, "corvane-utility: %s\n", qPrintable(problem));
    return static_cast<int>(LaunchExitStatus::WrongOptions);
  }
  QtMainQueue mainQueue;
  std::optional<WindowSession> session;
  try {
    session.emplace(commandLine.options(), mainQueue);
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
  corvane::nameApplication();
  if (corvane::answered(argc, argv)) return 0;
  QApplication application(argc, argv);
  QApplication::setDesktopFileName("corvane-utility");
#ifdef Q_OS_MACOS
  // A Mac's program goes on without a window until it is quit, and shows it again on request.
  QApplication::setQuitOnLastWindowClosed(false);
#endif
  QApplication::setWindowIcon(corvane::artworkIcon("corvane.icns"));
  const corvane::Translation translation{QLocale()};
  return corvane::run();
}
