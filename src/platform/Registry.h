#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/PropertyValue.h"
#include "platform/RunLoop.h"
#include "platform/Status.h"

namespace corvane {

/// A registry object's handle (io_object_t): an entry or an iterator. 0 means none. A handle that a
/// call gives out carries one reference, which its receiver releases exactly once.
using RegistryHandle = uint32_t;

/// A plane of the registry. The system walks this one only.
inline constexpr const char* servicePlane = "IOService";

/// The notification types of addMatchingNotification().
inline constexpr const char* firstMatchNotification = "IOServiceFirstMatch";
inline constexpr const char* terminateNotification = "IOServiceTerminate";

/// The most bytes of a registry path (io_string_t), its terminator included.
inline constexpr size_t registryPathCapacity = 512;

/// A mutable dictionary that is shared by reference count (CFMutableDictionaryRef): copying the
/// pointer retains it, dropping it releases it.
using SharedDictionary = std::shared_ptr<PropertyValue::Dictionary>;

/// A channel on which the registry tells of arrivals and departures (IONotificationPortRef).
class NotificationPort {
 public:
  virtual ~NotificationPort() = default;

  /// IONotificationPortGetRunLoopSource: the source to add to the run loop that is to serve the
  /// callbacks. Null on failure. Valid as long as the port lives.
  virtual std::shared_ptr<RunLoopSource> runLoopSource() = 0;
};

/// Called on the run loop's thread with the context given at registration and the iterator that
/// holds the services concerned. The callback drains the iterator; that arms the notification anew.
using MatchingCallback = void (*)(void* context, RegistryHandle iterator);

/// The device registry (IOKit). Every operation may be called from any thread; none blocks.
class Registry {
 public:
  virtual ~Registry() = default;

  /// IORegistryEntryGetParentEntry. On success `parent` carries a reference.
  virtual Status parentEntry(RegistryHandle entry, const char* plane, RegistryHandle& parent) = 0;

  /// IORegistryEntryGetChildEntry: the first child. On success `child` carries a reference.
  virtual Status childEntry(RegistryHandle entry, const char* plane, RegistryHandle& child) = 0;

  /// IORegistryEntryGetName.
  virtual Status name(RegistryHandle entry, std::string& name) = 0;

  /// IORegistryEntryGetPath. Fails when the path does not fit into registryPathCapacity.
  virtual Status path(RegistryHandle entry, const char* plane, std::string& path) = 0;

  /// IORegistryEntryCreateCFProperties: all properties, copied. The properties of a terminated
  /// entry can be read until its last reference is released.
  virtual Status properties(RegistryHandle entry, PropertyValue::Dictionary& properties) = 0;

  /// CFDictionaryCreateMutable: an empty dictionary, or null on failure.
  virtual SharedDictionary createMutableDictionary() = 0;

  /// CFNumberCreate of an 8-bit number, or nothing on failure.
  virtual std::optional<PropertyValue> createNumber(int8_t value) = 0;

  /// IOServiceGetMatchingService: one service that matches, with a reference, or 0. Understands
  /// "BSD Name" and "IOPropertyMatch". The dictionary is consumed.
  virtual RegistryHandle matchingService(SharedDictionary matching) = 0;

  /// IONotificationPortCreate on the default main port; null on failure. Destroying the port ends
  /// its notifications; no callback runs after that.
  virtual std::unique_ptr<NotificationPort> createNotificationPort() = 0;

  /// IOServiceAddMatchingNotification. Consumes one reference of `matching`. On success `iterator`
  /// holds what matches already and must be drained once to arm the notification; it carries a
  /// reference.
  virtual Status addMatchingNotification(NotificationPort& port, const char* type,
                                         SharedDictionary matching, MatchingCallback callback,
                                         void* context, RegistryHandle& iterator) = 0;

  /// IOIteratorNext: the next service, with a reference, or 0 at the end.
  virtual RegistryHandle next(RegistryHandle iterator) = 0;

  /// IOObjectRetain and IOObjectRelease.
  virtual void retain(RegistryHandle object) = 0;
  virtual void release(RegistryHandle object) = 0;
};

/// Owns one reference to a registry object and releases it exactly once.
class RegistryObject {
 public:
  RegistryObject() = default;

  /// Takes over the reference that `handle` carries.
  RegistryObject(Registry& registry, RegistryHandle handle)
      : registry_(&registry), handle_(handle) {}

  RegistryObject(RegistryObject&& other) noexcept
      : registry_(other.registry_), handle_(std::exchange(other.handle_, 0)) {}

  RegistryObject& operator=(RegistryObject&& other) noexcept {
    if (this != &other) {
      reset();
      registry_ = other.registry_;
      handle_ = std::exchange(other.handle_, 0);
    }
    return *this;
  }

  RegistryObject(const RegistryObject&) = delete;
  RegistryObject& operator=(const RegistryObject&) = delete;
  ~RegistryObject() { reset(); }

  RegistryHandle get() const { return handle_; }
  explicit operator bool() const { return handle_ != 0; }

  /// Releases the reference now, if there is one.
  void reset() {
    if (handle_ != 0) registry_->release(std::exchange(handle_, 0));
  }

 private:
  Registry* registry_ = nullptr;
  RegistryHandle handle_ = 0;
};

}  // namespace corvane
