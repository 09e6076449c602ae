#pragma once

#include <memory>
#include <optional>

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "DeviceMonitorCORVANE2_8FC/FCPort.h"
#include "fakes/FakePlatform.h"
#include "inventory/PortTarget.h"

namespace corvane {

/// A Fibre Channel adapter as the device list has it, with two ports in the registry, labelled
/// "B - 2".
class ListedFibreChannelAdapter {
 public:
  explicit ListedFibreChannelAdapter(FakePlatform& fake) : fake_(fake) {
    entry_.WWN = "20:00:00:10:9B:12:34:56";
    entry_.Sequence = "B - 2";
    entry_.ProductType = "Corvane2 8G FC";
    entry_.obj = device_;
    entry_.info = std::make_shared<Corvane2Info>(fake.platform());
    for (const uint8_t portByte : {uint8_t{0x10}, uint8_t{0x11}}) addPort(portByte);
  }

  const DeviceListEntry& entry() const { return entry_; }
  std::optional<PortTarget> port(int64_t number) const { return PortTarget::of(entry_, number); }

  /// Both ports' services terminate.
  void unplug() {
    device_->port1()->clearService();
    device_->port2()->clearService();
  }

 private:
  void addPort(uint8_t portByte) {
    const PropertyValue::Dictionary characteristics{
        {"Node World Wide Name", PropertyValue::Data{0x20, 0, 0, 0x10, 0x9b, 0x12, 0x34, 0x56}},
        {"Port World Wide Name",
         PropertyValue::Data{portByte, 0, 0, 0x10, 0x9b, 0x12, 0x34, 0x56}}};
    const RegistryHandle service =
        fake_.registry.add(fake_.registry.root, "VelmarCORVANE",
                           {{"Controller Characteristics", PropertyValue(characteristics)}});
    device_->setPort(std::make_shared<FCPort>(fake_.registry, fake_.registry.give(service)));
  }

  FakePlatform& fake_;
  std::shared_ptr<Corvane2Device> device_ = std::make_shared<Corvane2Device>();
  DeviceListEntry entry_;
};

}  // namespace corvane
