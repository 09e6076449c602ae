#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "platform/Log.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"

namespace corvane {

/// What a monitor's registration returns when a step of it failed.
inline constexpr int32_t registrationFailed = 4096;

/// An empty mutable dictionary, or null; a log line tells which.
SharedDictionary createLoggedDictionary(Registry& registry, Log& log);

/// A monitor's channel to the device registry: a notification port served by the run loop of the
/// thread that opens it. Each step that fails leaves its line in the log.
class ServiceNotifications {
 public:
  ServiceNotifications(Registry& registry, RunLoops& runLoops, Log& log);

  /// Creates the notification port and adds its source to the current run loop, once. Returns 0 or
  /// registrationFailed.
  int32_t open();

  /// Registers for services that match and calls `callback` once at once on the iterator, which
  /// tells of the services present and arms the notification. Returns 0 or registrationFailed.
  int32_t watch(const char* type, const SharedDictionary& matching, MatchingCallback callback,
                void* context, RegistryObject& iterator);

  /// The run loop that serves the port; null before open() has found it. Any thread may ask.
  std::shared_ptr<RunLoop> currentLoop() const;

  /// Destroys the notification port: no callback runs after that.
  void close();

 private:
  Registry& registry_;
  RunLoops& runLoops_;
  Log& log_;
  std::unique_ptr<NotificationPort> ioNotifyPortRef_;
  std::shared_ptr<RunLoopSource> cfRunLoopSource_;
  mutable std::mutex mutex_;  ///< guards cfCurrentLoop_
  std::shared_ptr<RunLoop> cfCurrentLoop_;
};

}  // namespace corvane
