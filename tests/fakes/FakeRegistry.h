#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "FakeRunLoops.h"
#include "platform/Registry.h"

namespace corvane {

/// A device registry that a test builds entry by entry. It counts every reference it gives out and
/// every one it gets back, tells of entries that come and go, and can fail at each step.
class FakeRegistry : public Registry {
 public:
  FakeRegistry() { root = add(0, "Root"); }

  /// The top entry of the tree.
  RegistryHandle root = 0;

  // Building. Entries are named by the handle that the registry gives out for them; building gives
  // out no references.

  RegistryHandle add(RegistryHandle parent, const std::string& name,
                     PropertyValue::Dictionary properties = {}) {
    std::lock_guard guard(mutex_);
    const RegistryHandle entry = ++lastHandle_;
    entries_[entry] = {parent, name, std::move(properties), {}, true, false};
    if (parent != 0) entries_[parent].children.push_back(entry);
    return entry;
  }

  /// A chain of entries below `parent`, outermost first; the last is returned.
  RegistryHandle addChain(RegistryHandle parent, const std::vector<std::string>& names) {
    for (const auto& each : names) parent = add(parent, each);
    return parent;
  }

  void rename(RegistryHandle entry, const std::string& name) {
    std::lock_guard guard(mutex_);
    entries_.at(entry).name = name;
  }

  void setProperty(RegistryHandle entry, const std::string& key, PropertyValue value) {
    std::lock_guard guard(mutex_);
    entries_.at(entry).properties[key] = std::move(value);
  }

  void removeProperty(RegistryHandle entry, const std::string& key) {
    std::lock_guard guard(mutex_);
    entries_.at(entry).properties.erase(key);
  }

  /// From now on the entry's properties cannot be read.
  void refuseProperties(RegistryHandle entry) {
    std::lock_guard guard(mutex_);
    entries_.at(entry).refusesProperties = true;
  }

  // Coming and going. A published entry matches from then on; a terminated one has no parent and no
  // children any more. Each call tells the notifications that are armed, once for all the entries
  // given; one that is not armed finds them in its iterator.

  void publish(const std::vector<RegistryHandle>& arrived) {
    tell(firstMatchNotification, mark(arrived, true));
  }

  void terminate(const std::vector<RegistryHandle>& gone) {
    std::vector<RegistryHandle> known;
    {
      std::lock_guard guard(mutex_);
      std::copy_if(gone.begin(), gone.end(), std::back_inserter(known),
                   [this](RegistryHandle each) { return entries_.at(each).published; });
    }
    mark(gone, false);
    tell(terminateNotification, known);
  }

  // Failing.

  bool failParent = false;
  bool failChild = false;
  bool failName = false;
  bool failPath = false;
  bool failProperties = false;
  bool failCreateNumber = false;
  bool failCreatePort = false;
  bool failRunLoopSource = false;
  std::string failAddNotification;  ///< the notification type that cannot be registered
  std::function<void()> onRelease;  ///< called for each release, before it; may throw
  int failCreateDictionary = 0;     ///< which call of createMutableDictionary fails, from 1

  // Counting. References of entries and iterators alike.

  int64_t references() const {
    std::lock_guard guard(mutex_);
    int64_t sum = 0;
    for (const auto& [handle, count] : references_) sum += count;
    return sum;
  }

  int64_t references(RegistryHandle object) const {
    std::lock_guard guard(mutex_);
    const auto found = references_.find(object);
    return found == references_.end() ? 0 : found->second;
  }

  /// Releases of what had no reference left, and uses of it. Both must stay 0.
  int overReleases = 0;
  int usesAfterRelease = 0;

  size_t openPorts() const {
    std::lock_guard guard(mutex_);
    return ports_.size();
  }

  size_t registrations() const {
    std::lock_guard guard(mutex_);
    return registrations_.size();
  }

  /// The matching dictionaries that were registered, in order.
  std::vector<std::pair<std::string, PropertyValue::Dictionary>> registered;

  // The registry's own operations.

  Status parentEntry(RegistryHandle entry, const char* plane, RegistryHandle& parent) override {
    std::lock_guard guard(mutex_);
    parent = 0;
    if (failParent || !use(entry) || plane != std::string(servicePlane)) return statusFailure;
    const RegistryHandle found = entries_.at(entry).parent;
    if (found == 0 || !entries_.at(entry).present) return statusFailure;
    parent = give(found);
    return statusSuccess;
  }

