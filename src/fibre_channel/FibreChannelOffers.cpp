#include "fibre_channel/FibreChannelOffers.h"

#include <algorithm>

#include "discovery/Products.h"
#include "fibre_channel/FibreChannelProtocol.h"
#include "text/WholeNumber.h"

namespace corvane {

namespace {

bool is8G(std::string_view product) {
  return product == corvane2_8G_FC || product == corvane3_8G_FC;
}

bool is16G(std::string_view product) {
  return product == corvane2_16G_FC || product == corvane3_F2;
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

}  // namespace

std::vector<int64_t> offeredSpeeds(std::string_view product) {
  std::vector<int64_t> speeds{speedAutomatic};
  if (product != corvane3_F2) speeds.push_back(speed2G);
  speeds.insert(speeds.end(), {speed4G, speed8G});
  if (!is8G(product)) speeds.push_back(speed16G);
  return speeds;
}

std::vector<int64_t> offeredTopologies(std::string_view product) {
  std::vector<int64_t> topologies{topologyPointToPoint};
  if (hasArbitratedLoop(product)) topologies.push_back(topologyArbitratedLoop);
  return topologies;
}

std::vector<int64_t> offeredQueueDepths(std::string_view driverVersion) {
  std::vector<int64_t> depths{16, 32, 64, 128, 256, 512};
  if (takesLargestDepths(driverVersion)) depths.insert(depths.end(), {1024, 2048});
  return depths;
}

bool hasArbitratedLoop(std::string_view product) {
  return !is16G(product);
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

uint64_t speedToSend(std::string_view product, int64_t speed) {
  const auto wished = static_cast<uint64_t>(speed);
  return wished == speedAutomatic && is16G(product) ? speedAutomaticOf16G : wished;
}

}  // namespace corvane
