#include "platform/macos/MacRegistry.h"

#include <IOKit/IOKitLib.h>

#include "platform/macos/CallbackTable.h"
#include "platform/macos/MacRunLoops.h"
#include "platform/macos/PropertyConversion.h"

namespace corvane::macos {

namespace {

/// What the constants for the main port stand for; the older one is deprecated and the newer one is
/// not in every system that the utility runs on.
constexpr mach_port_t mainPort = MACH_PORT_NULL;

using MatchingCallbacks = CallbackTable<MatchingCallback>;

void matched(void* address, io_iterator_t iterator) noexcept {
  const auto& target = MatchingCallbacks::target(address);
  callFromSource([&] { target.callback(target.context, iterator); });
}

class MacNotificationPort final : public NotificationPort {
 public:
  explicit MacNotificationPort(IONotificationPortRef port) : port_(port) {}
  ~MacNotificationPort() override { IONotificationPortDestroy(port_); }

  std::shared_ptr<RunLoopSource> runLoopSource() override {
    CFRunLoopSourceRef source = IONotificationPortGetRunLoopSource(port_);
    return source != nullptr ? std::make_shared<MacRunLoopSource>(source) : nullptr;
  }

  IONotificationPortRef get() const { return port_; }
  MatchingCallbacks& callbacks() { return callbacks_; }

 private:
  MatchingCallbacks callbacks_;
  IONotificationPortRef port_;
};

}  // namespace

Status MacRegistry::parentEntry(RegistryHandle entry, const char* plane, RegistryHandle& parent) {
  return IORegistryEntryGetParentEntry(entry, plane, &parent);
}

Status MacRegistry::childEntry(RegistryHandle entry, const char* plane, RegistryHandle& child) {
  return IORegistryEntryGetChildEntry(entry, plane, &child);
}

Status MacRegistry::name(RegistryHandle entry, std::string& name) {
  io_name_t buffer = {};
  const Status status = IORegistryEntryGetName(entry, buffer);
  if (status == statusSuccess) name = buffer;
  return status;
}

Status MacRegistry::path(RegistryHandle entry, const char* plane, std::string& path) {
  static_assert(sizeof(io_string_t) == registryPathCapacity);
  io_string_t buffer = {};
  const Status status = IORegistryEntryGetPath(entry, plane, buffer);
  if (status == statusSuccess) path = buffer;
  return status;
}

Status MacRegistry::properties(RegistryHandle entry, PropertyValue::Dictionary& properties) {
  CFMutableDictionaryRef dictionary = nullptr;
  const Status status =
      IORegistryEntryCreateCFProperties(entry, &dictionary, kCFAllocatorDefault, kNilOptions);
  const CoreFoundationReference<CFMutableDictionaryRef> owned(dictionary);
  if (status == statusSuccess && owned) properties = propertyDictionary(owned.get());
  return status;
}

SharedDictionary MacRegistry::createMutableDictionary() {
  return std::make_shared<PropertyValue::Dictionary>();
}

std::optional<PropertyValue> MacRegistry::createNumber(int8_t value) {
  const CoreFoundationReference<CFNumberRef> number(
      CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt8Type, &value));
  if (!number) return std::nullopt;
  return propertyValue(number.get());
}

RegistryHandle MacRegistry::matchingService(SharedDictionary matching) {
  return IOServiceGetMatchingService(mainPort, platformDictionary(*matching).release());
}

std::unique_ptr<NotificationPort> MacRegistry::createNotificationPort() {
  IONotificationPortRef port = IONotificationPortCreate(mainPort);
  return port != nullptr ? std::make_unique<MacNotificationPort>(port) : nullptr;
}

Status MacRegistry::addMatchingNotification(NotificationPort& port, const char* type,
                                            SharedDictionary matching, MatchingCallback callback,
                                            void* context, RegistryHandle& iterator) {
  auto& owner = static_cast<MacNotificationPort&>(port);
  return IOServiceAddMatchingNotification(owner.get(), type,
                                          platformDictionary(*matching).release(), matched,
                                          owner.callbacks().keep(callback, context), &iterator);
}

RegistryHandle MacRegistry::next(RegistryHandle iterator) {
  return IOIteratorNext(iterator);
}

void MacRegistry::retain(RegistryHandle object) {
  IOObjectRetain(object);
}

void MacRegistry::release(RegistryHandle object) {
  IOObjectRelease(object);
}

}  // namespace corvane::macos
