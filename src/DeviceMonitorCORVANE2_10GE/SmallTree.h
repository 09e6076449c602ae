#pragma once

#include <string>

namespace corvane {

// The small tree: one list for the process that remembers each 10GbE port's PCI bus number by its
// MAC address, because a terminated registry entry cannot be asked for the bus any more. It guards
// itself.

/// Makes the list anew, empty.
void initFUCKsmalltree();

/// Appends a record.
void saveFUCKsmalltree(const std::string& macaddr, const std::string& pcidebug);

/// The bus number of that address; empty when there is none. Takes the records it finds out of the
/// list, but not one that directly follows another of the same address: that one stays for the next
/// time. Of several found the last one counts.
std::string getFUCKsmalltree(const std::string& macaddr);

}  // namespace corvane
