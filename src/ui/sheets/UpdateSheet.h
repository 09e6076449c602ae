#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class OnlineUpdate;
}

namespace corvane {

class OnlineUpdate;
class UpdateTableModel;

/// The view of the update window.
class UpdateSheet : public QDialog {
  Q_OBJECT

 public:
  UpdateSheet(OnlineUpdate& controller, QWidget* parent);
  ~UpdateSheet() override;

  /// The user wants the window closed; whether it closes is the controller's decision.
  void reject() override;

 private:
  void bindTable();
  void renderTable();
  void tickRow();
  int widthOfCells() const;

  OnlineUpdate& controller_;
  std::unique_ptr<Ui::OnlineUpdate> ui_;
  UpdateTableModel* rows_ = nullptr;
  uint64_t shownGeneration_ = 0;
};

}  // namespace corvane
