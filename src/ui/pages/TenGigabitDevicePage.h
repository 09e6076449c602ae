#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class TenGigabitDevicePage;
}

namespace corvane {

struct MainWindowControls;

/// The page of a 10GbE adapter: its product and driver.
class TenGigabitDevicePage : public QWidget {
  Q_OBJECT

 public:
  explicit TenGigabitDevicePage(QWidget* parent = nullptr);
  ~TenGigabitDevicePage() override;

  /// Renders the page's controls.
  void bindTo(MainWindowControls& controls);

 private:
  std::unique_ptr<Ui::TenGigabitDevicePage> ui_;
};

}  // namespace corvane
