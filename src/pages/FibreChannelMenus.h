#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "controls/PopUpButton.h"

namespace corvane {

/// The Fibre Channel pages' menus. The index of an item is what trimming goes by, its tag what is
/// set and read; the view shows the items in the order of their tags.

/// Tags are speeds in Mb/s. 2 Gbps lies at index 1 and 16 Gbps at index 3.
std::vector<PopUpItem> speedMenuItems();

/// Tags are topology codes. Arbitrated Loop lies at index 2; index 1 is a divider that is never on
/// show and stands for no topology.
std::vector<PopUpItem> topologyMenuItems();

/// Tags are queue depths. The two that older drivers do not take lie at indices 0 and 1.
std::vector<PopUpItem> queueDepthMenuItems();

/// Hide what an adapter of that product does not offer, and show the rest.
void trimSpeedMenu(PopUpButton& menu, std::string_view productType);
void trimTopologyMenu(PopUpButton& menu, std::string_view productType);

/// Hides what a driver of that version does not take, and shows the rest.
void trimQueueDepthMenu(PopUpButton& menu, std::string_view driverVersion);

/// Select the item that stands for the value. A value whose item is hidden, or that has none, is
/// shown plainly.
void showSpeed(PopUpButton& menu, uint64_t speed);
void showTopology(PopUpButton& menu, uint64_t topology);
void showQueueDepth(PopUpButton& menu, uint64_t depth);

}  // namespace corvane
