#pragma once

#include <QMainWindow>
#include <memory>

namespace Ui {
class MainWindow;
}

namespace corvane {

class AppDelegate;
class DeviceListModel;
class DeviceRowDelegate;
class EditActions;
class QtPrompts;
struct MainWindowControls;

/// The main window: the device table at the left, the pages at the right, the bar below and the
/// menus. It renders the controller's controls and passes on what the user does.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// The controller and the prompts outlive the window.
  MainWindow(AppDelegate& delegate, QtPrompts& prompts, QWidget* parent = nullptr);
  ~MainWindow() override;

  /// Opens where the user left it, and keeps where they leave it. Without a name nothing is kept.
  void rememberGeometry(const QString& name);

  /// Tells that the window is about a registry dump, to which nothing can be connected.
  void showAsDump();

 signals:
  /// File > Open Support Folder was chosen.
  void openSupportFolderRequested();

  /// File > Open Registry Dump was chosen.
  void openRegistryDumpRequested();

  /// The user has closed the window.
  void closed();

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void openAtFittingSize();
  void bindDeviceTable();
  void bindPageBar(MainWindowControls& controls);
  void bindBottomBar(MainWindowControls& controls);
  void bindPages(MainWindowControls& controls);
  void fitCurrentPage();
  void bindSheets();
  void connectMenus();
  void renderDeviceTable();
  void copyDetails();

  AppDelegate& delegate_;
  QtPrompts& prompts_;
  std::unique_ptr<Ui::MainWindow> ui_;
  std::unique_ptr<EditActions> editActions_;  ///< gone before the actions and what has the focus
  DeviceListModel* rows_ = nullptr;
  DeviceRowDelegate* rowDelegate_ = nullptr;
  uint64_t shownGeneration_ = 0;
  QString geometryName_;
};

}  // namespace corvane
