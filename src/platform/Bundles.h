#pragma once

#include <optional>
#include <string>

#include "platform/PropertyValue.h"

namespace corvane {

/// Bundles on disk and the application's own.
class Bundles {
 public:
  virtual ~Bundles() = default;

  /// Whether there is a bundle folder at `path`.
  virtual bool exists(const std::string& path) = 0;

  /// CFBundleCreate and CFBundleGetValueForInfoDictionaryKey: a value of the information dictionary
  /// of the bundle at `path`; nothing when there is no such bundle or key.
  virtual std::optional<PropertyValue> infoValue(const std::string& path,
                                                 const std::string& key) = 0;

  /// A value of the application's own information dictionary.
  virtual std::optional<PropertyValue> mainInfoValue(const std::string& key) = 0;

  /// A resource property list of the application's bundle, such as "UpdateEngine" of type "plist".
  virtual std::optional<PropertyValue::Dictionary> resourcePropertyList(
      const std::string& name, const std::string& type) = 0;
};

/// The operating system's version file, "/System/Library/CoreServices/SystemVersion.plist".
class SystemVersion {
 public:
  virtual ~SystemVersion() = default;

  /// Its "ProductVersion", such as "10.8.5" or "14.3"; empty when it cannot be read.
  virtual std::string productVersion() = 0;
};

}  // namespace corvane
