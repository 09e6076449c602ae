#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class TenGigabitPortPage;
}

namespace corvane {

struct MainWindowControls;

/// The page of a 10GbE port: its interface, link, module, performance mode and offloads.
class TenGigabitPortPage : public QWidget {
  Q_OBJECT

 public:
  explicit TenGigabitPortPage(QWidget* parent = nullptr);
  ~TenGigabitPortPage() override;

  /// Renders the page's controls.
  void bindTo(MainWindowControls& controls);

 private:
  std::unique_ptr<Ui::TenGigabitPortPage> ui_;
};

}  // namespace corvane
