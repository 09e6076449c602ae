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

/// Whether a node port may have that arbitrated-loop physical address. FC-AL gives node ports the
/// bytes from 01 to EF whose 8b/10b character is of neutral disparity: both of its sub-blocks hold
/// as many ones as zeros, or neither does.
bool isLoopAddress(uint64_t number);

}  // namespace corvane
