// Starts the window on a bench and ends as soon as it is painted with the list of all its adapters.
//
//   window_start STARTED BENCH ADAPTERS      (see PaintWatch; window_ratios.py compares)

#include <QApplication>
#include <QListView>
#include <string>

#include "PaintWatch.h"
#include "ui/MainWindow.h"
#include "ui/QtMainQueue.h"
#include "ui/WindowSession.h"

namespace {

using namespace corvane;

int showUtility(qint64 started, const std::string& bench, int adapters) {
  QtMainQueue queue;
  LaunchOptions options;
  options.bench = bench;
  WindowSession session(options, queue);
  const auto* list = session.window().findChild<QListView*>("deviceTable");
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
  if (arguments.size() != 4) return 2;
  return showUtility(arguments[1].toLongLong(), arguments[2].toStdString(), arguments[3].toInt());
}
