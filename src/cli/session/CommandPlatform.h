#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "cli/answers/CommandOutput.h"
#include "cli/answers/CommandPrompts.h"
#include "inventory/DeviceList.h"
#include "launch/Launch.h"
#include "platform/posix/PlainMainQueue.h"

namespace corvane {

class DeviceInventory;

/// What a command is there for.
enum class SessionPurpose {
  Changing,  ///< an adapter, so the user may be asked for an administrator's password
  Looking,   ///< at the adapters, so the user is asked nothing
};

/// What one command runs on: the platform that the options choose, its main queue, and the answers
/// to the system's questions. Main thread only.
class CommandPlatform {
 public:
  /// Throws CommandFailure when there is nothing to run on. Both outlive the object.
  CommandPlatform(CommandContext& context, const LaunchOptions& options);

  CommandPlatform(const CommandPlatform&) = delete;
  CommandPlatform& operator=(const CommandPlatform&) = delete;

  CommandContext& context() { return context_; }
  CommandPrompts& prompts() { return prompts_; }
  const Platform& platform() const { return launch_->platform(); }

  /// Whether it is a registry dump, in which no driver answers.
  bool isDump() const { return launch_->isReadOnly(); }

  /// Throws CommandFailure when what the command runs on cannot be changed, as a dump cannot.
  void requireChangeable(const std::string& label) const;

  /// Serves the main queue until `done` holds, stop() is called or `limit` has passed. Returns
  /// whether `done` holds.
  bool runUntil(const std::function<bool()>& done,
                std::optional<std::chrono::milliseconds> limit = std::nullopt);

  /// Ends runUntil(). Any thread may call.
  void stop() { mainQueue_.stop(); }

  static constexpr std::chrono::seconds discoveryLimit{60};

 protected:
  ~CommandPlatform() = default;

  /// Has `launch` start to follow the adapters and returns once those that are attached are listed.
  /// A port that keeps the monitors waiting is waited for discoveryLimit; a note then tells that
  /// the list may not be whole. Throws CommandFailure as requireMonitors() does.
  void waitForAdapters(DeviceInventory& inventory, const std::function<void()>& launch);

  /// Throws CommandFailure when a monitor could not start, so that not all adapters can be told of.
  static void requireMonitors(const DeviceInventory& inventory);

  /// The adapter that LABEL names. Throws CommandFailure when it fits none or several.
  DeviceListEntry adapterNamed(const DeviceList& list, const std::string& label) const;

  /// Waits until nothing goes on in the background any more.
  void end() { launch_->end(); }

 private:
  void tellOfDump(const DeviceList& list);

  CommandContext& context_;
  PlainMainQueue mainQueue_;
  CommandPrompts prompts_;
  std::unique_ptr<Launch> launch_;
};

}  // namespace corvane
