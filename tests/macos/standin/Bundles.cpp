#include <array>

#include "macos/standin/CoreFoundationObjects.h"
#include "platform/macos/MacScriptRunner.h"

using namespace corvane;
using namespace corvane::standin;

namespace {

CFBundleObject mainBundle;

constexpr const char* versionFile = "/System/Library/CoreServices/SystemVersion.plist";
constexpr std::array bundleKeys{"CFBundleIdentifier", "CFBundleName", "CFBundleShortVersionString",
                                "CFBundleVersion"};

/// What is in the file that a URL names; nothing when there is none.
PropertyValue contentOf(const CFURLObject& url) {
  if (!url.resourceType.empty()) {
    const auto list = macSystem().platform.bundles.resourcePropertyList(url.path, url.resourceType);
    return list ? PropertyValue(*list) : PropertyValue();
  }
  if (url.path != versionFile) return {};
  const std::string version = macSystem().platform.systemVersion.productVersion();
  if (version.empty()) return {};
  return PropertyValue::Dictionary{{"ProductVersion", version}};
}

}  // namespace

extern "C" {

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* path, CFIndex length,
                                                 Boolean) {
  if (isToFail("CFURLCreateFromFileSystemRepresentation") || length == 0) return nullptr;
  return makeObject<CFURLObject>(std::string(path, path + length), "");
}

Boolean CFURLResourceIsReachable(CFURLRef url, CFErrorRef*) {
  if (isToFail("CFURLResourceIsReachable") || !isThere(url, "CFURLResourceIsReachable")) {
    return false;
  }
  return macSystem().platform.bundles.exists(url->path);
}

CFBundleRef CFBundleGetMainBundle() {
  return isToFail("CFBundleGetMainBundle") ? nullptr : &mainBundle;
}

CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key) {
  if (isToFail("CFBundleGetValueForInfoDictionaryKey")) return nullptr;
  if (!isThere(bundle, "CFBundleGetValueForInfoDictionaryKey")) return nullptr;
  if (!isThere(key, "CFBundleGetValueForInfoDictionaryKey")) return nullptr;
  const auto value = macSystem().platform.bundles.mainInfoValue(textOf(key));
  if (!value) return nullptr;
  const CFTypeRef object = newObject(*value);
  objectOf(object)->becomeTheSystemsOwn();
  return object;
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type,
                                 CFStringRef) {
  if (isToFail("CFBundleCopyResourceURL") || !isThere(bundle, "CFBundleCopyResourceURL") ||
      !isThere(name, "CFBundleCopyResourceURL") || !isThere(type, "CFBundleCopyResourceURL")) {
    return nullptr;
  }
  const CFURLObject resource(textOf(name), textOf(type));
  if (contentOf(resource).isNull()) return nullptr;
  return makeObject<CFURLObject>(resource.path, resource.resourceType);
}

CFDictionaryRef CFBundleCopyInfoDictionaryInDirectory(CFURLRef url) {
  if (isToFail("CFBundleCopyInfoDictionaryInDirectory") ||
      !isThere(url, "CFBundleCopyInfoDictionaryInDirectory")) {
    return nullptr;
  }
  Bundles& bundles = macSystem().platform.bundles;
  if (!bundles.exists(url->path)) return nullptr;
  PropertyValue::Dictionary information;
  for (const char* key : bundleKeys) {
    if (const auto value = bundles.infoValue(url->path, key)) information[key] = *value;
  }
  return newDictionary(information);
}

CFReadStreamRef CFReadStreamCreateWithFile(CFAllocatorRef, CFURLRef url) {
  if (isToFail("CFReadStreamCreateWithFile") || !isThere(url, "CFReadStreamCreateWithFile")) {
    return nullptr;
  }
  return makeObject<CFReadStreamObject>(contentOf(*url));
}

Boolean CFReadStreamOpen(CFReadStreamRef stream) {
  if (isToFail("CFReadStreamOpen") || !isThere(stream, "CFReadStreamOpen")) return false;
  stream->isOpen = !stream->content.isNull();
  return stream->isOpen;
}

void CFReadStreamClose(CFReadStreamRef stream) {
  isToFail("CFReadStreamClose");
  if (!isThere(stream, "CFReadStreamClose")) return;
  if (!stream->isOpen) noteMisuse("CFReadStreamClose of a stream that is not open");
  stream->isOpen = false;
}

CFPropertyListRef CFPropertyListCreateWithStream(CFAllocatorRef, CFReadStreamRef stream, CFIndex,
                                                 CFOptionFlags, CFPropertyListFormat*,
                                                 CFErrorRef*) {
  if (isToFail("CFPropertyListCreateWithStream") ||
      !isThere(stream, "CFPropertyListCreateWithStream")) {
    return nullptr;
  }
  if (!stream->isOpen) {
    noteMisuse("CFPropertyListCreateWithStream of a stream that is not open");
    return nullptr;
  }
  return newObject(stream->content);
}

}  // extern "C"

namespace corvane::macos {

// The scripting language has no C calls; the platform runs the script itself.
ScriptResult MacScriptRunner::run(const std::string& script) {
  return macSystem().platform.scripts.run(script);
}

}  // namespace corvane::macos
