#include "discovery/AttachedAdapters.h"

#include <fmt/format.h>

#include <set>
#include <string_view>
#include <tuple>

#include "discovery/ChainPosition.h"
#include "discovery/Products.h"

namespace corvane {

namespace {

void ignoreArrivals(void*, RegistryHandle) {}

/// The services present that hold the property.
std::vector<RegistryObject> servicesWith(Registry& registry, const char* key,
                                         const PropertyValue& value) {
  std::vector<RegistryObject> services;
  const auto port = registry.createNotificationPort();
  const auto matching = registry.createMutableDictionary();
  if (!port || !matching) return services;
  (*matching)["IOPropertyMatch"] = PropertyValue::Dictionary{{key, value}};
  RegistryHandle handle = 0;
  if (registry.addMatchingNotification(*port, firstMatchNotification, matching, ignoreArrivals,
                                       nullptr, handle) != statusSuccess)
    return services;
  const RegistryObject iterator(registry, handle);
  while (const RegistryHandle service = registry.next(iterator.get()))
    services.emplace_back(registry, service);
  return services;
}

/// The bytes of a data text form.
PropertyValue::Data bytesOf(std::string_view text) {
  constexpr int hexadecimal = 16;
  PropertyValue::Data bytes;
  for (size_t place = text.find('<') + 1; place + 1 < text.find('>'); place += 2)
    bytes.push_back(
        static_cast<uint8_t>(std::stoul(std::string(text.substr(place, 2)), nullptr, hexadecimal)));
  return bytes;
}

std::string labelOf(const ChainPosition& position) {
  return fmt::format("{} - {}", textOrNull(position.port), position.sequence);
}

// The endpoint is the first of an adapter's own bridges, so the walk from there misses its hop.
void addFibreChannelAdapters(Registry& registry, std::vector<AttachedAdapter>& adapters) {
  for (const RegistryObject& endpoint :
       servicesWith(registry, tunnelEndpointVendorKey, bytesOf(makerVendorText))) {
    PropertyValue::Dictionary properties;
    if (registry.properties(endpoint.get(), properties) != statusSuccess) continue;
    const Product* product = productRecognised(AdapterFamily::FibreChannel,
                                               propertyText(properties, tunnelEndpointModelKey));
    if (product == nullptr) continue;
    ChainPosition position = findChainPosition(registry, endpoint.get());
    ++position.sequence;
    adapters.push_back({std::string(product->name), labelOf(position)});
  }
}

// The two functions of an adapter are on one bus.
void addTenGigabitAdapters(Registry& registry, const Product& product,
                           std::vector<AttachedAdapter>& adapters) {
  std::set<std::string> buses;
  for (const RegistryObject& function :
       servicesWith(registry, ethernetSubsystemKey, bytesOf(product.registryText))) {
    PropertyValue::Dictionary properties;
    if (registry.properties(function.get(), properties) != statusSuccess) continue;
    const std::string place = propertyText(properties, pciPlaceKey);
    if (!buses.insert(place.substr(0, place.find(':'))).second) continue;
    adapters.push_back(
        {std::string(product.name), labelOf(findChainPosition(registry, function.get()))});
  }
}

}  // namespace

std::vector<AttachedAdapter> findAttachedAdapters(Registry& registry) {
  std::vector<AttachedAdapter> adapters;
  addFibreChannelAdapters(registry, adapters);
  for (const Product& product : products)
    if (product.family == AdapterFamily::TenGigabit)
      addTenGigabitAdapters(registry, product, adapters);
  return adapters;
}

}  // namespace corvane
