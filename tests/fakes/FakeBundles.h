#pragma once

#include <map>
#include <string>

#include "platform/Bundles.h"

namespace corvane {

/// Bundles by path, and the application's own.
class FakeBundles : public Bundles {
 public:
  std::map<std::string, PropertyValue::Dictionary> bundles;
  PropertyValue::Dictionary mainInfo;
  std::map<std::string, PropertyValue::Dictionary> resources;  ///< by "NAME.TYPE"

  void install(const std::string& path, const std::string& version) {
    bundles[path] = {{"CFBundleVersion", PropertyValue(version)}};
  }

  bool exists(const std::string& path) override { return bundles.count(path) != 0; }

  std::optional<PropertyValue> infoValue(const std::string& path, const std::string& key) override {
    const auto found = bundles.find(path);
    return found == bundles.end() ? std::nullopt : value(found->second, key);
  }

  std::optional<PropertyValue> mainInfoValue(const std::string& key) override {
    return value(mainInfo, key);
  }

  std::optional<PropertyValue::Dictionary> resourcePropertyList(const std::string& name,
                                                                const std::string& type) override {
    const auto found = resources.find(name + "." + type);
    if (found == resources.end()) return std::nullopt;
    return found->second;
  }

 private:
  static std::optional<PropertyValue> value(const PropertyValue::Dictionary& dictionary,
                                            const std::string& key) {
    const auto* found = findProperty(dictionary, key);
    if (found == nullptr) return std::nullopt;
    return *found;
  }
};

class FakeSystemVersion : public SystemVersion {
 public:
  std::string version = "14.3";
  std::string productVersion() override { return version; }
};

}  // namespace corvane
