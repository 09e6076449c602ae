#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "inventory/DeviceList.h"
#include "platform/Registry.h"

namespace corvane {

class CorvaneAPI;
class FCPort;
class SEPort;

/// One port of one adapter, bound when somebody begins to work on it: a menu or sheet that opens, a
/// command that starts. It goes on meaning that port whatever is selected, comes or goes meanwhile;
/// once the port has gone, it is gone for good, even if the adapter is attached again.
///
/// A value that keeps the port's records and service alive; any thread may hold and ask it.
class PortTarget {
 public:
  /// The first or second port of an adapter, told by 1 or 2. Nothing when the adapter has no such
  /// port, or not any more.
  static std::optional<PortTarget> of(const DeviceListEntry& adapter, int64_t port);

  AdapterFamily family() const { return adapter_.family(); }
  const DeviceListEntry& adapter() const { return adapter_; }
  int64_t port() const { return port_; }

  /// The adapter's label, WWN and product name.
  const std::string& label() const { return adapter_.Sequence; }
  const std::string& WWN() const { return adapter_.WWN; }
  const std::string& product() const { return adapter_.ProductType; }

  /// How people are told of it, such as "A - 1 port 1".
  std::string name() const;

  /// Whether the port's service has terminated since the target was bound.
  bool isGone() const;

  /// The port's service as it was when the target was bound.
  RegistryHandle service() const { return held_->get(); }

  /// What the driver tells of the port; Fibre Channel only.
  CorvaneAPI& api() const;

  /// The record of the port; of the family's kind only.
  const FCPort& fibreChannelPort() const;
  const SEPort& tenGigabitPort() const;

  /// Whether both are bound to the same port of the same attachment.
  bool isSamePort(const PortTarget& other) const;

 private:
  using Record = std::variant<std::shared_ptr<FCPort>, std::shared_ptr<SEPort>>;

  PortTarget(DeviceListEntry adapter, int64_t port, Record record);

  DeviceListEntry adapter_;
  int64_t port_;
  Record record_;
  std::shared_ptr<const RegistryObject> held_;
};

}  // namespace corvane
