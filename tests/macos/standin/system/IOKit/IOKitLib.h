#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <mach/mach.h>

#include <cstddef>
#include <cstdint>

// The calls of the I/O Kit that the Mac layer makes, declared as the system's public header
// declares them.

using io_object_t = mach_port_t;
using io_registry_entry_t = io_object_t;
using io_service_t = io_object_t;
using io_connect_t = io_object_t;
using io_iterator_t = io_object_t;
using io_name_t = char[128];
using io_string_t = char[512];
using IOReturn = kern_return_t;
using IOOptionBits = uint32_t;

enum : io_object_t { IO_OBJECT_NULL = 0 };
enum : IOOptionBits { kNilOptions = 0 };
inline constexpr IOReturn kIOReturnSuccess = 0;
inline constexpr IOReturn kIOReturnError = static_cast<IOReturn>(0xE00002BC);
inline constexpr IOReturn kIOReturnBadArgument = static_cast<IOReturn>(0xE00002C2);
inline constexpr IOReturn kIOReturnNotFound = static_cast<IOReturn>(0xE00002F0);

extern "C" {

struct IONotificationPort;
using IONotificationPortRef = IONotificationPort*;
using IOServiceMatchingCallback = void (*)(void* context, io_iterator_t iterator);

kern_return_t IOObjectRetain(io_object_t object);
kern_return_t IOObjectRelease(io_object_t object);
io_object_t IOIteratorNext(io_iterator_t iterator);

kern_return_t IORegistryEntryGetParentEntry(io_registry_entry_t entry, const char* plane,
                                            io_registry_entry_t* parent);
kern_return_t IORegistryEntryGetChildEntry(io_registry_entry_t entry, const char* plane,
                                           io_registry_entry_t* child);
kern_return_t IORegistryEntryGetName(io_registry_entry_t entry, char* name);
kern_return_t IORegistryEntryGetPath(io_registry_entry_t entry, const char* plane, char* path);
CFStringRef IORegistryEntryCopyPath(io_registry_entry_t entry, const char* plane);
kern_return_t IORegistryEntryCreateCFProperties(io_registry_entry_t entry,
                                                CFMutableDictionaryRef* properties,
                                                CFAllocatorRef allocator, IOOptionBits options);

io_service_t IOServiceGetMatchingService(mach_port_t mainPort, CFDictionaryRef matching);
IONotificationPortRef IONotificationPortCreate(mach_port_t mainPort);
void IONotificationPortDestroy(IONotificationPortRef port);
CFRunLoopSourceRef IONotificationPortGetRunLoopSource(IONotificationPortRef port);
kern_return_t IOServiceAddMatchingNotification(IONotificationPortRef port, const char* type,
                                               CFDictionaryRef matching,
                                               IOServiceMatchingCallback callback, void* context,
                                               io_iterator_t* iterator);

kern_return_t IOServiceOpen(io_service_t service, task_port_t task, uint32_t type,
                            io_connect_t* connection);
kern_return_t IOConnectCallStructMethod(io_connect_t connection, uint32_t selector,
                                        const void* input, size_t inputSize, void* output,
                                        size_t* outputSize);
kern_return_t IOConnectRelease(io_connect_t connection);

}  // extern "C"
