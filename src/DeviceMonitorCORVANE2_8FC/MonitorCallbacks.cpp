#include <string>

#include "DeviceMonitorCORVANE2_8FC/DeviceMonitorCORVANE2.h"

namespace corvane {

namespace {

/// The path component under which the Fibre Channel driver stands in the registry.
constexpr const char* driverPathComponent = "/VelmarCORVANE/";

callbackRef& fibreChannelReference(void* context) {
  return *static_cast<callbackRef*>(context);
}

void drainChildren(callbackRef& reference, RegistryHandle iterator) {
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

void forgetDeparted(callbackRef& reference) {
  departUntold(reference, [&](const FCPort& port) { clearDeparted(reference, port); });
}

void corvane2Appeared(void* context, RegistryHandle iterator) {
  auto& reference = fibreChannelReference(context);
  Registry& registry = reference.platform.registry;
  forgetDeparted(reference);
  while (const RegistryHandle service = registry.next(iterator))
    pairArrived(reference, std::make_shared<FCPort>(registry, service));
}

void corvane2Disappeared(void* context, RegistryHandle iterator) {
  auto& reference = fibreChannelReference(context);
  Registry& registry = reference.platform.registry;
  while (const RegistryHandle service = registry.next(iterator)) {
    const FCPort port(registry, service);
    if (!isReplaced(reference, port)) clearDeparted(reference, port);
  }
}

void corvane2ChildAppeared(void* context, RegistryHandle iterator) {
  drainChildren(fibreChannelReference(context), iterator);
}

void corvane2ChildDisappeared(void* context, RegistryHandle iterator) {
  drainChildren(fibreChannelReference(context), iterator);
}

void hello_disk(Disk& disk, void* context) {
  auto& reference = fibreChannelReference(context);
  const auto name = disk.bsdName();
  if (name && isBehindAdapter(reference.platform.registry, *name))
    reference.bsdVolumeList->insert(*name);
}

void goodbye_disk(Disk& disk, void* context) {
  if (const auto name = disk.bsdName()) fibreChannelReference(context).bsdVolumeList->remove(*name);
}

}  // namespace corvane
