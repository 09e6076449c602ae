#include "platform/macos/MacBundles.h"

#include "platform/macos/PropertyConversion.h"

namespace corvane::macos {

namespace {

constexpr const char* systemVersionFile = "/System/Library/CoreServices/SystemVersion.plist";

CoreFoundationReference<CFURLRef> fileUrl(const std::string& path, bool isFolder) {
  return CoreFoundationReference<CFURLRef>(CFURLCreateFromFileSystemRepresentation(
      kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()),
      static_cast<CFIndex>(path.size()), isFolder));
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
  const auto url = fileUrl(path, true);
  return url && CFURLResourceIsReachable(url.get(), nullptr);
}

// The system keeps a bundle that was opened once for as long as the process lives, with the
// information of that time, so none is opened.
std::optional<PropertyValue> MacBundles::infoValue(const std::string& path,
                                                   const std::string& key) {
  const auto url = fileUrl(path, true);
  if (!url) return std::nullopt;
  const CoreFoundationReference<CFDictionaryRef> information(
      CFBundleCopyInfoDictionaryInDirectory(url.get()));
  if (!information) return std::nullopt;
  const PropertyValue::Dictionary values = propertyDictionary(information.get());
  const PropertyValue* value = findProperty(values, key);
  return value == nullptr ? std::nullopt : std::optional(*value);
}

std::optional<PropertyValue> MacBundles::mainInfoValue(const std::string& key) {
  CFBundleRef bundle = CFBundleGetMainBundle();
  if (bundle == nullptr) return std::nullopt;
  CFTypeRef value = CFBundleGetValueForInfoDictionaryKey(bundle, platformString(key).get());
  if (value == nullptr) return std::nullopt;
  return propertyValue(value);
}

std::optional<PropertyValue::Dictionary> MacBundles::resourcePropertyList(const std::string& name,
                                                                          const std::string& type) {
  CFBundleRef bundle = CFBundleGetMainBundle();
  if (bundle == nullptr) return std::nullopt;
  const CoreFoundationReference<CFURLRef> url(CFBundleCopyResourceURL(
      bundle, platformString(name).get(), platformString(type).get(), nullptr));
  return url ? propertyListAt(url.get()) : std::nullopt;
}

std::string MacSystemVersion::productVersion() {
  const auto url = fileUrl(systemVersionFile, false);
  const auto values = url ? propertyListAt(url.get()) : std::nullopt;
  const PropertyValue* version = values ? findProperty(*values, "ProductVersion") : nullptr;
  return version != nullptr && version->text() != nullptr ? *version->text() : std::string();
}

}  // namespace corvane::macos
