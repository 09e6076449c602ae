#include "DeviceMonitorCORVANE2_10GE/SmallTree.h"

#include <mutex>
#include <vector>

namespace corvane {

namespace {

struct Record {
  std::string macaddr;
  std::string pcidebug;
};

struct SmallTree {
  std::mutex mutex;  ///< guards records
  std::vector<Record> records;
};

SmallTree& smallTree() {
  static SmallTree tree;
  return tree;
}

}  // namespace

void initFUCKsmalltree() {
  std::lock_guard guard(smallTree().mutex);
  smallTree().records.clear();
}

void saveFUCKsmalltree(const std::string& macaddr, const std::string& pcidebug) {
  std::lock_guard guard(smallTree().mutex);
  smallTree().records.push_back({macaddr, pcidebug});
}

std::string getFUCKsmalltree(const std::string& macaddr) {
  std::lock_guard guard(smallTree().mutex);
  auto& records = smallTree().records;
  std::string pcidebug;
  // The index advances after a removal as well; the record that slid into the place is left alone.
  for (size_t index = 0; index < records.size(); ++index) {
    if (records[index].macaddr != macaddr) continue;
    pcidebug = records[index].pcidebug;
    records.erase(records.begin() + static_cast<std::ptrdiff_t>(index));
  }
  return pcidebug;
}

}  // namespace corvane
