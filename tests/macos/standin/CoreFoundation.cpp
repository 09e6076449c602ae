#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>

#include "macos/standin/CoreFoundationObjects.h"

using namespace corvane;
using namespace corvane::standin;

namespace {

CFBooleanObject trueObject(true);
CFBooleanObject falseObject(false);
CFNullObject nullObject;

/// Adds a value that a collection is given; nothing, or one that is gone, crashes on a Mac.
bool isKept(CFTypeRef value, const char* call) {
  if (!isThere(objectOf(value), call)) return false;
  objectOf(value)->retain();
  return true;
}

PropertyValue::Array valuesIn(const std::vector<CFTypeRef>& references) {
  PropertyValue::Array values;
  for (const CFTypeRef reference : references) values.push_back(valueOf(reference));
  return values;
}

}  // namespace

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = &trueObject;
const CFBooleanRef kCFBooleanFalse = &falseObject;
const CFNullRef kCFNull = &nullObject;
const CFArrayCallBacks kCFTypeArrayCallBacks{0};
const CFSetCallBacks kCFTypeSetCallBacks{0};
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{0};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{0};

namespace corvane::standin {

CFObject* objectOf(CFTypeRef reference) {
  return static_cast<CFObject*>(const_cast<void*>(reference));
}

CFMutableDictionaryRef newDictionary(const PropertyValue::Dictionary& dictionary) {
  auto* object = makeObject<CFDictionaryObject>();
  for (const auto& [key, value] : dictionary) {
    object->keys.push_back(newString(key));
    object->values.push_back(newObject(value));
  }
  return object;
}

CFTypeRef newObject(const PropertyValue& value) {
  if (const auto* bytes = value.data()) return makeObject<CFDataObject>(*bytes);
  if (const auto* text = value.text()) return newString(*text);
  if (const auto* number = value.number()) return makeObject<CFNumberObject>(*number);
  if (const auto* truth = value.boolean())
    return CFRetain(*truth ? kCFBooleanTrue : kCFBooleanFalse);
  if (const auto* entries = value.dictionary()) return newDictionary(*entries);
  if (const auto* items = value.array()) {
    auto* object = makeObject<CFArrayObject>();
    for (const PropertyValue& item : *items) object->values.push_back(newObject(item));
    return object;
  }
  return CFRetain(kCFNull);
}

PropertyValue valueOf(CFTypeRef reference) {
  switch (objectOf(reference)->type) {
    case stringTypeId:
      return textOf(static_cast<CFStringRef>(reference));
    case dataTypeId:
      return static_cast<CFDataRef>(reference)->bytes;
    case numberTypeId:
      return static_cast<CFNumberRef>(reference)->value;
    case booleanTypeId:
      return static_cast<CFBooleanRef>(reference)->value;
    case arrayTypeId:
    case setTypeId:
      return valuesIn(static_cast<const CFCollectionObject*>(reference)->values);
    case dictionaryTypeId:
      return valuesOf(static_cast<CFDictionaryRef>(reference));
    default:
      return {};
  }
}

PropertyValue::Dictionary valuesOf(CFDictionaryRef dictionary) {
  PropertyValue::Dictionary values;
  for (size_t index = 0; index < dictionary->keys.size(); ++index) {
    values[textOf(static_cast<CFStringRef>(dictionary->keys[index]))] =
        valueOf(dictionary->values[index]);
  }
  return values;
}

}  // namespace corvane::standin

extern "C" {

CFTypeRef CFRetain(CFTypeRef object) {
  isToFail("CFRetain");
  if (isThere(objectOf(object), "CFRetain")) objectOf(object)->retain();
  return object;
}

void CFRelease(CFTypeRef object) {
  isToFail("CFRelease");
  releaseObject(objectOf(object), "CFRelease");
}

CFTypeID CFGetTypeID(CFTypeRef object) {
  isToFail("CFGetTypeID");
  return isThere(objectOf(object), "CFGetTypeID") ? objectOf(object)->type : 0;
}

CFTypeID CFDataGetTypeID() {
  return dataTypeId;
}

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex length) {
  isToFail("CFDataCreate");
  return makeObject<CFDataObject>(std::vector<uint8_t>(bytes, bytes + length));
}

const UInt8* CFDataGetBytePtr(CFDataRef data) {
  isToFail("CFDataGetBytePtr");
  return isThere(data, "CFDataGetBytePtr") ? data->bytes.data() : nullptr;
}

CFIndex CFDataGetLength(CFDataRef data) {
  isToFail("CFDataGetLength");
  return isThere(data, "CFDataGetLength") ? static_cast<CFIndex>(data->bytes.size()) : 0;
}

CFTypeID CFBooleanGetTypeID() {
  return booleanTypeId;
}

