#include <IOKit/IOKitLib.h>
#include <mach-o/dyld.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <limits>

#include "macos/standin/CoreFoundationObjects.h"

using namespace corvane;
using namespace corvane::standin;

/// A port with the source that belongs to it.
struct IONotificationPort : Object {
  explicit IONotificationPort(std::unique_ptr<NotificationPort> thePort)
      : Object("notification port"), port(std::move(thePort)) {}

  std::unique_ptr<NotificationPort> port;
  CFRunLoopSourceRef source = nullptr;

 protected:
  void drop() override {
    port.reset();
    if (source != nullptr) CFRelease(source);
  }
};

namespace {

io_object_t given(io_object_t handle) {
  if (handle == IO_OBJECT_NULL) return handle;
  const std::lock_guard lock(macSystem().mutex);
  ++macSystem().handles[handle];
  ++macSystem().given;
  return handle;
}

/// Whether the caller has a reference to the object; what it does without is a misuse.
bool isHeld(io_object_t handle, const char* call) {
  {
    const std::lock_guard lock(macSystem().mutex);
    if (macSystem().handles.count(handle) > 0) return true;
  }
  noteMisuse(std::string(call) + " of an object to which there is no reference");
  return false;
}

/// The null port is no connection either, and harmless: the system refuses it.
bool isConnection(io_connect_t connection, const char* call) {
  if (connection == MACH_PORT_NULL) return false;
  {
    const std::lock_guard lock(macSystem().mutex);
    if (macSystem().connections.count(connection) > 0) return true;
  }
  noteMisuse(std::string(call) + " of a connection that is not open");
  return false;
}

/// What a matching dictionary says; the call that is given it takes over the caller's reference.
SharedDictionary consumed(CFDictionaryRef matching, const char* call) {
  if (!isThere(matching, call)) return nullptr;
  auto values = std::make_shared<PropertyValue::Dictionary>(valuesOf(matching));
  releaseObject(objectOf(matching), call);
  return values;
}

template <size_t Capacity>
kern_return_t copied(const std::string& text, char* buffer) {
  if (text.size() >= Capacity) return kIOReturnBadArgument;
  std::memcpy(buffer, text.c_str(), text.size() + 1);
  return kIOReturnSuccess;
}

}  // namespace

