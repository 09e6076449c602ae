#include "platform/bench/BenchLink.h"

namespace corvane {

namespace {

constexpr double flapMilliseconds = 2000;

bool isInDownSpell(const BenchState& state, int64_t now) {
  const auto spell =
      static_cast<int64_t>(static_cast<double>(now) * state.clockRate / flapMilliseconds);
  return spell % 2 != 0;
}

int64_t fastestCommonSpeed(const BenchProduct& product, const BenchFibreChannelPort& port) {
  int64_t fastest = 0;
  for (const int64_t speed : port.partner.speeds) {
    const bool isAllowed = port.speed == 0 || port.speed == speed;
    if (isAllowed && supportsSpeed(product, speed) && speed > fastest) fastest = speed;
  }
  return fastest;
}

}  // namespace

BenchLinkStatus negotiateLink(const BenchState& state, const BenchProduct& product,
                              const BenchFibreChannelPort& port, int64_t now) {
  BenchLinkStatus status;
  status.topology = port.topology;
  if (!port.link || !port.transceiver.isPresent() || now < port.linkReturnsAt) return status;
  if (state.hasFault("link-flaps") && isInDownSpell(state, now)) return status;
  if (port.partner.topology && *port.partner.topology != port.topology) return status;
  status.speed = fastestCommonSpeed(product, port);
  status.isUp = status.speed != 0;
  return status;
}

}  // namespace corvane
