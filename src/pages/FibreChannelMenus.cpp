#include "pages/FibreChannelMenus.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "fibre_channel/FibreChannelOffers.h"
#include "fibre_channel/FibreChannelProtocol.h"

namespace corvane {

namespace {

constexpr int64_t dividerTag = -1;

PopUpItem speedItem(uint64_t speed) {
  return {static_cast<int64_t>(speed), speedText(speed).value(), false};
}

PopUpItem topologyItem(uint64_t topology) {
  return {static_cast<int64_t>(topology), topologyText(topology).value(), false};
}

// Hides the items of values that are not offered. A divider is never on show.
void showOffered(PopUpButton& menu, const std::vector<int64_t>& offered) {
  for (size_t index = 0; index < menu.items().size(); ++index) {
    const int64_t tag = menu.items()[index].tag;
    menu.setItemHidden(index, std::find(offered.begin(), offered.end(), tag) == offered.end());
  }
}

bool isOffered(const PopUpButton& menu, int64_t tag) {
  const auto& items = menu.items();
  return std::any_of(items.begin(), items.end(),
                     [tag](const PopUpItem& item) { return item.tag == tag && !item.hidden; });
}

void showValue(PopUpButton& menu, uint64_t value, const std::string& plainText) {
  const auto tag = static_cast<int64_t>(value);
  if (isOffered(menu, tag)) {
    menu.selectItemWithTag(tag);
  } else {
    menu.showPlainValue(plainText);
  }
}

}  // namespace

std::vector<PopUpItem> speedMenuItems() {
  return {speedItem(speedAutomatic), speedItem(speed2G), speedItem(speed4G), speedItem(speed16G),
          speedItem(speed8G)};
}

std::vector<PopUpItem> topologyMenuItems() {
  return {topologyItem(topologyPointToPoint),
          {dividerTag, "", true},
          topologyItem(topologyArbitratedLoop)};
}

std::vector<PopUpItem> queueDepthMenuItems() {
  constexpr std::array<int64_t, 8> depths{2048, 1024, 16, 32, 64, 128, 256, 512};
  std::vector<PopUpItem> items;
  items.reserve(depths.size());
  for (const int64_t depth : depths) items.push_back({depth, std::to_string(depth), false});
  return items;
}

void trimSpeedMenu(PopUpButton& menu, std::string_view productType) {
  showOffered(menu, offeredSpeeds(productType));
}

void trimTopologyMenu(PopUpButton& menu, std::string_view productType) {
  showOffered(menu, offeredTopologies(productType));
}

void trimQueueDepthMenu(PopUpButton& menu, std::string_view driverVersion) {
  showOffered(menu, offeredQueueDepths(driverVersion));
}

void showSpeed(PopUpButton& menu, uint64_t speed) {
  showValue(menu, speed, speedText(speed).value_or(fmt::format("{} Mb/s", speed)));
}

void showTopology(PopUpButton& menu, uint64_t topology) {
  showValue(menu, topology, topologyText(topology).value_or(std::to_string(topology)));
}

void showQueueDepth(PopUpButton& menu, uint64_t depth) {
  showValue(menu, depth, std::to_string(depth));
}

}  // namespace corvane