Boolean CFBooleanGetValue(CFBooleanRef boolean) {
  isToFail("CFBooleanGetValue");
  return isThere(boolean, "CFBooleanGetValue") && boolean->value;
}

CFTypeID CFNumberGetTypeID() {
  return numberTypeId;
}

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType type, const void* value) {
  if (isToFail("CFNumberCreate")) return nullptr;
  switch (type) {
    case kCFNumberSInt8Type:
      return makeObject<CFNumberObject>(int64_t{*static_cast<const int8_t*>(value)});
    case kCFNumberSInt64Type:
      return makeObject<CFNumberObject>(*static_cast<const int64_t*>(value));
    case kCFNumberFloat64Type:
      return makeObject<CFNumberObject>(*static_cast<const double*>(value));
    default:
      noteMisuse("CFNumberCreate of a type that is not known");
      return nullptr;
  }
}

Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value) {
  isToFail("CFNumberGetValue");
  if (!isThere(number, "CFNumberGetValue") || type != kCFNumberSInt64Type) return false;
  *static_cast<int64_t*>(value) = number->value;
  return number->isWhole;
}

CFTypeID CFArrayGetTypeID() {
  return arrayTypeId;
}

CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef, CFIndex, const CFArrayCallBacks* callbacks) {
  isToFail("CFArrayCreateMutable");
  if (callbacks != &kCFTypeArrayCallBacks) noteMisuse("CFArrayCreateMutable that keeps nothing");
  return makeObject<CFArrayObject>();
}

void CFArrayAppendValue(CFMutableArrayRef array, const void* value) {
  isToFail("CFArrayAppendValue");
  if (!isThere(array, "CFArrayAppendValue") || !isKept(value, "CFArrayAppendValue")) return;
  array->values.push_back(value);
}

CFIndex CFArrayGetCount(CFArrayRef array) {
  isToFail("CFArrayGetCount");
  return isThere(array, "CFArrayGetCount") ? static_cast<CFIndex>(array->values.size()) : 0;
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
  isToFail("CFArrayGetValueAtIndex");
  if (!isThere(array, "CFArrayGetValueAtIndex")) return nullptr;
  if (index < 0 || static_cast<size_t>(index) >= array->values.size()) {
    noteMisuse("CFArrayGetValueAtIndex beyond the end");
    return nullptr;
  }
  return array->values[static_cast<size_t>(index)];
}

CFTypeID CFSetGetTypeID() {
  return setTypeId;
}

CFSetRef CFSetCreate(CFAllocatorRef, const void** values, CFIndex count, const CFSetCallBacks*) {
  auto* set = makeObject<CFSetObject>();
  for (CFIndex index = 0; index < count; ++index) {
    if (isKept(values[index], "CFSetCreate")) set->values.push_back(values[index]);
  }
  return set;
}

CFIndex CFSetGetCount(CFSetRef set) {
  isToFail("CFSetGetCount");
  return isThere(set, "CFSetGetCount") ? static_cast<CFIndex>(set->values.size()) : 0;
}

void CFSetGetValues(CFSetRef set, const void** values) {
  isToFail("CFSetGetValues");
  if (isThere(set, "CFSetGetValues")) std::copy(set->values.begin(), set->values.end(), values);
}

CFTypeID CFDictionaryGetTypeID() {
  return dictionaryTypeId;
}

CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex,
                                                 const CFDictionaryKeyCallBacks* keys,
                                                 const CFDictionaryValueCallBacks* values) {
  isToFail("CFDictionaryCreateMutable");
  if (keys != &kCFTypeDictionaryKeyCallBacks || values != &kCFTypeDictionaryValueCallBacks) {
    noteMisuse("CFDictionaryCreateMutable that keeps nothing");
  }
  return makeObject<CFDictionaryObject>();
}

void CFDictionarySetValue(CFMutableDictionaryRef dictionary, const void* key, const void* value) {
  isToFail("CFDictionarySetValue");
  if (!isThere(dictionary, "CFDictionarySetValue")) return;
  if (!isKept(key, "CFDictionarySetValue")) return;
  if (!isKept(value, "CFDictionarySetValue")) return CFRelease(key);
  dictionary->keys.push_back(key);
  dictionary->values.push_back(value);
}

CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary) {
  isToFail("CFDictionaryGetCount");
  const bool there = isThere(dictionary, "CFDictionaryGetCount");
  return there ? static_cast<CFIndex>(dictionary->keys.size()) : 0;
}

void CFDictionaryGetKeysAndValues(CFDictionaryRef dictionary, const void** keys,
                                  const void** values) {
  isToFail("CFDictionaryGetKeysAndValues");
  if (!isThere(dictionary, "CFDictionaryGetKeysAndValues")) return;
  std::copy(dictionary->keys.begin(), dictionary->keys.end(), keys);
  std::copy(dictionary->values.begin(), dictionary->values.end(), values);
}

}  // extern "C"