  Status childEntry(RegistryHandle entry, const char* plane, RegistryHandle& child) override {
    std::lock_guard guard(mutex_);
    child = 0;
    if (failChild || !use(entry) || plane != std::string(servicePlane)) return statusFailure;
    const auto& children = entries_.at(entry).children;
    if (children.empty() || !entries_.at(entry).present) return statusFailure;
    child = give(children.front());
    return statusSuccess;
  }

  Status name(RegistryHandle entry, std::string& name) override {
    std::lock_guard guard(mutex_);
    if (failName || !use(entry)) return statusFailure;
    name = entries_.at(entry).name;
    return statusSuccess;
  }

  Status path(RegistryHandle entry, const char* plane, std::string& path) override {
    std::lock_guard guard(mutex_);
    if (failPath || !use(entry)) return statusFailure;
    std::string whole;
    for (RegistryHandle each = entry; each != root && each != 0; each = entries_.at(each).parent)
      whole = "/" + entries_.at(each).name + whole;
    path = std::string(plane) + ":" + whole;
    return path.size() < registryPathCapacity ? statusSuccess : statusFailure;
  }

  Status properties(RegistryHandle entry, PropertyValue::Dictionary& properties) override {
    std::lock_guard guard(mutex_);
    if (failProperties || !use(entry) || entries_.at(entry).refusesProperties) return statusFailure;
    properties = entries_.at(entry).properties;
    return statusSuccess;
  }

  SharedDictionary createMutableDictionary() override {
    std::lock_guard guard(mutex_);
    if (++dictionariesCreated_ == failCreateDictionary) return nullptr;
    return std::make_shared<PropertyValue::Dictionary>();
  }

  std::optional<PropertyValue> createNumber(int8_t value) override {
    if (failCreateNumber) return std::nullopt;
    return PropertyValue(int64_t{value});
  }

  RegistryHandle matchingService(SharedDictionary matching) override {
    std::lock_guard guard(mutex_);
    for (const auto& [handle, entry] : entries_)
      if (entry.present && fits(entry, *matching)) return give(handle);
    return 0;
  }

  std::unique_ptr<NotificationPort> createNotificationPort() override {
    if (failCreatePort) return nullptr;
    std::lock_guard guard(mutex_);
    auto port = std::make_unique<Port>(*this);
    ports_.insert(port.get());
    return port;
  }

  Status addMatchingNotification(NotificationPort& port, const char* type,
                                 SharedDictionary matching, MatchingCallback callback,
                                 void* context, RegistryHandle& iterator) override {
    std::lock_guard guard(mutex_);
    iterator = 0;
    if (failAddNotification == type) return statusFailure;
    registered.emplace_back(type, *matching);
    iterator = ++lastHandle_;
    references_[iterator] = 1;
    Registration registration{&port, type, *matching, callback, context, iterator};
    registrations_.push_back(registration);
    if (type == std::string(firstMatchNotification)) {
      for (const auto& [handle, entry] : entries_)
        if (entry.published && fits(entry, *matching)) queue(iterator, handle);
    }
    return statusSuccess;
  }

  RegistryHandle next(RegistryHandle iterator) override {
    std::lock_guard guard(mutex_);
    if (references_[iterator] <= 0) ++usesAfterRelease;
    auto& waiting = queues_[iterator];
    if (waiting.empty()) {
      arm(iterator);
      return 0;
    }
    const RegistryHandle service = waiting.front();
    waiting.pop_front();
    return service;
  }

  void retain(RegistryHandle object) override {
    std::lock_guard guard(mutex_);
    if (references_[object] <= 0) ++usesAfterRelease;
    ++references_[object];
  }

  void release(RegistryHandle object) override {
    if (onRelease) onRelease();
    std::lock_guard guard(mutex_);
    if (references_[object] <= 0) {
      ++overReleases;
      return;
    }
    if (--references_[object] == 0) drop(object);
  }

  /// A reference as a platform call would give it, for a record made by hand.
  RegistryHandle give(RegistryHandle entry) {
    std::lock_guard guard(mutex_);
    ++references_[entry];
    return entry;
  }

