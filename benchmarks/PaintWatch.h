#pragma once

#include <unistd.h>
#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>

namespace corvane {

/// Ends the program as soon as what is waited for is painted, and prints the milliseconds from the
/// program's start to the first paint of all and to that one, and the most memory that the process
/// held, in KiB. Main thread only.
class PaintWatch : public QObject {
 public:
  /// `started` is the monotonic clock in nanoseconds when the program was started by another, so
  /// that loading it counts. `isFull` says whether what is painted next is all that is waited for.
  PaintWatch(qint64 started, std::function<bool()> isFull)
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

  qint64 started_;
  std::function<bool()> isFull_;
  std::optional<double> first_;
};

}  // namespace corvane
