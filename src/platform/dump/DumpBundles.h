#pragma once

#include "platform/Bundles.h"
#include "platform/dump/RegistryDump.h"
#include "platform/dump/SystemProfile.h"

namespace corvane {

/// The driver bundles of the computer that a dump was taken of. A driver is there when one of its
/// services is in the dump; its version is known when the system profile was collected with it.
/// What the dump was opened with (the application's own information) is asked of `application`.
class DumpBundles final : public Bundles {
 public:
  /// All three outlive the bundles.
  DumpBundles(const RegistryDump& dump, const SystemProfile& profile, Bundles& application)
      : dump_(dump), profile_(profile), application_(application) {}

  bool exists(const std::string& path) override;
  std::optional<PropertyValue> infoValue(const std::string& path, const std::string& key) override;
  std::optional<PropertyValue> mainInfoValue(const std::string& key) override;
  std::optional<PropertyValue::Dictionary> resourcePropertyList(const std::string& name,
                                                                const std::string& type) override;

 private:
  const RegistryDump& dump_;
  const SystemProfile& profile_;
  Bundles& application_;
};

/// The release that the system profile names.
class DumpSystemVersion final : public SystemVersion {
 public:
  explicit DumpSystemVersion(const SystemProfile& profile) : profile_(profile) {}

  std::string productVersion() override { return profile_.productVersion; }

 private:
  const SystemProfile& profile_;
};

}  // namespace corvane
