#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/dump/RegistryDump.h"
#include "platform/dump/SystemProfile.h"

namespace corvane {

/// What a customer sent: a registry dump and, from a collected folder, the system profile.
struct SupportMaterial {
  std::filesystem::path dumpFile;
  RegistryDump dump;
  SystemProfile profile;
};

/// The material, or why there is none.
struct SupportReading {
  std::optional<SupportMaterial> material;
  std::string problem;  ///< one sentence, empty with the material
};

/// Opens a registry dump, a folder that the log collection made, or the folder that holds one such
/// folder. Nothing is written.
SupportReading openSupportMaterial(const std::filesystem::path& path);

}  // namespace corvane
