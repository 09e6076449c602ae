#pragma once

#include "platform/Bundles.h"

namespace corvane::macos {

/// The platform's bundles.
class MacBundles final : public Bundles {
 public:
  bool exists(const std::string& path) override;
  std::optional<PropertyValue> infoValue(const std::string& path, const std::string& key) override;
  std::optional<PropertyValue> mainInfoValue(const std::string& key) override;
  std::optional<PropertyValue::Dictionary> resourcePropertyList(const std::string& name,
                                                                const std::string& type) override;
};

/// The operating system's version file.
class MacSystemVersion final : public SystemVersion {
 public:
  std::string productVersion() override;
};

}  // namespace corvane::macos
