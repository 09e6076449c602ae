#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/UserPrompts.h"

namespace corvane {

/// Records what is asked and told, and answers when the test says.
class FakePrompts : public UserPrompts {
 public:
  struct ShownAlert {
    AlertContent content;
    bool modal = false;
    AlertIdentity identity = nullptr;
    SheetParent parent = SheetParent::MainWindow;
    bool hasEndHandler = false;
  };

  int modalAnswer = alertFirstButton;

  std::vector<ShownAlert> alerts;  ///< every alert shown or changed, in order
  std::vector<OpenPanelRequest> openPanels;
  std::vector<std::optional<double>> progress;
  int beeps = 0;
  int terminations = 0;
  int endedSheets = 0;

  /// The user presses a button of the sheet that was shown last.
  void pressSheetButton(int index) { endSheet(last_, alertFirstButton + index); }

  /// The user closes the open panel; no paths means cancelled.
  void choosePaths(const std::vector<std::string>& paths) {
    if (auto chosen = std::exchange(chosen_, nullptr)) chosen(paths);
  }

  bool sheetIsOpen() const { return !open_.empty(); }

  int showModalAlert(const AlertContent& content) override {
    alerts.push_back({content, true, nullptr, SheetParent::MainWindow, false});
    return modalAnswer;
  }

  void showAlertSheet(AlertIdentity alert, const AlertContent& content, SheetParent parent,
                      std::function<void(int)> ended) override {
    alerts.push_back({content, false, alert, parent, static_cast<bool>(ended)});
    open_[alert] = std::move(ended);
    last_ = alert;
  }

  void endAlertSheet(AlertIdentity alert) override {
    ++endedSheets;
    endSheet(alert, alertEndedByProgram);
  }

  void showAlertProgress(AlertIdentity, std::optional<double> fraction) override {
    progress.push_back(fraction);
  }

  void showOpenPanel(const OpenPanelRequest& request,
                     std::function<void(std::vector<std::string>)> chosen) override {
    openPanels.push_back(request);
    chosen_ = std::move(chosen);
  }

  void beep() override { ++beeps; }
  void terminate() override { ++terminations; }

 private:
  void endSheet(AlertIdentity alert, int code) {
    const auto found = open_.find(alert);
    if (found == open_.end()) return;
    const auto ended = std::move(found->second);
    open_.erase(found);
    if (ended) ended(code);
  }

  std::map<AlertIdentity, std::function<void(int)>> open_;
  AlertIdentity last_ = nullptr;
  std::function<void(std::vector<std::string>)> chosen_;
};

}  // namespace corvane
