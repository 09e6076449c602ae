#include "platform/bench/file/BenchConsistency.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

#include "platform/bench/file/BenchProducts.h"

namespace corvane {

namespace {

using Breach = std::optional<SchemaBreach>;

std::string upperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char character) {
    return static_cast<char>(std::toupper(character));
  });
  return text;
}

/// Texts or places that may stand only once, with the pointer of the one that came first.
class Unique {
 public:
  explicit Unique(std::string what) : what_(std::move(what)) {}

  Breach claim(const std::string& name, const std::string& pointer) {
    const auto [found, isNew] = claimed_.emplace(upperCase(name), pointer);
    if (isNew) return {};
    return SchemaBreach{pointer, fmt::format("{} {} is taken by {}", what_, name, found->second)};
  }

 private:
  std::string what_;
  std::map<std::string, std::string> claimed_;
};

class ConsistencyCheck {
 public:
  explicit ConsistencyCheck(const BenchState& state) : state_(state) {}

  Breach check() {
    for (size_t index = 0; index < state_.adapters.size(); ++index) {
      const std::string pointer = fmt::format("/adapters/{}", index);
      if (Breach breach = checkAdapter(state_.adapters[index], pointer)) return breach;
    }
    if (Breach breach = checkThunderboltDevices()) return breach;
    if (Breach breach = checkNetworkInterfaces()) return breach;
    return checkDisks();
  }

 private:
  Breach checkAdapter(const BenchAdapter& adapter, const std::string& pointer) {
    const BenchProduct& product = *findBenchProduct(adapter.product);
    if (adapter.attached) {
      if (Breach breach = claimPlace(adapter.bridge, adapter.hop, pointer)) return breach;
    }
    if (product.isFibreChannel) {
      if (Breach breach = worldWideNames_.claim(adapter.nodeWWN, pointer + "/nodeWWN")) {
        return breach;
      }
    }
    for (size_t index = 0; index < adapter.fibreChannelPorts.size(); ++index) {
      if (Breach breach = checkFibreChannelPort(adapter.fibreChannelPorts[index], product,
                                                fmt::format("{}/ports/{}", pointer, index))) {
        return breach;
      }
    }
    for (size_t index = 0; index < adapter.ethernetPorts.size(); ++index) {
      if (Breach breach = checkEthernetPort(adapter.ethernetPorts[index], adapter.attached,
                                            fmt::format("{}/ports/{}", pointer, index))) {
        return breach;
      }
    }
    return {};
  }

  Breach claimPlace(int64_t bridge, int64_t hop, const std::string& pointer) {
    return places_.claim(fmt::format("{} of bridge {}", hop, bridge), pointer + "/hop");
  }

  Breach checkFibreChannelPort(const BenchFibreChannelPort& port, const BenchProduct& product,
                               const std::string& pointer) {
    if (Breach breach = worldWideNames_.claim(port.wwpn, pointer + "/wwpn")) return breach;
    ports_.insert(upperCase(port.wwpn));
    if (port.speed != 0 && !supportsSpeed(product, port.speed)) {
      return SchemaBreach{pointer + "/speed",
                          fmt::format("{} does not run at {} Mb/s", product.name, port.speed)};
    }
    if (product.has16G && port.topology == BenchTopology::ArbitratedLoop) {
      return SchemaBreach{pointer + "/topology",
                          fmt::format("{} has no arbitrated loop", product.name)};
    }
    if (!port.transceiver.file.empty() && !port.transceiver.hex.empty()) {
      return SchemaBreach{pointer + "/transceiver", "has both a file and bytes"};
    }
    return {};
  }

  Breach checkEthernetPort(const BenchEthernetPort& port, bool attached,
                           const std::string& pointer) {
    if (Breach breach = macAddresses_.claim(port.mac, pointer + "/mac")) return breach;
    if (!attached || !port.interface) return {};
    return interfaces_.claim(*port.interface, pointer + "/interface");
  }

  Breach checkThunderboltDevices() {
    for (size_t index = 0; index < state_.thunderboltDevices.size(); ++index) {
      const BenchThunderboltDevice& device = state_.thunderboltDevices[index];
      const std::string pointer = fmt::format("/thunderboltDevices/{}", index);
      if (Breach breach = claimPlace(device.bridge, device.hop, pointer)) return breach;
    }
    return {};
  }

  Breach checkNetworkInterfaces() {
    for (size_t index = 0; index < state_.networkInterfaces.size(); ++index) {
      const BenchNetworkInterface& interface = state_.networkInterfaces[index];
      const std::string pointer = fmt::format("/networkInterfaces/{}", index);
      if (Breach breach = interfaces_.claim(interface.name, pointer + "/name")) return breach;
      if (Breach breach = macAddresses_.claim(interface.mac, pointer + "/mac")) return breach;
    }
    return {};
  }

  Breach checkDisks() {
    for (size_t index = 0; index < state_.disks.size(); ++index) {
      if (Breach breach = checkDisk(state_.disks[index], fmt::format("/disks/{}", index))) {
        return breach;
      }
    }
    return {};
  }

  Breach checkDisk(const BenchDisk& disk, const std::string& pointer) {
    if (Breach breach = diskNames_.claim(disk.name, pointer + "/name")) return breach;
    for (size_t index = 0; index < disk.partitions.size(); ++index) {
      if (Breach breach = diskNames_.claim(disk.partitions[index].name,
                                           fmt::format("{}/partitions/{}/name", pointer, index))) {
        return breach;
      }
    }
    if (disk.port && ports_.count(upperCase(*disk.port)) == 0) {
      return SchemaBreach{pointer + "/port",
                          fmt::format("no adapter has a port named {}", *disk.port)};
    }
    return {};
  }

  const BenchState& state_;
  Unique places_{"place"};
  Unique worldWideNames_{"world wide name"};
  Unique macAddresses_{"MAC address"};
  Unique interfaces_{"interface"};
  Unique diskNames_{"disk name"};
  std::set<std::string> ports_;
};

}  // namespace

std::optional<SchemaBreach> findContradiction(const BenchState& state) {
  return ConsistencyCheck(state).check();
}

}  // namespace corvane
