#include "cli/session/ControllerSession.h"

#include "cli/session/AdapterLabels.h"

namespace corvane {

ControllerSession::ControllerSession(CommandContext& context, const LaunchOptions& options,
                                     SessionPurpose purpose)
    : CommandPlatform(context, options), app_(std::make_unique<AppDelegate>(platform())) {
  app_->administratorLock().useWithoutView();
  if (purpose == SessionPurpose::Looking) app_->administratorLock().askNothing();
  if (isDump()) app_->showAsDump("A dump cannot be changed.");
}

ControllerSession::~ControllerSession() {
  app_.reset();
  end();
}

void ControllerSession::discover() {
  waitForAdapters(app_->inventory(), [this] {
    app_->applicationDidFinishLaunching();
    tellLeftUnmounted();
  });
}

void ControllerSession::tellLeftUnmounted() {
  const std::string sentence = leftUnmountedNote(app_->volumes().leftUnmounted());
  if (!sentence.empty()) printNote(context(), sentence);
}

int64_t ControllerSession::select(const std::string& label) {
  adapterNamed(app_->state().CorvaneList, label);
  const int64_t row = rowsNamedBy(app_->state().CorvaneList.entries(), label).front();
  app_->selectRow(row);
  return row;
}

}  // namespace corvane
