#pragma once

#include <memory>
#include <optional>
#include <string>

#include "discovery/DeviceTable.h"
#include "discovery/WorkGate.h"
#include "platform/Platform.h"

namespace corvane {

/// The notifications that tell of the adapters of one family.
struct AdapterNotifications {
  const char* secondAppeared;  ///< of an adapter of the second generation
  const char* thirdAppeared;
  const char* disappeared;  ///< of either
};

/// What a monitor hands to its registry callbacks. `Device` is a PairedPorts.
template <typename Device>
struct PairingContext {
  Platform platform;
  std::shared_ptr<DeviceTable<Device>> deviceList;  ///< by the adapters' identity
  std::shared_ptr<WorkGate> gate;  ///< what the monitor leaves on a queue passes it
  AdapterNotifications notifications;
};

/// Logs the product and posts the appearance of the adapter with that key, for a known product.
void postAppearance(const Platform& platform, const AdapterNotifications& notifications,
                    const std::optional<std::string>& product, const std::string& key);

/// Posts the departure of the adapter with that key from the default-priority global queue.
void postDeparture(const Platform& platform, const AdapterNotifications& notifications,
                   const std::shared_ptr<WorkGate>& gate, const std::string& key);

/// Whether the service has left the registry: it has no parent any more.
bool hasLeft(Registry& registry, RegistryHandle service);

/// Files a port that arrived under its adapter, and announces the adapter once both are there. A
/// port that has gone meanwhile is left alone.
template <typename Device, typename Port>
void pairArrived(PairingContext<Device>& context, const std::shared_ptr<Port>& port) {
  if (!port->identity() || hasLeft(context.platform.registry, port->portService())) return;
  const std::string& key = *port->identity();
  if (const auto device = context.deviceList->find(key)) {
    if (device->setPort(port))
      postAppearance(context.platform, context.notifications, port->procudtTpe(),
                     device->identity().value_or(""));
    return;
  }
  const auto device = std::make_shared<Device>();
  device->setPort(port);
  context.deviceList->insert(key, device);
}

/// Takes the service of a port that has gone out of its adapter's record, and drops the adapter
/// with its last one.
template <typename Device, typename Port>
void clearDeparted(PairingContext<Device>& context, const Port& port) {
  if (!port.identity()) return;
  const auto device = context.deviceList->find(*port.identity());
  if (!device) return;
  const auto held = device->lock();
  if (port.key() != nullptr) device->clearPort(*port.key());
  if (!device->isEmpty()) return;
  const std::string key = device->identity().value_or("");
  context.deviceList->remove(key);
  postDeparture(context.platform, context.notifications, context.gate, key);
}

/// Whether the port's adapter is already there again, so that the port's departure says nothing
/// about it.
template <typename Device, typename Port>
bool isReplaced(const PairingContext<Device>& context, const Port& port) {
  for (const auto& device : context.deviceList->all())
    if (device->holdsSuccessorOf(port)) return true;
  return false;
}

/// Calls `depart` with each port on record whose service has left although no departure was told:
/// it went before the registration for departures, or its adapter is back before them.
template <typename Device, typename Depart>
void departUntold(const PairingContext<Device>& context, Depart depart) {
  for (const auto& device : context.deviceList->all())
    for (const auto& port : {device->port1(), device->port2()}) {
      const RegistryObject service = port ? port->retainedService() : RegistryObject();
      if (service && hasLeft(context.platform.registry, service.get())) depart(*port);
    }
}

/// Empties the table and every record in it.
template <typename Device>
void dropAdapters(DeviceTable<Device>& deviceList) {
  for (const auto& device : deviceList.takeAll()) device->clearAll();
}

}  // namespace corvane
