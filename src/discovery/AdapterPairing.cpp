#include "discovery/AdapterPairing.h"

#include "discovery/Products.h"
#include "discovery/RegistryText.h"

namespace corvane {

void postAppearance(const Platform& platform, const AdapterNotifications& notifications,
                    const std::optional<std::string>& product, const std::string& key) {
  platform.log.system(textOrNull(product));
  const Product* known = productNamed(product.value_or(""));
  if (known == nullptr) return;
  platform.notifications.post(
      known->generation == 2 ? notifications.secondAppeared : notifications.thirdAppeared, key);
}

void postDeparture(const Platform& platform, const AdapterNotifications& notifications,
                   const std::shared_ptr<WorkGate>& gate, const std::string& key) {
  platform.dispatch.asyncGlobal(QueuePriority::Default,
                                [&center = platform.notifications, name = notifications.disappeared,
                                 gate, key] { gate->pass([&] { center.post(name, key); }); });
}

bool hasLeft(Registry& registry, RegistryHandle service) {
  RegistryHandle parent = 0;
  if (registry.parentEntry(service, servicePlane, parent) != statusSuccess) return true;
  return !RegistryObject(registry, parent);
}

}  // namespace corvane
