#include "cli/answers/CommandPrompts.h"

#include <utility>

namespace corvane {

namespace {

bool isInUse(const AlertButton& button) {
  return button.enabled && !button.hidden;
}

}  // namespace

CommandPrompts::CommandPrompts(CommandContext& context, MainQueue& mainQueue)
    : context_(context), mainQueue_(mainQueue) {}

int CommandPrompts::showModalAlert(const AlertContent& content) {
  return alertFirstButton + answer(content).value_or(0);
}

// A sheet ends later than it is shown, so its end is left to the main queue.
void CommandPrompts::showAlertSheet(AlertIdentity, const AlertContent& content, SheetParent,
                                    std::function<void(int)> sheetEnded) {
  const auto button = answer(content);
  if (!button || !sheetEnded) return;
  mainQueue_.post([sheetEnded = std::move(sheetEnded), button = *button] {
    sheetEnded(alertFirstButton + button);
  });
}

void CommandPrompts::endAlertSheet(AlertIdentity) {}

void CommandPrompts::showAlertProgress(AlertIdentity, std::optional<double> fraction) {
  if (showProgress) showProgress(fraction);
}

void CommandPrompts::showOpenPanel(const OpenPanelRequest& request,
                                   std::function<void(std::vector<std::string>)> chosen) {
  mainQueue_.post([chosen = std::move(chosen),
                   paths = answerOpenPanel ? answerOpenPanel(request)
                                           : std::vector<std::string>()] { chosen(paths); });
}

void CommandPrompts::beep() {}

void CommandPrompts::terminate() {
  if (ended) ended();
}

std::optional<int> CommandPrompts::answer(const AlertContent& content) {
  if (answerAlert) return answerAlert(content);
  tell(content);
  if (content.buttons.empty() || !isInUse(content.buttons.front())) return std::nullopt;
  return 0;
}

void CommandPrompts::tell(const AlertContent& content) {
  printNote(context_, content.message + ": " + content.informativeText);
}

}  // namespace corvane
