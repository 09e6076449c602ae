#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "discovery/AdapterFamily.h"

namespace corvane {

class Corvane2Device;
class Corvane2Device_10GE;
class Corvane2Info;

/// One adapter as the list shows it.
struct DeviceListEntry {
  std::string image;     ///< icon file name
  std::string WWN;       ///< node WWN text; for 10GbE the MAC address of the first port
  std::string Sequence;  ///< label, such as "B - 2"
  std::variant<std::shared_ptr<Corvane2Device>, std::shared_ptr<Corvane2Device_10GE>> obj;
  std::string Version;      ///< firmware version; empty for 10GbE
  std::string ProductType;  ///< product name
  std::string pcidebug;     ///< PCI bus number of a 10GbE adapter; empty for Fibre Channel

  /// What the driver tells of a Fibre Channel adapter; null for 10GbE. Main queue only.
  std::shared_ptr<Corvane2Info> info;

  AdapterFamily family() const {
    return std::holds_alternative<std::shared_ptr<Corvane2Device>>(obj)
               ? AdapterFamily::FibreChannel
               : AdapterFamily::TenGigabit;
  }
};

/// The adapters announced, in display order. Any thread may use it; what it hands out are copies.
class DeviceList {
 public:
  /// Adds an entry and sorts the list by "Sequence" in plain text order, keeping the order of equal
  /// labels.
  void add(DeviceListEntry entry);

  /// Sorts the list anew.
  void sort();

  /// Remove every entry with that "WWN" or that "pcidebug" whose adapter has gone, and return them.
  std::vector<DeviceListEntry> removeWWN(const std::string& wwn);
  std::vector<DeviceListEntry> removePcidebug(const std::string& pcidebug);

  size_t count() const;
  std::vector<DeviceListEntry> entries() const;

  /// The entry in that row; nothing when there is no such row.
  std::optional<DeviceListEntry> entry(int64_t row) const;

 private:
  template <typename Condition>
  std::vector<DeviceListEntry> removeDeparted(Condition condition);

  mutable std::mutex mutex_;  ///< guards entries_
  std::vector<DeviceListEntry> entries_;
};

}  // namespace corvane
