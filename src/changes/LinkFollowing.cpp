#include "changes/LinkFollowing.h"

#include <chrono>

#include "inventory/PortReaders.h"

namespace corvane {

namespace {

constexpr int mostLooks = 3;
constexpr std::chrono::seconds pause{3};

}  // namespace

void followLink(Dispatch& dispatch, const PortTarget& port) {
  for (int look = 0; look < mostLooks && !port.isGone(); ++look) {
    dispatch.sleep(pause);
    const auto told = readInformation(port.api(), port.service());
    if (told && told->hasLink()) return;
  }
}

}  // namespace corvane
