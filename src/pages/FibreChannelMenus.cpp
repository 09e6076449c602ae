#include "pages/FibreChannelMenus.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "discovery/Products.h"
#include "fibre_channel/FibreChannelProtocol.h"
#include "text/WholeNumber.h"

namespace corvane {

namespace {

constexpr size_t indexOf2G = 1;
constexpr size_t indexOf16G = 3;
constexpr size_t indexOfArbitratedLoop = 2;
constexpr std::array<size_t, 2> indicesOfLargestDepths{0, 1};

constexpr int64_t dividerTag = -1;

bool is16G(std::string_view productType) {
  return productType == corvane2_16G_FC || productType == corvane3_F2;
}

PopUpItem speedItem(uint64_t speed) {
  return {static_cast<int64_t>(speed), speedText(speed).value(), false};
}

PopUpItem topologyItem(uint64_t topology) {
  return {static_cast<int64_t>(topology), topologyText(topology).value(), false};
}

// The number at a fixed place of the version text; what lies beyond its end counts as nothing.
int32_t versionNumberAt(std::string_view version, size_t position, size_t width) {
  return position < version.size() ? leadingWholeNumber(version.substr(position, width)) : 0;
}

bool takesLargestDepths(std::string_view driverVersion) {
  constexpr size_t lengthWithShortPatch = 6;
  const size_t patchWidth = driverVersion.size() < lengthWithShortPatch ? 1 : 2;
  const int32_t major = versionNumberAt(driverVersion, 0, 1);
  const int32_t minor = versionNumberAt(driverVersion, 2, 1);
  const int32_t patch = versionNumberAt(driverVersion, 4, patchWidth);
  return major > 2 || (major == 2 && (minor != 0 || patch >= 8));
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

bool hasArbitratedLoop(std::string_view productType) {
  return !is16G(productType);
}

void trimSpeedMenu(PopUpButton& menu, std::string_view productType) {
  const bool is8G = productType == corvane2_8G_FC || productType == corvane3_8G_FC;
  menu.setItemHidden(indexOf16G, is8G);
  menu.setItemHidden(indexOf2G, productType == corvane3_F2);
}

void trimTopologyMenu(PopUpButton& menu, std::string_view productType) {
  menu.setItemHidden(indexOfArbitratedLoop, !hasArbitratedLoop(productType));
}

void trimQueueDepthMenu(PopUpButton& menu, std::string_view driverVersion) {
  const bool hidden = !takesLargestDepths(driverVersion);
  for (const size_t index : indicesOfLargestDepths) menu.setItemHidden(index, hidden);
}

std::optional<std::string> speedText(uint64_t speed) {
  switch (speed) {
    case speedAutomatic:
      return "Automatic";
    case speed2G:
      return "2 Gbps";
    case speed4G:
      return "4 Gbps";
    case speed8G:
      return "8 Gbps";
    case speed16G:
      return "16 Gbps";
    default:
      return std::nullopt;
  }
}

std::optional<std::string> topologyText(uint64_t topology) {
  switch (topology) {
    case topologyPointToPoint:
      return "Point to Point";
    case topologyArbitratedLoop:
      return "Arbitrated Loop";
    default:
      return std::nullopt;
  }
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

uint64_t speedToSend(std::string_view productType, int64_t tag) {
  const auto speed = static_cast<uint64_t>(tag);
  return speed == speedAutomatic && is16G(productType) ? speedAutomaticOf16G : speed;
}

}  // namespace corvane
