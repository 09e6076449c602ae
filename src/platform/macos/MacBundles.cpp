#include "platform/macos/MacBundles.h"

#include <unistd.h>

#include "platform/macos/PropertyConversion.h"

namespace corvane::macos {

namespace {

constexpr const char* systemVersionFile = "/System/Library/CoreServices/SystemVersion.plist";

CoreFoundationReference<CFURLRef> fileUrl(const std::string& path, bool isFolder) {
  return CoreFoundationReference<CFURLRef>(CFURLCreateWithFileSystemPath(
      kCFAllocatorDefault, platformString(path).get(), kCFURLPOSIXPathStyle, isFolder));
}

std::optional<PropertyValue> infoValueOf(CFBundleRef bundle, const std::string& key) {
  if (bundle == nullptr) return std::nullopt;
  CFTypeRef value = CFBundleGetValueForInfoDictionaryKey(bundle, platformString(key).get());
  if (value == nullptr) return std::nullopt;
  return propertyValue(value);
}

std::optional<PropertyValue::Dictionary> propertyListAt(CFURLRef url) {
  const CoreFoundationReference<CFReadStreamRef> stream(
      CFReadStreamCreateWithFile(kCFAllocatorDefault, url));
  if (!stream || !CFReadStreamOpen(stream.get())) return std::nullopt;
  const CoreFoundationReference<CFPropertyListRef> list(CFPropertyListCreateWithStream(
      kCFAllocatorDefault, stream.get(), 0, kCFPropertyListImmutable, nullptr, nullptr));
  CFReadStreamClose(stream.get());
  if (!list || CFGetTypeID(list.get()) != CFDictionaryGetTypeID()) return std::nullopt;
  return propertyDictionary(static_cast<CFDictionaryRef>(list.get()));
}

}  // namespace

bool MacBundles::exists(const std::string& path) {
  return access(path.c_str(), F_OK) == 0;
}

std::optional<PropertyValue> MacBundles::infoValue(const std::string& path,
                                                   const std::string& key) {
  const CoreFoundationReference<CFBundleRef> bundle(
      CFBundleCreate(kCFAllocatorDefault, fileUrl(path, true).get()));
  return infoValueOf(bundle.get(), key);
}

std::optional<PropertyValue> MacBundles::mainInfoValue(const std::string& key) {
  return infoValueOf(CFBundleGetMainBundle(), key);
}

std::optional<PropertyValue::Dictionary> MacBundles::resourcePropertyList(const std::string& name,
                                                                          const std::string& type) {
  const CoreFoundationReference<CFURLRef> url(CFBundleCopyResourceURL(
      CFBundleGetMainBundle(), platformString(name).get(), platformString(type).get(), nullptr));
  return url ? propertyListAt(url.get()) : std::nullopt;
}

std::string MacSystemVersion::productVersion() {
  const auto values = propertyListAt(fileUrl(systemVersionFile, false).get());
  const PropertyValue* version = values ? findProperty(*values, "ProductVersion") : nullptr;
  return version != nullptr && version->text() != nullptr ? *version->text() : std::string();
}

}  // namespace corvane::macos
