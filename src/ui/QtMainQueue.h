#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

#include "platform/posix/MainQueue.h"

namespace corvane {

/// The main queue served by the toolkit's event loop. Made on the main thread; work that is still
/// waiting when it goes away is dropped.
class QtMainQueue final : public QObject, public MainQueue {
  Q_OBJECT

 public:
  QtMainQueue();

  void post(std::function<void()> work) override;
  bool isMain() const override;

  /// Lets the toolkit paint and hand out what the user does, in the middle of a piece of the
  /// queue's work that takes long. The work behind it goes on waiting, whatever the toolkit does.
  /// May be called as often as one likes: the toolkit is let in some fifty times a second. Main
  /// thread.
  void serveWindow();

 signals:
  /// Has one piece of the work run by the event loop. Any thread may emit.
  void workAdded();

 private:
  void runNext();

  std::mutex mutex_;
  std::deque<std::function<void()>> work_;  ///< guarded by mutex_
  bool isHeld_ = false;                     ///< main thread only, like all that follows
  size_t turnsHeld_ = 0;                    ///< turns of runNext() to be made up for
  QElapsedTimer sinceServed_;
};

}  // namespace corvane
