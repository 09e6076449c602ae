#include <string>

#include "DeviceMonitorCORVANE2_10GE/DeviceMonitorCORVANE2_10GE.h"

namespace corvane {

namespace {

callbackRef_10GE& tenGigabitReference(void* context) {
  return *static_cast<callbackRef_10GE*>(context);
}

std::string addressOf(const SEPort& port) {
  return port.macAddr() ? *port.macAddr() : "(null)";
}

void takeArrived(callbackRef_10GE& reference, const std::shared_ptr<SEPort>& port) {
  if (!port->pciDebug() || hasLeft(reference.platform.registry, port->portService())) return;
  saveFUCKsmalltree(*reference.fuckSmallTree, addressOf(*port), *port->pciDebug());
  pairArrived(reference, port);
}

void takeDeparted(callbackRef_10GE& reference, SEPort& port) {
  if (isReplaced(reference, port)) return;
  port.setPciDebug(getFUCKsmalltree(*reference.fuckSmallTree, addressOf(port)));
  clearDeparted(reference, port);
}

}  // namespace

void forgetDeparted(callbackRef_10GE& reference) {
  departUntold(reference, [&](const SEPort& port) {
    getFUCKsmalltree(*reference.fuckSmallTree, addressOf(port));
    clearDeparted(reference, port);
  });
}

void corvane2Appeared_10GE(void* context, RegistryHandle iterator) {
  auto& reference = tenGigabitReference(context);
  while (const RegistryHandle service = reference.platform.registry.next(iterator)) {
    const auto port = std::make_shared<SEPort>(reference.platform, service, reference.stopping);
    forgetDeparted(reference);
    takeArrived(reference, port);
  }
}

void corvane2Disappeared_10GE(void* context, RegistryHandle iterator) {
  auto& reference = tenGigabitReference(context);
  while (const RegistryHandle service = reference.platform.registry.next(iterator)) {
    SEPort port(reference.platform, service, reference.stopping);
    takeDeparted(reference, port);
  }
}

void corvane2ChildAppeared_10GE(void* context, RegistryHandle iterator) {
  Registry& registry = tenGigabitReference(context).platform.registry;
  while (const RegistryHandle service = registry.next(iterator)) registry.release(service);
}

}  // namespace corvane
