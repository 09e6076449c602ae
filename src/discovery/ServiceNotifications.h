#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "platform/Platform.h"

namespace corvane {

/// What a monitor's registration returns when a step of it failed.
inline constexpr int32_t registrationFailed = 4096;

/// Makes a matching dictionary and the one for its property match, both empty. False when one
/// cannot be made; a log line tells of each.
bool createMatching(const Platform& platform, SharedDictionary& matching,
                    SharedDictionary& propertyMatch);

/// A monitor's channel to the device registry: a notification port served by the run loop of the
/// thread that opens it. Each step that fails leaves its line in the log.
class ServiceNotifications {
 public:
  ServiceNotifications(Registry& registry, RunLoops& runLoops, Log& log);

  /// Registers for the arrival and then for the departure of services that match. Each callback is
  /// called once at once on its iterator, which tells of the services present and arms the
  /// notification. The first call serves the port by the current run loop. Returns 0 or
  /// registrationFailed.
  int32_t watchBoth(const SharedDictionary& matching, MatchingCallback appeared,
                    MatchingCallback disappeared, void* context, RegistryObject& appearedIterator,
                    RegistryObject& disappearedIterator);

  /// The run loop that serves the port; null before watchBoth() has found it. Any thread may ask.
  std::shared_ptr<RunLoop> currentLoop() const;

  /// Destroys the notification port: no callback runs after that.
  void close();

 private:
  int32_t open();
  int32_t watch(const char* type, const SharedDictionary& matching, MatchingCallback callback,
                void* context, RegistryObject& iterator);

  Registry& registry_;
  RunLoops& runLoops_;
  Log& log_;
  std::unique_ptr<NotificationPort> ioNotifyPortRef_;
  std::shared_ptr<RunLoopSource> cfRunLoopSource_;
  mutable std::mutex mutex_;  ///< guards cfCurrentLoop_
  std::shared_ptr<RunLoop> cfCurrentLoop_;
};

}  // namespace corvane