 private:
  struct Entry {
    RegistryHandle parent = 0;
    std::string name;
    PropertyValue::Dictionary properties;
    std::vector<RegistryHandle> children;
    bool present = true;
    bool published = false;
    bool refusesProperties = false;
  };

  class Port : public NotificationPort {
   public:
    explicit Port(FakeRegistry& registry) : registry_(registry) {}
    ~Port() override { registry_.close(this); }
    std::shared_ptr<RunLoopSource> runLoopSource() override {
      return registry_.failRunLoopSource ? nullptr : source;
    }
    std::shared_ptr<FakeRunLoopSource> source = std::make_shared<FakeRunLoopSource>();

   private:
    FakeRegistry& registry_;
  };

  struct Registration {
    NotificationPort* port;
    std::string type;
    PropertyValue::Dictionary matching;
    MatchingCallback callback;
    void* context;
    RegistryHandle iterator;
    bool armed = false;  ///< drained since it was told last
  };

  /// Whether a handle may be used at all: an entry that a reference is held of, or that the test
  /// itself named.
  bool use(RegistryHandle entry) {
    if (entries_.count(entry) == 0) return false;
    const auto found = references_.find(entry);
    if (found != references_.end() && found->second <= 0) {
      ++usesAfterRelease;
      return false;
    }
    return true;
  }

  static bool fits(const Entry& entry, const PropertyValue::Dictionary& matching) {
    if (const auto* name = findProperty(matching, "BSD Name"))
      return findProperty(entry.properties, "BSD Name") != nullptr &&
             *findProperty(entry.properties, "BSD Name") == *name;
    const auto* wanted = findProperty(matching, "IOPropertyMatch");
    if (wanted == nullptr || wanted->dictionary() == nullptr) return false;
    return std::all_of(wanted->dictionary()->begin(), wanted->dictionary()->end(),
                       [&entry](const auto& each) {
                         const auto* value = findProperty(entry.properties, each.first);
                         return value != nullptr && *value == each.second;
                       });
  }

  void arm(RegistryHandle iterator) {
    for (auto& registration : registrations_)
      if (registration.iterator == iterator) registration.armed = true;
  }

  void queue(RegistryHandle iterator, RegistryHandle service) {
    queues_[iterator].push_back(give(service));
  }

  std::vector<RegistryHandle> mark(const std::vector<RegistryHandle>& entries, bool published) {
    std::lock_guard guard(mutex_);
    for (const auto each : entries) {
      entries_.at(each).published = published;
      entries_.at(each).present = published;
    }
    return entries;
  }

  void tell(const char* type, const std::vector<RegistryHandle>& services) {
    std::vector<Registration> concerned;
    {
      std::lock_guard guard(mutex_);
      for (auto& registration : registrations_) {
        if (registration.type != type) continue;
        bool any = false;
        for (const auto service : services) {
          if (!fits(entries_.at(service), registration.matching)) continue;
          queue(registration.iterator, service);
          any = true;
        }
        if (any && std::exchange(registration.armed, false)) concerned.push_back(registration);
      }
    }
    for (const auto& registration : concerned) deliver(registration);
  }

  void deliver(const Registration& registration) {
    static_cast<Port*>(registration.port)->source->signal([this, registration] {
      {
        std::lock_guard guard(mutex_);
        if (ports_.count(registration.port) == 0) return;
      }
      registration.callback(registration.context, registration.iterator);
    });
  }

  void close(NotificationPort* port) {
    std::lock_guard guard(mutex_);
    ports_.erase(port);
    std::erase_if(registrations_, [port](const auto& each) { return each.port == port; });
  }

  /// The last reference of an iterator went: what still waits in it goes as well.
  void drop(RegistryHandle object) {
    const auto found = queues_.find(object);
    if (found == queues_.end()) return;
    const auto waiting = std::move(found->second);
    queues_.erase(found);
    for (const auto service : waiting) --references_[service];
  }

  mutable std::recursive_mutex mutex_;  ///< guards everything below
  RegistryHandle lastHandle_ = 0;
  int dictionariesCreated_ = 0;
  std::map<RegistryHandle, Entry> entries_;
  std::map<RegistryHandle, int64_t> references_;
  std::map<RegistryHandle, std::deque<RegistryHandle>> queues_;
  std::vector<Registration> registrations_;
  std::set<NotificationPort*> ports_;
};

}  // namespace corvane
