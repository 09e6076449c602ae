#include "ui/QtMainQueue.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>
#include <string>

#include "UiTest.h"

using namespace corvane;

/// The main queue on the toolkit's event loop.
class QtMainQueueTest : public QObject {
  Q_OBJECT

 private slots:
  void workRunsInOrder();
  void workThatWaitsIsNotRunWhileTheWindowIsServed();
  void theWindowIsServedMeanwhile();
  void servingTheWindowWhileItIsServedDoesNothing();

 private:
  void note(const std::string& name) { order_ += name; }

  std::string order_;
};

namespace {
const UiTestRegistration<QtMainQueueTest> qtMainQueueTest;
}  // namespace

void QtMainQueueTest::workRunsInOrder() {
  order_.clear();
  QtMainQueue queue;
  for (const char* name : {"a", "b", "c"}) queue.post([this, name] { note(name); });
  QCOMPARE(order_, std::string());
  QCoreApplication::processEvents();
  QCOMPARE(order_, std::string("abc"));
}

void QtMainQueueTest::workThatWaitsIsNotRunWhileTheWindowIsServed() {
  order_.clear();
  QtMainQueue queue;
  queue.post([this, &queue] {
    queue.post([this] { note("c"); });
    queue.serveWindow();
    queue.post([this] { note("d"); });
    note("a");
  });
  queue.post([this] { note("b"); });
  QTRY_COMPARE_WITH_TIMEOUT(order_, std::string("abcd"), patience);
}

void QtMainQueueTest::theWindowIsServedMeanwhile() {
  QtMainQueue queue;
  bool isServed = false;
  QTimer::singleShot(0, this, [&isServed] { isServed = true; });
  queue.serveWindow();
  QVERIFY(isServed);
}

void QtMainQueueTest::servingTheWindowWhileItIsServedDoesNothing() {
  order_.clear();
  QtMainQueue queue;
  queue.post([this] { note("b"); });
  QTimer::singleShot(0, this, [this, &queue] {
    queue.serveWindow();
    note("a");
  });
  queue.serveWindow();
  QCOMPARE(order_, std::string("a"));
  QTRY_COMPARE_WITH_TIMEOUT(order_, std::string("ab"), patience);
}

#include "QtMainQueueTest.moc"
