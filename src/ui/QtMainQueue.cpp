#include "ui/QtMainQueue.h"

#include <QMetaObject>
#include <QThread>
#include <utility>

namespace corvane {

void QtMainQueue::post(std::function<void()> work) {
  QMetaObject::invokeMethod(&receiver_, std::move(work), Qt::QueuedConnection);
}

bool QtMainQueue::isMain() const {
  return QThread::currentThread() == receiver_.thread();
}

}  // namespace corvane
