#include "ui/WindowBinding.h"

#include <QDialog>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <utility>

#include "ui/ControlBinding.h"

namespace corvane {

namespace {

/// The dialog of one window while it is loaded.
class DialogView {
 public:
  DialogView(InterfaceWindow& window, QWidget& parent, WindowForm form,
             std::function<QDialog*(QWidget*)> make)
      : window_(window), parent_(parent), form_(form), make_(std::move(make)) {}

  void render() {
    if (window_.isLoaded() && !dialog_) build();
    if (!dialog_) return;
    if (window_.isShown() != dialog_->isVisible()) dialog_->setVisible(window_.isShown());
    if (window_.isShown()) dialog_->raise();
    if (!window_.isLoaded()) discard();
  }

 private:
  void build() {
    dialog_ = make_(&parent_);
    dialog_->setWindowModality(form_ == WindowForm::Sheet ? Qt::WindowModal : Qt::NonModal);
    InterfaceWindow& window = window_;
    QObject::connect(dialog_, &QDialog::rejected, dialog_, [&window] { window.requestClose(); });
  }

  // The dialog may be in the middle of a click, so it goes later; the controls inside are free for
  // the next one at once.
  void discard() {
    qDeleteAll(dialog_->findChildren<ControlBinding*>());
    dialog_->deleteLater();
    dialog_.clear();
  }

  InterfaceWindow& window_;
  QWidget& parent_;
  const WindowForm form_;
  const std::function<QDialog*(QWidget*)> make_;
  QPointer<QDialog> dialog_;
};

}  // namespace

void bindWindow(InterfaceWindow& window, QWidget& parent, WindowForm form,
                std::function<QDialog*(QWidget* parent)> make) {
  const auto view = std::make_shared<DialogView>(window, parent, form, std::move(make));
  new ControlBinding(window, parent, [view] { view->render(); });
}

}  // namespace corvane
