#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <map>

#include "platform/UserPrompts.h"

namespace corvane {

class AlertSheet;

/// Asks and tells the user with dialogs: sheets are window-modal dialogs of the window they belong
/// to. Main thread only.
class QtPrompts final : public QObject, public UserPrompts {
  Q_OBJECT

 public:
  /// The windows that sheets hang on. While there is no update window its sheets hang on the main
  /// window.
  void setMainWindow(QWidget* window) { mainWindow_ = window; }
  void setUpdateWindow(QWidget* window) { updateWindow_ = window; }

  /// Whether a sheet without buttons is on show: work is going on that should not be cut short.
  bool isWaiting() const;

  /// Asks whether to leave in the middle of that work. True when the user insists.
  bool askToLeave();

  int showModalAlert(const AlertContent& content) override;
  void showAlertSheet(AlertIdentity alert, const AlertContent& content, SheetParent parent,
                      std::function<void(int code)> ended) override;
  void endAlertSheet(AlertIdentity alert) override;
  void showAlertProgress(AlertIdentity alert, std::optional<double> fraction) override;
  void showOpenPanel(const OpenPanelRequest& request,
                     std::function<void(std::vector<std::string> paths)> chosen) override;
  void beep() override;
  void terminate() override;

 private:
  struct Sheet {
    QPointer<AlertSheet> view;
    std::function<void(int)> ended;
  };

  QWidget* windowFor(SheetParent parent) const;
  AlertSheet& sheetFor(AlertIdentity alert, SheetParent parent);
  void finish(AlertIdentity alert, int code);

  QPointer<QWidget> mainWindow_;
  QPointer<QWidget> updateWindow_;
  std::map<AlertIdentity, Sheet> sheets_;
};

}  // namespace corvane
