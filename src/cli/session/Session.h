#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "AppDelegate.h"
#include "cli/answers/CommandOutput.h"
#include "cli/answers/CommandPrompts.h"
#include "launch/Launch.h"
#include "platform/posix/PlainMainQueue.h"

namespace corvane {

/// What a command is there for.
enum class SessionPurpose {
  Changing,  ///< an adapter, so the user may be asked for an administrator's password
  Looking,   ///< at the adapters, so the user is asked nothing
};

/// The utility without a window, for one command: the platform that the options choose and the
/// application's controller on it. Made by the command once it runs. Main thread only.
class Session {
 public:
  /// Throws CommandFailure when there is nothing to run on. Both outlive the session.
  Session(CommandContext& context, const LaunchOptions& options,
          SessionPurpose purpose = SessionPurpose::Changing);

  /// Stops the monitors and waits until nothing goes on in the background.
  ~Session();

  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  AppDelegate& app() { return *app_; }
  CommandPrompts& prompts() { return prompts_; }
  const Platform& platform() const { return launch_->platform(); }

  /// Whether it runs on a registry dump, in which no driver answers.
  bool isDump() const { return launch_->isReadOnly(); }

  /// Launches the application and returns once the adapters attached are listed. A port that keeps
  /// the monitors waiting is waited for discoveryLimit; a note then tells that the list may not be
  /// whole. Throws CommandFailure as requireMonitors() does.
  void discover();

  /// Throws CommandFailure when a monitor could not start, so that not all adapters can be told of.
  void requireMonitors() const;

  /// The row of the adapter that LABEL names, whose pages are then on show. Throws CommandFailure
  /// when it fits none or several.
  int64_t select(const std::string& label);

  /// Throws CommandFailure when what the session runs on cannot be changed, as a dump cannot.
  void requireChangeable(const std::string& label) const;

  /// Serves the main queue until `done` holds, stop() is called or `limit` has passed. Returns
  /// whether `done` holds.
  bool runUntil(const std::function<bool()>& done,
                std::optional<std::chrono::milliseconds> limit = std::nullopt);

  /// Ends runUntil(). Any thread may call.
  void stop() { mainQueue_.stop(); }

  static constexpr std::chrono::seconds discoveryLimit{60};

 private:
  void tellLeftUnmounted();
  void tellOfDump();

  CommandContext& context_;
  PlainMainQueue mainQueue_;
  CommandPrompts prompts_;
  std::unique_ptr<Launch> launch_;
  std::unique_ptr<AppDelegate> app_;
};

}  // namespace corvane
