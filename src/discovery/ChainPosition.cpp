#include "discovery/ChainPosition.h"

#include "discovery/RegistryWalk.h"

namespace corvane {

namespace {

constexpr const char* bridgeName = "pci-bridge";
constexpr const char* downstreamName = "DSB";
constexpr size_t downstreamNumberOffset = 3;

bool contains(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

// One character of the name decides, so the letters end with the nine one-digit numbers.
std::optional<std::string> portLetter(const std::string& name) {
  if (name.size() <= downstreamNumberOffset) return std::nullopt;
  const char number = name[downstreamNumberOffset];
  if (number < '1' || number > '9') return std::nullopt;
  return std::string(1, static_cast<char>('A' + (number - '1')));
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
