#pragma once

#include <cstdint>

// The calls of Core Foundation that the Mac layer makes, and those that its tests need to make what
// the layer reads, declared as the system's public header declares them.

using Boolean = unsigned char;
using UInt8 = uint8_t;
using UInt32 = uint32_t;

extern "C" {

struct CFAllocatorObject;
struct CFStringObject;
struct CFDataObject;
struct CFNumberObject;
struct CFBooleanObject;
struct CFNullObject;
struct CFArrayObject;
struct CFSetObject;
struct CFDictionaryObject;
struct CFURLObject;
struct CFErrorObject;
struct CFBundleObject;
struct CFReadStreamObject;
struct CFRunLoopObject;
struct CFRunLoopSourceObject;

using CFTypeRef = const void*;
using CFTypeID = unsigned long;
using CFIndex = long;
using CFOptionFlags = unsigned long;
using CFAllocatorRef = const CFAllocatorObject*;
using CFStringRef = const CFStringObject*;
using CFDataRef = const CFDataObject*;
using CFNumberRef = const CFNumberObject*;
using CFBooleanRef = const CFBooleanObject*;
using CFNullRef = const CFNullObject*;
using CFArrayRef = const CFArrayObject*;
using CFMutableArrayRef = CFArrayObject*;
using CFSetRef = const CFSetObject*;
using CFDictionaryRef = const CFDictionaryObject*;
using CFMutableDictionaryRef = CFDictionaryObject*;
using CFURLRef = const CFURLObject*;
using CFErrorRef = CFErrorObject*;
using CFBundleRef = CFBundleObject*;
using CFReadStreamRef = CFReadStreamObject*;
using CFRunLoopRef = CFRunLoopObject*;
using CFRunLoopSourceRef = CFRunLoopSourceObject*;
using CFPropertyListRef = CFTypeRef;
using CFRunLoopMode = CFStringRef;

using CFStringEncoding = UInt32;
enum : CFStringEncoding {
  kCFStringEncodingISOLatin1 = 0x0201,
  kCFStringEncodingUTF8 = 0x08000100,
};

using CFNumberType = CFIndex;
enum : CFNumberType {
  kCFNumberSInt8Type = 1,
  kCFNumberSInt64Type = 4,
  kCFNumberFloat64Type = 6,
};

using CFPropertyListFormat = CFIndex;
enum : CFOptionFlags { kCFPropertyListImmutable = 0 };

struct CFRange {
  CFIndex location;
  CFIndex length;
};
inline CFRange CFRangeMake(CFIndex location, CFIndex length) {
  return {location, length};
}

struct CFArrayCallBacks {
  CFIndex version;
};
struct CFSetCallBacks {
  CFIndex version;
};
struct CFDictionaryKeyCallBacks {
  CFIndex version;
};
struct CFDictionaryValueCallBacks {
  CFIndex version;
};

extern const CFAllocatorRef kCFAllocatorDefault;
extern const CFBooleanRef kCFBooleanTrue;
extern const CFBooleanRef kCFBooleanFalse;
extern const CFNullRef kCFNull;
extern const CFArrayCallBacks kCFTypeArrayCallBacks;
extern const CFSetCallBacks kCFTypeSetCallBacks;
extern const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks;
extern const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks;
extern const CFRunLoopMode kCFRunLoopDefaultMode;

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);

CFTypeID CFStringGetTypeID();
CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean isExternal);
CFIndex CFStringGetLength(CFStringRef string);
CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);
CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding,
                         UInt8 lossByte, Boolean isExternal, UInt8* buffer, CFIndex capacity,
                         CFIndex* used);

CFTypeID CFDataGetTypeID();
CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length);
const UInt8* CFDataGetBytePtr(CFDataRef data);
CFIndex CFDataGetLength(CFDataRef data);

CFTypeID CFBooleanGetTypeID();
Boolean CFBooleanGetValue(CFBooleanRef boolean);

CFTypeID CFNumberGetTypeID();
CFNumberRef CFNumberCreate(CFAllocatorRef allocator, CFNumberType type, const void* value);
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);

CFTypeID CFArrayGetTypeID();
CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef allocator, CFIndex capacity,
                                       const CFArrayCallBacks* callbacks);
void CFArrayAppendValue(CFMutableArrayRef array, const void* value);
CFIndex CFArrayGetCount(CFArrayRef array);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);

CFTypeID CFSetGetTypeID();
CFSetRef CFSetCreate(CFAllocatorRef allocator, const void** values, CFIndex count,
                     const CFSetCallBacks* callbacks);
CFIndex CFSetGetCount(CFSetRef set);
void CFSetGetValues(CFSetRef set, const void** values);

CFTypeID CFDictionaryGetTypeID();
CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef allocator, CFIndex capacity,
                                                 const CFDictionaryKeyCallBacks* keys,
                                                 const CFDictionaryValueCallBacks* values);
void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void* key, const void* value);
CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary);
void CFDictionaryGetKeysAndValues(CFDictionaryRef dictionary, const void** keys,
                                  const void** values);

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef allocator, const UInt8* path,
                                                 CFIndex length, Boolean isFolder);
Boolean CFURLResourceIsReachable(CFURLRef url, CFErrorRef* error);

CFBundleRef CFBundleGetMainBundle();
CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key);
CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type,
                                 CFStringRef subfolder);
CFDictionaryRef CFBundleCopyInfoDictionaryInDirectory(CFURLRef url);

CFReadStreamRef CFReadStreamCreateWithFile(CFAllocatorRef allocator, CFURLRef url);
Boolean CFReadStreamOpen(CFReadStreamRef stream);
void CFReadStreamClose(CFReadStreamRef stream);
CFPropertyListRef CFPropertyListCreateWithStream(CFAllocatorRef allocator, CFReadStreamRef stream,
                                                 CFIndex length, CFOptionFlags options,
                                                 CFPropertyListFormat* format, CFErrorRef* error);

CFRunLoopRef CFRunLoopGetCurrent();
void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode);
void CFRunLoopRun();
void CFRunLoopStop(CFRunLoopRef loop);

}  // extern "C"
