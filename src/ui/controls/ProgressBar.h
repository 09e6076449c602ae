#pragma once

#include <QElapsedTimer>
#include <QProgressBar>
#include <QTimer>

namespace corvane {

/// A progress bar that, while nobody can tell how far the work is, shows a piece that runs to and
/// fro: it cannot be taken for work that is done.
class ProgressBar : public QProgressBar {
  Q_OBJECT

 public:
  explicit ProgressBar(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  bool isIndeterminate() const { return minimum() == maximum(); }
  double place() const;

  QTimer frames_;
  QElapsedTimer running_;
};

}  // namespace corvane
