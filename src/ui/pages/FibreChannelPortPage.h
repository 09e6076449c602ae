#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class FibreChannelPortPage;
}

namespace corvane {

struct MainWindowControls;

/// The page of a Fibre Channel port: its names, link, settings and transceiver.
class FibreChannelPortPage : public QWidget {
  Q_OBJECT

 public:
  explicit FibreChannelPortPage(QWidget* parent = nullptr);
  ~FibreChannelPortPage() override;

  /// Renders the page's controls.
  void bindTo(MainWindowControls& controls);

  /// The button at which the help on transceivers opens.
  QWidget& helpAnchor();

 private:
  std::unique_ptr<Ui::FibreChannelPortPage> ui_;
};

}  // namespace corvane
