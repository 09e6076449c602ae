#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace corvane {

/// What a simulated adapter is and can do.
struct BenchProduct {
  std::string_view name;
  bool isFibreChannel;
  int generation;          ///< 2 or 3, the number in its name
  uint32_t tunnelModelID;  ///< "Tunnel Endpoint Device Model ID" of its upstream bridge
  uint32_t subsystemID;    ///< of the "ethernet" functions, in memory order; 0 for Fibre Channel
  bool has16G;             ///< Fibre Channel: runs at 16 Gb/s, has no arbitrated loop
  bool has2G;              ///< Fibre Channel: runs at 2 Gb/s
  bool hasCage;            ///< takes transceiver modules
};

/// The maker's Thunderbolt vendor number.
inline constexpr uint32_t benchTunnelVendorID = 2;

/// The nine products.
std::span<const BenchProduct> benchProducts();

/// The product of that name; null when there is none.
const BenchProduct* findBenchProduct(std::string_view name);

/// Whether a Fibre Channel product can be set to run at `speed` Mb/s.
bool supportsSpeed(const BenchProduct& product, int64_t speed);

/// The valid arbitrated-loop physical addresses of a port: the 126 bytes of neutral disparity that
/// FC-AL gives to node ports, from the lowest priority (EF) to the highest (01).
std::span<const uint8_t> validLoopAddresses();

}  // namespace corvane
