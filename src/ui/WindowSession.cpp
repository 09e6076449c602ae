#include "ui/WindowSession.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <utility>

#include "AppDelegate.h"
#include "pages/DumpPages.h"
#include "ui/BenchMenu.h"
#include "ui/MainWindow.h"
#include "ui/controls/Translation.h"
#include "ui/sheets/PasswordSheet.h"

namespace corvane {

namespace {

/// A window that is hidden at once, or covered, is never painted; the launch does not wait for
/// ever.
constexpr std::chrono::seconds longestWait{2};

}  // namespace

WindowSession::WindowSession(const LaunchOptions& options, QtMainQueue& mainQueue)
    : mainQueue_(mainQueue),
      launch_(options, mainQueue, prompts_),
      delegate_(std::make_unique<AppDelegate>(launch_.platform())),
      window_(std::make_unique<MainWindow>(*delegate_, prompts_)) {
  prompts_.setMainWindow(window_.get());
  launch_.setPasswordPrompt([this] { return PasswordSheet::ask(window_.get()); });
  connect(window_.get(), &MainWindow::openSupportFolderRequested, this,
          &WindowSession::chooseSupportFolder);
  connect(window_.get(), &MainWindow::openRegistryDumpRequested, this,
          &WindowSession::chooseRegistryDump);
  delegate_->onlineUpdate().whileDownloading([this] { mainQueue_.serveWindow(); });
  if (launch_.isReadOnly()) {
    delegate_->showAsDump("A registry dump cannot be changed.");
    window_->showAsDump();
  }
  window_->rememberGeometry(launch_.isReadOnly() ? "dumpWindow" : "mainWindow");
  if (launch_.source().empty()) return;
  const QFileInfo source(QString::fromStdString(launch_.source()));
  window_->setWindowFilePath(source.filePath());
  window_->setWindowTitle(launch_.isReadOnly()
                              ? tr("%1 (read-only) - CORVANE Utility").arg(source.fileName())
                              : tr("%1 - CORVANE Utility").arg(source.fileName()));
  if (!launch_.isReadOnly()) addBenchMenu();
}

WindowSession::~WindowSession() {
  dumps_.clear();
  window_.reset();
  delegate_.reset();
  launch_.end();
}

void WindowSession::start() {
  delegate_->inventory().whenDiscovered([this] {
    if (launch_.isReadOnly()) tellUnlisted();
    emit discovered();
  });
  window_->show();
  window_->windowHandle()->installEventFilter(this);
  QTimer::singleShot(longestWait, this, &WindowSession::launchOnce);
}

// The window is painted while the event is handled, and the launch comes after that.
bool WindowSession::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose) QTimer::singleShot(0, this, &WindowSession::launchOnce);
  return QObject::eventFilter(watched, event);
}

void WindowSession::launchOnce() {
  if (std::exchange(isLaunched_, true)) return;
  delegate_->applicationDidFinishLaunching();
}

// The toolkit tells of a program that is asked for while it is active by telling again that it is.
void WindowSession::followReopening() {
  const auto isActive = [](Qt::ApplicationState state) { return state == Qt::ApplicationActive; };
  connect(qApp, &QGuiApplication::applicationStateChanged, this,
          [this, isActive, wasActive = isActive(QGuiApplication::applicationState())](
              Qt::ApplicationState state) mutable {
            if (wasActive && isActive(state))
              delegate_->applicationShouldHandleReopen(window_->isVisible());
            wasActive = isActive(state);
          });
}

void WindowSession::tellUnlisted() {
  QStringList sentences;
  const std::string remark = launch_.remark();
  for (const std::string& sentence : unlistedAdapters(
           launch_.platform().registry, delegate_->state().CorvaneList, remark.empty()))
    sentences << shownText(sentence);
  if (sentences.isEmpty()) return;
  auto* const box = new QMessageBox(QMessageBox::Information, tr("Registry Dump"),
                                    sentences.join("\n"), QMessageBox::Ok, window_.get());
  box->setObjectName("unlistedAdapters");
  box->setInformativeText(shownList(remark));
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

void WindowSession::addBenchMenu() {
  QMenuBar* const bar = window_->menuBar();
  const auto* const windowMenu = bar->findChild<QMenu*>("menuWindow");
  bar->insertMenu(windowMenu->menuAction(), new BenchMenu(launch_.source(), window_.get()));
}

void WindowSession::chooseSupportFolder() {
  auto* const panel = new QFileDialog(window_.get(), tr("Open Support Folder"));
  panel->setObjectName("supportFolderPanel");
  panel->setFileMode(QFileDialog::Directory);
  choose(*panel);
}

void WindowSession::chooseRegistryDump() {
  auto* const panel = new QFileDialog(window_.get(), tr("Open Registry Dump"));
  panel->setObjectName("registryDumpPanel");
  panel->setFileMode(QFileDialog::ExistingFile);
  choose(*panel);
}

void WindowSession::choose(QFileDialog& panel) {
  panel.setAttribute(Qt::WA_DeleteOnClose);
  panel.setOption(QFileDialog::ReadOnly);
  connect(&panel, &QFileDialog::fileSelected, this, &WindowSession::openDump);
  panel.open();
}

void WindowSession::openDump(const QString& path) {
  LaunchOptions options;
  options.dump = path.toStdString();
  try {
    WindowSession& dump =
        *dumps_.emplace_back(std::make_unique<WindowSession>(options, mainQueue_));
    connect(
        &dump.window(), &MainWindow::closed, this, [this, &dump] { forgetDump(dump); },
        Qt::QueuedConnection);
    dump.start();
  } catch (const LaunchFailure& failure) {
    auto* const box = new QMessageBox(QMessageBox::Warning, tr("Open Registry Dump"),
                                      shownFailure(failure), QMessageBox::Ok, window_.get());
    box->setInformativeText(shownText(failure.hint()));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
  }
}

void WindowSession::forgetDump(const WindowSession& dump) {
  const auto isIt = [&dump](const auto& session) { return session.get() == &dump; };
  dumps_.erase(std::remove_if(dumps_.begin(), dumps_.end(), isIt), dumps_.end());
}

}  // namespace corvane
