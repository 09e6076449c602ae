#pragma once

#include <QString>
#include <functional>

#include "ui/WindowSession.h"

namespace corvane {

struct MainWindowControls;

/// Goes through the window as a user would and takes a picture of each page and sheet.
class Photographer {
 public:
  /// The pictures go into `folder`; their names end in `suffix`.
  Photographer(WindowSession& session, QString folder, QString suffix);

  /// Starts the window and waits for its adapters. False when they do not come.
  bool start();

  /// The port and device page of each adapter, as they are.
  void takePages(const QString& prefix = {});

  /// Opens the lock, with a picture of the password sheet.
  void openLock();

  /// The sheets and windows that hang on a Fibre Channel port, the menus and the About box. The
  /// lock is open.
  void takeSheets();

  /// A speed that is being set, and a firmware update from the package at that path, from the
  /// question to the end. False when one of them does not end.
  bool takeWork(const QString& package);

  /// The list of updates that the bench's server offers.
  void takeUpdates();

 private:
  MainWindowControls& controls();
  bool selectProduct(const std::string& product);
  void take(const QString& name);
  void takeMenu(const char* objectName, const QString& name);
  void takePopover(const QString& name);
  void save(const QPixmap& picture, const QString& name) const;
  QWidget* topDialog() const;
  void press(const char* dialog, const char* button);

  WindowSession& session_;
  const QString folder_;
  const QString suffix_;
};

}  // namespace corvane
