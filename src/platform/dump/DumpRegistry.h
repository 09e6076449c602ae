#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/Registry.h"
#include "platform/dump/RegistryDump.h"

namespace corvane {

/// The device registry of the computer that a dump was taken of, as it was at that moment: nothing
/// arrives and nothing departs. Any thread may call.
///
/// A network interface that had no name yet when the dump was taken is not given out as a child:
/// it would never be named, however long it were waited for.
class DumpRegistry final : public Registry {
 public:
  /// The dump outlives the registry.
  explicit DumpRegistry(const RegistryDump& dump) : dump_(dump) {}

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

  /// How many references are held by callers, iterators included.
  size_t referenceCount() const;

 private:
  struct Iterator {
    std::vector<RegistryDump::Entry> entries;
    size_t position = 0;
  };

  std::optional<RegistryDump::Entry> held(RegistryHandle object) const;
  RegistryHandle give(RegistryDump::Entry entry);
  Status giveIfAny(std::optional<RegistryDump::Entry> entry, RegistryHandle& handle);
  std::optional<RegistryDump::Entry> namedFirstChild(RegistryDump::Entry entry) const;
  std::vector<RegistryDump::Entry> matches(const PropertyValue::Dictionary& matching) const;

  const RegistryDump& dump_;
  mutable std::mutex mutex_;  ///< guards everything below
  std::map<RegistryHandle, size_t> references_;
  std::map<RegistryHandle, Iterator> iterators_;
  RegistryHandle nextIterator_ = 0;  ///< counted down from the highest handle
};

}  // namespace corvane
