#include "ui/controls/ProgressBar.h"

#include <QPainter>
#include <chrono>
#include <cmath>
#include <numbers>

namespace corvane {

namespace {

using namespace std::chrono_literals;

constexpr auto frameInterval = 33ms;
constexpr double turnDuration = 1600;  ///< milliseconds that the piece takes to and fro
constexpr double pieceShare = 0.35;

}  // namespace

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
  frames_.setInterval(frameInterval);
  connect(&frames_, &QTimer::timeout, this, [this] {
    if (isIndeterminate()) update();
  });
}

void ProgressBar::showEvent(QShowEvent* event) {
  running_.start();
  frames_.start();
  QProgressBar::showEvent(event);
}

void ProgressBar::hideEvent(QHideEvent* event) {
  frames_.stop();
  QProgressBar::hideEvent(event);
}

void ProgressBar::paintEvent(QPaintEvent* event) {
  if (!isIndeterminate()) return QProgressBar::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF groove = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const double radius = groove.height() / 2;
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRoundedRect(groove, radius, radius);
  QRectF piece = groove;
  piece.setWidth(groove.width() * pieceShare);
  piece.moveLeft(groove.left() + (groove.width() - piece.width()) * place());
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().color(QPalette::Highlight));
  painter.drawRoundedRect(piece, radius, radius);
}

/// Where the piece is, from 0 at the left end to 1 at the right.
double ProgressBar::place() const {
  const double phase = static_cast<double>(running_.elapsed()) / turnDuration;
  return (1 - std::cos(2 * std::numbers::pi * phase)) / 2;
}

}  // namespace corvane
