#pragma once

#include <chrono>
#include <cstdint>

#include "platform/bench/file/BenchProducts.h"
#include "platform/bench/file/BenchState.h"

namespace corvane {

/// How long a changed setting keeps the link down, in the bench's time.
inline constexpr std::chrono::milliseconds linkDropDuration{4000};

/// The state of a Fibre Channel link as the adapter sees it.
struct BenchLinkStatus {
  bool isUp = false;
  int64_t speed = 0;  ///< in Mb/s; 0 while down
  BenchTopology topology = BenchTopology::PointToPoint;
};

/// Negotiates with the partner at the moment `now`, in milliseconds since 1970: the fastest speed
/// that both run at within what is configured. The link is down without a cable or a module, while
/// a drop lasts, when the two do not agree, and in every second spell while it flaps.
BenchLinkStatus negotiateLink(const BenchState& state, const BenchProduct& product,
                              const BenchFibreChannelPort& port, int64_t now);

}  // namespace corvane
