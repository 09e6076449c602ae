#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// One button of an alert. The first is the confirming one.
struct AlertButton {
  std::string title;
  bool enabled = true;
  bool hidden = false;

  bool operator==(const AlertButton&) const = default;
};

/// What an alert shows. `icon` is the file name of a resource of the application.
struct AlertContent {
  std::string message;
  std::string informativeText;
  std::vector<AlertButton> buttons;
  std::string icon;

  bool operator==(const AlertContent&) const = default;
};

/// The return code of an alert's first button; the next ones count up from it.
inline constexpr int alertFirstButton = 1000;
/// Given to a sheet's end handler when it was ended by the program rather than by a button.
inline constexpr int alertEndedByProgram = -1000;

/// Which window a sheet hangs on.
enum class SheetParent { MainWindow, UpdateWindow };

/// Names one alert object over its life, so that showing it again changes it in place.
using AlertIdentity = const void*;

/// What the panel for opening a file offers.
struct OpenPanelRequest {
  std::string prompt;
  bool choosesFiles = true;
  bool choosesFolders = false;
  bool createsFolders = false;
  bool allowsSeveral = false;
};

/// Everything that asks or tells the user outside the pages. Main thread only. The window shows
/// dialogs; the command line prints and answers what it was told to answer.
class UserPrompts {
 public:
  virtual ~UserPrompts() = default;

  /// Shows an alert and waits for a button. Returns alertFirstButton + its index.
  virtual int showModalAlert(const AlertContent& content) = 0;

  /// Shows `alert` as a sheet, or changes it in place when it is on show already. `ended` may be
  /// empty; it is called once with the button's code when the sheet ends.
  virtual void showAlertSheet(AlertIdentity alert, const AlertContent& content, SheetParent parent,
                              std::function<void(int code)> ended) = 0;

  /// Ends the sheet that `alert` shows, if any.
  virtual void endAlertSheet(AlertIdentity alert) = 0;

  /// Progress of the work that `alert` tells of: 0 to 1, or nothing when it cannot be told.
  virtual void showAlertProgress(AlertIdentity alert, std::optional<double> fraction) = 0;

  /// Shows the panel as a sheet on the main window. `chosen` gets the paths; empty when cancelled.
  virtual void showOpenPanel(const OpenPanelRequest& request,
                             std::function<void(std::vector<std::string> paths)> chosen) = 0;

  /// The system beep.
  virtual void beep() = 0;

  /// Ends the application (NSApplication's terminate:).
  virtual void terminate() = 0;
};

}  // namespace corvane
