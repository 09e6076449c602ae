// The yardstick of window_start: the toolkit's own window with nothing in it.
//
//   empty_window STARTED      (see PaintWatch)

#include <QApplication>
#include <QMainWindow>

#include "PaintWatch.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.resize(900, 560);
  const corvane::PaintWatch watch(QApplication::arguments().value(1).toLongLong(),
                                  [] { return true; });
  window.show();
  return QApplication::exec();
}
