#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class FibreChannelDevicePage;
}

namespace corvane {

struct MainWindowControls;

/// The page of a Fibre Channel adapter: its identity, versions and queue depth.
class FibreChannelDevicePage : public QWidget {
  Q_OBJECT

 public:
  explicit FibreChannelDevicePage(QWidget* parent = nullptr);
  ~FibreChannelDevicePage() override;

  /// Renders the page's controls.
  void bindTo(MainWindowControls& controls);

 private:
  std::unique_ptr<Ui::FibreChannelDevicePage> ui_;
};

}  // namespace corvane
