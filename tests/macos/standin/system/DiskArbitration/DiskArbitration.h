#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <cstdint>

// The calls of disk arbitration that the Mac layer makes, declared as the system's public header
// declares them.

extern "C" {

struct DASessionObject;
struct DADiskObject;
struct DADissenterObject;

using DASessionRef = DASessionObject*;
using DADiskRef = DADiskObject*;
using DADissenterRef = const DADissenterObject*;

using DADiskUnmountOptions = uint32_t;
using DADiskMountOptions = uint32_t;
enum : uint32_t { kDADiskUnmountOptionDefault = 0, kDADiskMountOptionDefault = 0 };

using DADiskAppearedCallback = void (*)(DADiskRef disk, void* context);
using DADiskDisappearedCallback = void (*)(DADiskRef disk, void* context);
using DADiskUnmountCallback = void (*)(DADiskRef disk, DADissenterRef dissenter, void* context);
using DADiskMountCallback = void (*)(DADiskRef disk, DADissenterRef dissenter, void* context);

DASessionRef DASessionCreate(CFAllocatorRef allocator);
void DASessionScheduleWithRunLoop(DASessionRef session, CFRunLoopRef loop, CFStringRef mode);
void DASessionUnscheduleFromRunLoop(DASessionRef session, CFRunLoopRef loop, CFStringRef mode);
void DARegisterDiskAppearedCallback(DASessionRef session, CFDictionaryRef match,
                                    DADiskAppearedCallback callback, void* context);
void DARegisterDiskDisappearedCallback(DASessionRef session, CFDictionaryRef match,
                                       DADiskDisappearedCallback callback, void* context);
DADiskRef DADiskCreateFromBSDName(CFAllocatorRef allocator, DASessionRef session, const char* name);
const char* DADiskGetBSDName(DADiskRef disk);
void DADiskUnmount(DADiskRef disk, DADiskUnmountOptions options, DADiskUnmountCallback callback,
                   void* context);
void DADiskMount(DADiskRef disk, CFURLRef path, DADiskMountOptions options,
                 DADiskMountCallback callback, void* context);

}  // extern "C"
