#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace corvane {

/// Gives the keyboard's focus back to the control that lost it by being taken out of use for a
/// while, unless the user has gone elsewhere meanwhile. One for each window, which owns it.
class FocusReturn : public QObject {
 public:
  /// The one of that widget's window, made at its first use.
  static FocusReturn& of(const QWidget& widget);

  /// Puts `widget` in or out of use.
  void setEnabled(QWidget& widget, bool isEnabled);

 private:
  explicit FocusReturn(QWidget& window);

  QWidget& window_;
  QPointer<QWidget> owner_;   ///< the control out of use that is to have the focus again
  QPointer<QWidget> holder_;  ///< what the toolkit gave the focus to instead; null for nothing
};

}  // namespace corvane
