#include "ui/sheets/AlertSheet.h"

#include <QCloseEvent>
#include <QMovie>
#include <QPushButton>
#include <algorithm>

#include "ui/controls/Artwork.h"
#include "ui/controls/Bindings.h"
#include "ui/controls/DialogSize.h"
#include "ui/controls/Translation.h"
#include "ui_AlertSheet.h"

namespace corvane {

namespace {
constexpr QSize alertIconSize{56, 56};
}

AlertSheet::AlertSheet(QWidget* parent)
    : QDialog(parent, Qt::Sheet), ui_(std::make_unique<Ui::AlertSheet>()) {
  ui_->setupUi(this);
  ui_->progress->hide();
}

AlertSheet::~AlertSheet() = default;

void AlertSheet::setContent(const AlertContent& content) {
  const QString message = QString::fromStdString(content.message);
  setWindowTitle(message);
  setAccessibleName(message);
  ui_->message->setText(message);
  ui_->informativeText->setText(shownText(content.informativeText));
  showIcon(content.icon);
  showButtons(content.buttons.empty() ? std::vector<AlertButton>{{tr("OK").toStdString()}}
                                      : content.buttons);
  if (!isWaiting()) ui_->progress->hide();
  if (movie_) movie_->setPaused(!isWaiting());
  fitToContent(*this);
}

void AlertSheet::setProgress(std::optional<double> fraction) {
  showProgress(*ui_->progress, fraction);
  ui_->progress->setVisible(isWaiting());
  fitToContent(*this);
}

bool AlertSheet::isWaiting() const {
  return std::none_of(buttons_.begin(), buttons_.end(),
                      [](const QPushButton* button) { return !button->isHidden(); });
}

void AlertSheet::reject() {
  if (QPushButton* button = lastUsableButton()) {
    button->click();
  } else {
    emit leaveRequested();
  }
}

void AlertSheet::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

void AlertSheet::showIcon(const std::string& fileName) {
  const QString animation = artworkAnimation(fileName);
  if (movie_ && movie_->fileName() == animation) return;
  delete movie_;
  movie_ = nullptr;
  if (animation.isEmpty()) {
    const std::string name = fileName.empty() ? "corvane.icns" : fileName;
    ui_->icon->setPixmap(artworkIcon(name).pixmap(alertIconSize, devicePixelRatio()));
    return;
  }
  movie_ = new QMovie(animation, {}, this);
  movie_->setScaledSize(alertIconSize);
  ui_->icon->setMovie(movie_);
  movie_->start();
}

void AlertSheet::showButtons(const std::vector<AlertButton>& buttons) {
  if (static_cast<size_t>(buttons_.size()) != buttons.size()) makeButtons(buttons.size());
  for (size_t index = 0; index < buttons.size(); ++index) {
    QPushButton* const button = buttons_[static_cast<qsizetype>(index)];
    button->setText(QString::fromStdString(buttons[index].title));
    button->setEnabled(buttons[index].enabled);
    button->setVisible(!buttons[index].hidden);
  }
  if (!buttons_.isEmpty()) buttons_.front()->setDefault(true);
}

// The first button, which confirms, stands at the right end.
void AlertSheet::makeButtons(size_t count) {
  qDeleteAll(buttons_);
  buttons_.clear();
  const int firstPlace = ui_->buttons->count();
  for (size_t index = 0; index < count; ++index) {
    auto* const button = new QPushButton(this);
    button->setObjectName("alertButton" + QString::number(index));
    connect(button, &QPushButton::clicked, this,
            [this, index] { emit buttonPressed(static_cast<int>(index)); });
    ui_->buttons->insertWidget(firstPlace, button);
    buttons_.append(button);
  }
}

QPushButton* AlertSheet::lastUsableButton() const {
  for (auto button = buttons_.rbegin(); button != buttons_.rend(); ++button) {
    if (!(*button)->isHidden() && (*button)->isEnabled()) return *button;
  }
  return nullptr;
}

}  // namespace corvane
