#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "discovery/AdapterFamily.h"
#include "platform/Platform.h"

namespace corvane {

/// The version that stands for a driver whose bundle is missing or tells none.
inline constexpr const char* missingDriverVersion = "0.0.0";

/// The driver of one family that is installed on this computer: its bundle, in the folder that the
/// operating system's release uses, and whether it offers the settings of the pages. Looked at
/// once, when it is made; a value afterwards.
class InstalledDriver {
 public:
  InstalledDriver(const Platform& platform, AdapterFamily family);

  AdapterFamily family() const { return family_; }

  /// Where the bundle is; nothing when none of the family's bundles is installed.
  const std::optional<std::string>& bundlePath() const { return bundlePath_; }

  /// The bundle's version text; nothing when there is none. For Fibre Channel it is cut to fifteen
  /// characters; for 10GbE a longer one, or one that is not ASCII, counts as none.
  const std::optional<std::string>& version() const { return version_; }

  /// The version, or `missingDriverVersion`.
  std::string versionOrMissing() const { return version_.value_or(missingDriverVersion); }

  /// 0 when the driver offers the settings of the pages, 1 or 2 when it is too old or missing.
  int64_t fitness() const;

 private:
  AdapterFamily family_;
  std::optional<std::string> bundlePath_;
  std::optional<std::string> version_;
};

}  // namespace corvane
