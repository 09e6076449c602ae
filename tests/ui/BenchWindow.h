#pragma once

#include <QTemporaryDir>
#include <QTest>
#include <functional>
#include <memory>
#include <string>

#include "AppDelegate.h"
#include "UiTest.h"
#include "fakes/FakeLog.h"
#include "platform/bench/BenchPlatform.h"
#include "platform/bench/file/BenchEdits.h"
#include "ui/MainWindow.h"
#include "ui/QtMainQueue.h"
#include "ui/QtPrompts.h"

namespace corvane {

/// The whole window on a simulated computer of its own, on which time passes so fast that the
/// mandated waits vanish.
class BenchWindow {
 public:
  /// `prepare` plugs in what the test needs and says what else the computer is like.
  explicit BenchWindow(const std::function<void(BenchState&)>& prepare) : file_(benchPath()) {
    BenchState state;
    state.clockRate = 1000;
    state.drivers = {{"Corvane2-FC", "2.0.10"}, {"Corvane2-10GE", "1.4.6"}};
    prepare(state);
    file_.create(state);
    BenchPlatformOptions options;
    options.toolsFolder = CORVANE_BENCH_TOOLS;
    bench_ = std::make_unique<BenchPlatform>(file_.path(), queue_, prompts_, log_, options);
    delegate_ = std::make_unique<AppDelegate>(bench_->platform());
    window_ = std::make_unique<MainWindow>(*delegate_, prompts_);
    prompts_.setMainWindow(window_.get());
    delegate_->inventory().whenDiscovered([this] { discovered_ = true; });
    delegate_->applicationDidFinishLaunching();
  }

  ~BenchWindow() {
    window_.reset();
    delegate_.reset();
    bench_->end();
  }

  BenchWindow(const BenchWindow&) = delete;
  BenchWindow& operator=(const BenchWindow&) = delete;

  /// Waits until the adapters that were plugged in at the start are listed and the first one is
  /// shown: the table is reloaded once at the launch and once for each, and selected after that.
  bool isDiscovered() {
    const auto attached = static_cast<uint64_t>(file_.load().adapters.size());
    const TableView& table = controls().deviceTable;
    const bool isListed = QTest::qWaitFor(
        [this, attached, &table] {
          return discovered_ && table.generation() > attached &&
                 (attached == 0 || table.selectedRow() >= 0);
        },
        patience);
    QCoreApplication::processEvents();
    return isListed;
  }

  MainWindow& window() { return *window_; }
  AppDelegate& delegate() { return *delegate_; }
  MainWindowControls& controls() { return delegate_->controls(); }
  BenchPlatform& bench() { return *bench_; }
  QtPrompts& prompts() { return prompts_; }
  QtMainQueue& queue() { return queue_; }

  /// Changes the computer from outside, as another program would.
  void edit(const std::function<void(BenchState&)>& change) { file_.update(change); }
  BenchState state() const { return file_.load(); }

  /// The widget of that name in the window or one of its dialogs; it must be there.
  template <typename Widget>
  Widget& widget(const char* name) {
    auto* const found = window_->findChild<Widget*>(name);
    if (!found) qFatal("there is no %s", name);
    return *found;
  }

  /// Whether the dialog of that name is on show.
  bool isOpen(const char* name) {
    for (const QWidget* dialog : window_->findChildren<QWidget*>(name)) {
      if (dialog->isVisible()) return true;
    }
    return false;
  }

 private:
  std::string benchPath() const { return folder_.filePath("bench.json").toStdString(); }

  const QTemporaryDir folder_;
  BenchFile file_;
  FakeLog log_;
  QtMainQueue queue_;
  QtPrompts prompts_;
  bool discovered_ = false;
  std::unique_ptr<BenchPlatform> bench_;
  std::unique_ptr<AppDelegate> delegate_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace corvane
