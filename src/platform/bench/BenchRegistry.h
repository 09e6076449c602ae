#pragma once

#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/Registry.h"
#include "platform/bench/BenchMachine.h"
#include "platform/bench/tree/RegistryTree.h"
#include "platform/posix/ThreadRunLoops.h"

namespace corvane {

/// The simulated computer's registry. It follows the machine's state: what appears and what goes is
/// told on the run loops of those who asked. An entry that has gone keeps its name, path and
/// properties until its last reference is released, but has no parent and no children any more.
class BenchRegistry final : public Registry {
 public:
  /// `machine` outlives the registry and is not watched yet.
  explicit BenchRegistry(BenchMachine& machine);
  ~BenchRegistry() override;

  Status parentEntry(RegistryHandle entry, const char* plane, RegistryHandle& parent) override;
  Status childEntry(RegistryHandle entry, const char* plane, RegistryHandle& child) override;
  Status name(RegistryHandle entry, std::string& name) override;
  Status path(RegistryHandle entry, const char* plane, std::string& path) override;
  Status properties(RegistryHandle entry, PropertyValue::Dictionary& properties) override;
  SharedDictionary createMutableDictionary() override;
  std::optional<PropertyValue> createNumber(int8_t value) override;
  RegistryHandle matchingService(SharedDictionary matching) override;
  std::unique_ptr<NotificationPort> createNotificationPort() override;
  Status addMatchingNotification(NotificationPort& port, const char* type,
                                 SharedDictionary matching, MatchingCallback callback,
                                 void* context, RegistryHandle& iterator) override;
  RegistryHandle next(RegistryHandle iterator) override;
  void retain(RegistryHandle object) override;
  void release(RegistryHandle object) override;

  /// The world wide port name of a Fibre Channel port's service, as the data of its registry entry;
  /// nothing when `service` is no such service or has gone.
  std::optional<PropertyValue::Data> livePortName(RegistryHandle service);

  /// References that have been given out and not released yet.
  size_t referenceCount();

 private:
  struct Snapshot;
  struct Entry;
  struct Watch;
  class Port;
  using Entries = std::vector<const RegistryTreeEntry*>;

  static std::shared_ptr<const Snapshot> takeSnapshot(const BenchState& state);

  void follow(const BenchState& state);
  void noteArrivals(const Entries& arrived);
  void tell(const char* type, const Entries& entries);
  void forgetPort(const Port* port);
  void callBack(RegistryHandle iterator, const Port* port);

  const Entry* find(RegistryHandle handle) const;
  RegistryHandle handleFor(const RegistryTreeEntry& entry);
  void terminate(const RegistryTreeEntry& entry);
  void releaseLocked(RegistryHandle object);
  bool isUnnamed(const RegistryTreeEntry& entry) const;
  bool matches(const RegistryTreeEntry& entry, const PropertyValue::Dictionary& matching) const;

  BenchMachine& machine_;
  std::mutex mutex_;  ///< guards everything below
  std::shared_ptr<const Snapshot> snapshot_;
  std::map<RegistryHandle, Entry> entries_;
  std::map<std::string, RegistryHandle> handles_;  ///< of entries that are there, by identity
  std::map<RegistryHandle, Watch> watches_;        ///< by their iterator
  std::map<std::string, int64_t> namedAt_;         ///< by identity, for interfaces not named yet
  RegistryHandle nextHandle_;
};

}  // namespace corvane
