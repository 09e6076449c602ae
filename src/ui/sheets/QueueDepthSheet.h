#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class FCQDepthViewController;
}

namespace corvane {

class FCQDepthViewController;

/// The view of the queue-depth sheet.
class QueueDepthSheet : public QDialog {
  Q_OBJECT

 public:
  QueueDepthSheet(FCQDepthViewController& controller, QWidget* parent);
  ~QueueDepthSheet() override;

 private:
  std::unique_ptr<Ui::FCQDepthViewController> ui_;
};

}  // namespace corvane
