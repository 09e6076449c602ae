// Starts the window on a bench, or with "--empty" nothing but the toolkit's own empty window, and
// ends as soon as it is painted: the utility's with the list of all its adapters in it.
//
//   window_start STARTED BENCH ADAPTERS
//   window_start STARTED --empty
//
// STARTED is the monotonic clock, in nanoseconds, when the program was started, so that loading it
// counts. Prints the milliseconds from then to the window's first paint and to that of the full
// list, and the most memory that the process held, in KiB. benchmarks/window_ratios.py compares.

#include <unistd.h>
#include <QApplication>
#include <QCommandLineParser>
#include <QEvent>
#include <QListView>
#include <QMainWindow>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>

#include "ui/MainWindow.h"
#include "ui/QtMainQueue.h"
#include "ui/WindowSession.h"

namespace {

using namespace corvane;

/// Watches for the paint of a window and of its list.
class PaintWatch : public QObject {
 public:
  /// `isFull` says whether what is painted now is all that is waited for.
  PaintWatch(int64_t started, std::function<bool()> isFull)
      : started_(started), isFull_(std::move(isFull)) {
    QApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::UpdateRequest && event->type() != QEvent::Expose) return false;
    // What is posted now runs after the paint that this event asks for.
    QTimer::singleShot(0, this, [this, full = isFull_()] { painted(full); });
    return false;
  }

 private:
  void painted(bool full) {
    if (!first_) first_ = milliseconds();
    if (!full) return;
    std::printf("%.2f %.2f %ld\n", *first_, milliseconds(), peakMemory());
    std::fflush(stdout);
    _exit(0);
  }

  double milliseconds() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
    return static_cast<double>(nanoseconds - started_) / 1e6;
  }

  static long peakMemory() {
    std::FILE* status = std::fopen("/proc/self/status", "r");
    char line[256];
    long kibibytes = 0;
    while (status != nullptr && std::fgets(line, sizeof line, status) != nullptr) {
      if (std::sscanf(line, "VmHWM: %ld", &kibibytes) == 1) break;
    }
    if (status != nullptr) std::fclose(status);
    return kibibytes;
  }

  int64_t started_;
  std::function<bool()> isFull_;
  std::optional<double> first_;
};

int showEmptyWindow(int64_t started) {
  QMainWindow window;
  window.resize(900, 560);
  const PaintWatch watch(started, [] { return true; });
  window.show();
  return QApplication::exec();
}

int showUtility(int64_t started, const std::string& bench, int adapters) {
  QtMainQueue queue;
  LaunchOptions options;
  options.bench = bench;
  WindowSession session(options, queue);
  const auto* list = session.window().findChild<QListView*>();
  const PaintWatch watch(started,
                         [list, adapters] { return list->model()->rowCount() == adapters; });
  session.start();
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName("Velmar");
  QApplication::setApplicationName("CORVANE Utility benchmark");
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 3) return 2;
  const int64_t started = arguments[1].toLongLong();
  if (arguments[2] == "--empty") return showEmptyWindow(started);
  return showUtility(started, arguments[2].toStdString(), arguments.value(3).toInt());
}
