#pragma once

#include "platform/Registry.h"

namespace corvane::macos {

/// The I/O Kit's registry.
class MacRegistry final : public Registry {
 public:
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
};

}  // namespace corvane::macos
