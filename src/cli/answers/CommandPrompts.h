#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/answers/CommandOutput.h"
#include "platform/UserPrompts.h"
#include "platform/posix/MainQueue.h"

namespace corvane {

/// The command line's part in what the system asks and tells its user: alerts are told on standard
/// error, and each command says beforehand how it answers them. Main thread only.
class CommandPrompts final : public UserPrompts {
 public:
  /// Both outlive the object.
  CommandPrompts(CommandContext& context, MainQueue& mainQueue);

  /// The button to press for an alert, from 0; nothing leaves a sheet open. Without it an alert is
  /// told on standard error and its first button pressed, if it has one in use.
  std::function<std::optional<int>(const AlertContent& content)> answerAlert;

  /// The paths to choose in the open panel. Without it the panel is cancelled.
  std::function<std::vector<std::string>(const OpenPanelRequest& request)> answerOpenPanel;

  /// Told of the progress of the work that an alert tells of.
  std::function<void(std::optional<double> fraction)> showProgress;

  /// Told when the system ends the application.
  std::function<void()> ended;

  int showModalAlert(const AlertContent& content) override;
  void showAlertSheet(AlertIdentity alert, const AlertContent& content, SheetParent parent,
                      std::function<void(int code)> sheetEnded) override;
  void endAlertSheet(AlertIdentity alert) override;
  void showAlertProgress(AlertIdentity alert, std::optional<double> fraction) override;
  void showOpenPanel(const OpenPanelRequest& request,
                     std::function<void(std::vector<std::string> paths)> chosen) override;
  void beep() override;
  void terminate() override;

 private:
  std::optional<int> answer(const AlertContent& content);
  void tell(const AlertContent& content);

  CommandContext& context_;
  MainQueue& mainQueue_;
};

}  // namespace corvane
