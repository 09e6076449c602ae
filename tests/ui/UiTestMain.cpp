#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include "UiTest.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QTEST_DISABLE_STACK_DUMP", "1");
  QApplication application(argc, argv);
  QApplication::setOrganizationName("Velmar");
  QApplication::setApplicationName("CORVANE Utility");
  const QTemporaryDir settings;
  QSettings::setDefaultFormat(QSettings::IniFormat);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());

  int failures = 0;
  for (const auto& make : corvane::uiTests()) failures += QTest::qExec(make().get(), argc, argv);
  return failures == 0 ? 0 : 1;
}