extern "C" {

mach_port_t mach_task_self() {
  constexpr mach_port_t thisTask = 0x103;
  return thisTask;
}

int _NSGetExecutablePath(char* path, uint32_t* size) {
  std::array<char, 4096> target{};
  const ssize_t length = readlink("/proc/self/exe", target.data(), target.size() - 1);
  if (length < 0 || isToFail("_NSGetExecutablePath")) return -1;
  const auto needed = static_cast<uint32_t>(length) + 1;
  const bool fits = *size >= needed;
  *size = needed;
  if (!fits) return -1;
  std::memcpy(path, target.data(), needed);
  return 0;
}

kern_return_t IOObjectRetain(io_object_t object) {
  isToFail("IOObjectRetain");
  if (!isHeld(object, "IOObjectRetain")) return kIOReturnBadArgument;
  given(object);
  macSystem().platform.registry.retain(object);
  return kIOReturnSuccess;
}

kern_return_t IOObjectRelease(io_object_t object) {
  isToFail("IOObjectRelease");
  if (!isHeld(object, "IOObjectRelease")) return kIOReturnBadArgument;
  {
    const std::lock_guard lock(macSystem().mutex);
    if (--macSystem().handles[object] == 0) {
      macSystem().handles.erase(object);
      macSystem().iterators.erase(object);
    }
  }
  macSystem().platform.registry.release(object);
  return kIOReturnSuccess;
}

io_object_t IOIteratorNext(io_iterator_t iterator) {
  if (isToFail("IOIteratorNext") || !isHeld(iterator, "IOIteratorNext")) return IO_OBJECT_NULL;
  return given(macSystem().platform.registry.next(iterator));
}

kern_return_t IORegistryEntryGetParentEntry(io_registry_entry_t entry, const char* plane,
                                            io_registry_entry_t* parent) {
  *parent = IO_OBJECT_NULL;
  if (isToFail("IORegistryEntryGetParentEntry")) return kIOReturnError;
  if (!isHeld(entry, "IORegistryEntryGetParentEntry")) return kIOReturnBadArgument;
  const Status status = macSystem().platform.registry.parentEntry(entry, plane, *parent);
  if (status == statusSuccess) given(*parent);
  return status;
}

kern_return_t IORegistryEntryGetChildEntry(io_registry_entry_t entry, const char* plane,
                                           io_registry_entry_t* child) {
  *child = IO_OBJECT_NULL;
  if (isToFail("IORegistryEntryGetChildEntry")) return kIOReturnError;
  if (!isHeld(entry, "IORegistryEntryGetChildEntry")) return kIOReturnBadArgument;
  const Status status = macSystem().platform.registry.childEntry(entry, plane, *child);
  if (status == statusSuccess) given(*child);
  return status;
}

kern_return_t IORegistryEntryGetName(io_registry_entry_t entry, char* name) {
  if (isToFail("IORegistryEntryGetName")) return kIOReturnError;
  if (!isHeld(entry, "IORegistryEntryGetName")) return kIOReturnBadArgument;
  std::string text;
  const Status status = macSystem().platform.registry.name(entry, text);
  return status == statusSuccess ? copied<sizeof(io_name_t)>(text, name) : status;
}

kern_return_t IORegistryEntryGetPath(io_registry_entry_t entry, const char* plane, char* path) {
  if (isToFail("IORegistryEntryGetPath")) return kIOReturnError;
  if (!isHeld(entry, "IORegistryEntryGetPath")) return kIOReturnBadArgument;
  std::string text;
  const Status status = macSystem().platform.registry.path(entry, plane, text);
  return status == statusSuccess ? copied<sizeof(io_string_t)>(text, path) : status;
}

CFStringRef IORegistryEntryCopyPath(io_registry_entry_t entry, const char* plane) {
  if (isToFail("IORegistryEntryCopyPath")) return nullptr;
  if (!isHeld(entry, "IORegistryEntryCopyPath")) return nullptr;
  std::string text;
  const Status status = macSystem().platform.registry.path(entry, plane, text);
  return status == statusSuccess ? newString(text) : nullptr;
}

kern_return_t IORegistryEntryCreateCFProperties(io_registry_entry_t entry,
                                                CFMutableDictionaryRef* properties, CFAllocatorRef,
                                                IOOptionBits) {
  if (isToFail("IORegistryEntryCreateCFProperties")) return kIOReturnError;
  if (!isHeld(entry, "IORegistryEntryCreateCFProperties")) return kIOReturnBadArgument;
  PropertyValue::Dictionary values;
  const Status status = macSystem().platform.registry.properties(entry, values);
  if (status == statusSuccess) *properties = newDictionary(values);
  return status;
}

io_service_t IOServiceGetMatchingService(mach_port_t, CFDictionaryRef matching) {
  const bool failing = isToFail("IOServiceGetMatchingService");
  const SharedDictionary values = consumed(matching, "IOServiceGetMatchingService");
  if (failing || !values) return IO_OBJECT_NULL;
  return given(macSystem().platform.registry.matchingService(values));
}

IONotificationPortRef IONotificationPortCreate(mach_port_t) {
  if (isToFail("IONotificationPortCreate")) return nullptr;
  auto port = macSystem().platform.registry.createNotificationPort();
  return port ? makeObject<IONotificationPort>(std::move(port)) : nullptr;
}

void IONotificationPortDestroy(IONotificationPortRef port) {
  isToFail("IONotificationPortDestroy");
  releaseObject(port, "IONotificationPortDestroy");
}

CFRunLoopSourceRef IONotificationPortGetRunLoopSource(IONotificationPortRef port) {
  if (isToFail("IONotificationPortGetRunLoopSource")) return nullptr;
  if (!isThere(port, "IONotificationPortGetRunLoopSource")) return nullptr;
  if (port->source == nullptr) {
    port->source = makeObject<CFRunLoopSourceObject>(port->port->runLoopSource());
  }
  return port->source;
}

kern_return_t IOServiceAddMatchingNotification(IONotificationPortRef port, const char* type,
                                               CFDictionaryRef matching,
                                               IOServiceMatchingCallback callback, void* context,
                                               io_iterator_t* iterator) {
  *iterator = IO_OBJECT_NULL;
  const bool failing = isToFail("IOServiceAddMatchingNotification");
  const SharedDictionary values = consumed(matching, "IOServiceAddMatchingNotification");
  if (failing) return kIOReturnError;
  if (!values || !isThere(port, "IOServiceAddMatchingNotification")) return kIOReturnBadArgument;
  const Status status = macSystem().platform.registry.addMatchingNotification(
      *port->port, type, values, callback, context, *iterator);
  if (status != statusSuccess) return status;
  given(*iterator);
  const std::lock_guard lock(macSystem().mutex);
  macSystem().iterators.insert(*iterator);
  return status;
}

kern_return_t IOServiceOpen(io_service_t service, task_port_t task, uint32_t type,
                            io_connect_t* connection) {
  *connection = IO_OBJECT_NULL;
  if (isToFail("IOServiceOpen")) return kIOReturnError;
  if (!isHeld(service, "IOServiceOpen")) return kIOReturnBadArgument;
  if (task != mach_task_self()) noteMisuse("IOServiceOpen for another task");
  const Status status = macSystem().platform.userClient.open(service, type, *connection);
  if (status != statusSuccess) return status;
  const std::lock_guard lock(macSystem().mutex);
  macSystem().connections.insert(*connection);
  ++macSystem().given;
  return status;
}

kern_return_t IOConnectCallStructMethod(io_connect_t connection, uint32_t selector,
                                        const void* input, size_t inputSize, void* output,
                                        size_t* outputSize) {
  if (isToFail("IOConnectCallStructMethod")) return kIOReturnError;
  if (!isConnection(connection, "IOConnectCallStructMethod")) return kIOReturnBadArgument;
  return macSystem().platform.userClient.callStructMethod(
      connection, selector, {static_cast<const uint8_t*>(input), inputSize},
      {static_cast<uint8_t*>(output), *outputSize}, *outputSize);
}

kern_return_t IOConnectRelease(io_connect_t connection) {
  isToFail("IOConnectRelease");
  if (!isConnection(connection, "IOConnectRelease")) return kIOReturnBadArgument;
  {
    const std::lock_guard lock(macSystem().mutex);
    macSystem().connections.erase(connection);
  }
  return macSystem().platform.userClient.release(connection);
}

}  // extern "C"
