#include "inventory/DeviceListEntries.h"

#include <fmt/format.h>

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"

namespace corvane {

std::string iconOfNotification(const std::string& name) {
  const bool third = name == "Corvane3Appeared" || name == "Corvane3Appeared_10GE";
  return third ? thirdGenerationIcon : secondGenerationIcon;
}

std::string iconOfProduct(const std::string& productType) {
  if (productType.find("Corvane2") != std::string::npos) return secondGenerationIcon;
  if (productType.find("Corvane3") != std::string::npos) return thirdGenerationIcon;
  return secondGenerationIcon;
}

std::optional<DeviceListEntry> makeEntry(const Platform& platform,
                                         const std::shared_ptr<Corvane2Device>& device,
                                         const std::string& icon) {
  const auto port1 = device->port1();
  const auto port2 = device->port2();
  if (!port1 || !port2) return std::nullopt;
  const RegistryObject service1 = port1->retainedService();
  const RegistryObject service2 = port2->retainedService();

  auto info = std::make_shared<Corvane2Info>(platform);
  info->deviceWWN = device->nodeWWN().value_or("");
  info->deviceSequence = info->sortDeviceSequence(service1.get());
  info->port1Info.GetCorvaneInfoFunction(service1.get());
  info->port2Info.GetCorvaneInfoFunction(service2.get());

  DeviceListEntry entry;
  entry.image = icon;
  entry.WWN = info->port1Info.WWNN;
  entry.Sequence = info->label();
  entry.obj = device;
  entry.Version = info->port1Info.fwVer;
  entry.ProductType = textOrNull(port1->procudtTpe());
  entry.info = std::move(info);
  return entry;
}

std::optional<DeviceListEntry> makeEntry(const Platform& platform,
                                         const std::shared_ptr<Corvane2Device_10GE>& device,
                                         const std::string& icon) {
  const auto port1 = device->port1();
  if (!port1) return std::nullopt;
  const RegistryObject service = port1->retainedService();
  device->setDeviceSequence(
      std::to_string(device->sortDeviceSequence(platform.registry, service.get())));

  DeviceListEntry entry;
  entry.image = icon;
  entry.WWN = port1->macAddr() ? *port1->macAddr() : textOrNull(std::nullopt);
  entry.Sequence = fmt::format("{} - {}", textOrNull(device->devicePort()),
                               textOrNull(device->deviceSequence()));
  entry.obj = device;
  entry.ProductType = textOrNull(port1->procudtTpe());
  entry.pcidebug = textOrNull(port1->pciDebug());
  return entry;
}

}  // namespace corvane
