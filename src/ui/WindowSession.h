#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "launch/Launch.h"
#include "ui/QtMainQueue.h"
#include "ui/QtPrompts.h"

class QFileDialog;

namespace corvane {

class AppDelegate;
class MainWindow;

/// One window and all that stands behind it: the platform that the options choose, the
/// application's controller on it, and the prompts. Main thread only.
class WindowSession : public QObject {
  Q_OBJECT

 public:
  /// The queue outlives the session. Throws LaunchFailure when there is nothing to run on.
  WindowSession(const LaunchOptions& options, QtMainQueue& mainQueue);

  /// Waits until nothing goes on in the background.
  ~WindowSession() override;

  WindowSession(const WindowSession&) = delete;
  WindowSession& operator=(const WindowSession&) = delete;

  /// Shows the window and, once it is on the screen, launches the application. What the launch asks
  /// the user for stands in front of a window then, and not of a frame.
  void start();

  /// Shows the window again when the user asks for the program that runs already, as a click on its
  /// icon in the Mac's Dock does. For the program's own window.
  void followReopening();

  MainWindow& window() { return *window_; }
  AppDelegate& delegate() { return *delegate_; }

 signals:
  /// The adapters that were attached at the launch are listed.
  void discovered();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void launchOnce();
  void addBenchMenu();
  void chooseSupportFolder();
  void chooseRegistryDump();
  void choose(QFileDialog& panel);
  void openDump(const QString& path);
  void tellUnlisted();
  void forgetDump(const WindowSession& dump);

  QtMainQueue& mainQueue_;
  QtPrompts prompts_;
  Launch launch_;
  std::unique_ptr<AppDelegate> delegate_;
  std::unique_ptr<MainWindow> window_;
  bool isLaunched_ = false;
  std::vector<std::unique_ptr<WindowSession>> dumps_;  ///< the windows on dumps opened from here
};

}  // namespace corvane
