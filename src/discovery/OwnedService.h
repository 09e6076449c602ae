#pragma once

#include <mutex>

#include "platform/Registry.h"

namespace corvane {

/// The registry service of a port record, with the one reference that the record owns. Any thread
/// may use it.
class OwnedService {
 public:
  /// Takes over the reference that `service` carries. 0 is no service.
  OwnedService(Registry& registry, RegistryHandle service)
      : registry_(registry), service_(registry, service) {}

  /// The service's handle; 0 once it was cleared.
  RegistryHandle get() const {
    std::lock_guard guard(mutex_);
    return service_.get();
  }

  /// The service with a reference of the caller's own, which keeps it valid whatever happens to the
  /// record meanwhile.
  RegistryObject retained() const {
    std::lock_guard guard(mutex_);
    if (service_) registry_.retain(service_.get());
    return {registry_, service_.get()};
  }

  /// Releases the service, if it was not yet.
  void clear() {
    std::lock_guard guard(mutex_);
    service_.reset();
  }

 private:
  Registry& registry_;
  mutable std::mutex mutex_;  ///< guards service_
  RegistryObject service_;
};

}  // namespace corvane
