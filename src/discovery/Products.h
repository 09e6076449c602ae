#pragma once

#include <array>
#include <string_view>

#include "discovery/AdapterFamily.h"

namespace corvane {

/// One of the maker's products.
struct Product {
  std::string_view name;
  AdapterFamily family;
  int generation;

  /// The data text form of the registry property that tells it: the Thunderbolt tunnel endpoint's
  /// model identifier, or for 10GbE the Ethernet function's "subsystem-id".
  std::string_view registryText;
};

inline constexpr std::string_view corvane2_8G_FC = "Corvane2 8G FC";
inline constexpr std::string_view corvane2_16G_FC = "Corvane2 16G FC";
inline constexpr std::string_view corvane3_8G_FC = "Corvane3 8G FC";
inline constexpr std::string_view corvane3_F2 = "Corvane3 F2";
inline constexpr std::string_view corvane2_10G_BaseT = "Corvane2 10G Base-T";
inline constexpr std::string_view corvane2_10G_SFP = "Corvane2 10G SFP+";
inline constexpr std::string_view corvane3_NBASE_T1 = "Corvane3 NBASE-T1";
inline constexpr std::string_view corvane3_10G_BaseT = "Corvane3 10G Base-T";
inline constexpr std::string_view corvane3_10G_SFP = "Corvane3 10G SFP+";

/// All of them, in the order in which they are tried.
inline constexpr std::array<Product, 9> products{{
    {corvane2_8G_FC, AdapterFamily::FibreChannel, 2, "<05000000>"},
    {corvane2_16G_FC, AdapterFamily::FibreChannel, 2, "<0d000000>"},
    {corvane3_8G_FC, AdapterFamily::FibreChannel, 3, "<15000000>"},
    {corvane3_F2, AdapterFamily::FibreChannel, 3, "<12000000>"},
    {corvane2_10G_BaseT, AdapterFamily::TenGigabit, 2, "<01620000>"},
    {corvane2_10G_SFP, AdapterFamily::TenGigabit, 2, "<02620000>"},
    {corvane3_NBASE_T1, AdapterFamily::TenGigabit, 3, "<03720000>"},
    {corvane3_10G_BaseT, AdapterFamily::TenGigabit, 3, "<01720000>"},
    {corvane3_10G_SFP, AdapterFamily::TenGigabit, 3, "<02720000>"},
}};

// The registry properties that tell a product.

/// Of a Thunderbolt adapter's upstream bridge.
inline constexpr const char* tunnelEndpointVendorKey = "Tunnel Endpoint Device Vendor ID";
inline constexpr const char* tunnelEndpointModelKey = "Tunnel Endpoint Device Model ID";

/// The maker's Thunderbolt vendor number, 2, as the registry's bytes print.
inline constexpr std::string_view makerVendorText = "<02000000>";

/// Of an Ethernet function: its product, and its place on the PCI buses, such as "12:0:1".
inline constexpr const char* ethernetSubsystemKey = "subsystem-id";
inline constexpr const char* pciPlaceKey = "pcidebug";

/// The product of that name; null when it is none of the maker's.
const Product* productNamed(std::string_view name);

/// The product of that family that the registry tells by `registryText`; null when there is none.
const Product* productRecognised(AdapterFamily family, std::string_view registryText);

}  // namespace corvane
