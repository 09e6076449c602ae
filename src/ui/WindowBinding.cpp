#include "ui/WindowBinding.h"

#include <QDialog>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <memory>
#include <utility>

#include "ui/controls/ControlBinding.h"
#include "ui/controls/DialogSize.h"

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
    showSubject();
    if (window_.isShown() != dialog_->isVisible()) setVisible(window_.isShown());
    if (window_.isShown()) dialog_->raise();
    if (!window_.isLoaded()) discard();
  }

 private:
  void build() {
    dialog_ = make_(&parent_);
    title_ = dialog_->windowTitle();
    dialog_->setWindowModality(form_ == WindowForm::Sheet ? Qt::WindowModal : Qt::NonModal);
    InterfaceWindow& window = window_;
    QObject::connect(dialog_, &QDialog::rejected, dialog_, [&window] { window.requestClose(); });
  }

  // A sheet says in its title what it is for.
  void showSubject() {
    const QString subject = QString::fromStdString(window_.subject());
    dialog_->setWindowTitle(subject.isEmpty() ? title_ : title_ + " - " + subject);
  }

  void setVisible(bool visible) {
    if (visible) fitToContent(*dialog_);
    if (visible && form_ == WindowForm::Popover) placeBelowParent();
    dialog_->setVisible(visible);
  }

  // Kept on the screen where it would reach beyond its right or lower edge.
  void placeBelowParent() {
    const QRect screen = parent_.screen()->availableGeometry();
    QPoint place = parent_.mapToGlobal(QPoint(0, parent_.height() + 2));
    place.setX(std::min(place.x(), screen.right() - dialog_->width()));
    place.setY(std::min(place.y(), screen.bottom() - dialog_->height()));
    dialog_->move(place);
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
  QString title_;  ///< the interface file's
};

}  // namespace

void bindWindow(InterfaceWindow& window, QWidget& parent, WindowForm form,
                std::function<QDialog*(QWidget* parent)> make) {
  const auto view = std::make_shared<DialogView>(window, parent, form, std::move(make));
  new ControlBinding(window, parent, [view] { view->render(); });
}

}  // namespace corvane
