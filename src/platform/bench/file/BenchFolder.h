#pragma once

#include <string>

#include "platform/Paths.h"
#include "platform/bench/file/BenchFile.h"

namespace corvane {

/// The environment variable that names the bench file to programs that the bench's shell runs.
inline constexpr const char* benchVariable = "CORVANE_BENCH";

/// The simulated computer's own part of the file system, a folder beside its bench file. It holds
/// everything that programs on the bench may write: nothing outside it is touched.
class BenchFolder {
 public:
  explicit BenchFolder(const BenchFile& file);

  /// Makes the folders that are not there yet, with "tmp" leading to "private/tmp". Throws
  /// BenchFileError.
  void create() const;

  const std::string& root() const { return root_; }

  /// The fixed places of the file system, below root().
  Paths paths() const;

  /// Where the simulated computer keeps its command-line tools, "/usr/local/bin".
  std::string toolsFolder() const;

  /// Makes the program `target` appear among the tools as `name`, or takes it away again when
  /// `target` is empty. Throws BenchFileError.
  void placeTool(const std::string& name, const std::string& target) const;

  /// Puts a folder in the scratch file's place, so that nothing can be written there, or takes it
  /// away again. Throws BenchFileError.
  void blockScratchFile(bool isBlocked) const;

 private:
  std::string root_;
};

}  // namespace corvane
