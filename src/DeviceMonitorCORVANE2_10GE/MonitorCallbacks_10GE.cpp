#include <string>

#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"
#include "DeviceMonitorCORVANE2_10GE/SmallTree.h"
#include "discovery/Products.h"

namespace corvane {

namespace {

callbackRef_10GE& referenceOf(void* context) {
  return *static_cast<callbackRef_10GE*>(context);
}

std::string addressOf(const SEPort& port) {
  return port.macAddr() ? *port.macAddr() : "(null)";
}

void announce(callbackRef_10GE& reference, const Corvane2Device_10GE& device, const SEPort& port) {
  reference.platform.log.system(textOrNull(port.procudtTpe()));
  const Product* product = productNamed(port.procudtTpe().value_or(""));
  if (product == nullptr) return;
  reference.platform.notifications.post(
      product->generation == 2 ? "Corvane2Appeared_10GE" : "Corvane3Appeared_10GE",
      device.fuckPcidebug().value_or(""));
}

void takeArrived(callbackRef_10GE& reference, const std::shared_ptr<SEPort>& port) {
  if (!port->pciDebug()) return;
  saveFUCKsmalltree(addressOf(*port), *port->pciDebug());
  if (const auto device = reference.deviceList->find(*port->pciDebug())) {
    if (device->setPort(port)) announce(reference, *device, *port);
    return;
  }
  const auto device = std::make_shared<Corvane2Device_10GE>();
  device->setPort(port);
  reference.deviceList->insert(*port->pciDebug(), device);
}

void postDeparture(callbackRef_10GE& reference, const std::string& key) {
  reference.platform.dispatch.asyncGlobal(
      QueuePriority::Default,
      [&center = reference.platform.notifications, gate = reference.gate, key] {
        gate->pass([&] { center.post("Corvane2Disppeared_10GE", key); });
      });
}

void clearDeparted(callbackRef_10GE& reference, SEPort& port) {
  port.setPciDebug(getFUCKsmalltree(addressOf(port)));
  const auto device = reference.deviceList->find(*port.pciDebug());
  if (!device) return;
  const auto held = device->lock();
  device->clearPort(addressOf(port));
  if (!device->isEmpty()) return;
  const std::string key = device->fuckPcidebug().value_or("");
  reference.deviceList->remove(key);
  postDeparture(reference, key);
}

}  // namespace

void corvane2Appeared_10GE(void* context, RegistryHandle iterator) {
  auto& reference = referenceOf(context);
  while (const RegistryHandle service = reference.platform.registry.next(iterator))
    takeArrived(reference,
                std::make_shared<SEPort>(reference.platform, service, reference.stopping));
}

void corvane2Disappeared_10GE(void* context, RegistryHandle iterator) {
  auto& reference = referenceOf(context);
  while (const RegistryHandle service = reference.platform.registry.next(iterator)) {
    SEPort port(reference.platform, service, reference.stopping);
    clearDeparted(reference, port);
  }
}

void corvane2ChildAppeared_10GE(void* context, RegistryHandle iterator) {
  Registry& registry = referenceOf(context).platform.registry;
  while (const RegistryHandle service = registry.next(iterator)) registry.release(service);
}

}  // namespace corvane
