#include "platform/bench/BenchRegistry.h"

#include <algorithm>
#include <cstring>

#include "platform/bench/tree/RegistryMatching.h"

namespace corvane {

namespace {

constexpr RegistryHandle firstHandle = 0x1003;
/// After what time of the bench the network stack gives a new interface its name.
constexpr std::chrono::milliseconds namingDelay{600};

bool isServicePlane(const char* plane) {
  return plane != nullptr && std::strcmp(plane, servicePlane) == 0;
}

void collect(const RegistryTreeEntry& entry,
             std::map<std::string, const RegistryTreeEntry*>& entries) {
  entries.emplace(entry.identity, &entry);
  for (const auto& child : entry.children) collect(*child, entries);
}

}  // namespace

/// The whole registry at one moment.
struct BenchRegistry::Snapshot {
  std::unique_ptr<RegistryTreeEntry> root;
  std::map<std::string, const RegistryTreeEntry*> entries;  ///< by identity
};

/// An entry that somebody holds.
struct BenchRegistry::Entry {
  int references = 0;
  std::shared_ptr<const Snapshot> snapshot;  ///< the last one that the entry is in
  const RegistryTreeEntry* entry = nullptr;
  bool isTerminated = false;
};

/// A matching notification with its iterator.
struct BenchRegistry::Watch {
  int references = 1;
  const Port* port = nullptr;  ///< null once the port has gone
  std::string type;
  PropertyValue::Dictionary matching;
  MatchingCallback callback = nullptr;
  void* context = nullptr;
  std::deque<RegistryHandle> pending;  ///< each with a reference
  bool isArmed = false;                ///< drained since the last callback
};

class BenchRegistry::Port final : public NotificationPort {
 public:
  explicit Port(BenchRegistry& registry) : registry_(registry) {}
  ~Port() override {
    registry_.forgetPort(this);
    source_->invalidate();
  }

  std::shared_ptr<RunLoopSource> runLoopSource() override { return source_; }

  QueuedRunLoopSource& source() const { return *source_; }

