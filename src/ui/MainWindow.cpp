#include "ui/MainWindow.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QScreen>
#include <QSettings>

#include "AppDelegate.h"
#include "ui/EditActions.h"
#include "ui/QtPrompts.h"
#include "ui/WindowBinding.h"
#include "ui/controls/Artwork.h"
#include "ui/controls/Bindings.h"
#include "ui/controls/ControlBinding.h"
#include "ui/controls/FocusReturn.h"
#include "ui/controls/HelpPopover.h"
#include "ui/list/DeviceListModel.h"
#include "ui/list/DeviceRowDelegate.h"
#include "ui/sheets/AboutWindow.h"
#include "ui/sheets/AddressMatrixSheet.h"
#include "ui/sheets/QueueDepthSheet.h"
#include "ui/sheets/SFPSheet.h"
#include "ui/sheets/UpdateSheet.h"
#include "ui_MainWindow.h"

namespace corvane {

namespace {

/// The size that the window opens with, in heights of a line: it grows with the letters.
constexpr int linesWide = 57;
constexpr int linesHigh = 37;
constexpr int sidebarLinesWide = 15;

}  // namespace

MainWindow::MainWindow(AppDelegate& delegate, QtPrompts& prompts, QWidget* parent)
    : QMainWindow(parent),
      delegate_(delegate),
      prompts_(prompts),
      ui_(std::make_unique<Ui::MainWindow>()) {
  ui_->setupUi(this);
  ui_->splitter->setStretchFactor(1, 1);
  openAtFittingSize();
  ui_->sidebar->setBackgroundRole(QPalette::Base);
  ui_->sidebar->setAutoFillBackground(true);
  ui_->refreshButton->setIcon(artworkIcon("refresh.svg"));
  bindDeviceTable();
  bindPageBar(delegate.controls());
  bindBottomBar(delegate.controls());
  bindPages(delegate.controls());
  bindSheets();
  connectMenus();
  ui_->deviceTable->setFocus();
  InterfaceWindow& shown = delegate.mainWindow();
  new ControlBinding(shown, *this, [this, &shown] { setVisible(shown.isShown()); });
}

MainWindow::~MainWindow() = default;

void MainWindow::openAtFittingSize() {
  const int line = fontMetrics().height();
  const QSize wanted(linesWide * line, linesHigh * line);
  resize(wanted.boundedTo(screen()->availableSize()));
  ui_->refreshButton->setIconSize({line, line});
  ui_->authView->setIconSize({line * 3 / 2, line * 3 / 2});
  ui_->splitter->setSizes({sidebarLinesWide * line, (linesWide - sidebarLinesWide) * line});
}

void MainWindow::rememberGeometry(const QString& name) {
  geometryName_ = name;
  const QSettings settings;
  restoreGeometry(settings.value(name + "/geometry").toByteArray());
  ui_->splitter->restoreState(settings.value(name + "/splitter").toByteArray());
}

void MainWindow::showAsDump() {
  ui_->noAdapterPage->showAsDump();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  ui_->actionFullScreen->setText(isFullScreen() ? tr("Exit &Full Screen")
                                                : tr("Enter &Full Screen"));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  const bool isUpdating = delegate_.firmwareUpdate().isRunning() || prompts_.isWaiting();
  if (isUpdating && !prompts_.askToLeave()) {
    event->ignore();
    return;
  }
  if (!geometryName_.isEmpty()) {
    QSettings settings;
    settings.setValue(geometryName_ + "/geometry", saveGeometry());
    settings.setValue(geometryName_ + "/splitter", ui_->splitter->saveState());
  }
  delegate_.mainWindow().requestClose();
  event->accept();
  emit closed();
}

void MainWindow::bindDeviceTable() {
  rows_ = new DeviceListModel(delegate_, this);
  rowDelegate_ = new DeviceRowDelegate(this);
  ui_->deviceTable->setModel(rows_);
  ui_->deviceTable->setItemDelegate(rowDelegate_);
  TableView& table = delegate_.controls().deviceTable;
  new ControlBinding(table, *ui_->deviceTable, [this] { renderDeviceTable(); });
  connect(ui_->deviceTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [&table](const QModelIndex& current) {
            if (current.isValid() && current.row() != table.selectedRow()) {
              table.choose(current.row());
            }
          });
}

void MainWindow::renderDeviceTable() {
  const TableView& table = delegate_.controls().deviceTable;
  rowDelegate_->setRowHeight(static_cast<int>(table.rowHeight()));
  FocusReturn::of(*ui_->deviceTable).setEnabled(*ui_->deviceTable, table.isEnabled());
  if (table.generation() != shownGeneration_) {
    shownGeneration_ = table.generation();
    const QSignalBlocker quiet(ui_->deviceTable->selectionModel());
    rows_->reload();
  }
  ui_->deviceTable->setMinimumWidth(ui_->deviceTable->sizeHintForColumn(0));
  ui_->deviceTable->setCurrentIndex(rows_->index(static_cast<int>(table.selectedRow())));
  ui_->deviceTable->viewport()->update();
}

void MainWindow::bindPageBar(MainWindowControls& controls) {
  bind(controls.port1Button, *ui_->port1Button, ui_->actionPort1);
  bind(controls.port2Button, *ui_->port2Button, ui_->actionPort2);
  bind(controls.deviceButton, *ui_->deviceButton, ui_->actionDevice);
  bind(controls.refreshButton, *ui_->refreshButton, ui_->actionRefresh);
}

void MainWindow::bindBottomBar(MainWindowControls& controls) {
  bind(controls.authView, *ui_->authView, ui_->actionLock);
  bind(controls.downloadLogs, *ui_->downloadLogs, ui_->actionCollectLogs);
  bind(controls.updateFW, *ui_->updateFW, ui_->actionUpdateFirmware);
  bind(controls.checkUpdate, *ui_->checkUpdate, ui_->actionCheckUpdates);
  bind(controls.logProgress, *ui_->logProgress);
}

void MainWindow::bindPages(MainWindowControls& controls) {
  connect(ui_->tabView, &QStackedWidget::currentChanged, this, &MainWindow::fitCurrentPage);
  fitCurrentPage();
  bind(controls.tabView, *ui_->tabView);
  ui_->fibreChannelPortPage->bindTo(controls);
  ui_->fibreChannelDevicePage->bindTo(controls);
  ui_->tenGigabitPortPage->bindTo(controls);
  ui_->tenGigabitDevicePage->bindTo(controls);
}

// Only the page on show decides how much there is to scroll.
void MainWindow::fitCurrentPage() {
  for (int index = 0; index < ui_->tabView->count(); ++index) {
    const bool shown = index == ui_->tabView->currentIndex();
    const auto policy = shown ? QSizePolicy::Preferred : QSizePolicy::Ignored;
    ui_->tabView->widget(index)->setSizePolicy(policy, policy);
  }
  ui_->tabView->adjustSize();
}

void MainWindow::bindSheets() {
  SFPController& sfp = delegate_.sfpController();
  bindWindow(sfp.SFPWindow, *this, WindowForm::Sheet,
             [&sfp](QWidget* parent) { return new SFPSheet(sfp, parent); });
  MatrixController& matrix = delegate_.matrixController();
  bindWindow(matrix.matrixWindow, *this, WindowForm::Sheet,
             [&matrix](QWidget* parent) { return new AddressMatrixSheet(matrix, parent); });
  FCQDepthViewController& depth = delegate_.queueDepthController();
  bindWindow(depth.QDepthWindow, *this, WindowForm::Sheet,
             [&depth](QWidget* parent) { return new QueueDepthSheet(depth, parent); });
  FibreChannelPages& pages = delegate_.fibreChannelPages();
  bindWindow(pages.SFPHelp, ui_->fibreChannelPortPage->helpAnchor(), WindowForm::Popover,
             [&pages](QWidget* parent) { return new HelpPopover(pages.SFPHelpContent, parent); });
  OnlineUpdate& update = delegate_.onlineUpdate();
  bindWindow(update.controls().updateWindow, *this, WindowForm::Sheet,
             [this, &update](QWidget* parent) {
               auto* const sheet = new UpdateSheet(update, parent);
               prompts_.setUpdateWindow(sheet);
               return sheet;
             });
  AboutDialog& about = delegate_.aboutDialog();
  bindWindow(about.window, *this, WindowForm::Window,
             [&about](QWidget* parent) { return new AboutWindow(about, parent); });
}

void MainWindow::connectMenus() {
  editActions_ = std::make_unique<EditActions>(EditActions::Actions{
      ui_->actionCut, ui_->actionCopy, ui_->actionPaste, ui_->actionSelectAll});
  connect(ui_->actionCopyDetails, &QAction::triggered, this, &MainWindow::copyDetails);
  connect(ui_->actionOpenSupportFolder, &QAction::triggered, this,
          &MainWindow::openSupportFolderRequested);
  connect(ui_->actionOpenRegistryDump, &QAction::triggered, this,
          &MainWindow::openRegistryDumpRequested);
  connect(ui_->actionClose, &QAction::triggered, this, &QWidget::close);
  connect(ui_->actionQuit, &QAction::triggered, qApp, &QApplication::quit);
  auto* const pages = new QActionGroup(this);
  for (QAction* page : {ui_->actionPort1, ui_->actionPort2, ui_->actionDevice}) {
    pages->addAction(page);
  }
#ifdef Q_OS_MACOS
  ui_->actionFullScreen->setShortcut(QKeySequence::FullScreen);
#endif
  connect(ui_->actionFullScreen, &QAction::triggered, this,
          [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); });
  connect(ui_->actionMinimize, &QAction::triggered, this, &QWidget::showMinimized);
  connect(ui_->actionZoom, &QAction::triggered, this,
          [this] { setWindowState(windowState() ^ Qt::WindowMaximized); });
  connect(ui_->actionAbout, &QAction::triggered, this, [this] { delegate_.showAbout(); });
}

void MainWindow::copyDetails() {
  QApplication::clipboard()->setText(pageDetails(*ui_->tabView->currentWidget()));
}

}  // namespace corvane
