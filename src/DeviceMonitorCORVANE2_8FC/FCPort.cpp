#include "DeviceMonitorCORVANE2_8FC/FCPort.h"

#include "discovery/Products.h"
#include "discovery/RegistryText.h"
#include "discovery/RegistryWalk.h"

namespace corvane {

namespace {

constexpr size_t worldWideNameBytes = 8;

const Product* productOfTunnelEndpoint(const PropertyValue::Dictionary& properties) {
  if (propertyText(properties, tunnelEndpointVendorKey) != makerVendorText) return nullptr;
  return productRecognised(AdapterFamily::FibreChannel,
                           propertyText(properties, tunnelEndpointModelKey));
}

}  // namespace

FCPort::FCPort(Registry& registry, RegistryHandle service) : portService_(registry, service) {
  if (service == 0) return;
  getWWN(registry);
  findDeviceName(registry);
}

void FCPort::getWWN(Registry& registry) {
  if (registry.properties(portService_.get(), property_) != statusSuccess) return;
  const auto* found = findProperty(property_, "Controller Characteristics");
  const auto* characteristics = found != nullptr ? found->dictionary() : nullptr;
  if (characteristics == nullptr) return;
  nodeWWN_ = colonPairs(*characteristics, "Node World Wide Name", worldWideNameBytes);
  portWWN_ = trimmedDataText(*characteristics, "Port World Wide Name");
}

void FCPort::findDeviceName(Registry& registry) {
  RegistryWalk walk(registry, portService_.get());
  while (walk.next()) {
    if (!walk.properties(property_)) continue;
    if (const Product* product = productOfTunnelEndpoint(property_)) {
      procudtTpe_ = product->name;
      return;
    }
  }
}

}  // namespace corvane
