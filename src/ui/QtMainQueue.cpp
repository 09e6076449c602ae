#include "ui/QtMainQueue.h"

#include <QCoreApplication>
#include <QThread>
#include <utility>

namespace corvane {

namespace {

constexpr qint64 servingInterval = 20;  // milliseconds

}  // namespace

QtMainQueue::QtMainQueue() {
  connect(this, &QtMainQueue::workAdded, this, &QtMainQueue::runNext, Qt::QueuedConnection);
}

void QtMainQueue::post(std::function<void()> work) {
  {
    const std::lock_guard lock(mutex_);
    work_.push_back(std::move(work));
  }
  emit workAdded();
}

bool QtMainQueue::isMain() const {
  return QThread::currentThread() == thread();
}

void QtMainQueue::serveWindow() {
  if (isHeld_ || (sinceServed_.isValid() && !sinceServed_.hasExpired(servingInterval))) return;
  isHeld_ = true;
  QCoreApplication::processEvents();
  isHeld_ = false;
  sinceServed_.start();
  for (; turnsHeld_ > 0; --turnsHeld_) emit workAdded();
}

void QtMainQueue::runNext() {
  if (isHeld_) {
    ++turnsHeld_;
    return;
  }
  std::function<void()> next;
  {
    const std::lock_guard lock(mutex_);
    next = std::move(work_.front());
    work_.pop_front();
  }
  next();
}

}  // namespace corvane
