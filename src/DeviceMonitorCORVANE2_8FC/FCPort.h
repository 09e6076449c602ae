#pragma once

#include <optional>
#include <string>

#include "discovery/OwnedService.h"
#include "platform/Registry.h"

namespace corvane {

/// One port of a Fibre Channel adapter, as the registry tells of it. Made once and not changed
/// afterwards, save that its service can be cleared; any thread may use it.
class FCPort {
 public:
  /// initWithService: reads the port's names and product. Takes over the reference that `service`
  /// carries; for 0 nothing is read. The registry outlives the port.
  FCPort(Registry& registry, RegistryHandle service);

  /// The port's registry service; 0 once the port has gone.
  RegistryHandle portService() const { return portService_.get(); }

  /// The service with a reference of the caller's own, for work that the port may not survive.
  RegistryObject retainedService() const { return portService_.retained(); }

  /// Releases the service: the port has gone.
  void clearService() { portService_.clear(); }

  /// World wide node name, eight upper-case pairs joined by ":". Unset when it cannot be read.
  const std::optional<std::string>& nodeWWN() const { return nodeWWN_; }

  /// World wide port name in the registry's data text form without the brackets, such as
  /// 2100001b 32a0b1c2. Only compared with others of its kind. Unset when it cannot be read.
  const std::optional<std::string>& portWWN() const { return portWWN_; }

  /// The product's name; unset when the port is not recognised.
  const std::optional<std::string>& procudtTpe() const { return procudtTpe_; }

  /// The properties read last: of the service, or of the ancestor at which the search for the
  /// product ended.
  const PropertyValue::Dictionary& property() const { return property_; }

  // What an adapter's record asks of its ports.

  /// Tells the adapter's ports apart; null while it is unset.
  const std::string* key() const { return portWWN_ ? &*portWWN_ : nullptr; }
  bool hasKeyOf(const FCPort& other) const { return portWWN_ && portWWN_ == other.portWWN_; }
  const std::optional<std::string>& identity() const { return nodeWWN_; }

 private:
  void getWWN(Registry& registry);
  void findDeviceName(Registry& registry);

  OwnedService portService_;
  std::optional<std::string> nodeWWN_;
  std::optional<std::string> portWWN_;
  std::optional<std::string> procudtTpe_;
  PropertyValue::Dictionary property_;
};

}  // namespace corvane
