#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "AppDelegate.h"
#include "cli/session/CommandPlatform.h"

namespace corvane {

/// The application's controllers for one command that runs one of their longer pieces of work: an
/// update, the collection of logs. Main thread only.
class ControllerSession : public CommandPlatform {
 public:
  /// Throws CommandFailure when there is nothing to run on. Both outlive the session.
  ControllerSession(CommandContext& context, const LaunchOptions& options,
                    SessionPurpose purpose = SessionPurpose::Changing);

  /// Stops the monitors and waits until nothing goes on in the background.
  ~ControllerSession();

  AppDelegate& app() { return *app_; }

  /// Launches the application and returns once the adapters that are attached are listed, as
  /// CommandPlatform::waitForAdapters().
  void discover();

  /// The row of the adapter that LABEL names, which is then the controllers' current one. Throws
  /// CommandFailure when it fits none or several.
  int64_t select(const std::string& label);

 private:
  void tellLeftUnmounted();

  std::unique_ptr<AppDelegate> app_;
};

}  // namespace corvane
