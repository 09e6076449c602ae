#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class MatrixTable;
}

namespace corvane {

class MatrixController;

/// The view of the sheet that picks a hard AL_PA. Its cells carry the addresses as their tags.
class AddressMatrixSheet : public QDialog {
  Q_OBJECT

 public:
  AddressMatrixSheet(MatrixController& controller, QWidget* parent);
  ~AddressMatrixSheet() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::unique_ptr<Ui::MatrixTable> ui_;
};

}  // namespace corvane
