#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace corvane {

/// A monitor's list that remembers each 10GbE port's PCI bus number by its MAC address, because a
/// terminated registry entry cannot be asked for the bus any more. Any thread may use it.
class SmallTree {
 private:
  friend void saveFUCKsmalltree(SmallTree& tree, const std::string& macaddr,
                                const std::string& pcidebug);
  friend std::string getFUCKsmalltree(SmallTree& tree, const std::string& macaddr);

  struct Record {
    std::string macaddr;
    std::string pcidebug;
  };

  std::mutex mutex_;  ///< guards records_
  std::vector<Record> records_;
};

/// Appends a record.
void saveFUCKsmalltree(SmallTree& tree, const std::string& macaddr, const std::string& pcidebug);

/// The bus number of that address; empty when there is none. Takes the records it finds out of the
/// list, but not one that directly follows another of the same address: that one stays for the next
/// time. Of several found the last one counts.
std::string getFUCKsmalltree(SmallTree& tree, const std::string& macaddr);

}  // namespace corvane
