#include "platform/bench/file/BenchState.h"

#include <algorithm>
#include <cctype>
#include <type_traits>

namespace corvane {

namespace {

template <typename State>
auto* findPort(State& state, const std::string& interface) {
  using Port =
      std::conditional_t<std::is_const_v<State>, const BenchEthernetPort, BenchEthernetPort>;
  for (auto& adapter : state.adapters) {
    if (!adapter.attached) continue;
    for (auto& port : adapter.ethernetPorts) {
      if (port.interface == interface) return static_cast<Port*>(&port);
    }
  }
  return static_cast<Port*>(nullptr);
}

}  // namespace

BenchDriverSettings defaultDriverSettings() {
  return {{"RxIntrThrottle", 8000},  {"RxRingSize", 512},  {"RxRingCount", 1},
          {"TxIntrThrottle", 16000}, {"TxRingSize", 1024}, {"TCPipv4ChecksumEnable", 2},
          {"RSCEnable", 1}};
}

const BenchEthernetPort* BenchState::findEthernetPort(const std::string& interface) const {
  return findPort(*this, interface);
}

BenchEthernetPort* BenchState::findEthernetPort(const std::string& interface) {
  return findPort(*this, interface);
}

bool isSameAddress(const std::string& left, const std::string& right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](unsigned char first, unsigned char second) {
                      return std::toupper(first) == std::toupper(second);
                    });
}

}  // namespace corvane
