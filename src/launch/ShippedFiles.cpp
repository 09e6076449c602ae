#include "launch/ShippedFiles.h"

#include <system_error>

#ifdef __APPLE__
#include "platform/macos/MacProgramPath.h"
#endif

namespace corvane {

namespace {

namespace files = std::filesystem;

/// What tells a folder of benches from any other folder of that name.
constexpr const char* demoBenchFile = "demo.json";
/// How far above its programs the sources of a build tree are looked for.
constexpr int ancestorLimit = 5;

files::path thisProgram() {
#ifdef __APPLE__
  return macos::programPath();
#else
  std::error_code error;
  return files::read_symlink("/proc/self/exe", error);
#endif
}

bool isBenchFolder(const files::path& folder) {
  std::error_code error;
  return files::is_regular_file(folder / demoBenchFile, error);
}

std::optional<files::path> folderIfThere(const files::path& folder) {
  std::error_code error;
  if (!files::is_directory(folder, error)) return std::nullopt;
  return folder;
}

}  // namespace

ShippedFiles::ShippedFiles(const files::path& program) : folder_(program.parent_path()) {}

ShippedFiles ShippedFiles::ofThisProgram() {
  return ShippedFiles(thisProgram());
}

std::optional<files::path> ShippedFiles::benchFolder() const {
  const files::path above = folder_.parent_path();
  for (const char* installed : {"share/corvane/bench", "Resources/bench"}) {
    if (isBenchFolder(above / installed)) return above / installed;
  }
  files::path ancestor = folder_;
  for (int level = 0; level < ancestorLimit; ++level, ancestor = ancestor.parent_path()) {
    if (isBenchFolder(ancestor / "bench")) return ancestor / "bench";
  }
  return std::nullopt;
}

std::optional<files::path> ShippedFiles::benchToolsFolder() const {
  const files::path above = folder_.parent_path();
  for (const files::path& candidate :
       {folder_ / "bench-tools", above / "libexec/corvane/bench-tools",
        above / "Helpers/bench-tools"}) {
    if (auto found = folderIfThere(candidate)) return found;
  }
  return std::nullopt;
}

}  // namespace corvane
