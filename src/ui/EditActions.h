#pragma once

#include <QObject>

class QAction;
class QWidget;

namespace corvane {

/// The Edit menu: its actions act on whatever has the focus and can be edited or copied.
class EditActions : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    QAction* cut;
    QAction* copy;
    QAction* paste;
    QAction* selectAll;
  };

  /// The actions outlive the object.
  explicit EditActions(const Actions& actions);

 private:
  void follow(QWidget* focus);

  Actions actions_;
};

/// The captions and values that a page shows, one pair a line, as plain text.
QString pageDetails(const QWidget& page);

}  // namespace corvane
