#include "inventory/PortTarget.h"

#include <fmt/format.h>

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_10GE/Corvane2Device_10GE.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"

namespace corvane {

std::optional<PortTarget> PortTarget::of(const DeviceListEntry& adapter, int64_t port) {
  if (port != 1 && port != 2) return std::nullopt;
  return std::visit(
      [&](const auto& device) -> std::optional<PortTarget> {
        auto record = port == 1 ? device->port1() : device->port2();
        if (!record || record->portService() == 0) return std::nullopt;
        return PortTarget(adapter, port, std::move(record));
      },
      adapter.obj);
}

PortTarget::PortTarget(DeviceListEntry adapter, int64_t port, Record record)
    : adapter_(std::move(adapter)), port_(port), record_(std::move(record)) {
  held_ = std::visit(
      [](const auto& held) {
        return std::make_shared<const RegistryObject>(held->retainedService());
      },
      record_);
}

std::string PortTarget::name() const {
  return fmt::format("{} port {}", label(), port_);
}

bool PortTarget::isGone() const {
  const auto service = std::visit([](const auto& port) { return port->portService(); }, record_);
  return service == 0 || service != held_->get();
}

CorvaneAPI& PortTarget::api() const {
  return port_ == 1 ? adapter_.info->port1Info : adapter_.info->port2Info;
}

const FCPort& PortTarget::fibreChannelPort() const {
  return *std::get<std::shared_ptr<FCPort>>(record_);
}

const SEPort& PortTarget::tenGigabitPort() const {
  return *std::get<std::shared_ptr<SEPort>>(record_);
}

bool PortTarget::isSamePort(const PortTarget& other) const {
  return record_ == other.record_ && held_->get() == other.held_->get();
}

}  // namespace corvane