 private:
  BenchRegistry& registry_;
  const std::shared_ptr<QueuedRunLoopSource> source_ = std::make_shared<QueuedRunLoopSource>();
};

BenchRegistry::BenchRegistry(BenchMachine& machine)
    : machine_(machine), snapshot_(takeSnapshot(*machine.state())), nextHandle_(firstHandle) {
  machine.observe([this](const BenchState& state) { follow(state); });
}

BenchRegistry::~BenchRegistry() = default;

std::shared_ptr<const BenchRegistry::Snapshot> BenchRegistry::takeSnapshot(
    const BenchState& state) {
  auto snapshot = std::make_shared<Snapshot>();
  snapshot->root = buildRegistryTree(state);
  collect(*snapshot->root, snapshot->entries);
  return snapshot;
}

Status BenchRegistry::parentEntry(RegistryHandle entry, const char* plane, RegistryHandle& parent) {
  parent = 0;
  const std::lock_guard guard(mutex_);
  const Entry* found = find(entry);
  if (found == nullptr || !isServicePlane(plane)) return statusBadArgument;
  if (found->isTerminated || found->entry->parent == nullptr) return statusNoDevice;
  parent = handleFor(*found->entry->parent);
  return statusSuccess;
}

Status BenchRegistry::childEntry(RegistryHandle entry, const char* plane, RegistryHandle& child) {
  child = 0;
  const std::lock_guard guard(mutex_);
  const Entry* found = find(entry);
  if (found == nullptr || !isServicePlane(plane)) return statusBadArgument;
  if (found->isTerminated || found->entry->children.empty()) return statusNoDevice;
  child = handleFor(*found->entry->children.front());
  return statusSuccess;
}

Status BenchRegistry::name(RegistryHandle entry, std::string& name) {
  const std::lock_guard guard(mutex_);
  const Entry* found = find(entry);
  if (found == nullptr) return statusBadArgument;
  name = isUnnamed(*found->entry) ? unnamedInterface : found->entry->name;
  return statusSuccess;
}

Status BenchRegistry::path(RegistryHandle entry, const char* plane, std::string& path) {
  const std::lock_guard guard(mutex_);
  const Entry* found = find(entry);
  if (found == nullptr || !isServicePlane(plane)) return statusBadArgument;
  std::string whole = found->entry->path();
  if (whole.size() >= registryPathCapacity) return statusFailure;
  path = std::move(whole);
  return statusSuccess;
}

Status BenchRegistry::properties(RegistryHandle entry, PropertyValue::Dictionary& properties) {
  const std::lock_guard guard(mutex_);
  const Entry* found = find(entry);
  if (found == nullptr) return statusBadArgument;
  properties = found->entry->properties;
  if (isUnnamed(*found->entry)) properties.erase("BSD Name");
  return statusSuccess;
}

SharedDictionary BenchRegistry::createMutableDictionary() {
  return std::make_shared<PropertyValue::Dictionary>();
}

std::optional<PropertyValue> BenchRegistry::createNumber(int8_t value) {
  return PropertyValue(int64_t{value});
}

RegistryHandle BenchRegistry::matchingService(SharedDictionary matching) {
  if (!matching) return 0;
  const std::lock_guard guard(mutex_);
  for (const auto& [identity, entry] : snapshot_->entries) {
    if (matches(*entry, *matching)) return handleFor(*entry);
  }
  return 0;
}

std::unique_ptr<NotificationPort> BenchRegistry::createNotificationPort() {
  return std::make_unique<Port>(*this);
}

Status BenchRegistry::addMatchingNotification(NotificationPort& port, const char* type,
                                              SharedDictionary matching, MatchingCallback callback,
                                              void* context, RegistryHandle& iterator) {
  iterator = 0;
  if (!matching || callback == nullptr) return statusBadArgument;
  if (machine_.state()->hasFault("notifications-refused")) return statusFailure;
  const std::lock_guard guard(mutex_);
  Watch watch;
  watch.port = static_cast<const Port*>(&port);
  watch.type = type;
  watch.matching = *matching;
  watch.callback = callback;
  watch.context = context;
  if (watch.type == firstMatchNotification) {
    for (const RegistryTreeEntry* entry : inTreeOrder(*snapshot_->root)) {
      if (matches(*entry, watch.matching)) watch.pending.push_back(handleFor(*entry));
    }
  }
  iterator = nextHandle_++;
  watches_.emplace(iterator, std::move(watch));
  return statusSuccess;
}

RegistryHandle BenchRegistry::next(RegistryHandle iterator) {
  const std::lock_guard guard(mutex_);
  const auto found = watches_.find(iterator);
  if (found == watches_.end()) return 0;
  Watch& watch = found->second;
  if (watch.pending.empty()) {
    watch.isArmed = true;
    return 0;
  }
  const RegistryHandle service = watch.pending.front();
  watch.pending.pop_front();
  return service;
}

void BenchRegistry::retain(RegistryHandle object) {
  const std::lock_guard guard(mutex_);
  if (const auto entry = entries_.find(object); entry != entries_.end()) ++entry->second.references;
  if (const auto watch = watches_.find(object); watch != watches_.end()) ++watch->second.references;
}

void BenchRegistry::release(RegistryHandle object) {
  const std::lock_guard guard(mutex_);
  releaseLocked(object);
}

void BenchRegistry::releaseLocked(RegistryHandle object) {
  if (const auto found = entries_.find(object); found != entries_.end()) {
    if (--found->second.references > 0) return;
    if (!found->second.isTerminated) handles_.erase(found->second.entry->identity);
    entries_.erase(found);
    return;
  }
  const auto found = watches_.find(object);
  if (found == watches_.end() || --found->second.references > 0) return;
  const std::deque<RegistryHandle> pending = std::move(found->second.pending);
  watches_.erase(found);
  for (const RegistryHandle service : pending) releaseLocked(service);
}

std::optional<PropertyValue::Data> BenchRegistry::livePortName(RegistryHandle service) {
  const std::lock_guard guard(mutex_);
  const Entry* found = find(service);
  if (found == nullptr || found->isTerminated) return std::nullopt;
  const PropertyValue* characteristics =
      findProperty(found->entry->properties, "Controller Characteristics");
  const PropertyValue* name =
      characteristics == nullptr ? nullptr : characteristics->find("Port World Wide Name");
  if (name == nullptr || name->data() == nullptr) return std::nullopt;
  return *name->data();
}

size_t BenchRegistry::referenceCount() {
  const std::lock_guard guard(mutex_);
  size_t count = 0;
  for (const auto& [handle, entry] : entries_) count += static_cast<size_t>(entry.references);
  for (const auto& [handle, watch] : watches_) count += static_cast<size_t>(watch.references);
  return count;
}

void BenchRegistry::follow(const BenchState& state) {
  const std::shared_ptr<const Snapshot> after = takeSnapshot(state);
  const std::lock_guard guard(mutex_);
  const std::shared_ptr<const Snapshot> before = std::exchange(snapshot_, after);
  Entries departed;
  for (const RegistryTreeEntry* entry : inTreeOrder(*before->root)) {
    if (after->entries.count(entry->identity) == 0) departed.push_back(entry);
  }
  Entries arrived;
  for (const RegistryTreeEntry* entry : inTreeOrder(*after->root)) {
    if (before->entries.count(entry->identity) == 0) arrived.push_back(entry);
  }
  for (auto& [handle, entry] : entries_) {
    if (entry.isTerminated) continue;
    const auto found = after->entries.find(entry.entry->identity);
    if (found == after->entries.end()) continue;
    entry.snapshot = after;
    entry.entry = found->second;
  }
  // The departed are told of while handleFor() can still name them, and terminated after that.
  snapshot_ = before;
  tell(terminateNotification, departed);
  for (const RegistryTreeEntry* entry : departed) terminate(*entry);
  snapshot_ = after;
  noteArrivals(arrived);
  tell(firstMatchNotification, arrived);
}

void BenchRegistry::noteArrivals(const Entries& arrived) {
  const int64_t named = machine_.now() + machine_.realMilliseconds(namingDelay);
  for (const RegistryTreeEntry* entry : arrived) {
    if (entry->isNamedLater) namedAt_[entry->identity] = named;
  }
}

void BenchRegistry::tell(const char* type, const Entries& entries) {
  for (auto& [iterator, watch] : watches_) {
    if (watch.port == nullptr || watch.type != type) continue;
    for (const RegistryTreeEntry* entry : entries) {
      if (matches(*entry, watch.matching)) watch.pending.push_back(handleFor(*entry));
    }
    if (watch.pending.empty() || !watch.isArmed) continue;
    watch.isArmed = false;
    watch.port->source().post(
        [this, handle = iterator, port = watch.port] { callBack(handle, port); });
  }
}

void BenchRegistry::callBack(RegistryHandle iterator, const Port* port) {
  MatchingCallback callback = nullptr;
  void* context = nullptr;
  {
    const std::lock_guard guard(mutex_);
    const auto found = watches_.find(iterator);
    if (found == watches_.end() || found->second.port != port) return;
    callback = found->second.callback;
    context = found->second.context;
  }
  callback(context, iterator);
}

void BenchRegistry::forgetPort(const Port* port) {
  const std::lock_guard guard(mutex_);
  for (auto& [iterator, watch] : watches_) {
    if (watch.port == port) watch.port = nullptr;
  }
}

const BenchRegistry::Entry* BenchRegistry::find(RegistryHandle handle) const {
  const auto found = entries_.find(handle);
  return found == entries_.end() ? nullptr : &found->second;
}

RegistryHandle BenchRegistry::handleFor(const RegistryTreeEntry& entry) {
  const auto [known, isNew] = handles_.try_emplace(entry.identity, nextHandle_);
  if (isNew) {
    entries_[nextHandle_++] = Entry{1, snapshot_, &entry, false};
  } else {
    ++entries_.at(known->second).references;
  }
  return known->second;
}

void BenchRegistry::terminate(const RegistryTreeEntry& entry) {
  namedAt_.erase(entry.identity);
  const auto found = handles_.find(entry.identity);
  if (found == handles_.end()) return;
  entries_.at(found->second).isTerminated = true;
  handles_.erase(found);
}

bool BenchRegistry::isUnnamed(const RegistryTreeEntry& entry) const {
  const auto found = namedAt_.find(entry.identity);
  return found != namedAt_.end() && machine_.now() < found->second;
}

bool BenchRegistry::matches(const RegistryTreeEntry& entry,
                            const PropertyValue::Dictionary& matching) const {
  if (isUnnamed(entry) && findProperty(matching, "BSD Name") != nullptr) return false;
  return matchesProperties(matching, entry.properties);
}

}  // namespace corvane
