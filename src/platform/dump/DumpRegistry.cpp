#include "platform/dump/DumpRegistry.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

constexpr const char* propertyMatchKey = "IOPropertyMatch";
constexpr const char* interfaceNameKey = "BSD Name";
constexpr std::string_view unnamedInterface = "IOEthernetInterface";
constexpr std::string_view rootName = "Root";

bool isServicePlane(const char* plane) {
  return std::string_view(plane) == servicePlane;
}

/// Nothing ever comes by it.
class SilentSource final : public RunLoopSource {};

class SilentPort final : public NotificationPort {
 public:
  std::shared_ptr<RunLoopSource> runLoopSource() override { return source_; }

 private:
  std::shared_ptr<RunLoopSource> source_ = std::make_shared<SilentSource>();
};

/// How an entry stands in a path.
std::string pathPiece(const RegistryDump& dump, RegistryDump::Entry entry) {
  const std::string location = dump.location(entry);
  return dump.name(entry) + (location.empty() ? "" : "@" + location);
}

}  // namespace

std::optional<RegistryDump::Entry> DumpRegistry::held(RegistryHandle object) const {
  const std::lock_guard lock(mutex_);
  const bool isEntry = object > 0 && object <= dump_.entryCount();
  if (!isEntry || !references_.contains(object)) return std::nullopt;
  return object - 1;
}

RegistryHandle DumpRegistry::give(RegistryDump::Entry entry) {
  const std::lock_guard lock(mutex_);
  const RegistryHandle handle = entry + 1;
  ++references_[handle];
  return handle;
}

Status DumpRegistry::giveIfAny(std::optional<RegistryDump::Entry> entry, RegistryHandle& handle) {
  handle = entry ? give(*entry) : 0;
  return entry ? statusSuccess : statusNoDevice;
}

Status DumpRegistry::parentEntry(RegistryHandle entry, const char* plane, RegistryHandle& parent) {
  parent = 0;
  const auto known = held(entry);
  if (!known || !isServicePlane(plane)) return statusBadArgument;
  return giveIfAny(dump_.parent(*known), parent);
}

Status DumpRegistry::childEntry(RegistryHandle entry, const char* plane, RegistryHandle& child) {
  child = 0;
  const auto known = held(entry);
  if (!known || !isServicePlane(plane)) return statusBadArgument;
  return giveIfAny(namedFirstChild(*known), child);
}

std::optional<RegistryDump::Entry> DumpRegistry::namedFirstChild(RegistryDump::Entry entry) const {
  const std::optional<RegistryDump::Entry> child = dump_.firstChild(entry);
  return child && dump_.name(*child) == unnamedInterface ? std::nullopt : child;
}

Status DumpRegistry::name(RegistryHandle entry, std::string& name) {
  const auto known = held(entry);
  if (!known) return statusBadArgument;
  name = dump_.name(*known);
  return statusSuccess;
}

Status DumpRegistry::path(RegistryHandle entry, const char* plane, std::string& path) {
  const auto known = held(entry);
  if (!known || !isServicePlane(plane)) return statusBadArgument;
  std::string below;
  for (std::optional<RegistryDump::Entry> step = *known; step; step = dump_.parent(*step)) {
    const bool isRoot = !dump_.parent(*step) && dump_.name(*step) == rootName;
    if (!isRoot) below.insert(0, "/" + pathPiece(dump_, *step));
    if (below.size() >= registryPathCapacity) return statusBadArgument;
  }
  std::string whole = std::string(plane) + ":" + (below.empty() ? "/" : below);
  if (whole.size() >= registryPathCapacity) return statusBadArgument;
  path = std::move(whole);
  return statusSuccess;
}

Status DumpRegistry::properties(RegistryHandle entry, PropertyValue::Dictionary& properties) {
  const auto known = held(entry);
  if (!known) return statusBadArgument;
  properties = dump_.properties(*known);
  return statusSuccess;
}

SharedDictionary DumpRegistry::createMutableDictionary() {
  return std::make_shared<PropertyValue::Dictionary>();
}

std::optional<PropertyValue> DumpRegistry::createNumber(int8_t value) {
  return PropertyValue(int64_t{value});
}

std::vector<RegistryDump::Entry> DumpRegistry::matches(
    const PropertyValue::Dictionary& matching) const {
  PropertyValue::Dictionary wanted;
  if (const PropertyValue* properties = findProperty(matching, propertyMatchKey)) {
    if (!properties->dictionary()) return {};
    wanted = *properties->dictionary();
  }
  if (const PropertyValue* interface = findProperty(matching, interfaceNameKey)) {
    wanted.insert_or_assign(interfaceNameKey, *interface);
  }
  if (wanted.empty()) return {};
  std::vector<RegistryDump::Entry> found = dump_.entriesThatMayHold(wanted);
  std::erase_if(found, [&](RegistryDump::Entry entry) { return !dump_.isAnnounced(entry); });
  return found;
}

RegistryHandle DumpRegistry::matchingService(SharedDictionary matching) {
  if (!matching) return 0;
  const std::vector<RegistryDump::Entry> found = matches(*matching);
  return found.empty() ? 0 : give(found.front());
}

std::unique_ptr<NotificationPort> DumpRegistry::createNotificationPort() {
  return std::make_unique<SilentPort>();
}

Status DumpRegistry::addMatchingNotification(NotificationPort&, const char* type,
                                             SharedDictionary matching, MatchingCallback, void*,
                                             RegistryHandle& iterator) {
  iterator = 0;
  const std::string_view kind = type;
  if (!matching || (kind != firstMatchNotification && kind != terminateNotification)) {
    return statusBadArgument;
  }
  Iterator made;
  if (kind == firstMatchNotification) made.entries = matches(*matching);
  const std::lock_guard lock(mutex_);
  iterator = --nextIterator_;
  iterators_.emplace(iterator, std::move(made));
  references_[iterator] = 1;
  return statusSuccess;
}

RegistryHandle DumpRegistry::next(RegistryHandle iterator) {
  std::optional<RegistryDump::Entry> entry;
  {
    const std::lock_guard lock(mutex_);
    const auto found = iterators_.find(iterator);
    if (found == iterators_.end()) return 0;
    Iterator& walk = found->second;
    if (walk.position < walk.entries.size()) entry = walk.entries[walk.position++];
  }
  return entry ? give(*entry) : 0;
}

void DumpRegistry::retain(RegistryHandle object) {
  const std::lock_guard lock(mutex_);
  const auto found = references_.find(object);
  if (found != references_.end()) ++found->second;
}

void DumpRegistry::release(RegistryHandle object) {
  const std::lock_guard lock(mutex_);
  const auto found = references_.find(object);
  if (found == references_.end() || --found->second > 0) return;
  references_.erase(found);
  iterators_.erase(object);
}

size_t DumpRegistry::referenceCount() const {
  const std::lock_guard lock(mutex_);
  size_t count = 0;
  for (const auto& [handle, references] : references_) count += references;
  return count;
}

}  // namespace corvane
