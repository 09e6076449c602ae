#include "discovery/ChainPosition.h"

#include <algorithm>

#include "discovery/RegistryWalk.h"

namespace corvane {

namespace {

constexpr const char* bridgeName = "pci-bridge";
constexpr const char* downstreamName = "DSB";
constexpr size_t downstreamNumberOffset = 3;

bool contains(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

// Only the ports with one-digit numbers from 1 on have letters.
std::optional<std::string> portLetter(const std::string& name) {
  const std::string number = name.substr(std::min(name.size(), downstreamNumberOffset));
  const auto isDigit = [&number](size_t at) {
    return at < number.size() && number[at] >= '0' && number[at] <= '9';
  };
  if (!isDigit(0) || number[0] == '0' || isDigit(1)) return std::nullopt;
  return std::string(1, static_cast<char>('A' + (number[0] - '1')));
}

}  // namespace

ChainPosition findChainPosition(Registry& registry, RegistryHandle service) {
  int64_t bridges = 0;
  std::optional<std::string> port;
  RegistryWalk walk(registry, service);
  while (walk.next()) {
    const std::string name = walk.name();
    if (contains(name, bridgeName)) {
      ++bridges;
    } else if (contains(name, downstreamName)) {
      port = portLetter(name);
      break;
    }
  }
  // Each hop brings two bridges, the adapter's upstream and downstream one.
  return {(bridges + 1) / 2, port};
}

}  // namespace corvane
