#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class SFPController;
}

namespace corvane {

class SFPController;

/// The view of the transceiver sheet.
class SFPSheet : public QDialog {
  Q_OBJECT

 public:
  SFPSheet(SFPController& controller, QWidget* parent);
  ~SFPSheet() override;

 private:
  std::unique_ptr<Ui::SFPController> ui_;
};

}  // namespace corvane
