#include "DeviceMonitorCORVANE2_10GE/SEPort.h"

#include <chrono>

#include "discovery/Products.h"
#include "discovery/RegistryText.h"
#include "discovery/RegistryWalk.h"

namespace corvane {

namespace {

constexpr size_t macAddressBytes = 6;

/// How an interface is named until the network stack has given it its BSD name.
constexpr const char* unnamedInterface = "IOEthernetInterface";
constexpr std::chrono::seconds namingPause{1};

}  // namespace

SEPort::SEPort(const Platform& platform, RegistryHandle service, const StopToken& stopping)
    : portService_(platform.registry, service) {
  if (service == 0) return;
  sortDeviceSequence(platform.registry);
  getWWN(platform, stopping);
}

void SEPort::sortDeviceSequence(Registry& registry) {
  RegistryWalk walk(registry, portService_.get());
  while (walk.next() && walk.name().find("ethernet") != std::string::npos) {
    PropertyValue::Dictionary properties;
    if (walk.properties(properties)) identify(properties);
  }
}

void SEPort::identify(const PropertyValue::Dictionary& function) {
  property_ = function;
  const std::string bus = propertyText(function, pciPlaceKey);
  pciDebug_ = bus.substr(0, bus.find(':'));
  const Product* product =
      productRecognised(AdapterFamily::TenGigabit, propertyText(function, ethernetSubsystemKey));
  if (product != nullptr) procudtTpe_ = product->name;
}

void SEPort::getWWN(const Platform& platform, const StopToken& stopping) {
  waitForInterfaceName(platform, stopping);
  if (!stopping.stop_requested()) platform.dispatch.sleep(namingPause);
  if (platform.registry.properties(portService_.get(), property_) != statusSuccess) return;
  readAccess(platform.log);
  if (auto address = colonPairs(property_, "IOMACAddress", macAddressBytes))
    macAddr_ = std::make_shared<const std::string>(std::move(*address));
}

void SEPort::waitForInterfaceName(const Platform& platform, const StopToken& stopping) {
  RegistryHandle handle = 0;
  if (platform.registry.childEntry(portService_.get(), servicePlane, handle) != statusSuccess)
    return;
  const RegistryObject interface(platform.registry, handle);
  std::string name;
  while (interface && platform.registry.name(interface.get(), name) == statusSuccess) {
    if (name != unnamedInterface) {
      nicNum_ = name;
      return;
    }
    if (stopping.stop_requested()) return;
    platform.dispatch.sleep(namingPause);
  }
}

void SEPort::readAccess(Log& log) {
  constexpr const char* enabledProperty = "EN Number";
  log.system("show current enNum --> " + propertyText(property_, enabledProperty));
  isAccessAbleflag_ = findProperty(property_, enabledProperty) != nullptr ? 1 : 0;
  log.system("port " + textOrNull(nicNum_) +
             (isAccessAbleflag_ == 1 ? " is enable" : " is disable"));
}

}  // namespace corvane
