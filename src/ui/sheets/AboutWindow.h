#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class AboutDialog;
}

namespace corvane {

class AboutDialog;

/// The view of the About box.
class AboutWindow : public QDialog {
  Q_OBJECT

 public:
  AboutWindow(AboutDialog& controller, QWidget* parent);
  ~AboutWindow() override;

 private:
  std::unique_ptr<Ui::AboutDialog> ui_;
};

}  // namespace corvane
