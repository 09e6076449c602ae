#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// What each Fibre Channel product offers to be set, and how values read. Pure.

/// Speeds in Mb/s with 0 for automatic, topology codes and queue depths, in rising order.
std::vector<int64_t> offeredSpeeds(std::string_view product);
std::vector<int64_t> offeredTopologies(std::string_view product);

/// The queue depths of the menu that a driver of that version takes.
std::vector<int64_t> offeredQueueDepths(std::string_view driverVersion);

/// Whether an adapter of that product can be part of an arbitrated loop. Fibre Channel has none
/// above 8 Gb/s.
bool hasArbitratedLoop(std::string_view product);

/// The text of a known speed or topology; nothing for any other value.
std::optional<std::string> speedText(uint64_t speed);
std::optional<std::string> topologyText(uint64_t topology);

/// What is sent to an adapter of that product for a speed: the firmware of the 16G adapters takes
/// another number for automatic.
uint64_t speedToSend(std::string_view product, int64_t speed);

}  // namespace corvane
