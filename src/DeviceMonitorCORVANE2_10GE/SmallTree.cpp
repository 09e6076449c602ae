#include "DeviceMonitorCORVANE2_10GE/SmallTree.h"

namespace corvane {

void saveFUCKsmalltree(SmallTree& tree, const std::string& macaddr, const std::string& pcidebug) {
  std::lock_guard guard(tree.mutex_);
  tree.records_.push_back({macaddr, pcidebug});
}

std::string getFUCKsmalltree(SmallTree& tree, const std::string& macaddr) {
  std::lock_guard guard(tree.mutex_);
  auto& records = tree.records_;
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
