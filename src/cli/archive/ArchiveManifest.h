#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace corvane {

/// What `corvane archive create` is to put into a package.
struct ArchiveManifest {
  struct File {
    std::string id;
    std::string version;
    std::string description;
    std::string name;
    std::filesystem::path path;  ///< where its bytes are
  };

  std::string id;
  std::string version;
  std::vector<File> files;
};

/// Reads a manifest, `{"id","version","files":[{"id","version","description","name",
/// "path"}]}`, paths relative to it. Throws CommandFailure naming the field when it
/// is missing, of the wrong kind or unknown, when a text cannot be stored in a
/// package, or when two files have the same id.
ArchiveManifest readArchiveManifest(const std::filesystem::path& path);

}  // namespace corvane
