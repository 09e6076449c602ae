#include "pages/DumpPages.h"

#include <algorithm>
#include <string>

#include "discovery/AttachedAdapters.h"

namespace corvane {

std::vector<std::string> unlistedAdapters(Registry& registry, const DeviceList& list,
                                          bool isWhole) {
  std::vector<AttachedAdapter> attached = findAttachedAdapters(registry);
  for (const auto& entry : list.entries()) {
    const auto listed = std::find(attached.begin(), attached.end(),
                                  AttachedAdapter{entry.ProductType, entry.Sequence});
    if (listed != attached.end()) attached.erase(listed);
  }
  const std::string reason =
      isWhole ? "none of its ports is in the dump, so its driver did not run"
              : "its ports are not whole in the dump; ask the customer for a whole one";
  std::vector<std::string> sentences;
  sentences.reserve(attached.size());
  for (const auto& adapter : attached)
    sentences.push_back(adapter.product + " at " + adapter.Sequence +
                        ": attached, but not listed: " + reason);
  return sentences;
}

}  // namespace corvane
