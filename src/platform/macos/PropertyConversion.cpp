#include "platform/macos/PropertyConversion.h"

#include <vector>

namespace corvane::macos {

namespace {

PropertyValue::Data dataValue(CFDataRef data) {
  const UInt8* bytes = CFDataGetBytePtr(data);
  return PropertyValue::Data(bytes, bytes + CFDataGetLength(data));
}

int64_t numberValue(CFNumberRef number) {
  int64_t value = 0;
  CFNumberGetValue(number, kCFNumberSInt64Type, &value);
  return value;
}

PropertyValue::Array arrayValue(CFArrayRef array) {
  PropertyValue::Array values;
  const CFIndex count = CFArrayGetCount(array);
  for (CFIndex index = 0; index < count; ++index) {
    values.push_back(propertyValue(CFArrayGetValueAtIndex(array, index)));
  }
  return values;
}

PropertyValue::Array setValue(CFSetRef set) {
  std::vector<const void*> members(static_cast<size_t>(CFSetGetCount(set)));
  CFSetGetValues(set, members.data());
  PropertyValue::Array values;
  for (const void* member : members) values.push_back(propertyValue(member));
  return values;
}

CoreFoundationReference<CFStringRef> stringIn(CFStringEncoding encoding, const std::string& text) {
  return CoreFoundationReference<CFStringRef>(
      CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(text.data()),
                              static_cast<CFIndex>(text.size()), encoding, false));
}

CoreFoundationReference<CFTypeRef> platformArray(const PropertyValue::Array& array) {
  CFMutableArrayRef values = CFArrayCreateMutable(
      kCFAllocatorDefault, static_cast<CFIndex>(array.size()), &kCFTypeArrayCallBacks);
  for (const PropertyValue& item : array) {
    CFArrayAppendValue(values, platformValue(item).get());
  }
  return CoreFoundationReference<CFTypeRef>(values);
}

}  // namespace

std::optional<std::string> text(CFTypeRef object) {
  if (object == nullptr || CFGetTypeID(object) != CFStringGetTypeID()) return std::nullopt;
  const auto string = static_cast<CFStringRef>(object);
  const CFIndex length = CFStringGetLength(string);
  const CFIndex capacity = CFStringGetMaximumSizeForEncoding(length, kCFStringEncodingUTF8);
  std::string characters(static_cast<size_t>(capacity), '\0');
  CFIndex used = 0;
  CFStringGetBytes(string, CFRangeMake(0, length), kCFStringEncodingUTF8, '?', false,
                   reinterpret_cast<UInt8*>(characters.data()), capacity, &used);
  characters.resize(static_cast<size_t>(used));
  return characters;
}

PropertyValue propertyValue(CFTypeRef object) {
  if (object == nullptr) return {};
  const CFTypeID type = CFGetTypeID(object);
  if (type == CFDataGetTypeID()) return dataValue(static_cast<CFDataRef>(object));
  if (type == CFStringGetTypeID()) return text(object).value_or(std::string());
  if (type == CFBooleanGetTypeID()) {
    return CFBooleanGetValue(static_cast<CFBooleanRef>(object)) != 0;
  }
  if (type == CFNumberGetTypeID()) return numberValue(static_cast<CFNumberRef>(object));
  if (type == CFArrayGetTypeID()) return arrayValue(static_cast<CFArrayRef>(object));
  if (type == CFSetGetTypeID()) return setValue(static_cast<CFSetRef>(object));
  if (type == CFDictionaryGetTypeID()) {
    return propertyDictionary(static_cast<CFDictionaryRef>(object));
  }
  return {};
}

PropertyValue::Dictionary propertyDictionary(CFDictionaryRef dictionary) {
  const auto count = static_cast<size_t>(CFDictionaryGetCount(dictionary));
  std::vector<const void*> keys(count);
  std::vector<const void*> values(count);
  CFDictionaryGetKeysAndValues(dictionary, keys.data(), values.data());
  PropertyValue::Dictionary entries;
  for (size_t index = 0; index < count; ++index) {
    if (const auto key = text(keys[index])) entries[*key] = propertyValue(values[index]);
  }
  return entries;
}

CoreFoundationReference<CFStringRef> platformString(const std::string& text) {
  auto string = stringIn(kCFStringEncodingUTF8, text);
  return string ? std::move(string) : stringIn(kCFStringEncodingISOLatin1, text);
}

CoreFoundationReference<CFTypeRef> platformValue(const PropertyValue& value) {
  using Reference = CoreFoundationReference<CFTypeRef>;
  if (const auto* bytes = value.data()) {
    return Reference(
        CFDataCreate(kCFAllocatorDefault, bytes->data(), static_cast<CFIndex>(bytes->size())));
  }
  if (const auto* characters = value.text())
    return Reference(platformString(*characters).release());
  if (const auto* number = value.number()) {
    return Reference(CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, number));
  }
  if (const auto* truth = value.boolean()) {
    return Reference::retaining(*truth ? kCFBooleanTrue : kCFBooleanFalse);
  }
  if (const auto* items = value.array()) return platformArray(*items);
  if (const auto* entries = value.dictionary()) {
    return Reference(platformDictionary(*entries).release());
  }
  return Reference::retaining(kCFNull);
}

CoreFoundationReference<CFDictionaryRef> platformDictionary(
    const PropertyValue::Dictionary& dictionary) {
  CFMutableDictionaryRef entries =
      CFDictionaryCreateMutable(kCFAllocatorDefault, static_cast<CFIndex>(dictionary.size()),
                                &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
  for (const auto& [key, value] : dictionary) {
    CFDictionarySetValue(entries, platformString(key).get(), platformValue(value).get());
  }
  return CoreFoundationReference<CFDictionaryRef>(entries);
}

}  // namespace corvane::macos
