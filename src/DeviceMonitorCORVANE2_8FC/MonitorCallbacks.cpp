#include <string>

#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"
#include "discovery/Products.h"

namespace corvane {

namespace {

/// The path component under which the Fibre Channel driver stands in the registry.
constexpr const char* driverPathComponent = "/VelmarCORVANE/";

callbackRef& referenceOf(void* context) {
  return *static_cast<callbackRef*>(context);
}

void announce(callbackRef& reference, const Corvane2Device& device, const FCPort& port) {
  reference.platform.log.system(textOrNull(port.procudtTpe()));
  const Product* product = productNamed(port.procudtTpe().value_or(""));
  if (product == nullptr) return;
  reference.platform.notifications.post(
      product->generation == 2 ? "Corvane2Appeared" : "Corvane3Appeared",
      device.nodeWWN().value_or(""));
}

void takeArrived(callbackRef& reference, const std::shared_ptr<FCPort>& port) {
  if (!port->nodeWWN()) return;
  if (const auto device = reference.deviceList->find(*port->nodeWWN())) {
    if (device->setPort(port)) announce(reference, *device, *port);
    return;
  }
  const auto device = std::make_shared<Corvane2Device>();
  device->setPort(port);
  reference.deviceList->insert(*port->nodeWWN(), device);
}

void postDeparture(callbackRef& reference, const std::string& nodeWWN) {
  reference.platform.dispatch.asyncGlobal(
      QueuePriority::Default,
      [&center = reference.platform.notifications, gate = reference.gate, nodeWWN] {
        gate->pass([&] { center.post("Corvane2Disppeared", nodeWWN); });
      });
}

void clearDeparted(callbackRef& reference, const FCPort& port) {
  if (!port.nodeWWN()) return;
  const auto device = reference.deviceList->find(*port.nodeWWN());
  if (!device) return;
  const auto held = device->lock();
  if (port.portWWN()) device->clearPort(*port.portWWN());
  if (!device->isEmpty()) return;
  const std::string nodeWWN = device->nodeWWN().value_or("");
  reference.deviceList->remove(nodeWWN);
  postDeparture(reference, nodeWWN);
}

void drain(callbackRef& reference, RegistryHandle iterator) {
  Registry& registry = reference.platform.registry;
  while (const RegistryHandle service = registry.next(iterator)) registry.release(service);
}

bool isBehindAdapter(Registry& registry, const std::string& bsdName) {
  const auto matching = registry.createMutableDictionary();
  if (!matching) return false;
  (*matching)["BSD Name"] = bsdName;
  const RegistryObject service(registry, registry.matchingService(matching));
  std::string path;
  return service && registry.path(service.get(), servicePlane, path) == statusSuccess &&
         path.find(driverPathComponent) != std::string::npos;
}

}  // namespace

void corvane2Appeared(void* context, RegistryHandle iterator) {
  auto& reference = referenceOf(context);
  Registry& registry = reference.platform.registry;
  while (const RegistryHandle service = registry.next(iterator))
    takeArrived(reference, std::make_shared<FCPort>(registry, service));
}

void corvane2Disappeared(void* context, RegistryHandle iterator) {
  auto& reference = referenceOf(context);
  Registry& registry = reference.platform.registry;
  while (const RegistryHandle service = registry.next(iterator))
    clearDeparted(reference, FCPort(registry, service));
}

void corvane2ChildAppeared(void* context, RegistryHandle iterator) {
  drain(referenceOf(context), iterator);
}

void corvane2ChildDisappeared(void* context, RegistryHandle iterator) {
  drain(referenceOf(context), iterator);
}

void hello_disk(Disk& disk, void* context) {
  auto& reference = referenceOf(context);
  const auto name = disk.bsdName();
  if (name && isBehindAdapter(reference.platform.registry, *name))
    reference.bsdVolumeList->insert(*name);
}

void goodbye_disk(Disk& disk, void* context) {
  if (const auto name = disk.bsdName()) referenceOf(context).bsdVolumeList->remove(*name);
}

}  // namespace corvane
