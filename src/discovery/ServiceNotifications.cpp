#include "discovery/ServiceNotifications.h"

namespace corvane {

namespace {

bool logged(Log& log, bool succeeded, const std::string& call) {
  log.system(call + (succeeded ? " successfully" : " failed"));
  return succeeded;
}

}  // namespace

bool createMatching(const Platform& platform, SharedDictionary& matching,
                    SharedDictionary& propertyMatch) {
  for (auto* dictionary : {&matching, &propertyMatch}) {
    *dictionary = platform.registry.createMutableDictionary();
    if (!logged(platform.log, *dictionary != nullptr, "CFDictionaryCreateMutable")) return false;
  }
  return true;
}

ServiceNotifications::ServiceNotifications(Registry& registry, RunLoops& runLoops, Log& log)
    : registry_(registry), runLoops_(runLoops), log_(log) {}

int32_t ServiceNotifications::watchBoth(const SharedDictionary& matching, MatchingCallback appeared,
                                        MatchingCallback disappeared, void* context,
                                        RegistryObject& appearedIterator,
                                        RegistryObject& disappearedIterator) {
  if (open() != 0) return registrationFailed;
  if (watch(firstMatchNotification, matching, appeared, context, appearedIterator) != 0)
    return registrationFailed;
  return watch(terminateNotification, matching, disappeared, context, disappearedIterator);
}

int32_t ServiceNotifications::open() {
  if (ioNotifyPortRef_) return 0;
  auto port = registry_.createNotificationPort();
  if (!logged(log_, port != nullptr, "IONotificationPortCreate")) return registrationFailed;
  auto source = port->runLoopSource();
  if (!logged(log_, source != nullptr, "IONotificationPortGetRunLoopSource"))
    return registrationFailed;
  auto loop = runLoops_.current();
  if (!loop) return registrationFailed;

  ioNotifyPortRef_ = std::move(port);
  cfRunLoopSource_ = std::move(source);
  loop->addSource(cfRunLoopSource_);
  std::lock_guard guard(mutex_);
  cfCurrentLoop_ = std::move(loop);
  return 0;
}

int32_t ServiceNotifications::watch(const char* type, const SharedDictionary& matching,
                                    MatchingCallback callback, void* context,
                                    RegistryObject& iterator) {
  RegistryHandle handle = 0;
  // The registration consumes the reference that this copy is.
  if (registry_.addMatchingNotification(*ioNotifyPortRef_, type, SharedDictionary(matching),
                                        callback, context, handle) != statusSuccess) {
    log_.system("IOServiceAddMatchingNotification failed");
    return registrationFailed;
  }
  iterator = RegistryObject(registry_, handle);
  callback(context, handle);
  return 0;
}

std::shared_ptr<RunLoop> ServiceNotifications::currentLoop() const {
  std::lock_guard guard(mutex_);
  return cfCurrentLoop_;
}

void ServiceNotifications::close() {
  ioNotifyPortRef_.reset();
  cfRunLoopSource_.reset();
}

}  // namespace corvane
