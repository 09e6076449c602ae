#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "discovery/OwnedService.h"
#include "discovery/StopToken.h"
#include "platform/Platform.h"

namespace corvane {

/// One port of a 10GbE adapter, as the registry tells of it. Filled once when it is made; any
/// thread may read it afterwards.
class SEPort {
 public:
  /// initWithService: reads the port's product, PCI bus, interface name and MAC address. Takes over
  /// the reference that `service` carries; for 0 nothing is read.
  ///
  /// Blocks for a second at least, and as long as the interface has not been named, or until
  /// `stopping` is asked to stop; never make one on the main queue. What the platform refers to
  /// outlives the port.
  SEPort(const Platform& platform, RegistryHandle service, const StopToken& stopping);

  /// The port's registry service; 0 once the port has gone.
  RegistryHandle portService() const { return portService_.get(); }

  /// The service with a reference of the caller's own, for work that the port may not survive.
  RegistryObject retainedService() const { return portService_.retained(); }

  /// Releases the service: the port has gone.
  void clearService() { portService_.clear(); }

  /// The product's name; unset when the port is not recognised.
  const std::optional<std::string>& procudtTpe() const { return procudtTpe_; }

  /// The network interface's BSD name, such as en5. Unset when there is no interface.
  const std::optional<std::string>& nicNum() const { return nicNum_; }

  /// MAC address, six upper-case pairs joined by ":". Null when it cannot be read.
  const std::shared_ptr<const std::string>& macAddr() const { return macAddr_; }

  /// PCI bus number of the port's Ethernet function. Unset when there is no such function.
  const std::optional<std::string>& pciDebug() const { return pciDebug_; }

  /// Gives a departed port, which the registry cannot identify any more, its bus number. For the
  /// thread that made it, before any other has the port.
  void setPciDebug(std::string pciDebug) { pciDebug_ = std::move(pciDebug); }

  /// 1 when the driver has enabled the port, else 0.
  int64_t isAccessAbleflag() const { return isAccessAbleflag_; }

  /// The properties read last: of the service, or of an ancestor when those could not be read.
  const PropertyValue::Dictionary& property() const { return property_; }

  // What an adapter's record asks of its ports.

  /// Tells the adapter's ports apart; null while it is unset.
  const std::string* key() const { return macAddr_.get(); }

  /// Whether both hold the very same address object. Ports read apart never do, whatever their
  /// addresses say, so an adapter takes every distinct port.
  bool hasKeyOf(const SEPort& other) const { return macAddr_ && macAddr_ == other.macAddr_; }
  const std::optional<std::string>& identity() const { return pciDebug_; }

 private:
  void sortDeviceSequence(Registry& registry);
  void identify(const PropertyValue::Dictionary& function);
  void getWWN(const Platform& platform, const StopToken& stopping);
  void waitForInterfaceName(const Platform& platform, const StopToken& stopping);
  void readAccess(Log& log);

  OwnedService portService_;
  std::optional<std::string> procudtTpe_;
  std::optional<std::string> nicNum_;
  std::shared_ptr<const std::string> macAddr_;
  std::optional<std::string> pciDebug_;
  int64_t isAccessAbleflag_ = 0;
  PropertyValue::Dictionary property_;
};

}  // namespace corvane
