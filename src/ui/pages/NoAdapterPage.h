#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class NoAdapterPage;
}

namespace corvane {

/// The page shown while there is no adapter: what to plug in, and where.
class NoAdapterPage : public QWidget {
  Q_OBJECT

 public:
  explicit NoAdapterPage(QWidget* parent = nullptr);
  ~NoAdapterPage() override;

  /// Tells that the page is about a registry dump, to which nothing can be connected.
  void showAsDump();

 private:
  std::unique_ptr<Ui::NoAdapterPage> ui_;
};

}  // namespace corvane
