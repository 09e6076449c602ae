#include "platform/bench/tree/RegistryTree.h"

#include "platform/bench/tree/RegistryTreeParts.h"
#include "text/Hexadecimal.h"

namespace corvane {

namespace {

constexpr uint64_t firstIdentifier = 0x100000100;

void numberEntries(RegistryTreeEntry& entry, uint64_t& next) {
  entry.id = next++;
  for (const auto& child : entry.children) numberEntries(*child, next);
}

bool hasDriver(const BenchState& state, const std::string& name) {
  return state.drivers.count(name) > 0;
}

}  // namespace

std::string RegistryTreeEntry::title() const {
  return location.empty() ? name : name + "@" + location;
}

std::string RegistryTreeEntry::path() const {
  if (parent == nullptr) return "IOService:/";
  const bool isBelowRoot = parent->parent == nullptr;
  return (isBelowRoot ? "IOService:" : parent->path()) + "/" + title();
}

std::unique_ptr<RegistryTreeEntry> buildRegistryTree(const BenchState& state) {
  auto root = std::make_unique<RegistryTreeEntry>();
  root->name = "Root";
  root->className = "IORegistryEntry";
  root->properties = {{"IOKitBuildVersion", "Darwin Kernel Version"},
                      {"OS Build Version", "bench"}};
  addHost(*root, state);
  uint64_t next = firstIdentifier;
  numberEntries(*root, next);
  return root;
}

std::string fibreChannelDriverIdentifier(const BenchState& state) {
  if (hasDriver(state, "Corvane-FC")) return "com.velmar.Corvane-FC";
  if (hasDriver(state, "Corvane2-FC")) return "com.velmar.Corvane2-FC";
  return "";
}

std::string ethernetDriverIdentifier(const BenchState& state) {
  return hasDriver(state, "Corvane2-10GE") ? "com.velmar.driver.Corvane2-10GE" : "";
}

RegistryTreeEntry& addEntry(RegistryTreeEntry& parent, std::string name, std::string location,
                            std::string className, PropertyValue::Dictionary properties) {
  auto entry = std::make_unique<RegistryTreeEntry>();
  entry->name = std::move(name);
  entry->location = std::move(location);
  entry->className = std::move(className);
  entry->properties = std::move(properties);
  entry->parent = &parent;
  entry->identity = parent.identity + "/" + entry->title();
  return *parent.children.emplace_back(std::move(entry));
}

PropertyValue numberData(uint64_t value, size_t width) {
  PropertyValue::Data bytes;
  for (size_t index = 0; index < width; ++index) {
    bytes.push_back(static_cast<uint8_t>(value >> (8 * index)));
  }
  return bytes;
}

PropertyValue addressData(const std::string& pairs) {
  return hexadecimalBytes(pairs, ":").value_or(PropertyValue::Data());
}

PropertyValue textData(const std::string& text) {
  PropertyValue::Data bytes(text.begin(), text.end());
  bytes.push_back(0);
  return bytes;
}

}  // namespace corvane
