#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "macos/standin/SystemState.h"
#include "platform/PropertyValue.h"
#include "platform/RunLoop.h"

/// What a CFTypeRef points at.
struct CFObject : corvane::standin::Object {
  CFObject(CFTypeID theType, const char* kind) : Object(kind), type(theType) {}

  const CFTypeID type;
};

enum : CFTypeID {
  nullTypeId = 1,
  stringTypeId,
  dataTypeId,
  numberTypeId,
  booleanTypeId,
  arrayTypeId,
  setTypeId,
  dictionaryTypeId,
  urlTypeId,
  bundleTypeId,
  streamTypeId,
  runLoopTypeId,
  runLoopSourceTypeId,
  sessionTypeId,
  diskTypeId,
};

struct CFStringObject : CFObject {
  explicit CFStringObject(std::u16string theUnits)
      : CFObject(stringTypeId, "string"), units(std::move(theUnits)) {}

  std::u16string units;
};

struct CFDataObject : CFObject {
  explicit CFDataObject(std::vector<uint8_t> theBytes)
      : CFObject(dataTypeId, "data"), bytes(std::move(theBytes)) {}

  std::vector<uint8_t> bytes;
};

struct CFNumberObject : CFObject {
  explicit CFNumberObject(int64_t theValue) : CFObject(numberTypeId, "number"), value(theValue) {}
  explicit CFNumberObject(double theValue)
      : CFObject(numberTypeId, "number"),
        value(static_cast<int64_t>(theValue)),
        isWhole(static_cast<double>(value) == theValue) {}

  const int64_t value;
  const bool isWhole = true;
};

struct CFBooleanObject : CFObject {
  explicit CFBooleanObject(bool theValue) : CFObject(booleanTypeId, "boolean"), value(theValue) {
    becomeTheSystemsOwn();
  }

  const bool value;
};

struct CFNullObject : CFObject {
  CFNullObject() : CFObject(nullTypeId, "null") { becomeTheSystemsOwn(); }
};

/// An object that holds others, each with a reference.
struct CFCollectionObject : CFObject {
  using CFObject::CFObject;

  std::vector<CFTypeRef> values;

 protected:
  void drop() override {
    for (const CFTypeRef value : values) CFRelease(value);
    values.clear();
  }
};

struct CFArrayObject : CFCollectionObject {
  CFArrayObject() : CFCollectionObject(arrayTypeId, "array") {}
};

struct CFSetObject : CFCollectionObject {
  CFSetObject() : CFCollectionObject(setTypeId, "set") {}
};

struct CFDictionaryObject : CFCollectionObject {
  CFDictionaryObject() : CFCollectionObject(dictionaryTypeId, "dictionary") {}

  std::vector<CFTypeRef> keys;

 protected:
  void drop() override {
    for (const CFTypeRef key : keys) CFRelease(key);
    keys.clear();
    CFCollectionObject::drop();
  }
};

/// A file or folder, or a resource of the application's.
struct CFURLObject : CFObject {
  CFURLObject(std::string thePath, std::string theType)
      : CFObject(urlTypeId, "URL"), path(std::move(thePath)), resourceType(std::move(theType)) {}

  const std::string path;          ///< of a resource its name
  const std::string resourceType;  ///< empty for no resource
};

struct CFBundleObject : CFObject {
  CFBundleObject() : CFObject(bundleTypeId, "bundle") { becomeTheSystemsOwn(); }
};

struct CFReadStreamObject : CFObject {
  explicit CFReadStreamObject(corvane::PropertyValue theContent)
      : CFObject(streamTypeId, "stream"), content(std::move(theContent)) {}

  const corvane::PropertyValue content;  ///< nothing where there is no such file
  bool isOpen = false;
};

struct CFRunLoopSourceObject : CFObject {
  explicit CFRunLoopSourceObject(std::shared_ptr<corvane::RunLoopSource> theSource)
      : CFObject(runLoopSourceTypeId, "run loop source"), source(std::move(theSource)) {}

  std::shared_ptr<corvane::RunLoopSource> source;

 protected:
  void drop() override { source.reset(); }
};

struct CFRunLoopObject : CFObject {
  explicit CFRunLoopObject(std::shared_ptr<corvane::RunLoop> theLoop)
      : CFObject(runLoopTypeId, "run loop"), loop(std::move(theLoop)) {
    becomeTheSystemsOwn();
  }

  const std::shared_ptr<corvane::RunLoop> loop;
  std::atomic<bool> isRunning{false};
};

namespace corvane::standin {

/// The object behind a reference that is there; null, with the misuse noted, when it is not.
template <typename Kind>
Kind* objectThere(Kind* object, const char* call) {
  return isThere(object, call) ? object : nullptr;
}

/// The same for a reference of any kind.
CFObject* objectOf(CFTypeRef reference);

/// A new object for the value, with one reference.
CFTypeRef newObject(const PropertyValue& value);
CFMutableDictionaryRef newDictionary(const PropertyValue::Dictionary& dictionary);
CFStringRef newString(const std::string& text);

/// The value of an object, whatever the layer thinks of it.
PropertyValue valueOf(CFTypeRef reference);
PropertyValue::Dictionary valuesOf(CFDictionaryRef dictionary);

/// The text of a string, as UTF-8.
std::string textOf(CFStringRef string);

}  // namespace corvane::standin
