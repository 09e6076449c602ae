#pragma once

#include <QComboBox>
#include <QList>
#include <QString>

namespace corvane {

/// A pop-up menu that changes nothing by accident: the wheel passes it by, and keys that would step
/// through the items open it instead, since each choice is sent to an adapter at once.
class PopUpBox : public QComboBox {
  Q_OBJECT

 public:
  struct Choice {
    QString title;
    qint64 tag = 0;
    int index = 0;  ///< in the control's items

    bool operator==(const Choice&) const = default;
  };

  explicit PopUpBox(QWidget* parent = nullptr);

  /// The choices on show, from top to bottom. The same choices again leave an open menu alone.
  void setChoices(const QList<Choice>& choices);

  /// Shows the choice with that index as the current one; `plainText` when there is none.
  void showChoice(int index, const QString& plainText);

  /// Takes the menu off the screen if it is there.
  void dismiss();

  /// Put on the screen and taken off it, whoever does it.
  void showPopup() override;
  void hidePopup() override;

  /// With room for the plain text, also when it comes after the first showing.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// The user chose the item with that index in the control's items.
  void chosen(int index);

  /// The menu is about to be shown; it was taken off the screen, and what was chosen has been told.
  void opening();
  void closed();

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QSize sizeForPlainText() const;

  QList<Choice> choices_;
};

}  // namespace corvane
